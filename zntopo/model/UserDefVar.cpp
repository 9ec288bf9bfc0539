#include "zntopo/model/UserDefVar.h"

#include "zntopo/model/detail/Rendering.h"

namespace zntopo {

namespace {

using Line = detail::Line<UserDefVar>;

constexpr Line kText[] = {
    {"\nVarName:", Line::of<&UserDefVar::getName>},
    {"\n", Line::textOf<&UserDefVar::getValue>},
};

/// The XML types of the tags. Octets have none.
struct XmlType {
  VarValue::ValType tag;
  const char* type;
};

constexpr XmlType kXmlTypes[] = {
    {VarValue::VT_Short, "int"},
    {VarValue::VT_Long, "int"},
    {VarValue::VT_LongLong, "int"},
    {VarValue::VT_Str, "str"},
    {VarValue::VT_Capability, "capability"},
    {VarValue::VT_Float, "float"},
    {VarValue::VT_Bool, "int"},
};

/// That there is a capability is all that it tells.
std::string xmlValue(const VarValue& value) {
  return value.getValType() == VarValue::VT_Capability ? "1" : value.getValAsStr();
}

}  // namespace

std::string UserDefVar::toString() const { return detail::rendered(*this, kText); }

std::string UserDefVar::toXML() const {
  for (const XmlType& entry : kXmlTypes) {
    if (entry.tag != _val.getValType()) continue;
    return ZNTopoXMLTag::formXMLAttribute(_name, entry.type, xmlValue(_val));
  }
  return "";
}

}  // namespace zntopo
