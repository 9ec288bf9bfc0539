#pragma once

#include <string>

#include "tools/zntopo/fields/Field.h"

namespace zntopo::tools {

/// An interface of a node, by names and identifiers.
struct LinkEnd {
  std::string node;
  std::string nodeId;
  std::string interface;
  std::string interfaceId;
};

/// A layer-2 link, seen from one of its sides.
struct NamedLink {
  LinkEnd source;
  LinkEnd dest;
};

/// What is told of an interface on the way of a frame.
std::span<const Field<LinkEnd>> linkEndFields();
/// What a list of links tells of each.
std::span<const Field<NamedLink>> linkFields();

}  // namespace zntopo::tools
