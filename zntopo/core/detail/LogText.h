#pragma once

#include <string>

#include "zntopo/core/MCLog.h"
#include "zntopo/core/ObjID.h"

/// @file
/// Log lines that are kept as data, and values for log lines.

namespace zntopo::detail {

/// An identifier for a log line; nothing is made of it if nobody would see the line.
inline std::string shown(MCDebugLevel level, const ObjID& id) {
  return MCLog::isHeard(level) ? id.getStrValue() : std::string();
}

/// Puts a value in the place of a mark of two characters, "%s", if it is there.
inline std::string filledIn(std::string line, const char* mark, const std::string& value) {
  const std::size_t at = line.find(mark);
  if (at != std::string::npos) line.replace(at, 2, value);
  return line;
}

/// Logs a line that is kept as data: "%s" in it, if it is there, stands for the value.
inline void logLine(MCDebugLevel level, const char* line, const std::string& value) {
  if (MCLog::isHeard(level)) MCLog::log(level, "%s", filledIn(line, "%s", value).c_str());
}

}  // namespace zntopo::detail
