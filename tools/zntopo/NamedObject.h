#pragma once

#include <optional>
#include <span>
#include <string>

#include "tools/zntopo/Lookup.h"
#include "tools/zntopo/fields/Field.h"
#include "tools/zntopo/fields/LinkFields.h"

/// @file
/// Objects whose states change, by names: for what was set and what events tell of.

namespace zntopo::tools {

/// What an object is called, and where it is. What the store does not have, or can't tell now, is
/// called by its identifier.
struct NamedObject {
  /// "node", "interface", "address", "hsrp", "association" ...; "topology" for the whole.
  std::string type;
  std::string id;
  std::string name;
  /// Its node and its interface, of a member of an HSRP group its own; empty where it has none.
  LinkEnd end = {};
  /// Of an address, and of a member of an HSRP group.
  std::string address = {};
  std::string addressId = {};
  /// Of an association: its second container and the number of the relation. The first is the name.
  std::string right = {};
  std::string rightId = {};
  std::optional<int> relation = {};

  /// Whether a name was found for it.
  bool isKnown() const { return name != id; }
  /// As "interface core-1 Te1/0/1".
  std::string text() const;
};

// Each asks the store, and throws a Failure if that fails.

NamedObject namedNode(Session& session, const ObjID& id);
NamedObject namedInterface(Session& session, const ObjID& id);
NamedObject namedAddress(Session& session, const ObjID& id);
/// A group, with one of its members if that is told by its address.
NamedObject namedHsrp(Session& session, const ObjID& group, const ObjID& address);
NamedObject namedAssociation(Session& session, const ObjID& left, const ObjID& right, int relation);
/// An object of any kind.
NamedObject namedObject(Session& session, EntityType type, const ObjID& id);

/// The word of a kind of objects; "object" for a number that is none.
std::string objectWord(EntityType type);

/// The members of JSON that name an object which is a member of others.
template <auto object, auto pointer, typename Whole>
Json ofNamed(const Whole& whole) {
  return known(std::invoke(pointer, whole.*object));
}

template <auto object, auto pointer, typename Whole>
Json ofNamedEnd(const Whole& whole) {
  return known(std::invoke(pointer, (whole.*object).end));
}

template <auto object, typename Whole>
inline constexpr std::array<Field<Whole>, 12> kNamedFields = {{
    {.key = "type", .value = ofNamed<object, &NamedObject::type, Whole>},
    {.key = "name", .value = ofNamed<object, &NamedObject::name, Whole>},
    {.key = "id", .value = ofNamed<object, &NamedObject::id, Whole>},
    {.key = "node", .value = ofNamedEnd<object, &LinkEnd::node, Whole>},
    {.key = "node_id", .value = ofNamedEnd<object, &LinkEnd::nodeId, Whole>},
    {.key = "interface", .value = ofNamedEnd<object, &LinkEnd::interface, Whole>},
    {.key = "interface_id", .value = ofNamedEnd<object, &LinkEnd::interfaceId, Whole>},
    {.key = "address", .value = ofNamed<object, &NamedObject::address, Whole>},
    {.key = "address_id", .value = ofNamed<object, &NamedObject::addressId, Whole>},
    {.key = "right", .value = ofNamed<object, &NamedObject::right, Whole>},
    {.key = "right_id", .value = ofNamed<object, &NamedObject::rightId, Whole>},
    {.key = "relation",
     .value = [](const Whole& whole) -> Json {
       const auto& relation = (whole.*object).relation;
       return relation ? Json(*relation) : Json();
     }},
}};

}  // namespace zntopo::tools
