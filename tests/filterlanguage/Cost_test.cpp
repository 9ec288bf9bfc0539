// What a document may cost: the dearest ones within all limits, and those just beyond.

#include <sys/resource.h>

#include <algorithm>

#include "tests/filterlanguage/LanguageTest.h"
#include "tests/support/FreshProcess.h"
#include "zntopo/notify/detail/Receiver.h"

namespace zntopo::test {
namespace {

constexpr int kMostTests = 10'000;
constexpr int kMostEscapes = 100'000;

/// A document of operators with 500 tests each, as the language bounds them.
std::string documentOfTests(int count, const std::string& test) {
  std::string filters;
  for (int i = 0; i < count; ++i) {
    if (i % 500 == 0) {
      filters += "<nodeAssertion name=\"f" + std::to_string(i) + "\"><operator oper=\"OR\">";
    }
    filters += "<attribute>" + test + "</attribute>";
    if (i % 500 == 499 || i == count - 1) filters += "</operator></nodeAssertion>";
  }
  return document(filters);
}

/// A document whose texts, of up to 2000 characters, repeat a piece until as many characters of it
/// are to be escaped.
std::string documentOfEscapes(int count, const std::string& piece, int escapes,
                              const std::string& before, const std::string& after) {
  std::string filters;
  std::string text;
  int number = 0;
  const auto flush = [&] {
    filters += nodeFilter(before + text + after, "f" + std::to_string(number++));
    text.clear();
  };
  for (; count >= escapes; count -= escapes) {
    text += piece;
    if (text.size() + piece.size() > 1999) flush();
  }
  if (!text.empty()) flush();
  return document(filters);
}

std::string dearestOfEscapes(int count) {
  return documentOfEscapes(count, "!%_'#", 5, "<neighbor><name><string>",
                           "*</string></name></neighbor>");
}

int statusOf(const std::string& xml, std::string& told) {
  TvXplMsg::MessageList_t messages;
  const int status = OpenFilters().ParseXmlString(messages, xml);
  // The document stands before what is told of it.
  told = messages.Format(TvXplMsg::fRecurse_k);
  told.erase(0, told.size() - std::min<std::size_t>(told.size(), 2000));
  return status;
}

/// A gigabyte and a minute of the processor is all there is from now on.
void setBounds() {
  constexpr rlim_t kMinute = 60;
  // The signal of the first limit says what it was.
  const rlimit time{kMinute, kMinute + 10};
  ASSERT_EQ(setrlimit(RLIMIT_CPU, &time), 0);
  constexpr rlim_t kGigabyte = 1'000'000'000;
  const rlimit memory{kGigabyte, kGigabyte};
  ASSERT_EQ(setrlimit(RLIMIT_AS, &memory), 0);
}

void expectLittleMemory() {
  rusage used{};
  ASSERT_EQ(getrusage(RUSAGE_SELF, &used), 0);
  EXPECT_LT(used.ru_maxrss, 300'000) << "kilobytes";
}

/// Sanitizers take many times as much: with them a document is loaded alone.
void loadWithinBounds(const std::string& xml) {
  const FilterConfiguration config{"etc", languageFolder()};
  if (!detail::kIsSanitized) setBounds();
  std::string told;
  EXPECT_EQ(statusOf(xml, told), ZN_API_SUCCESS) << told;
  if (!detail::kIsSanitized) expectLittleMemory();
}

TEST(DearestDocumentTest, ManyPrefixesOfIPv4AreLoadedWithinBounds) {
  inFreshProcess([] {
    loadWithinBounds(documentOfTests(
        kMostTests, "<IPAddress><IPv4><prefix>10.0.0.0/1</prefix></IPv4></IPAddress>"));
  });
}

TEST(DearestDocumentTest, ManyAddressesOfIPv6AreLoadedWithinBounds) {
  inFreshProcess([] {
    loadWithinBounds(documentOfTests(
        kMostTests, "<IPAddress><IPv6><address>1:2:3:4:5:6:7:8</address></IPv6></IPAddress>"));
  });
}

TEST(DearestDocumentTest, ManyPatternsToEscapeAreLoadedWithinBounds) {
  inFreshProcess([] { loadWithinBounds(dearestOfEscapes(kMostEscapes)); });
}

TEST(DearestDocumentTest, ManyNumberSignsAreLoadedWithinBounds) {
  inFreshProcess([] {
    loadWithinBounds(documentOfEscapes(kMostEscapes, "#", 1, "<neighbor><name><exact>",
                                       "</exact></name></neighbor>"));
  });
}

TEST(DearestDocumentTest, ManyNamesOfTablesAreLoadedWithinBounds) {
  inFreshProcess([] {
    loadWithinBounds(documentOfEscapes(kMostEscapes, " IF.", 1, "<neighbor><name><exact>",
                                       "</exact></name></neighbor>"));
  });
}

TEST(DearestDocumentTest, WhatIsBeyondTheBoundsIsRefusedWithAWordWhatToDo) {
  const FilterConfiguration config{"etc", languageFolder()};
  std::string told;
  EXPECT_EQ(statusOf(documentOfTests(kMostTests + 1, "<name><present/></name>"), told),
            ZN_API_XML_FILTER_TRANSFORMATION_ERROR);
  EXPECT_THAT(told, testing::HasSubstr("more than 10000 tests: use several documents."));
  for (const std::string& xml :
       {dearestOfEscapes(kMostEscapes + 5),
        documentOfEscapes(kMostEscapes + 1, " ADDR.", 1, "<name><exact>", "</exact></name>")}) {
    EXPECT_EQ(statusOf(xml, told), ZN_API_XML_FILTER_TRANSFORMATION_ERROR);
    EXPECT_THAT(told, testing::HasSubstr("The texts have more than 100000 of the characters"));
  }
  // Dots by themselves are harmless.
  EXPECT_EQ(
      statusOf(documentOfEscapes(kMostEscapes + 1, "a.b", 1, "<name><exact>", "</exact></name>"),
               told),
      ZN_API_SUCCESS)
      << told;
}

}  // namespace
}  // namespace zntopo::test
