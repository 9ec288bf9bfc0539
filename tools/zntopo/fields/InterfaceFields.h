#pragma once

#include <string>
#include <vector>

#include "tools/zntopo/fields/Field.h"
#include "zntopo/model/ZNInterface.h"

namespace zntopo::tools {

/// The label of an interface: its alias, name or description, without the padding.
std::string interfaceLabel(const ZNInterface& interface);

/// An interface with what it does not hold itself.
struct InterfaceDetails {
  ZNRefPtr<ZNInterface> object;
  /// IPv4 ones first.
  std::vector<std::string> addresses = {};
  /// The name of its node; empty if the store does not have it.
  std::string node = {};
  /// The list is that of one node, and so does not show which.
  bool isOfOneNode = false;
};

/// What a list of interfaces tells of each.
std::span<const Field<InterfaceDetails>> interfaceFields();

}  // namespace zntopo::tools
