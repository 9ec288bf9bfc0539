#include "tests/operations/Costs.h"

namespace zntopo::test {
namespace {

using IDQuery = ZNTopoAPI::OwnedIDList (ZNTopoAPI_Impl::*)(const ZNTopoFilter&, ZNTopoAPIStatus&);

Answer idsBy(const Desk& desk, IDQuery query, const ZNTopoFilter& filter) {
  ZNTopoAPIStatus status;
  const auto ids = (desk.impl.*query)(filter, status);
  return sorted(status, {ids->begin(), ids->end()});
}

ZNTopoFilter named(const std::string& pattern) {
  ZNTopoFilter filter;
  filter.setRegexEntityName(pattern);
  return filter;
}
ZNTopoFilter ofKind(EntityType kind) {
  ZNTopoFilter filter;
  filter.setEntityType(kind);
  return filter;
}
ZNTopoFilter withAddress(const std::string& pattern) {
  ZNTopoFilter filter;
  filter.setAddressType(ZNAddress::IPv4);
  filter.setAddressStr(pattern);
  return filter;
}

constexpr Operation kOperations[] = {
    {"getNodeIDsByFilter",
     [](const Desk& desk) {
       return idsBy(desk, &ZNTopoAPI_Impl::getNodeIDsByFilter, named("leaf%"));
     },
     kLeaves, Growth::None, kStateAndOneStatement, kOneStatement, kOneStatement},
    {"getNodeIDsByFilter by an address",
     [](const Desk& desk) {
       return idsBy(desk, &ZNTopoAPI_Impl::getNodeIDsByFilter, withAddress(hubAddress(1)));
     },
     kOne, Growth::None, kStateAndOneStatement, kOneStatement, kOneStatement},
    {"getNodesByFilter",
     [](const Desk& desk) {
       return many([&](ZNTopoAPIStatus& status) {
         return desk.api.getNodesByFilter(named("hub%"), status);
       });
     },
     kOne, Growth::None, [](const Size&) { return kState + kStatement + kNodes; }, kOneStatement,
     [](const Size&) { return kStatement + kNodes; }},
    {"getSubnetIDsByFilter",
     [](const Desk& desk) { return idsBy(desk, &ZNTopoAPI_Impl::getSubnetIDsByFilter, {}); },
     kLeaves, Growth::None, kOneStatement, kOneStatement, kOneStatement},
    {"getEntityIDsByFilter",
     [](const Desk& desk) {
       return idsBy(desk, &ZNTopoAPI_Impl::getEntityIDsByFilter, ofKind(E_Vlan));
     },
     kLeaves, Growth::None, kOneStatement, kOneStatement, kOneStatement},
    {"getAddressIDsByFilter",
     [](const Desk& desk) {
       return idsBy(desk, &ZNTopoAPI_Impl::getAddressIDsByFilter, withAddress("10.1.0.%"));
     },
     kLeaves, Growth::None, kStateAndOneStatement, kOneStatement, kOneStatement},
};

}  // namespace

std::span<const Operation> filterOperations() { return kOperations; }

}  // namespace zntopo::test
