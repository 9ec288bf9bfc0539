#include "zntopo/platform/tvsnmp/detail/EventFilter.h"

#include <algorithm>
#include <charconv>

#include "zntopo/platform/tvsnmp/detail/EventPdu.h"

namespace tvsnmp {

namespace {

std::optional<unsigned> numberOf(std::string_view text) {
  unsigned number = 0;
  const char* const end = text.data() + text.size();
  const auto read = std::from_chars(text.data(), end, number);
  if (text.empty() || read.ec != std::errc() || read.ptr != end) return std::nullopt;
  return number;
}

/// ".1.3.6" without its last arc, which is put aside.
bool isEventArc(std::string_view head) {
  for (const TVsnmpArc arc : eventArc()) {
    if (head.empty() || head.front() != '.') return false;
    head.remove_prefix(1);
    const std::size_t length = std::min(head.find('.'), head.size());
    if (numberOf(head.substr(0, length)) != arc) return false;
    head.remove_prefix(length);
  }
  return head.empty();
}

}  // namespace

std::optional<std::set<unsigned>> eventsOfFilter(std::string_view filter) {
  std::set<unsigned> events;
  bool hasArc = false;
  while (!filter.empty()) {
    const std::size_t comma = filter.find(',');
    std::string_view item = filter.substr(0, comma);
    // A comma asks for an item behind it.
    if (comma == filter.size() - 1) return std::nullopt;
    filter.remove_prefix(std::min(item.size() + 1, filter.size()));
    if (item.starts_with('.')) {
      const std::size_t dot = item.rfind('.');
      if (!isEventArc(item.substr(0, dot))) return std::nullopt;
      hasArc = true;
      item.remove_prefix(dot + 1);
    }
    const auto number = numberOf(item);
    if (!hasArc || !number) return std::nullopt;
    events.insert(*number);
  }
  return events;
}

}  // namespace tvsnmp
