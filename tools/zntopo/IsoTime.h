#pragma once

#include <optional>
#include <string>

namespace zntopo::tools {

/// Which second a day alone stands for.
enum class DayEnd { First, Last };

/// Seconds UTC of a time in ISO 8601: "2026-11-21", "2026-11-21T11:23", "2026-11-21T11:23:24", with
/// "Z" or a distance such as "+01:00" behind a time of day; UTC without one. Nothing for another
/// text, and for a day that no month has.
std::optional<long> isoTime(const std::string& text, DayEnd dayEnd = DayEnd::First);

}  // namespace zntopo::tools
