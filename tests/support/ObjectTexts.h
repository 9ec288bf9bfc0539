#pragma once

#include <set>
#include <string>
#include <vector>

#include "zntopo/core/ObjID.h"

/// @file
/// Results of queries as texts, so that a test can say what it expects.

namespace zntopo::test {

/// The identifiers of objects, in order.
template <typename Handles>
std::vector<std::string> idsOf(const Handles& handles) {
  std::vector<std::string> ids;
  for (const auto& handle : handles) ids.push_back(handle->getObjID().getStrValue());
  return ids;
}

inline std::vector<std::string> textsOf(const std::set<ObjID>& ids) {
  std::vector<std::string> texts;
  for (const ObjID& id : ids) texts.push_back(id.getStrValue());
  return texts;
}

}  // namespace zntopo::test
