#pragma once

#include <map>
#include <string>

#include "zntopo/core/ZNTopoStatus.h"
#include "zntopo/filter/TopoFiltHandler.h"

namespace zntopo::fuzz {

/// Expands the references among conditions as the rule reads: walk by walk, one reference of each
/// condition at a time, on whole texts.
/// @return the number of a status, with what was expanded until then in the texts
inline int expandPlainly(std::map<std::string, std::string>& texts) {
  std::size_t expanded = 0;
  bool isDone = false;
  while (!isDone) {
    isDone = true;
    for (auto& [name, text] : texts) {
      const std::size_t p1 = text.find('#');
      if (p1 == std::string::npos) continue;
      const std::size_t p2 = text.find('#', p1 + 1);
      if (p2 == std::string::npos) return ZN_API_XML_FILTER_FILE_UNBALANCED_DELIMITERS;
      const std::string key = text.substr(p1 + 1, p2 - p1 - 1);
      if (key == name) return ZN_API_XML_FILTER_FILE_CIRCULAR_REF_ERROR;
      const auto other = texts.find(key);
      // The empty name is known.
      if (!key.empty() && other == texts.end()) return ZN_API_XML_FILTER_KEY_NOT_FOUND_ERROR;
      const std::string brought = " " + (other == texts.end() ? "" : other->second) + " ";
      const std::size_t size = text.size() - key.size() - 2 + brought.size();
      expanded += brought.size();
      if (size > TopoFiltHandler::kLargestCondition ||
          expanded > TopoFiltHandler::kLargestExpansion) {
        return ZN_API_XML_FILTER_SUBSTITUTION_ERROR;
      }
      text.replace(p1, p2 - p1 + 1, brought);
      isDone = false;
    }
  }
  return ZN_API_SUCCESS;
}

}  // namespace zntopo::fuzz
