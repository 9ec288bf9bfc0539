#pragma once

#include <set>
#include <string>
#include <vector>

#include "fuzz/Fuzz.h"
#include "zntopo/core/ZNTopoStatus.h"
#include "zntopo/filter/TopoFiltHandler.h"
#include "zntopo/filter/XMLUtil.h"

namespace zntopo::fuzz {

/// Holds what a parse leaves against its status.
class OpenHandler : public TopoFiltHandler {
 public:
  void check(int status) const {
    static const std::set<int> statuses = {ZN_API_SUCCESS,
                                           ZN_API_XML_FILTER_VALIDATION_ERROR,
                                           ZN_API_XML_FILTER_TRANSFORMATION_ERROR,
                                           ZN_API_XML_PARSE_ERROR,
                                           ZN_API_XML_FILTER_FILE_UNBALANCED_DELIMITERS,
                                           ZN_API_XML_FILTER_FILE_CIRCULAR_REF_ERROR,
                                           ZN_API_XML_FILTER_KEY_NOT_FOUND_ERROR,
                                           ZN_API_XML_FILTER_SUBSTITUTION_ERROR};
    ZNTOPO_REQUIRE(statuses.count(status) == 1);
    const bool isRefused = status == ZN_API_XML_FILTER_VALIDATION_ERROR ||
                           status == ZN_API_XML_FILTER_TRANSFORMATION_ERROR;
    ZNTOPO_REQUIRE(!isRefused || (m_FiltMap.empty() && m_StateStack.empty()));
    if (status != ZN_API_SUCCESS) return;
    ZNTOPO_REQUIRE(m_StateStack.size() == 1 && m_Context == Unset);
    for (const auto& [name, filter] : m_FiltMap) {
      ZNTOPO_REQUIRE(filter.getName() == name);
      ZNTOPO_REQUIRE(filter.getFinalWhereClause().find('#') == std::string::npos);
    }
  }

  std::vector<TopoFilt> filters() const {
    std::vector<TopoFilt> all;
    for (const auto& [name, filter] : m_FiltMap) all.push_back(filter);
    return all;
  }
};

/// Parses a document with the configuration directory of the process.
/// @return its filters, none if it is refused.
inline std::vector<TopoFilt> parse(const std::string& document) {
  // Keeps the libraries started.
  static bool isStarted = false;
  static std::string error;
  static const XMLUtil keeper(isStarted, error);
  ZNTOPO_REQUIRE(isStarted);
  OpenHandler handler;
  TvXplMsg::MessageList_t list;
  const int status = handler.ParseXmlString(list, document);
  ZNTOPO_REQUIRE((status == ZN_API_SUCCESS) == (list.GetMessageCount() == 0));
  handler.check(status);
  return status == ZN_API_SUCCESS ? handler.filters() : std::vector<TopoFilt>();
}

}  // namespace zntopo::fuzz
