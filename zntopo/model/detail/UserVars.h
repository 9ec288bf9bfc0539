#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "zntopo/model/UserDefVar.h"

namespace zntopo::detail {

/// A copy of the first variable of that name, a default one without any.
inline UserDefVar userVarByName(const std::vector<UserDefVar>& vars, const std::string& name) {
  const auto found = std::find_if(vars.begin(), vars.end(),
                                  [&name](const UserDefVar& var) { return var.getName() == name; });
  return found == vars.end() ? UserDefVar() : *found;
}

}  // namespace zntopo::detail
