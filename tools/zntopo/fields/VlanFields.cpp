#include "tools/zntopo/fields/VlanFields.h"

#include "tools/zntopo/fields/EntityFields.h"

namespace zntopo::tools {

namespace {

Json number(const VlanDetails& details) { return vlanNumber(*details.object); }

Json nodes(const VlanDetails& details) { return details.object->getVlanInfoList().size(); }

Json interfaces(const VlanDetails& details) {
  std::size_t result = 0;
  for (const ZNVlanInfo& info : details.object->getVlanInfoList()) {
    result += info.getVlanIFInfoList().size();
  }
  return result;
}

constexpr auto kVlanFields = joined(
    std::array{Field<VlanDetails>{.key = "number", .head = "VLAN", .value = number}},
    kNameFields<VlanDetails>,
    std::array{Field<VlanDetails>{.key = "nodes", .head = "NODES", .value = nodes},
               Field<VlanDetails>{.key = "interfaces", .head = "INTERFACES", .value = interfaces}},
    kDescriptionFields<VlanDetails>);

constexpr auto kMemberFields =
    joined(kEndFields<&VlanMember::end, VlanMember>,
           std::array{Field<VlanMember>{.key = "card", .value = knownMember<&VlanMember::card>},
                      Field<VlanMember>{.key = "port", .value = knownMember<&VlanMember::port>}});

}  // namespace

Json vlanNumber(const ZNVlan& vlan) {
  const VarValue value = vlan.getUserDefVarByName("VlanId").getValue();
  switch (value.getValType()) {
    case VarValue::VT_Short:
    case VarValue::VT_Long:
    case VarValue::VT_LongLong:
      return value.castIntValToLongLong();
    case VarValue::VT_Str:
      return known(value.getStrVal());
    default:
      return nullptr;
  }
}

std::span<const Field<VlanDetails>> vlanFields() { return kVlanFields; }
std::span<const Field<VlanMember>> vlanMemberFields() { return kMemberFields; }

}  // namespace zntopo::tools
