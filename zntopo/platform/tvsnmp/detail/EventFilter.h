#pragma once

#include <optional>
#include <set>
#include <string_view>

namespace tvsnmp {

/// The numbers of the events that a filter of TVsnmpEventOpen() names; nothing if it is malformed
/// or names an event of another arc than ours. An empty filter names none.
std::optional<std::set<unsigned>> eventsOfFilter(std::string_view filter);

}  // namespace tvsnmp
