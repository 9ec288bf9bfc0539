// Neighbours and layer-2 paths.

#include "tests/faults/QuestionRows.h"

namespace zntopo::test {
namespace {

const std::vector<Ending> kPathOfAddresses = {{"select TopologyReady", ZN_API_DB_NOT_READY},
                                              {"", ZN_API_UNKNOWN_IP}};
// A node that can't be read is no node; an interface of it that can't be read is no interface.
const std::vector<Ending> kPathOfNodes = {{"a.VendorCard, a.VendorPort", ZN_API_NO_PATH},
                                          {"select a.AddressId", ZN_API_NO_PATH},
                                          {"", ZN_API_OBJ_NOT_EXIST}};

}  // namespace

std::vector<Question> walkQuestions() {
  return {
      {"getNodeNeighbors",
       [](OpenImpl& impl, Status& status) {
         return impl.getNodeNeighbors("beta", status, 2, 100000)->size();
       },
       kGated},
      {"getConnectivity",
       [](OpenImpl& impl, Status& status) {
         std::set<ObjID> notFound;
         return impl.getConnectivity({ObjID(kBeta)}, notFound, status, true, false)->size();
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
  };
}

}  // namespace zntopo::test
