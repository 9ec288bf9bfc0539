#include "tests/filterlanguage/LanguageTest.h"
#include "tests/support/ApiFixture.h"

/// @file
/// How tests are put together: operators, negation, references.

namespace zntopo::test {
namespace {

/// Nodes with each pair of values of two columns; NULL, 0 and 1 make false, false and true, and a
/// comparison with NULL is neither.
class OperatorsTest : public LanguageTest {
 protected:
  void SetUp() override {
    LanguageTest::SetUp();
    if (!store_) return;
    const std::vector<Value> values = {nullptr, 0, 1};
    for (int a = 0; a < 3; ++a) {
      for (int b = 0; b < 3; ++b) {
        store_->addNode(uuid(3 * a + b), "n",
                        {{"L2DomainId", values[a]}, {"SNMPState", values[b]}});
      }
    }
  }

  /// The nodes of which a truth of the two values holds; NULL is -1.
  template <typename Truth>
  static Ids where(const Truth& truth) {
    Ids result;
    for (int a = 0; a < 3; ++a) {
      for (int b = 0; b < 3; ++b) {
        if (truth(a - 1, b - 1)) result.push_back(uuid(3 * a + b));
      }
    }
    return result;
  }
};

ZNTOPO_ON_ENGINES(OperatorsTest, kMainEngines);

constexpr const char* kFirst =
    "<attribute><l2DomainId><integer>1</integer></l2DomainId></attribute>";
constexpr const char* kSecond =
    "<attribute><snmpState><integer>1</integer></snmpState></attribute>";
constexpr const char* kNotFirst =
    "<attribute negate=\"true\"><l2DomainId><integer>1</integer></l2DomainId></attribute>";
constexpr const char* kNotFalse =
    "<attribute negate=\"false\"><snmpState><integer>1</integer></snmpState></attribute>";

std::string definition(const std::string& kind, const std::string& name, const std::string& oper,
                       const std::string& tests) {
  return "<node" + kind + " name=\"" + name + "\"><operator oper=\"" + oper + "\">" + tests +
         "</operator></node" + kind + ">";
}
std::string assertion(const std::string& name, const std::string& oper, const std::string& tests) {
  return definition("Assertion", name, oper, tests);
}
std::string filter(const std::string& name, const std::string& oper, const std::string& tests) {
  return definition("Filter", name, oper, tests);
}
std::string reference(const std::string& name, const std::string& negate = "") {
  const std::string attribute = negate.empty() ? "" : " negate=\"" + negate + "\"";
  return "<reference" + attribute + ">" + name + "</reference>";
}

TEST_P(OperatorsTest, TestsArePutTogetherByAndOrNotAndNoop) {
  const auto found = [this](const std::string& oper, const std::string& tests) {
    return selectedBy(document(assertion("f", oper, tests)));
  };
  const std::string both = std::string(kFirst) + kSecond;
  EXPECT_EQ(found("AND", both), where([](int a, int b) { return a == 1 && b == 1; }));
  EXPECT_EQ(found("OR", both), where([](int a, int b) { return a == 1 || b == 1; }));
  EXPECT_EQ(found("NOOP", kFirst), where([](int a, int) { return a == 1; }));
  EXPECT_EQ(found("AND", kFirst), where([](int a, int) { return a == 1; }));
  EXPECT_EQ(found("OR", kFirst), where([](int a, int) { return a == 1; }));
}

TEST_P(OperatorsTest, WhatIsNullIsNoMatchOfWhatIsDenied) {
  const auto found = [this](const std::string& oper, const std::string& tests) {
    return selectedBy(document(assertion("f", oper, tests)));
  };
  const Ids notFirst = where([](int a, int) { return a != 1; });
  EXPECT_EQ(found("NOT", kFirst), notFirst);
  EXPECT_EQ(found("NOOP", kNotFirst), notFirst);
  EXPECT_EQ(found("NOT", kNotFirst), where([](int a, int) { return a == 1; }));
  EXPECT_EQ(found("AND", std::string(kNotFirst) + kNotFalse),
            where([](int a, int b) { return a != 1 && b == 1; }));
  EXPECT_EQ(found("OR", std::string(kNotFirst) + kNotFalse),
            where([](int a, int b) { return a != 1 || b == 1; }));
}

TEST_P(OperatorsTest, FiltersAreMadeOfOtherFilters) {
  const std::string first = assertion("first", "NOOP", kFirst);
  const std::string second = assertion("second", "NOOP", kSecond);
  const std::string either = assertion("either", "OR", std::string(kFirst) + kSecond);
  parse(document(
      // What refers may stand before what it refers to.
      filter("neither", "NOT", reference("either")) +
      filter("both", "AND", reference("first") + reference("second")) +
      filter("onlyOne", "AND", reference("either") + reference("both", "true")) +
      filter("mixed", "OR", reference("both") + kNotFirst) +
      filter("same", "NOOP", reference("second", "false")) +
      filter("doubled", "NOT", reference("neither", "true")) + first + second + either));
  EXPECT_EQ(selected("neither"), where([](int a, int b) { return a != 1 && b != 1; }));
  EXPECT_EQ(selected("both"), where([](int a, int b) { return a == 1 && b == 1; }));
  EXPECT_EQ(selected("onlyOne"), where([](int a, int b) { return (a == 1) != (b == 1); }));
  EXPECT_EQ(selected("mixed"), where([](int a, int b) { return (a == 1 && b == 1) || a != 1; }));
  EXPECT_EQ(selected("same"), where([](int, int b) { return b == 1; }));
  EXPECT_EQ(selected("doubled"), selected("neither"));
}

TEST_P(OperatorsTest, ADocumentMayReferToFiltersOfAnEarlierOne) {
  parse(document(assertion("first", "NOOP", kFirst)));
  parse(document(filter("later", "NOT", reference("first"))));
  EXPECT_EQ(selected("later"), where([](int a, int) { return a != 1; }));
}

TEST_P(OperatorsTest, ReferencesToNothingAndInCirclesAreRefused) {
  EXPECT_EQ(refusal(document(filter("f", "NOOP", reference("unknown")))),
            ZN_API_XML_FILTER_KEY_NOT_FOUND_ERROR);
  EXPECT_EQ(refusal(document(filter("f", "NOOP", reference("f")))),
            ZN_API_XML_FILTER_FILE_CIRCULAR_REF_ERROR);
  EXPECT_EQ(
      refusal(document(filter("a", "NOT", reference("b")) + filter("b", "AND", reference("c")) +
                       filter("c", "NOOP", reference("a")))),
      ZN_API_XML_FILTER_FILE_CIRCULAR_REF_ERROR);
}

TEST_P(OperatorsTest, FiveHundredTestsAreWithinWhatEnginesTake) {
  std::string tests;
  for (int i = 0; i < 499; ++i) {
    tests += "<attribute><name><string>n" + std::to_string(i) + "?*</string></name></attribute>";
  }
  const std::string all = assertion("all", "OR", tests + kFirst);
  const std::string none = assertion("none", "AND", tests + kFirst);
  parse(document(all + none));
  EXPECT_EQ(selected("all"), where([](int a, int) { return a == 1; }));
  EXPECT_EQ(selected("none"), Ids{});
}

TEST_P(OperatorsTest, ConditionsHaveSingleBlanksAndParenthesesAroundThem) {
  parse(document(assertion("a", "OR", std::string(kFirst) + "\n\t " + kSecond) +
                 filter("f", "AND", reference("a") + kNotFirst)));
  EXPECT_EQ(filters_.condition("a"), " ( ( NODE.l2DomainId = 1 ) OR ( NODE.snmpState = 1 ) ) ");
  EXPECT_THAT(intermediate(document(filter("f", "AND", reference("a") + kNotFirst))),
              testing::EndsWith("<iFilters><iFilter objectType=\"Node\" name=\"f\"><whereQueryStr>"
                                " ( ( #a# ) AND ( ( NODE.l2DomainId = 1 ) is not true ) ) "
                                "</whereQueryStr></iFilter></iFilters>"));
}

}  // namespace
}  // namespace zntopo::test
