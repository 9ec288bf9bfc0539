#include "tools/zntopo/IsoTime.h"

#include <chrono>
#include <regex>

namespace zntopo::tools {

namespace {

constexpr long kDay = 24 * 60 * 60;

enum Part { Year = 1, Month, Day, TimeOfDay, Hour, Minute, Second, Distance, Sign, Hours, Minutes };

/// Seconds from the beginning of the day to a time; nothing for a time that no day has.
std::optional<long> secondsOf(const std::smatch& parts, Part hour, Part minute) {
  const long hours = std::stol(parts[hour]);
  const long minutes = std::stol(parts[minute]);
  if (hours > 23 || minutes > 59) return std::nullopt;
  return (hours * 60 + minutes) * 60;
}

std::optional<long> daysOf(const std::smatch& parts) {
  namespace chrono = std::chrono;
  const chrono::year_month_day date(chrono::year(std::stoi(parts[Year])),
                                    chrono::month(std::stoul(parts[Month])),
                                    chrono::day(std::stoul(parts[Day])));
  if (!date.ok()) return std::nullopt;
  return chrono::sys_days(date).time_since_epoch().count();
}

}  // namespace

std::optional<long> isoTime(const std::string& text, DayEnd dayEnd) {
  static const std::regex form(
      R"((\d{4})-(\d\d)-(\d\d)([Tt ](\d\d):(\d\d)(?::(\d\d))?(Z|z|([+-])(\d\d):?(\d\d))?)?)");
  std::smatch parts;
  if (!std::regex_match(text, parts, form)) return std::nullopt;
  const std::optional<long> days = daysOf(parts);
  if (!days) return std::nullopt;
  const long day = *days * kDay;
  if (!parts[TimeOfDay].matched) return dayEnd == DayEnd::First ? day : day + kDay - 1;
  const std::optional<long> time = secondsOf(parts, Hour, Minute);
  const long second = parts[Second].matched ? std::stol(parts[Second]) : 0;
  if (!time || second > 59) return std::nullopt;
  if (!parts[Sign].matched) return day + *time + second;
  const std::optional<long> distance = secondsOf(parts, Hours, Minutes);
  if (!distance) return std::nullopt;
  return day + *time + second - (parts[Sign] == "-" ? -*distance : *distance);
}

}  // namespace zntopo::tools
