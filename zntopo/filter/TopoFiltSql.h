#pragma once

#include <string>

#include "zntopo/filter/TopoFilt.h"

/// @file
/// The statements that run filters, as texts. Blanks are part of them. They name the active tables,
/// whatever the table set, with the aliases NODE, IF and ADDR that conditions are written with.

namespace zntopo {

/// The identifiers of what a filter selects: nodes, interfaces, or the owners of addresses. Where
/// the condition has a blank, another alias and a dot anywhere in its text, that table is joined.
/// The bare condition for a filter of an unknown kind.
std::string objectsOfTopoFiltSql(const TopoFilt& filter);
/// The same of a filter of addresses, with the identifiers of the addresses themselves.
std::string addressesOfTopoFiltSql(const TopoFilt& filter);

}  // namespace zntopo
