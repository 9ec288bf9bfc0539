#include "tests/operations/Costs.h"

namespace zntopo::test {
namespace {

constexpr Operation kOperations[] = {
    {"getAddressByObjID",
     [](const Desk& desk) {
       ZNTopoAPIStatus status;
       const auto address = desk.api.getAddressByObjID(ObjID(hubAddressID(1)), status);
       return oneAddress(status, address);
     },
     kOne, Growth::None, kStateAndOneStatement, kNothing, kOneStatement},
    {"getAddrsByObjIDs",
     [](const Desk& desk) {
       ZNTopoAPIStatus status;
       std::list<ObjID> ids;
       for (int i = 1; i <= desk.size.leaves; ++i) ids.push_back(ObjID(hubAddressID(i)));
       const auto addresses = desk.api.getAddrsByObjIDs(ids, status, false, ZNAddress::IPv4);
       return manyAddresses(status, *addresses);
     },
     kLeaves, Growth::None, kStateAndOneStatement, kNothing, kOneStatement},
    {"getAddrsByObjIDs of all addresses",
     [](const Desk& desk) {
       ZNTopoAPIStatus status;
       const auto addresses = desk.api.getAddrsByObjIDs({}, status, true, ZNAddress::IPv4);
       return manyAddresses(status, *addresses);
     },
     [](const Size& size) { return 2 * size.leaves + 1; }, Growth::None, kStateAndOneStatement,
     kOneStatement, kOneStatement},
    {"getAddressByQRMObjID",
     [](const Desk& desk) {
       ZNTopoAPIStatus status;
       const auto address = desk.api.getAddressByQRMObjID(ObjID(5001), status);
       return oneAddress(status, address);
     },
     kOne, Growth::None, kStateAndOneStatement, kNothing, kOneStatement},
    {"getMonitoredIPv6AddressByObjID",
     [](const Desk& desk) {
       ZNTopoAPIStatus status;
       const auto address = desk.api.getMonitoredIPv6AddressByObjID(ObjID(v6AddressID()), status);
       return oneAddress(status, address);
     },
     kOne, Growth::None, kStateAndOneStatement, kNothing, kOneStatement},
    {"getMonitoredIPv6AddressByQRMObjID",
     [](const Desk& desk) {
       ZNTopoAPIStatus status;
       const auto address = desk.api.getMonitoredIPv6AddressByQRMObjID(ObjID(5001), status);
       return oneAddress(status, address);
     },
     kOne, Growth::None, kStateAndOneStatement, kNothing, kOneStatement},
    {"getAddressByIP",
     [](const Desk& desk) {
       ZNTopoAPIStatus status;
       const auto address = desk.api.getAddressByIP(hubAddress(1), status, -1);
       return oneAddress(status, address);
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
