#pragma once

#include <string>
#include <utility>

#include "tools/zntopo/NaturalOrder.h"
#include "tools/zntopo/fields/Field.h"

namespace zntopo::tools {

/// An interface of a node, by names and identifiers.
struct LinkEnd {
  std::string node;
  std::string nodeId;
  std::string interface;
  std::string interfaceId;
};

/// Sorts by the names of node and interface.
inline auto naturalKey(const LinkEnd& end) {
  return std::pair(Natural{end.node}, Natural{end.interface});
}

/// A layer-2 link, seen from one of its sides.
struct NamedLink {
  LinkEnd source;
  LinkEnd dest;
};

/// Field::value of a LinkEnd that is a member of an object.
template <auto end, auto pointer, typename Object>
Json ofEnd(const Object& object) {
  return knownMember<pointer>(object.*end);
}

/// What lists tell of an interface that is a member of their objects.
template <auto end, typename Object>
inline constexpr std::array<Field<Object>, 4> kEndFields = {{
    {.key = "node", .head = "NODE", .value = ofEnd<end, &LinkEnd::node, Object>},
    {.key = "node_id", .value = ofEnd<end, &LinkEnd::nodeId, Object>},
    {.key = "interface", .head = "INTERFACE", .value = ofEnd<end, &LinkEnd::interface, Object>},
    {.key = "interface_id", .value = ofEnd<end, &LinkEnd::interfaceId, Object>},
}};

/// What is told of an interface on the way of a frame.
std::span<const Field<LinkEnd>> linkEndFields();
/// What a list of links tells of each.
std::span<const Field<NamedLink>> linkFields();

}  // namespace zntopo::tools
