// How references among filters are expanded.

#include <random>

#include "fuzz/PlainExpansion.h"
#include "tests/filter/FilterFixture.h"
#include "tests/support/TopoFiltHandlerPeer.h"

namespace zntopo::test {
namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::Key;

class SubstitutionTest : public testing::Test {
 protected:
  int expand() { return TopoFiltHandlerPeer::expand(handler, list); }
  void expectFailure(ZNTopoStatus status, const std::string& text) {
    EXPECT_EQ(expand(), status);
    EXPECT_EQ(textOf(list), text + "\n");
  }

  OpenHandler handler;
  TvXplMsg::MessageList_t list;
};

TEST_F(SubstitutionTest, AReferenceBecomesTheOtherConditionBetweenBlanksWithoutParentheses) {
  handler.define("a", "x = 1 and #b#or y = 2");
  handler.define("b", "z = 3");
  EXPECT_EQ(expand(), 0);
  EXPECT_EQ(handler.finalOf("a"), "x = 1 and  z = 3 or y = 2");
  EXPECT_EQ(handler.finalOf("b"), "z = 3");
  EXPECT_EQ(handler.m_FiltMap.at("a").getWhereQueryString(), "x = 1 and #b#or y = 2");
  EXPECT_EQ(list.GetMessageCount(), 0);
}

TEST_F(SubstitutionTest, ReferencesInReferencesAreExpandedWhateverTheirOrder) {
  handler.define("a", "#b#,#c#");
  handler.define("b", "#c##d#");
  handler.define("c", "<#d#>");
  handler.define("d", "1");
  EXPECT_EQ(expand(), 0);
  // Each walk expands one reference of each condition with what the other one is at that moment.
  EXPECT_EQ(handler.finalOf("a"), "  < 1 >  1  , < 1 > ");
  EXPECT_EQ(handler.finalOf("b"), " < 1 >  1 ");
  EXPECT_EQ(handler.finalOf("c"), "< 1 >");
}

TEST_F(SubstitutionTest, ALoneDelimiterFailsOnEveryLaterParse) {
  handler.define("a", "x #");
  handler.define("b", "fine");
  for (int i = 1; i <= 2; ++i) {
    EXPECT_EQ(expand(), ZN_API_XML_FILTER_FILE_UNBALANCED_DELIMITERS);
    EXPECT_EQ(list.GetMessageCount(), i);
    EXPECT_EQ(list.GetMessage(i - 1).GetText(),
              "Unbalanced delimiters found in filterstring substitution for [a].");
  }
}

TEST_F(SubstitutionTest, AFilterThatNamesItselfIsCircular) {
  handler.define("a", "#a#");
  expectFailure(ZN_API_XML_FILTER_FILE_CIRCULAR_REF_ERROR,
                "Circular reference found in filter string substitution.");
}

TEST_F(SubstitutionTest, ACircleOfTwoStopsAtTheSecondWalkPartlyExpanded) {
  handler.define("A", "#B#");
  handler.define("B", "#A#");
  expectFailure(ZN_API_XML_FILTER_FILE_CIRCULAR_REF_ERROR,
                "Circular reference found in filter string substitution.");
  EXPECT_EQ(handler.finalOf("A"), " #A# ");
  EXPECT_EQ(handler.finalOf("B"), "  #A#  ");
}

TEST_F(SubstitutionTest, ACircleOfManyIsFound) {
  for (const int length : {3, 4, 7, 20}) {
    OpenHandler circle;
    for (int i = 0; i < length; ++i) {
      circle.define("f" + std::to_string(i), "#f" + std::to_string((i + 1) % length) + "#");
    }
    EXPECT_EQ(TopoFiltHandlerPeer::expand(circle, list), ZN_API_XML_FILTER_FILE_CIRCULAR_REF_ERROR)
        << length;
  }
}

TEST_F(SubstitutionTest, AnUnknownNameFailsAndLeavesAnEmptyFilter) {
  handler.define("a", "#nobody#");
  expectFailure(ZN_API_XML_FILTER_KEY_NOT_FOUND_ERROR,
                "Filter key [nobody] not found in filter string substitution.");
  EXPECT_EQ(handler.m_FiltMap.at("nobody").getName(), "");
  EntityType type = E_Node;
  EXPECT_EQ(handler.getFilterObjType("nobody", type), 0);
  EXPECT_EQ(type, E_Unknown);
  EXPECT_EQ(expand(), ZN_API_XML_FILTER_KEY_NOT_FOUND_ERROR) << "the empty filter stays unknown";
  ZNTopoAPIStatus status;
  EXPECT_THAT(*handler.ExecFilter(list, "nobody", status), testing::IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_XML_FILTER_NAME_NOT_FOUND_ERROR);
}

TEST_F(SubstitutionTest, TwoDelimitersInARowBecomeTwoBlanksAndLeaveTheEmptyName) {
  handler.define("a", "x##y");
  EXPECT_EQ(expand(), 0);
  EXPECT_EQ(handler.finalOf("a"), "x  y");
  EXPECT_EQ(handler.m_FiltMap.at("").getName(), "");
  EXPECT_THAT(handler.getFilterNameDesc(), Contains(Key("")));
}

TEST_F(SubstitutionTest, WhatWasExpandedEarlierKeepsTheOldText) {
  handler.define("a", "#b#");
  handler.define("b", "old");
  EXPECT_EQ(expand(), 0);
  handler.define("b", "new");
  EXPECT_EQ(expand(), 0);
  EXPECT_EQ(handler.finalOf("a"), " old ");
}

TEST_F(SubstitutionTest, OtherConditionsKeepWhatWasExpandedBeforeAFailure) {
  handler.define("a", "#b#");
  handler.define("b", "1");
  handler.define("c", "#nobody#");
  EXPECT_EQ(expand(), ZN_API_XML_FILTER_KEY_NOT_FOUND_ERROR);
  EXPECT_EQ(handler.finalOf("a"), " 1 ");
}

/// Doubles with each link: 2 to the power of the links.
void defineDoubling(OpenHandler& handler, int links, const std::string& end) {
  const auto name = [](int i) { return "f" + std::to_string(1000 + i); };
  for (int i = 0; i < links; ++i) {
    handler.define(name(i), "#" + name(i + 1) + "##" + name(i + 1) + "#");
  }
  handler.define(name(links), end);
}

TEST_F(SubstitutionTest, AConditionThatGrowsBeyondTheLimitIsNamed) {
  defineDoubling(handler, 40, "0123456789");
  EXPECT_EQ(expand(), ZN_API_XML_FILTER_SUBSTITUTION_ERROR);
  EXPECT_THAT(textOf(list),
              testing::MatchesRegex("The condition of filter \\[f10[0-9]+\\] has more than 1000000 "
                                    "bytes with its references expanded.\n"));
  for (const auto& [name, filter] : handler.m_FiltMap) {
    EXPECT_LE(filter.getFinalWhereClause().size(), TopoFiltHandler::kLargestCondition) << name;
  }
}

TEST_F(SubstitutionTest, ACircleThatGrowsEndsToo) {
  handler.define("a", "#b##b#");
  handler.define("b", "#c##c#");
  handler.define("c", "#b##b#");
  expectFailure(ZN_API_XML_FILTER_FILE_CIRCULAR_REF_ERROR,
                "Circular reference found in filter string substitution.");
}

TEST_F(SubstitutionTest, AConditionAsLargeAsTheLimitPasses) {
  const std::string most(TopoFiltHandler::kLargestCondition - 2, 'x');
  handler.define("a", "#b#");
  handler.define("b", most);
  EXPECT_EQ(expand(), 0) << textOf(list);
  EXPECT_EQ(handler.finalOf("a").size(), TopoFiltHandler::kLargestCondition);
  handler.define("a", "#b#");
  handler.define("b", most + "x");
  EXPECT_EQ(expand(), ZN_API_XML_FILTER_SUBSTITUTION_ERROR);
}

TEST_F(SubstitutionTest, ALargeConditionWithoutReferencesIsLeftAlone) {
  const std::string large(3 * TopoFiltHandler::kLargestCondition, 'x');
  handler.define("a", large);
  EXPECT_EQ(expand(), 0);
  EXPECT_EQ(handler.finalOf("a"), large);
}

TEST_F(SubstitutionTest, AllConditionsTogetherAreBoundedAsWell) {
  handler.define("a", std::string(TopoFiltHandler::kLargestCondition / 2, 'x'));
  for (int i = 0; i < 300; ++i) handler.define("b" + std::to_string(1000 + i), "#a#");
  EXPECT_EQ(expand(), ZN_API_XML_FILTER_SUBSTITUTION_ERROR);
  EXPECT_THAT(textOf(list), HasSubstr("Filter string substitution stopped at filter [b1199]: all "
                                      "conditions together take in more than 100000000"));
}

TEST_F(SubstitutionTest, AsManyReferencesAsFitAreExpanded) {
  std::string text;
  for (int i = 0; i < 300'000; ++i) text += "#e#";
  handler.define("a", text);
  handler.define("e", "");
  EXPECT_EQ(expand(), 0) << textOf(list);
  EXPECT_EQ(handler.finalOf("a"), std::string(600'000, ' '));
}

TEST_F(SubstitutionTest, RandomFiltersComeOutAsTheRuleReads) {
  std::mt19937 random(5);
  const auto upTo = [&](int most) { return static_cast<int>(random() % (most + 1)); };
  std::map<int, int> met;
  for (int round = 0; round < 1000; ++round) {
    OpenHandler some;
    std::map<std::string, std::string> texts;
    const int count = 1 + upTo(6);
    for (int i = 0; i < count; ++i) {
      std::string text;
      for (int piece = upTo(4); piece > 0; --piece) {
        // Mostly later filters, so that not all is circular; here and there something odd.
        const int to = upTo(12) ? i + 1 + upTo(3) : upTo(count);
        text += upTo(40) ? "#" + std::to_string(to) + "#" : std::string(1 + upTo(1), '#');
        text += std::string(upTo(2), 'x');
      }
      texts[std::to_string(i)] = text;
      some.define(std::to_string(i), text);
    }
    for (int i = count; i < count + 4; ++i) {
      texts[std::to_string(i)] = "end";
      some.define(std::to_string(i), "end");
    }
    const int expected = fuzz::expandPlainly(texts);
    ++met[expected];
    ASSERT_EQ(TopoFiltHandlerPeer::expand(some, list), expected) << round;
    for (const auto& [name, text] : texts) {
      if (!name.empty()) {
        ASSERT_EQ(some.finalOf(name), text) << round << " " << name;
      }
    }
  }
  EXPECT_GT(met[0], 150);
  EXPECT_GT(met[ZN_API_XML_FILTER_FILE_CIRCULAR_REF_ERROR], 30);
  EXPECT_GT(met[ZN_API_XML_FILTER_FILE_UNBALANCED_DELIMITERS], 15);
}

}  // namespace
}  // namespace zntopo::test
