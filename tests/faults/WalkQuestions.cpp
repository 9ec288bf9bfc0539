// Neighbours, layer-2 paths and subnets within hops.

#include "tests/faults/QuestionRows.h"

namespace zntopo::test {
namespace {

const std::vector<Ending> kPathOfAddresses = {{"select TopologyReady", ZN_API_DB_NOT_READY},
                                              {"", ZN_API_UNKNOWN_IP}};
// A node that can't be read is no node; an interface of it that can't be read is no interface.
const std::vector<Ending> kPathOfNodes = {{"a.VendorCard, a.VendorPort", ZN_API_NO_PATH},
                                          {"select a.AddressId", ZN_API_NO_PATH},
                                          {"", ZN_API_OBJ_NOT_EXIST}};
// Only the start node has to be there: whatever else can't be read shortens the walk.
const std::vector<Ending> kSubnetWalk = {
    {"select TopologyReady", ZN_API_DB_NOT_READY}, {"a.VendorCard, a.VendorPort", ZN_API_SUCCESS},
    {"select a.AddressId", ZN_API_SUCCESS},        {"EntityOID", ZN_API_SUCCESS},
    {"a.SubnetObjID <> a.ObjID", ZN_API_SUCCESS},  {"", ZN_API_INVALID_ID}};

std::size_t connectionsOf(OpenImpl& impl, Status& status, bool includeHop) {
  std::set<ObjID> notFound;
  return impl.getConnectivity({ObjID(kAlpha), ObjID(kBeta)}, notFound, status, includeHop, false)
      ->size();
}

}  // namespace

std::vector<Question> walkQuestions() {
  return {
      {"getNodeNeighbors",
       [](OpenImpl& impl, Status& status) {
         return impl.getNodeNeighbors("beta", status, 2, 100000)->size();
       },
       kGated},
      {"getL2Path",
       [](OpenImpl& impl, Status& status) {
         return impl.getL2Path("10.1.1.2", "10.1.3.2", 9, status, ZNAddress::IPv4, true)->size();
       },
       kPathOfAddresses},
      {"getL2PathBetweenNodes",
       [](OpenImpl& impl, Status& status) {
         return impl.getL2PathBetweenNodes("gamma", "alpha.net", 9, status, ZNAddress::IPv4, true)
             ->size();
       },
       kPathOfNodes},
      {"getConnectivity",
       [](OpenImpl& impl, Status& status) { return connectionsOf(impl, status, true); }, kGated},
      {"getConnectivity, between the nodes",
       [](OpenImpl& impl, Status& status) { return connectionsOf(impl, status, false); }, kGated},
      {"getNSubnetConnectivity",
       [](OpenImpl& impl, Status& status) {
         return impl.getNSubnetConnectivity(2, ObjID(kAlpha), ZNTopoFilter(), status)->size();
       },
       kSubnetWalk},
  };
}

}  // namespace zntopo::test
