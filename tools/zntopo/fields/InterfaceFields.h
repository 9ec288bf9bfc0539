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
  const ZNInterface& interface;
  /// IPv4 ones first.
  std::vector<std::string> addresses;
};

/// What a list of interfaces tells of each.
std::span<const Field<InterfaceDetails>> interfaceFields();

}  // namespace zntopo::tools
