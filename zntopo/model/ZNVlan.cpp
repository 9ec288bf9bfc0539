#include "zntopo/model/ZNVlan.h"

#include "zntopo/model/detail/Rendering.h"

namespace zntopo {

namespace {

ObjID vlanIDOf(const ZNEntity& ent) {
  const VarValue value = ent.getUserDefVarByName("VlanId").getValue();
  switch (value.getValType()) {
    case VarValue::VT_Long:
      return ObjID(value.getLongVal());
    case VarValue::VT_Str:
      return ObjID(value.getStrVal());
    default:
      return ObjID();
  }
}

using Line = detail::Line<ZNVlan>;

constexpr Line kText[] = {
    {"\n+++++++++++++++++ ZNVlan ++++++++++++++++", Line::baseText<ZNEntity>},
    {"", Line::texts<&ZNVlan::getVlanInfoList>},
    {"\n----------------- ZNVlan ----------------\n"},
};

constexpr Line kXml[] = {
    {"<ZNVlan>\n", Line::baseXml<ZNEntity>},
    {"", Line::xmls<&ZNVlan::getVlanInfoList>},
    {"</ZNVlan>\n"},
};

}  // namespace

ZNVlan::ZNVlan() = default;

ZNVlan::ZNVlan(const ZNEntity& theEnt) : ZNVlan(theEnt, {}) {}

ZNVlan::ZNVlan(const ZNEntity& theEnt, const std::list<ZNVlanInfo>& theInfoList)
    : ZNEntity(theEnt), myVlanID(vlanIDOf(theEnt)), myInfoList(theInfoList) {}

ZNVlan::~ZNVlan() = default;

std::string ZNVlan::toString() const { return detail::rendered(*this, kText); }
std::string ZNVlan::toXML() const { return detail::rendered(*this, kXml); }

}  // namespace zntopo
