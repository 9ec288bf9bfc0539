#include <regex>

#include "tests/filterlanguage/LanguageTest.h"
#include "tests/support/ApiFixture.h"

/// @file
/// What documents may not hold, and what they can't do.

namespace zntopo::test {
namespace {

class HostileTest : public LanguageTest {};

ZNTOPO_ON_ENGINES(HostileTest, kMainEngines);

/// Of documents that never come near a store.
class RefusedDocumentTest : public LanguageTest {};

ZNTOPO_ON_ENGINES(RefusedDocumentTest, kSqlite);

std::string named(const std::string& name) {
  return document(nodeFilter("<name><present/></name>", name));
}
std::string operatorOf(const std::string& oper, int tests, const std::string& kind = "Assertion") {
  std::string result = "<node" + kind + " name=\"f\"><operator oper=\"" + oper + "\">";
  for (int i = 0; i < tests; ++i) result += "<attribute><name><present/></name></attribute>";
  return document(result + "</operator></node" + kind + ">");
}
std::string testOf(const std::string& test) { return document(nodeFilter(test)); }

TEST_P(RefusedDocumentTest, WhatTheSchemaDoesNotKnowIsRefused) {
  const std::string refused[] = {
      named(""),
      named("1a"),
      named("a b"),
      named(" a"),
      named("a "),
      named("a#b"),
      named("a'b"),
      named("é"),
      named(std::string(256, 'a')),
      operatorOf("XOR", 1),
      operatorOf("and", 1),
      operatorOf("AND", 0),
      testOf("<nosuchcolumn><integer>1</integer></nosuchcolumn>"),
      testOf("<objid><string>a</string></objid>"),
      testOf("<name>a</name>"),
      testOf("<name><string>a</string><string>b</string></name>"),
      testOf("<name/>"),
      testOf("<name><integer>1</integer></name>"),
      testOf("<name><string compare=\"less\">a</string></name>"),
      testOf("<l2DomainId><integer>1 or 1=1</integer></l2DomainId>"),
      testOf("<l2DomainId><integer>1.5</integer></l2DomainId>"),
      testOf("<l2DomainId><integer>+1</integer></l2DomainId>"),
      testOf("<l2DomainId><integer>2147483648</integer></l2DomainId>"),
      testOf("<l2DomainId><integer>NaN</integer></l2DomainId>"),
      testOf("<l2DomainId><integer></integer></l2DomainId>"),
      testOf("<l2DomainId><integer compare=\"= 1 or 1\">1</integer></l2DomainId>"),
      testOf("<status><state>Broken</state></status>"),
      testOf("<status><state/></status>"),
      testOf("<snmpState><state>Up</state></snmpState>"),
      testOf("<isBGP><boolean>1</boolean></isBGP>"),
      testOf("<createTime><time>2026-11-21</time></createTime>"),
      testOf("<createTime><time>2026-11-21T03:00:00</time></createTime>"),
      testOf("<createTime><time>2026-11-21T03:00:00+01:00</time></createTime>"),
      testOf("<createTime><time>2026-02-30T03:00:00Z</time></createTime>"),
      testOf("<createTime><previousDiscovery/></createTime>"),
      testOf("<IPAddress><IPv4><prefix>10.0.0.0/33</prefix></IPv4></IPAddress>"),
      testOf("<IPAddress><IPv4><prefix>10.0.0.256/8</prefix></IPv4></IPAddress>"),
      testOf("<IPAddress><IPv4><prefix>10.0.0/8</prefix></IPv4></IPAddress>"),
      testOf("<IPAddress><IPv4><prefix>010.0.0.0/8</prefix></IPv4></IPAddress>"),
      testOf("<IPAddress><IPv6><prefix>2001:db8::/129</prefix></IPv6></IPAddress>"),
      testOf("<IPAddress><IPv6><prefix>2001:db8::1::/64</prefix></IPv6></IPAddress>"),
      testOf("<IPAddress><IPv6><prefix>1:2:3:4:5:6:7:8::/64</prefix></IPv6></IPAddress>"),
      testOf("<IPAddress><IPv6><prefix>12345::/64</prefix></IPv6></IPAddress>"),
      testOf("<IPAddress><IPv4><OADId>1</OADId><address>a</address></IPv4></IPAddress>"),
      testOf("<IPAddress><IPv4><address>a</address><OADId>1'</OADId></IPv4></IPAddress>"),
      testOf("<interface><operator oper=\"NOOP\"><attribute><node><operator oper=\"NOOP\">"
             "<attribute><name><present/></name></attribute></operator></node></attribute>"
             "</operator></interface>"),
      document(nodeFilter("<name><present/></name>") + nodeFilter("<name><present/></name>")),
      document("<nodeFilter name=\"f\"><operator oper=\"NOOP\"><reference>a#b</reference>"
               "</operator></nodeFilter>"),
      document("<nodeFilter name=\"f\"><operator oper=\"NOOP\"><reference> a</reference>"
               "</operator></nodeFilter>"),
      document("<nodeAssertion name=\"f\"><operator oper=\"NOOP\"><reference>a</reference>"
               "</operator></nodeAssertion>"),
      "<nodeAssertion/>"};
  for (const std::string& xml : refused) {
    EXPECT_EQ(refusal(xml), ZN_API_XML_FILTER_VALIDATION_ERROR) << xml.substr(0, 400);
  }
}

TEST_P(RefusedDocumentTest, WhatASchemaCannotTellIsRefusedByTheStylesheet) {
  std::string told;
  for (const char* oper : {"NOT", "NOOP"}) {
    EXPECT_EQ(refusal(operatorOf(oper, 2), &told), ZN_API_XML_FILTER_TRANSFORMATION_ERROR);
    EXPECT_THAT(told, testing::HasSubstr(std::string("Filter f: the operator ") + oper +
                                         " takes exactly one test."));
  }
  for (const char* kind : {"Assertion", "Filter"}) {
    EXPECT_EQ(refusal(operatorOf("OR", 501, kind), &told), ZN_API_XML_FILTER_TRANSFORMATION_ERROR);
    EXPECT_THAT(told, testing::HasSubstr("Filter f: an operator takes up to 500 tests."));
    EXPECT_EQ(refusal(operatorOf("OR", 500, kind)), ZN_API_SUCCESS);
  }
  const std::string other = interfaceFilter("<name><present/></name>", "ports");
  EXPECT_EQ(refusal(document(other + "<nodeFilter name=\"f\"><operator oper=\"NOOP\">"
                                     "<reference>ports</reference></operator></nodeFilter>"),
                    &told),
            ZN_API_XML_FILTER_TRANSFORMATION_ERROR);
  EXPECT_THAT(told, testing::HasSubstr("Filter f: the filter ports selects objects of another"));
  EXPECT_EQ(refusal(testOf("<name><string>" + std::string(10001, '*') + "</string></name>"), &told),
            ZN_API_XML_FILTER_TRANSFORMATION_ERROR);
  EXPECT_THAT(told, testing::HasSubstr("Filter f: a text is longer than 10000 characters."));
}

/// Every place where a document may hold any text.
std::vector<std::string> placesFor(const std::string& text) {
  std::vector<std::string> places;
  for (const char* element : {"name", "description", "zone", "sysOID", "sysContact", "sysLocation",
                              "objectID", "legacyID", "DNSName"}) {
    for (const char* value : {"string", "exact"}) {
      std::string test = std::string("<") + element + "><" + value + ">";
      test += text + "</" + value + "></" + element + ">";
      places.push_back(test);
    }
  }
  for (const char* version : {"IPv4", "IPv6"}) {
    std::string test = std::string("<IPAddress><") + version + "><address>" + text;
    test += std::string("</address><OADId>0</OADId></") + version + "></IPAddress>";
    places.push_back(test);
  }
  const std::string name = "<name><string>" + text + "</string></name>";
  for (const char* group : {"VLAN", "subnet", "HSRP", "container", "mesh", "neighbor"}) {
    places.push_back(std::string("<") + group + ">" + name + "</" + group + ">");
  }
  places.push_back("<userVariable>" + name + "<text><string>" + text +
                   "</string></text></userVariable>");
  for (const char* other : {"interface", "address"}) {
    const std::string column = std::string(other) == "address" ? "DNSName" : "ifName";
    places.push_back(std::string("<") + other + "><operator oper=\"NOOP\"><attribute><" + column +
                     "><string>" + text + "</string></" + column + "></attribute></operator></" +
                     other + ">");
  }
  return places;
}

/// A condition without its literals.
std::string bareOf(const std::string& condition) {
  return std::regex_replace(condition, std::regex("('[^']*')+"), "?");
}

TEST_P(HostileTest, AValueNeverLeavesItsLiteral) {
  store_->addNode(uuid(1), "innocent");
  for (const std::string& text : std::vector<std::string>{
           "' or '1'='1", "'; delete from nwnode; --", "\\'; delete from nwnode; --",
           "x' or 1=1 --", "'' or ''=''", "*' or '1' like '1", "?')) or ((1=1",
           "#f# IF.x ' or 1=1 --", "'#'#'", "\" or 1=1 --", "' || (select objid from nwnode) || '",
           "$$ or 1=1 $$", "E'\\' or 1=1"}) {
    std::string filters;
    const std::vector<std::string> hostile = placesFor(escaped(text));
    const bool isPattern = text.find_first_of("*?") != std::string::npos;
    const std::vector<std::string> harmless = placesFor(isPattern ? "a*b" : "ab");
    for (std::size_t i = 0; i < hostile.size(); ++i) {
      filters += nodeFilter(hostile[i], "h" + std::to_string(i));
      filters += nodeFilter(harmless[i], "n" + std::to_string(i));
    }
    ASSERT_NO_FATAL_FAILURE(parse(document(filters)));
    for (std::size_t i = 0; i < hostile.size(); ++i) {
      const std::string condition = filters_.condition("h" + std::to_string(i));
      EXPECT_EQ(selected("h" + std::to_string(i)), Ids{}) << condition;
      EXPECT_EQ(condition.find('#'), std::string::npos) << condition;
      // Nothing but the literals differs from the condition of a harmless text, once the pieces of
      // a concatenation are one literal again.
      const std::regex concatenation("\\( (\\?|chr\\( 35 \\))( \\|\\| (\\?|chr\\( 35 \\)))+ \\)");
      EXPECT_EQ(std::regex_replace(bareOf(condition), concatenation, "?"),
                bareOf(filters_.condition("n" + std::to_string(i))));
    }
    EXPECT_EQ(store_->count("nwnode"), 1);
  }
}

TEST_P(HostileTest, ALoneNameOfAnotherTableInATextJoinsNothing) {
  store_->addNode(uuid(1), "a IF.b NODE.c ADDR.d");
  EXPECT_EQ(nodes("<name><string>a IF.b NODE.c ADDR.d</string></name>"), Ids{uuid(1)});
  for (const char* alias : {" IF.", " ADDR."}) {
    EXPECT_EQ(filters_.condition("f").find(alias), std::string::npos);
  }
  EXPECT_EQ(nodes("<name><string>* IF.b NODE.c ADDR.?</string></name>"), Ids{uuid(1)});
}

}  // namespace
}  // namespace zntopo::test
