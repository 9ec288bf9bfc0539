#include "zntopo/model/EntityType.h"

#include "zntopo/model/detail/EnumTable.h"

namespace zntopo {

namespace {

// E_Address has no text and no way back from its number.
constexpr detail::EnumText<EntityType> kTypes[] = {
    {E_Unknown, "Unknown"},
    {E_Node, "Node"},
    {E_Interface, "Interface"},
    {E_LogicalInterface, "LogicalInterface"},
    {E_Vlan, "Vlan"},
    {E_Card, "Card"},
    {E_PSU, "PSU"},
    {E_Subnet, "Subnet"},
    {E_Module, "Module"},
    {E_Mesh, "Mesh"},
    {E_HSRP, "HSRP"},
    {E_IfC, "InterfaceContainer"},
};

}  // namespace

std::string getEntityTypeAsString(EntityType type) {
  return detail::textOf(kTypes, type, "InvalidType");
}

EntityType getEntityTypeFromInt(int value) { return detail::valueOf(kTypes, value, E_Unknown); }

short getEntityTypeAsShort(EntityType type) { return static_cast<short>(type); }

}  // namespace zntopo
