#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "tests/support/FilterConfiguration.h"
#include "tests/support/Scratch.h"
#include "tests/support/TestStore.h"
#include "zntopo/filter/TopoFiltHandler.h"
#include "zntopo/filter/XMLUtil.h"

/// @file
/// The language of filters on a store: documents go through the library, and what they select is
/// held against statements that are written by hand.

namespace zntopo::test {

/// Where the project's own files of the filter configuration lie.
inline std::string languageFolder() { return inSourceTree("data/filter"); }

/// A handler whose conditions can be seen.
class OpenFilters : public TopoFiltHandler {
 public:
  /// The condition of a filter, references expanded.
  std::string condition(const std::string& name) const {
    return m_FiltMap.at(name).getFinalWhereClause();
  }
};

/// A file of the filter configuration in the source tree.
std::string languageFile(const std::string& name);

/// Filters in the root element.
std::string document(const std::string& filters);
/// Filters in a document of their own; tests are elements such as <name>...</name>.
std::string nodeFilter(const std::string& test, const std::string& name = "f");
std::string interfaceFilter(const std::string& test, const std::string& name = "f");
std::string addressFilter(const std::string& test, const std::string& name = "f");
/// A text as it stands in XML.
std::string escaped(const std::string& text);
/// What the stylesheet makes of a document, which has to be valid by the schema of the intermediate
/// vocabulary; fails the test if not.
std::string intermediate(const std::string& xml);

using Ids = std::vector<std::string>;

class LanguageTest : public StoreTest {
 protected:
  void SetUp() override;

  /// Reads a document with a handler, which has to succeed. What the stylesheet makes of it is
  /// held against the schema of the intermediate vocabulary, too.
  void parse(const std::string& xml);
  /// The status of a document that must not succeed, and what is told.
  int refusal(const std::string& xml, std::string* told = nullptr);
  /// What a filter of the documents read selects, sorted: identifiers of nodes, interfaces or
  /// addresses. Fails the test if one comes twice.
  Ids selected(const std::string& name);
  /// The same of a document with one filter "f".
  Ids selectedBy(const std::string& xml);
  /// The nodes, interfaces, addresses that pass a test.
  Ids nodes(const std::string& test) { return selectedBy(document(nodeFilter(test))); }
  Ids interfaces(const std::string& test) { return selectedBy(document(interfaceFilter(test))); }
  Ids addresses(const std::string& test) { return selectedBy(document(addressFilter(test))); }
  /// The first column of the rows of a statement, sorted.
  Ids rows(const std::string& sql);

  FilterConfiguration config_{"etc", languageFolder()};
  OpenFilters filters_;

 private:
  bool isStarted_ = false;
  std::string error_;
  /// Keeps the XML libraries started.
  XMLUtil xml_{isStarted_, error_};
};

}  // namespace zntopo::test
