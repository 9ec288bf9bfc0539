#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "tests/support/FilterConfiguration.h"
#include "zntopo/core/ZNTopoStatus.h"
#include "zntopo/filter/TopoFiltHandler.h"
#include "zntopo/filter/XMLUtil.h"

/// @file
/// What the tests of the filter floor share.

namespace zntopo::test {

/// A handler with nothing hidden.
class OpenHandler : public TopoFiltHandler {
 public:
  using TopoFiltHandler::m_Context;
  using TopoFiltHandler::m_FiltMap;
  using TopoFiltHandler::m_StateStack;
  using TopoFiltHandler::m_WhereClause;

  /// Puts a filter in, as a definition does.
  void define(const std::string& name, const std::string& condition,
              const std::string& kind = "Node") {
    TopoFilt& filter = m_FiltMap[name] = TopoFilt(name, kind, condition);
    filter.setFinalWhereClause(condition);
  }
  std::string finalOf(const std::string& name) { return m_FiltMap.at(name).getFinalWhereClause(); }
};

/// The services that a test is about, started.
struct StartedUtil {
  bool isStarted = false;
  std::string startError;
  XMLUtil xml{isStarted, startError};
};

/// All messages of a list, one a line.
inline std::string textOf(const TvXplMsg::MessageList_t& list) {
  return list.Format(TvXplMsg::fRecurse_k);
}

class FilterTest : public testing::Test {
 protected:
  /// The location of the tests' schema, as the loading of definitions gives it.
  std::string schemaLocation(const std::string& name = "TopoFilter.xsd") {
    const StartedUtil util;
    return util.xml.getTopologyXMLNamespace() + " " + util.xml.getTopologyXMLConfigURI() + name;
  }

  FilterConfiguration configuration;
  OpenHandler handler;
  TvXplMsg::MessageList_t list;
  std::string error;
  std::string result;
};

}  // namespace zntopo::test
