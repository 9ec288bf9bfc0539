#pragma once

#include <string>

#include "zntopo/core/MCLog.h"
#include "zntopo/core/ObjID.h"
#include "zntopo/core/ZNTopoAPIStatus.h"

/// @file
/// Small texts that the query modules share.

namespace zntopo::detail {

inline constexpr const char* NODE_ENTITY_TYPE_STRING = "1";
inline constexpr const char* INTERFACE_ENTITY_TYPE_STRING = "2";
inline constexpr const char* VLAN_ENTITY_TYPE_STRING = "4";
inline constexpr const char* SUBNET_ENTITY_TYPE_STRING = "7";
inline constexpr const char* V4_ADDRESS_TYPE_STRING = "1";
inline constexpr const char* V4_IP_LEVEL_STRING = "4";

inline std::string identifierText(const ObjID& id) { return id.getStrValue(); }
inline const std::string& identifierText(const std::string& id) { return id; }

/// The opening, each identifier between single quotes with a comma behind it, and then a closing
/// parenthesis over the last character. Without identifiers that is the opening's own last
/// character, and what comes out is no list.
template <typename Identifiers>
std::string quotedList(const char* opening, const Identifiers& identifiers) {
  std::string text = opening;
  for (const auto& id : identifiers) text += "'" + identifierText(id) + "',";
  text.back() = ')';
  return text;
}

/// An identifier for a log line; nothing is made of it if nobody would see the line.
inline std::string shown(MCDebugLevel level, const ObjID& id) {
  return MCLog::isHeard(level) ? id.getStrValue() : std::string();
}

/// Sets a status with an auxiliary text.
inline void setFailure(ZNTopoAPIStatus& status, ZNTopoStatus code, const std::string& text) {
  status.setStatus(code);
  status.addAuxMsg(text);
}

}  // namespace zntopo::detail
