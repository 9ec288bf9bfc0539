#pragma once

#include <string>

#include "zntopo/core/ObjID.h"

namespace zntopo::detail {

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

}  // namespace zntopo::detail
