#pragma once

#include <list>
#include <string>

#include "zntopo/core/ObjID.h"

namespace zntopo::detail {

/// The HSRP groups of an interface or an address. A "]" takes the place of the last character,
/// which is the comma behind the last identifier, and the opening bracket where there is none.
inline std::string hsrpLine(const std::list<ObjID>& groups) {
  std::string text = "\nHSRP Object ObjID = [";
  for (const ObjID& id : groups) text += id.getStrValue() + ",";
  text.back() = ']';
  return text;
}

}  // namespace zntopo::detail
