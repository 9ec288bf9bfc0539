#include "tests/operations/Costs.h"

namespace zntopo::test {
namespace {

constexpr Operation kOperations[] = {
    {"getAddressByObjID",
     [](const Desk& desk) {
       return oneAddress([&](ZNTopoAPIStatus& status) {
         return desk.api.getAddressByObjID(ObjID(hubAddressID(1)), status);
       });
     },
     kOne, Growth::None, kStateAndOneStatement, kNothing, kOneStatement},
    {"getAddrsByObjIDs",
     [](const Desk& desk) {
       std::list<ObjID> ids;
       for (int i = 1; i <= desk.size.leaves; ++i) ids.push_back(ObjID(hubAddressID(i)));
       return manyAddresses([&](ZNTopoAPIStatus& status) {
         return desk.api.getAddrsByObjIDs(ids, status, false, ZNAddress::IPv4);
       });
     },
     kLeaves, Growth::None, kStateAndOneStatement, kNothing, kOneStatement},
    {"getAddrsByObjIDs of all addresses",
     [](const Desk& desk) {
       return manyAddresses([&](ZNTopoAPIStatus& status) {
         return desk.api.getAddrsByObjIDs({}, status, true, ZNAddress::IPv4);
       });
     },
     [](const Size& size) { return 2 * size.leaves + 1; }, Growth::None, kStateAndOneStatement,
     kOneStatement, kOneStatement},
    {"getAddressByQRMObjID",
     [](const Desk& desk) {
       return oneAddress([&](ZNTopoAPIStatus& status) {
         return desk.api.getAddressByQRMObjID(ObjID(5001), status);
       });
     },
     kOne, Growth::None, kStateAndOneStatement, kNothing, kOneStatement},
    {"getMonitoredIPv6AddressByObjID",
     [](const Desk& desk) {
       return oneAddress([&](ZNTopoAPIStatus& status) {
         return desk.api.getMonitoredIPv6AddressByObjID(ObjID(v6AddressID()), status);
       });
     },
     kOne, Growth::None, kStateAndOneStatement, kNothing, kOneStatement},
    {"getMonitoredIPv6AddressByQRMObjID",
     [](const Desk& desk) {
       return oneAddress([&](ZNTopoAPIStatus& status) {
         return desk.api.getMonitoredIPv6AddressByQRMObjID(ObjID(5001), status);
       });
     },
     kOne, Growth::None, kStateAndOneStatement, kNothing, kOneStatement},
    {"getAddressByIP",
     [](const Desk& desk) {
       return oneAddress([&](ZNTopoAPIStatus& status) {
         return desk.api.getAddressByIP(hubAddress(1), status, -1);
       });
     },
     kOne, Growth::None, kOneStatement, kOneStatement, kOneStatement},
    {"resolveIPv6ToDNS",
     [](const Desk& desk) {
       ZNTopoAPIStatus status;
       const auto names = desk.api.resolveIPv6ToDNS(ObjID(v6AddressID()), status);
       return Answer{status.getStatus(), {names->begin(), names->end()}};
     },
     kOne, Growth::None, kStateAndOneStatement, kOneStatement, kOneStatement},
    {"getInetAddressIPv6IDsFromDNSExpression",
     [](const Desk& desk) {
       ZNTopoAPIStatus status;
       const auto ids = desk.api.getInetAddressIPv6IDsFromDNSExpression("www%", status);
       return Answer{status.getStatus(), {ids->begin(), ids->end()}};
     },
     kOne, Growth::None, kStateAndOneStatement, kOneStatement, kOneStatement},
};

}  // namespace

std::span<const Operation> addressOperations() { return kOperations; }

}  // namespace zntopo::test
