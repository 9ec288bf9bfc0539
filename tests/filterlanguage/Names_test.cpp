#include <random>
#include <set>

#include "tests/filterlanguage/LanguageTest.h"
#include "tests/support/ApiFixture.h"

/// @file
/// Texts of documents become literals, whatever is in them.

namespace zntopo::test {
namespace {

class NamesTest : public LanguageTest {
 protected:
  /// Nodes with these names, whose identifiers are numbered.
  void addNodes(const std::vector<std::string>& names) {
    store_->disconnect();
    for (std::size_t i = 0; i < names.size(); ++i) {
      store_->addNode(uuid(static_cast<int>(i)), names[i]);
    }
  }
};

ZNTOPO_ON_ENGINES(NamesTest, kMainEngines);

/// Texts that mean something to SQL, to LIKE, to XML, to drivers, or to who reads conditions.
constexpr const char* kParts[] = {
    "'",      "\"",     "''",   "%",      "_",      "!",     "!!",      "#",  "##",
    "\\",     "[",      "]",    "(",      ")",      ";",     "--",      "/",  "//",
    "$1",     "$$",     " IF.", " NODE.", " ADDR.", "{fn ",  "}",       "<",  ">",
    "&",      ":x",     "@",    "E'",     "\t",     "\n",    "\r",      " ",  "  ",
    "||",     "a",      "b",    "Z",      "0",      "=",     "é",       "漢", "\U0001F600",
    "\u2028", "\u0085", "`",    "\\'",    "]]>",    "&#35;", " or 1=1 "};
/// Texts with wildcards, which stand for themselves only in an exact text.
constexpr const char* kWildParts[] = {"/*", "*/", "*", "?", "(?)", "--*"};

/// Which names random ones are.
enum class Wildcards { None, InHalfOfThem };

/// Names of up to 255 bytes, all different.
std::vector<std::string> randomNames(std::size_t count, unsigned seed, Wildcards wildcards) {
  std::mt19937 random(seed);
  std::set<std::string> names;
  while (names.size() < count) {
    std::string name;
    const bool isWild = wildcards == Wildcards::InHalfOfThem && names.size() % 2 == 0;
    const unsigned parts = 1 + random() % 60;
    for (unsigned i = 0; i < parts; ++i) {
      const std::string part = isWild && i % 7 == 0 ? kWildParts[random() % std::size(kWildParts)]
                                                    : kParts[random() % std::size(kParts)];
      if (name.size() + part.size() <= 255) name += part;
    }
    names.insert(name);
  }
  return {names.begin(), names.end()};
}

TEST_P(NamesTest, EachOfAThousandRandomNamesSelectsExactlyTheNodeThatBearsIt) {
  const std::vector<std::string> names = randomNames(1000, 7, Wildcards::InHalfOfThem);
  addNodes(names);
  std::string filters;
  std::size_t strings = 0;
  for (std::size_t i = 0; i < names.size(); ++i) {
    const bool isString = names[i].find_first_of("*?") == std::string::npos && i % 4 != 0;
    const char* const element = isString ? "string" : "exact";
    strings += isString ? 1 : 0;
    filters += nodeFilter(
        std::string("<name><") + element + ">" + escaped(names[i]) + "</" + element + "></name>",
        "f" + std::to_string(i));
  }
  EXPECT_GT(strings, 300U);
  ASSERT_NO_FATAL_FAILURE(parse(document(filters)));
  for (std::size_t i = 0; i < names.size(); ++i) {
    ASSERT_EQ(selected("f" + std::to_string(i)), Ids{uuid(static_cast<int>(i))})
        << names[i] << "\n"
        << filters_.condition("f" + std::to_string(i));
  }
}

/// A pattern as a plain matcher reads it, byte by byte; "?" takes one character of UTF-8.
bool matches(const char* pattern, const char* text) {
  if (*pattern == 0) return *text == 0;
  if (*pattern == '*') {
    return matches(pattern + 1, text) || (*text != 0 && matches(pattern, text + 1));
  }
  if (*text == 0) return false;
  if (*pattern != '?') return *pattern == *text && matches(pattern + 1, text + 1);
  do ++text;
  while ((*text & 0xC0) == 0x80);
  return matches(pattern + 1, text);
}

TEST_P(NamesTest, PatternsSelectWhatAPlainMatcherFinds) {
  const std::vector<std::string> names = randomNames(200, 8, Wildcards::None);
  addNodes(names);
  std::mt19937 random(9);
  std::vector<std::string> patterns;
  std::string filters;
  for (int i = 0; i < 150; ++i) {
    // The beginning and the end of a name, or a part of one, with wildcards for the rest.
    const std::string& name = names[random() % names.size()];
    const auto isWhole = [&](std::size_t at) { return (name[at] & 0xC0) != 0x80; };
    std::size_t begin = random() % name.size();
    std::size_t end = begin + random() % (name.size() - begin);
    while (!isWhole(begin)) --begin;
    while (end > 0 && !isWhole(end)) --end;
    const char* const wildcard = i % 3 == 0 ? "?" : "*";
    std::string pattern = i % 2 == 0 ? "*" + name.substr(begin) : name.substr(0, end) + wildcard;
    if (i % 5 == 0) pattern += "*";
    patterns.push_back(pattern);
    filters += nodeFilter("<name><string>" + escaped(pattern) + "</string></name>",
                          "f" + std::to_string(i));
  }
  ASSERT_NO_FATAL_FAILURE(parse(document(filters)));
  for (std::size_t i = 0; i < patterns.size(); ++i) {
    Ids expected;
    for (std::size_t node = 0; node < names.size(); ++node) {
      if (matches(patterns[i].c_str(), names[node].c_str())) {
        expected.push_back(uuid(static_cast<int>(node)));
      }
    }
    EXPECT_EQ(selected("f" + std::to_string(i)), expected) << patterns[i];
  }
}

TEST_P(NamesTest, WildcardsAreCharactersInAnExactText) {
  addNodes({"edge*", "edge-1", "edge?", "edge"});
  EXPECT_EQ(nodes("<name><exact>edge*</exact></name>"), Ids{uuid(0)});
  EXPECT_EQ(nodes("<name><exact>edge?</exact></name>"), Ids{uuid(2)});
  EXPECT_EQ(nodes("<name><string>edge?</string></name>"), (Ids{uuid(0), uuid(2)}));
  EXPECT_EQ(nodes("<name><string>edge*</string></name>"),
            (Ids{uuid(0), uuid(1), uuid(2), uuid(3)}));
}

TEST_P(NamesTest, UpperAndLowerCaseDiffer) {
  addNodes({"Core", "core"});
  EXPECT_EQ(nodes("<name><string>core</string></name>"), Ids{uuid(1)});
  EXPECT_EQ(nodes("<name><string>Co*</string></name>"), Ids{uuid(0)});
}

TEST_P(NamesTest, BlanksAreKeptAsTheyAreWritten) {
  addNodes({"a b", "a  b", " a b", "a\tb", "a\nb", "ab"});
  EXPECT_EQ(nodes("<name><string>a  b</string></name>"), Ids{uuid(1)});
  EXPECT_EQ(nodes("<name><string> a b</string></name>"), Ids{uuid(2)});
  EXPECT_EQ(nodes("<name><string>a\tb</string></name>"), Ids{uuid(3)});
  EXPECT_EQ(nodes("<name><string>a\nb</string></name>"), Ids{uuid(4)});
}

TEST_P(NamesTest, ATextThatNoColumnHoldsSelectsNothing) {
  addNodes({"a"});
  const std::string longText(5000, '\'');
  EXPECT_EQ(nodes("<name><exact>" + longText + "</exact></name>"), Ids{});
  EXPECT_EQ(nodes("<name><string>*" + longText + "</string></name>"), Ids{});
  EXPECT_EQ(nodes("<name><exact compare=\"notEqual\">" + longText + "</exact></name>"),
            Ids{uuid(0)});
}

TEST_P(NamesTest, ATextOfNothingButNumberSignsIsWithinWhatEnginesTake) {
  const std::string signs(2000, '#');
  store_->addNode(uuid(0), "a", {{"Description", signs}});
  store_->addNode(uuid(1), "b", {{"Description", signs.substr(1)}});
  EXPECT_EQ(nodes("<description><string>" + signs + "</string></description>"), Ids{uuid(0)});
  EXPECT_EQ(nodes("<description><string>*" + signs.substr(1) + "</string></description>"),
            (Ids{uuid(0), uuid(1)}));
}

}  // namespace
}  // namespace zntopo::test
