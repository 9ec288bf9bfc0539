#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <set>

#include "tests/filterlanguage/LanguageTest.h"
#include "tests/filterlanguage/XmlTree.h"

/// @file
/// The schemas tell an editor what everything means, and nothing recurs or appears by itself.

namespace zntopo::test {
namespace {

class SchemaTest : public testing::TestWithParam<const char*> {
 protected:
  const XmlTree schema_ = readXml(contentOf(languageFile(GetParam())));
};

INSTANTIATE_TEST_SUITE_P(Files, SchemaTest,
                         testing::Values("TopoFilter.xsd", "HostIDFile.xsd",
                                         "IntermediateTopoFilter.xsd"),
                         [](const auto& file) {
                           const std::string name = file.param;
                           return name.substr(0, name.find('.'));
                         });

/// The text of an element's documentation; empty without one.
std::string documentationOf(const XmlTree& element) {
  for (const XmlTree& child : element.children) {
    if (child.name != "annotation") continue;
    for (const XmlTree& part : child.children) {
      if (part.name == "documentation") return part.text;
    }
  }
  return "";
}

TEST_P(SchemaTest, ExplainsEachElementAttributeTypeGroupAndValue) {
  const std::set<std::string> explained = {"element",     "attribute",  "enumeration",
                                           "complexType", "simpleType", "group"};
  int count = 0;
  schema_.walk([&](const XmlTree& each, const std::vector<const XmlTree*>&) {
    const bool isDefinition = !each.attribute("name").empty() || (each.name == "enumeration");
    if (!explained.contains(each.name) || !isDefinition) return;
    ++count;
    const std::string text = documentationOf(each);
    EXPECT_TRUE(
        std::any_of(text.begin(), text.end(), [](unsigned char c) { return std::isalpha(c) != 0; }))
        << each.name << " " << each.attribute("name") << each.attribute("value");
  });
  EXPECT_GE(count, 5);
}

TEST_P(SchemaTest, HasNoDefaultsAndNothingThatTakesAnything) {
  schema_.walk([&](const XmlTree& each, const std::vector<const XmlTree*>&) {
    EXPECT_EQ(each.attribute("default") + each.attribute("fixed"), "");
    EXPECT_NE(each.name, "any");
    EXPECT_NE(each.name, "anyAttribute");
    EXPECT_NE(each.attribute("mixed"), "true");
  });
}

/// The types and groups that a definition names, however deep.
void collect(const XmlTree& schema, const std::string& definition, std::set<std::string>& around,
             int& deepest) {
  ASSERT_TRUE(around.insert(definition).second) << definition << " is in itself";
  deepest = std::max(deepest, static_cast<int>(around.size()));
  for (const XmlTree& candidate : schema.children) {
    if (candidate.attribute("name") != definition) continue;
    candidate.walk([&](const XmlTree& each, const std::vector<const XmlTree*>&) {
      for (const char* reference : {"type", "ref", "base", "itemType"}) {
        const std::string name = each.attribute(reference);
        if (name.rfind("f:", 0) == 0) collect(schema, name.substr(2), around, deepest);
      }
    });
  }
  around.erase(definition);
}

TEST(FilterSchema, HasOneGlobalElementAndNoRecursion) {
  const XmlTree schema = readXml(contentOf(languageFile("TopoFilter.xsd")));
  const auto isElement = [](const XmlTree& each) { return each.name == "element"; };
  EXPECT_EQ(std::count_if(schema.children.begin(), schema.children.end(), isElement), 1);
  std::set<std::string> around;
  int deepest = 0;
  collect(schema, "filters", around, deepest);
  EXPECT_GT(deepest, 8);
}

}  // namespace
}  // namespace zntopo::test
