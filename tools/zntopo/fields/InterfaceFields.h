#pragma once

#include <string>

#include "tools/zntopo/fields/Field.h"
#include "zntopo/model/ZNInterface.h"

namespace zntopo::tools {

/// The label of an interface: its alias, name or description, without the padding.
std::string interfaceLabel(const ZNInterface& interface);

/// What a list of interfaces tells of each.
std::span<const Field<ZNInterface>> interfaceFields();

}  // namespace zntopo::tools
