#include "tools/zntopo/NamedObject.h"

#include <array>

#include "tools/zntopo/Names.h"

namespace zntopo::tools {

namespace {

constexpr struct {
  EntityType type;
  const char* word;
  /// Where its name stands; nullptr for what has a table of its own.
  const char* table;
} kTypes[] = {
    {E_Node, "node", nullptr},        {E_Interface, "interface", nullptr},
    {E_Address, "address", nullptr},  {E_LogicalInterface, "logical_interface", "nwentity"},
    {E_Vlan, "vlan", "nwentity"},     {E_Card, "card", "nwentity"},
    {E_PSU, "psu", "nwentity"},       {E_Subnet, "subnet", "nwentity"},
    {E_Module, "module", "nwentity"}, {E_Mesh, "mesh", "nwentity"},
    {E_HSRP, "hsrp", "nwentity"},     {E_IfC, "container", "nwifc"},
};

const char* tableOf(EntityType type) {
  for (const auto& one : kTypes) {
    if (one.type == type) return one.table;
  }
  return "nwentity";
}

/// The name that a table has for an identifier; else the identifier.
std::string nameIn(Session& session, const char* table, const ObjID& id) {
  const std::string text = id.toString();
  const auto names = namesById(session, table, Identifiers(std::array{id}));
  const auto found = names.find(text);
  return found == names.end() || found->second.empty() ? text : found->second;
}

LinkEnd endOf(Session& session, const ObjID& interface) {
  if (interface.isNull()) return {};
  return Names(session, Identifiers(std::array{interface})).end(interface);
}

/// Puts an address, with where it is, into an object.
void place(Session& session, const ObjID& address, NamedObject& object) {
  object.addressId = object.address = address.toString();
  const auto found = addressesById(session, Identifiers(std::array{address}));
  if (found.empty()) return;
  const ZNAddress& one = *found.begin()->second;
  object.address = one.getAddressAsString();
  object.end = endOf(session, one.getAssEntityID());
}

void append(std::string& text, const std::string& more) {
  if (!more.empty()) text += (text.empty() ? "" : " ") + more;
}

}  // namespace

std::string objectWord(EntityType type) {
  for (const auto& one : kTypes) {
    if (one.type == type) return one.word;
  }
  return "object";
}

std::string NamedObject::text() const {
  if (relation) {
    return type + " " + name + " to " + right + " (relation " + std::to_string(*relation) + ")";
  }
  const bool hasPlace = !end.node.empty() || !end.interface.empty() || !address.empty();
  std::string result = type;
  // The place of a group is that of its member.
  if (!hasPlace || type == objectWord(E_HSRP)) append(result, name);
  append(result, end.node);
  append(result, end.interface);
  append(result, address);
  return result;
}

NamedObject namedNode(Session& session, const ObjID& id) {
  // From the row, which is there while a discovery is at work, too.
  NamedObject result{
      .type = objectWord(E_Node), .id = id.toString(), .name = nameIn(session, "nwnode", id)};
  result.end.node = result.name;
  result.end.nodeId = result.id;
  return result;
}

NamedObject namedInterface(Session& session, const ObjID& id) {
  NamedObject result{.type = objectWord(E_Interface), .id = id.toString(), .name = id.toString()};
  result.end = endOf(session, id);
  if (!result.end.interface.empty()) result.name = result.end.interface;
  return result;
}

NamedObject namedAddress(Session& session, const ObjID& id) {
  NamedObject result{.type = objectWord(E_Address), .id = id.toString(), .name = id.toString()};
  place(session, id, result);
  result.name = result.address;
  return result;
}

NamedObject namedHsrp(Session& session, const ObjID& group, const ObjID& address) {
  NamedObject result = namedObject(session, E_HSRP, group);
  if (!address.isNull()) place(session, address, result);
  return result;
}

NamedObject namedAssociation(Session& session, const ObjID& left, const ObjID& right,
                             int relation) {
  return {.type = "association",
          .id = left.toString(),
          .name = nameIn(session, "nwifc", left),
          .right = nameIn(session, "nwifc", right),
          .rightId = right.toString(),
          .relation = relation};
}

NamedObject namedObject(Session& session, EntityType type, const ObjID& id) {
  if (type == E_Node) return namedNode(session, id);
  if (type == E_Interface) return namedInterface(session, id);
  if (type == E_Address) return namedAddress(session, id);
  return {
      .type = objectWord(type), .id = id.toString(), .name = nameIn(session, tableOf(type), id)};
}

}  // namespace zntopo::tools
