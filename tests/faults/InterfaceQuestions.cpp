// Interfaces and addresses.

#include "tests/faults/QuestionRows.h"

namespace zntopo::test {
namespace {

const std::vector<Ending> kInvalidID = {{"", ZN_API_INVALID_ID}};
const std::vector<Ending> kGatedInvalidID = {{"select TopologyReady", ZN_API_DB_NOT_READY},
                                             {"", ZN_API_INVALID_ID}};
// The search by text tells of itself; then one interface is asked for by its identifier.
const std::vector<Ending> kInterfaceSearch = {{"select objID from", std::nullopt},
                                              {"", ZN_API_INVALID_ID}};
const std::vector<Ending> kNotThere = {{"", ZN_API_OBJ_NOT_EXIST}};

std::size_t interfacesOf(OpenImpl& impl, Status& status, const std::set<ObjID>& ids, bool isQRMID,
                         bool all) {
  std::set<ObjID> notFound;
  return impl.getInterfacesByObjIDList(ids, notFound, status, isQRMID, all)->size();
}

}  // namespace

std::vector<Question> interfaceQuestions() {
  return {
      {"getInterfaceByObjID",
       [](OpenImpl& impl, Status& status) {
         return one(impl.getInterfaceByObjID(interfaceID(1, 2), status));
       },
       kInvalidID},
      {"getInterfacesByObjIDList",
       [](OpenImpl& impl, Status& status) {
         return interfacesOf(impl, status, setOf(interfaceIDs()), false, false);
       },
       kGated},
      {"getInterfacesByObjIDList by QRM ID",
       [](OpenImpl& impl, Status& status) {
         return interfacesOf(impl, status, {"2", "2001"}, true, false);
       },
       kGated},
      {"getInterfacesByObjIDList, all connected",
       [](OpenImpl& impl, Status& status) { return interfacesOf(impl, status, {}, false, true); },
       kGated},
      {"getInterfacesByNodeObjIDList",
       [](OpenImpl& impl, Status& status) {
         return impl.getInterfacesByNodeObjIDList(nodeIDs(), status)->size();
       },
       kGated},
      {"getInterfaceIDsByNodeObjIDList",
       [](OpenImpl& impl, Status& status) {
         return impl.getInterfaceIDsByNodeObjIDList(nodeIDs(), status)->size();
       }},
      {"getInterfaceByIfName",
       [](OpenImpl& impl, Status& status) {
         return one(impl.getInterfaceByIfName("Gi0/2", "alpha.net", status));
       },
       kInterfaceSearch},
      {"getInterfaceByIPV4",
       [](OpenImpl& impl, Status& status) {
         return one(impl.getInterfaceByIPV4("10.1.1.2", status, -1));
       },
       kInterfaceSearch},
      {"getMeshID",
       [](OpenImpl& impl, Status& status) -> std::size_t {
         return !impl.getMeshID(interfaceID(1, 2), status).isNull();
       }},
      {"getInterfacesByObjID",
       [](OpenImpl& impl, Status& status) {
         return impl.getInterfacesByObjID(kMesh, status).size();
       },
       kGated, ZN_API_SUCCESS, Connects::First, Finds::Nothing},
      {"getMeshInterfaces",
       [](OpenImpl& impl, Status& status) { return impl.getMeshInterfaces(kMesh, status).size(); },
       kGated, ZN_API_EMPTY_OBJID_LIST, Connects::First, Finds::Nothing},
  };
}

std::vector<Question> addressQuestions() {
  return {
      {"getAddressByObjID",
       [](OpenImpl& impl, Status& status) {
         return one(impl.getAddressByObjID(kV6Address, status));
       },
       kGated},
      {"getAddrsByObjIDs",
       [](OpenImpl& impl, Status& status) {
         return impl
             .getAddrsByObjIDs({ObjID(kV6Address), ObjID(kDnsAddress)}, status, false,
                               ZNAddress::IPv4)
             ->size();
       },
       kGated},
      {"getAddrsByObjIDs, all of IPv4",
       [](OpenImpl& impl, Status& status) {
         return impl.getAddrsByObjIDs({}, status, true, ZNAddress::IPv4)->size();
       },
       kGated},
      {"getAddrsByAssociatedObjIDList, by interface",
       [](OpenImpl& impl, Status& status) {
         return impl.getAddrsByAssociatedObjIDList(interfaceIDs(), status, 0)->size();
       },
       kGated},
      {"getAddrsByAssociatedObjIDList, by node",
       [](OpenImpl& impl, Status& status) {
         return impl.getAddrsByAssociatedObjIDList(nodeIDs(), status, 1)->size();
       },
       kGated},
      {"getAddressByQRMObjID",
       [](OpenImpl& impl, Status& status) { return one(impl.getAddressByQRMObjID("777", status)); },
       kGatedInvalidID},
      {"getMonitoredIPv6AddressByObjID",
       [](OpenImpl& impl, Status& status) {
         return one(impl.getMonitoredIPv6AddressByObjID(kV6Address, status));
       },
       kGated},
      {"getMonitoredIPv6AddressByQRMObjID",
       [](OpenImpl& impl, Status& status) {
         return one(impl.getMonitoredIPv6AddressByQRMObjID("777", status));
       },
       kGatedInvalidID},
      {"getInetAddressIPv6IDsFromDNSExpression",
       [](OpenImpl& impl, Status& status) {
         return impl.getInetAddressIPv6IDsFromDNSExpression("www%", status)->size();
       },
       kGated},
      {"resolveIPv6ToDNS",
       [](OpenImpl& impl, Status& status) {
         return impl.resolveIPv6ToDNS(kV6Address, status)->size();
       },
       kGated},
      {"getAddressByIP, IPv4",
       [](OpenImpl& impl, Status& status) {
         return one(impl.getAddressByIP("10.1.1.2", status, -1));
       },
       kNotThere},
      {"getAddressByIP, IPv6 and a route distinguisher",
       [](OpenImpl& impl, Status& status) {
         return one(impl.getAddressByIP("2001:db8::1", status, 0));
       },
       kNotThere},
  };
}

}  // namespace zntopo::test
