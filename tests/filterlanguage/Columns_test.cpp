#include <strings.h>

#include <algorithm>
#include <fstream>
#include <functional>
#include <map>
#include <nlohmann/json.hpp>
#include <set>

#include "tests/filterlanguage/LanguageTest.h"
#include "tests/filterlanguage/MarkdownPage.h"
#include "tests/filterlanguage/XmlTree.h"
#include "tests/support/Places.h"

/// @file
/// Holds the tables of docs/filters.md, the schema of the language, its stylesheet and the schema
/// of the store together.

namespace zntopo::test {
namespace {

/// A kind of objects, as each of them calls it.
struct Kind {
  const char* heading;
  const char* group;
  const char* assertion;
  const char* alias;
  const char* table;
  /// Columns that nobody filters by: what is the same in all rows, and what others tell better.
  std::set<std::string> untested;
};

const Kind kKinds[] = {
    {"### Nodes", "Node", "nodeAssertion", "NODE", "nwnode", {"EntityType"}},
    {"### Interfaces", "Interface", "interfaceAssertion", "IF", "nwinterface", {}},
    {"### Addresses", "Address", "addressAssertion", "ADDR", "address", {"SubnetObjId"}},
};

class ColumnsTest : public testing::TestWithParam<Kind> {
 protected:
  static std::vector<std::vector<std::string>> documented() {
    return MarkdownPage(inSourceTree("docs/filters.md")).table(GetParam().heading);
  }
};

INSTANTIATE_TEST_SUITE_P(Kinds, ColumnsTest, testing::ValuesIn(kKinds),
                         [](const auto& kind) { return std::string(kind.param.group); });

/// The elements of the groups of a kind, with their explanation, in the order of the schema.
std::vector<std::pair<std::string, std::string>> elementsOf(const Kind& kind) {
  const XmlTree schema = readXml(contentOf(languageFile("TopoFilter.xsd")));
  std::vector<std::pair<std::string, std::string>> result;
  for (const std::string ending : {"OwnTests", "Tests"}) {
    for (const XmlTree& each : schema.children) {
      if (each.name != "group" || each.attribute("name") != kind.group + ending) continue;
      for (const XmlTree& element : each.child("choice").children) {
        if (element.name != "element") continue;
        std::string text = element.child("annotation").child("documentation").text;
        std::string words;
        for (const char c : text) {
          const bool isBlank = c == ' ' || c == '\n';
          if (!isBlank) words += c;
          if (isBlank && !words.empty() && words.back() != ' ') words += ' ';
        }
        words.erase(words.find_last_not_of(' ') + 1);
        result.emplace_back(element.attribute("name"), words);
      }
    }
  }
  return result;
}

TEST_P(ColumnsTest, ThePageListsTheTestsOfTheSchema) {
  std::vector<std::pair<std::string, std::string>> listed;
  for (const auto& row : documented()) listed.emplace_back(row[0], row[3]);
  EXPECT_EQ(listed, elementsOf(GetParam()));
}

/// A value of each type, as it stands within the element.
std::string sampleOf(const std::string& value) {
  if (value == "text") return "<string>a</string>";
  if (value == "number" || value == "state") return "<integer>1</integer>";
  if (value == "time") return "<time>2026-01-01T00:00:00Z</time>";
  if (value == "flag") return "<boolean>true</boolean>";
  return "<address>10.0.0.1</address>";
}

bool containsWord(const std::string& text, const std::string& word) {
  const auto same = [](char a, char b) { return strncasecmp(&a, &b, 1) == 0; };
  const auto found = std::search(text.begin(), text.end(), word.begin(), word.end(), same);
  if (found == text.end()) return false;
  const auto next = found + static_cast<std::ptrdiff_t>(word.size());
  return next == text.end() || std::isalnum(static_cast<unsigned char>(*next)) == 0;
}

TEST_P(ColumnsTest, ATestComparesTheColumnThatThePageNames) {
  const std::string kind = GetParam().assertion;
  std::map<std::string, std::string> columns;
  std::string definitions;
  for (const auto& row : documented()) {
    if (row[2].empty() || row[2].find('`') != std::string::npos) continue;
    columns[row[0]] = row[2];
    definitions += "<" + kind + " name=\"" + row[0] + "\"><operator oper=\"NOOP\"><attribute><" +
                   row[0] + ">" + sampleOf(row[1]) + "</" + row[0] + "></attribute></operator></" +
                   kind + ">";
  }
  const FilterConfiguration config{"etc", languageFolder()};
  OpenFilters filters;
  TvXplMsg::MessageList_t messages;
  ASSERT_EQ(filters.ParseXmlString(messages, document(definitions)), ZN_API_SUCCESS)
      << messages.Format(TvXplMsg::fRecurse_k);
  intermediate(document(definitions));
  EXPECT_GT(columns.size(), 15U);
  for (const auto& [element, column] : columns) {
    const std::string whole = std::string(" ") + GetParam().alias + "." + column;
    const std::string condition = filters.condition(element);
    EXPECT_TRUE(containsWord(condition, whole)) << element << condition;
  }
}

TEST_P(ColumnsTest, EachColumnOfTheTableCanBeTested) {
  std::set<std::string> tested = GetParam().untested;
  for (const auto& row : documented()) {
    std::string name;
    for (const char c : row[2] + ",") {
      if (std::isalnum(static_cast<unsigned char>(c)) != 0) name += c;
      if (c == ',') tested.insert(std::exchange(name, ""));
    }
  }
  std::ifstream file(inSourceTree("data/schema/tables.json"));
  const nlohmann::json description = nlohmann::json::parse(file);
  std::size_t count = 0;
  // A text stands for a list of columns that several tables have.
  const std::function<void(const nlohmann::json&)> expect = [&](const nlohmann::json& columns) {
    for (const nlohmann::json& column : columns) {
      if (column.is_string()) {
        expect(description.at(column));
        continue;
      }
      EXPECT_TRUE(tested.contains(column.at(0))) << column.at(0);
      ++count;
    }
  };
  for (const nlohmann::json& table : description.at("tables")) {
    if (table.at("name") == GetParam().table) expect(table.at("columns"));
  }
  EXPECT_GT(count, 15U);
}

}  // namespace
}  // namespace zntopo::test
