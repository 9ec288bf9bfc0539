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

/// A node with an interface "port"; each operator here holds for it, or for none.
class NestedOperatorsTest : public LanguageTest {
 protected:
  void SetUp() override {
    LanguageTest::SetUp();
    if (!store_) return;
    for (int i = 1; i <= 3; ++i) store_->addNode(uuid(i), "node-" + std::to_string(i));
    store_->addInterface(uuid(1, 'b'), uuid(1), "port");
    store_->addInterface(uuid(2, 'b'), uuid(2), "other");
  }
};

ZNTOPO_ON_ENGINES(NestedOperatorsTest, kMainEngines);

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

TEST_P(NestedOperatorsTest, AFilterOfAnotherKindInAnEarlierDocumentIsNotNoticed) {
  parse(document(interfaceFilter("<name><string>port</string></name>", "ports")));
  parse(document(filter("f", "NOOP", reference("ports")) +
                 filter("others", "NOT", reference("ports")) +
                 filter("both", "AND",
                        reference("ports") + "<attribute><name><string>node-1</string></name>"
                                             "</attribute>")));
  EXPECT_EQ(selected("f"), Ids{uuid(1)});
  EXPECT_EQ(selected("both"), Ids{uuid(1)});
  // Node 3 has no interface that the condition could stand beside.
  EXPECT_EQ(selected("others"), Ids{uuid(2)});
  parse(document(addressFilter("<isSubnet><boolean>false</boolean></isSubnet>", "places")));
  parse(document(filter("not", "NOT", reference("places"))));
  EXPECT_EQ(selected("not"), Ids{});
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

/// Tests that hold for every object, or with negate for none.
std::string trueTests(int count, bool negate = false) {
  std::string tests;
  for (int i = 0; i < count; ++i) {
    tests += std::string("<attribute") + (negate ? " negate=\"true\"" : "") +
             "><name><exact compare=\"notEqual\">x" + std::to_string(i) +
             "</exact></name></attribute>";
  }
  return tests;
}
/// The test of a node that it has an interface "port", which passes 499 other tests, too.
std::string hasPort() {
  return "<attribute><interface><operator oper=\"AND\">" + trueTests(499) +
         "<attribute><name><string>port</string></name></attribute></operator></interface>"
         "</attribute>";
}

TEST_P(NestedOperatorsTest, FiveHundredTestsWithinFiveHundredAreWithinWhatEnginesTake) {
  parse(document(assertion("first", "AND", hasPort() + trueTests(499)) +
                 assertion("last", "AND", trueTests(499) + hasPort()) +
                 assertion("either", "OR", trueTests(499, true) + hasPort()) +
                 filter("byReference", "AND", reference("last") + trueTests(499)) +
                 filter("not", "NOT", reference("byReference"))));
  for (const char* name : {"first", "last", "either", "byReference"}) {
    EXPECT_EQ(selected(name), Ids{uuid(1)}) << name;
  }
  EXPECT_EQ(selected("not"), (Ids{uuid(2), uuid(3)}));
}

TEST_P(NestedOperatorsTest, FiveHundredTestsAreReferredToFromAnyPlace) {
  std::string others;
  for (int i = 0; i < 249; ++i) others += reference("all");
  const std::string references = others + reference("inner") + others + reference("all");
  parse(document(assertion("all", "NOOP", trueTests(1)) +
                 assertion("inner", "AND", trueTests(499) + hasPort()) +
                 filter("middle", "AND", references) +
                 filter("outer", "AND", trueTests(499) + reference("middle")) +
                 filter("outermost", "AND", reference("outer") + others + reference("outer"))));
  for (const char* name : {"middle", "outer", "outermost"}) {
    EXPECT_EQ(selected(name), Ids{uuid(1)}) << name;
  }
}

/// A chain of filters from "f0" on, each made of the one before it and of a test.
std::string chain(int length, const std::string& oper, const std::string& before,
                  const std::string& after, const std::string& negate = "") {
  std::string filters = assertion("f0", "NOOP", kFirst);
  for (int i = 1; i <= length; ++i) {
    const std::string other = reference("f" + std::to_string(i - 1), negate);
    filters += filter("f" + std::to_string(i), oper, before + other + after);
  }
  return document(filters);
}

TEST_P(OperatorsTest, ChainsOfTwentyReferencesAreWithinWhatEnginesTake) {
  const Ids first = where([](int a, int) { return a == 1; });
  const Ids both = where([](int a, int b) { return a == 1 && b == 1; });
  const Ids either = where([](int a, int b) { return a == 1 || b == 1; });
  parse(chain(20, "NOOP", "", ""));
  EXPECT_EQ(selected("f20"), first);
  parse(chain(20, "NOT", "", ""));
  EXPECT_EQ(selected("f20"), first);
  parse(chain(20, "AND", kSecond, ""));
  EXPECT_EQ(selected("f20"), both);
  parse(chain(20, "AND", "", kSecond));
  EXPECT_EQ(selected("f20"), both);
  parse(chain(20, "OR", kSecond, kSecond));
  EXPECT_EQ(selected("f20"), either);
  // With another reference before that to the chain.
  parse(document(assertion("second", "NOOP", kSecond)));
  parse(chain(20, "AND", kSecond + reference("second"), ""));
  EXPECT_EQ(selected("f20"), both);
  parse(chain(20, "NOT", "", "", "true"));
  EXPECT_EQ(selected("f20"), first);
  parse(chain(20, "OR", "", kSecond, "true"));
  EXPECT_EQ(selected("f20"), either);
}

TEST_P(OperatorsTest, ChainsOfTenFiltersWithManyReferencesAreWithinWhatEnginesTake) {
  std::string others;
  for (int i = 0; i < 30; ++i) others += reference("second");
  parse(document(assertion("second", "NOOP", kSecond)));
  parse(chain(10, "AND", others, kSecond));
  EXPECT_EQ(selected("f10"), where([](int a, int b) { return a == 1 && b == 1; }));
}

TEST_P(OperatorsTest, LongerChainsReachAsFarAsThePageSays) {
  parse(chain(40, "AND", kSecond, ""));
  EXPECT_EQ(selected("f40"), where([](int a, int b) { return a == 1 && b == 1; }));
  parse(chain(40, "NOT", "", ""));
  EXPECT_EQ(selected("f40"), where([](int a, int) { return a == 1; }));
}

TEST_P(OperatorsTest, AChainOfAHundredReferencesIsReadAndFailsAtMostWhenItRuns) {
  parse(chain(100, "AND", kSecond, ""));
  TvXplMsg::MessageList_t messages;
  ZNTopoAPIStatus status;
  const auto found = filters_.ExecFilter(messages, "f100", status);
  if (status.isOK()) {
    EXPECT_EQ(selected("f100"), where([](int a, int b) { return a == 1 && b == 1; }));
  } else {
    EXPECT_EQ(GetParam(), Engine::Sqlite) << messages.Format(TvXplMsg::fRecurse_k);
    EXPECT_EQ(status.getStatus(), ZN_API_SQL_BIND_STATEMENT_ERROR);
    EXPECT_TRUE(found->empty());
    EXPECT_THAT(messages.Format(TvXplMsg::fRecurse_k), testing::HasSubstr("parser stack overflow"));
  }
  // What is shorter still runs.
  EXPECT_EQ(selected("f20"), where([](int a, int b) { return a == 1 && b == 1; }));
}

TEST_P(OperatorsTest, BlanksAroundAnOperatorMeanNothing) {
  const std::string both = std::string(kFirst) + kSecond;
  EXPECT_EQ(selectedBy(document(assertion("f", " NOT\n", kFirst))),
            where([](int a, int) { return a != 1; }));
  EXPECT_EQ(selectedBy(document(assertion("f", " NOOP ", kFirst))),
            where([](int a, int) { return a == 1; }));
  EXPECT_EQ(selectedBy(document(assertion("f", "\tAND ", both))),
            where([](int a, int b) { return a == 1 && b == 1; }));
  EXPECT_EQ(filters_.condition("f"), " ( ( NODE.l2DomainId = 1 ) AND ( NODE.snmpState = 1 ) ) ");
  EXPECT_EQ(selectedBy(document(assertion("f", " OR ", both))),
            where([](int a, int b) { return a == 1 || b == 1; }));
  for (const char* oper : {" NOT ", " NOOP "}) {
    std::string told;
    EXPECT_EQ(refusal(document(assertion("f", oper, both)), &told),
              ZN_API_XML_FILTER_TRANSFORMATION_ERROR);
    EXPECT_THAT(told, testing::HasSubstr("takes exactly one test."));
  }
}

TEST_P(OperatorsTest, ConditionsHaveSingleBlanksAndParenthesesAroundThem) {
  const auto bodyOf = [](const std::string& oper, const std::string& tests) {
    const std::string text = intermediate(document(filter("f", oper, tests)));
    const std::string begin = "<whereQueryStr>";
    const std::size_t at = text.find(begin) + begin.size();
    return text.substr(at, text.find("</whereQueryStr>") - at);
  };
  parse(document(assertion("a", "OR", std::string(kFirst) + "\n\t " + kSecond)));
  EXPECT_EQ(filters_.condition("a"), " ( ( NODE.l2DomainId = 1 ) OR ( NODE.snmpState = 1 ) ) ");
  EXPECT_THAT(intermediate(document(filter("f", "AND", reference("a") + kNotFirst))),
              testing::EndsWith("<iFilters><iFilter objectType=\"Node\" name=\"f\"><whereQueryStr>"
                                " ( ( #a# ) AND ( NODE.l2DomainId = 1 ) is not true ) "
                                "</whereQueryStr></iFilter></iFilters>"));
  EXPECT_EQ(bodyOf("NOOP", kFirst), " ( NODE.l2DomainId = 1 ) ");
  EXPECT_EQ(bodyOf("NOOP", reference("a")), " ( #a# ) ");
  EXPECT_EQ(bodyOf("NOT", reference("a")), " ( ( #a# ) is not true ) ");
  EXPECT_EQ(bodyOf("NOT", reference("a", "true")), " ( ( ( #a# ) is not true ) is not true ) ");
  EXPECT_EQ(bodyOf("OR", kFirst + reference("a") + kSecond + reference("b")),
            " ( ( #a# ) OR ( #b# ) OR ( NODE.l2DomainId = 1 ) OR ( NODE.snmpState = 1 ) ) ");
}

}  // namespace
}  // namespace zntopo::test
