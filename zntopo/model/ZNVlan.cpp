#include "zntopo/model/ZNVlan.h"

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

}  // namespace

ZNVlan::ZNVlan() = default;

ZNVlan::ZNVlan(const ZNEntity& theEnt) : ZNVlan(theEnt, {}) {}

ZNVlan::ZNVlan(const ZNEntity& theEnt, const std::list<ZNVlanInfo>& theInfoList)
    : ZNEntity(theEnt), myVlanID(vlanIDOf(theEnt)), myInfoList(theInfoList) {}

ZNVlan::~ZNVlan() = default;

std::string ZNVlan::toString() const { return ""; }
std::string ZNVlan::toXML() const { return ""; }

}  // namespace zntopo
