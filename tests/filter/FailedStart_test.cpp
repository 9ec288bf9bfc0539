// A start of the XML libraries that fails. In a program of its own, for it has the platform's start
// fail when told to.

#include <functional>
#include <memory>
#include <utility>

#include "tests/filter/FilterFixture.h"
#include "tests/support/FreshProcess.h"
#include "zntopo/platform/tvxpl/XmlLibrary.h"

namespace {

bool isStartBroken = false;

}  // namespace

extern "C" {
void __real__ZN8TvXplXml15startXmlLibraryEv();
void __wrap__ZN8TvXplXml15startXmlLibraryEv() {
  if (isStartBroken) throw TvXplMsg::Exception_t(TvXplMsg::MessageList_t());
  __real__ZN8TvXplXml15startXmlLibraryEv();
}
}

namespace zntopo::test {
namespace {

constexpr const char* kText = "Xerces/Xalan library initialization failed.";

/// Each body runs in a process of its own: a failed start is never forgotten.
void afterAFailedStart(const std::function<void()>& body) {
  inFreshProcess([&body] {
    const FilterConfiguration configuration;
    isStartBroken = true;
    {
      const StartedUtil util;
      EXPECT_FALSE(util.isStarted);
      EXPECT_EQ(XMLUtil::getRefCount(), 0) << "a start that failed does not count";
    }
    EXPECT_EQ(XMLUtil::getRefCount(), -1) << "its end does";
    isStartBroken = false;
    body();
  });
}

void expectUnusable(XMLUtil& xml) {
  const std::string path = xml.getTopologyXMLConfigPath() + "TopoFilters.xml";
  std::string error;
  std::string result;
  EXPECT_FALSE(xml.validate(filterDocument(""), "n u", error, true));
  EXPECT_EQ(std::exchange(error, ""), kText);
  EXPECT_FALSE(xml.validate(path.c_str(), "n u", error, true));
  EXPECT_EQ(std::exchange(error, ""), kText);
  EXPECT_NE(xml.transform(filterDocument(""), filterDocument(""), result, error), 0);
  EXPECT_EQ(std::exchange(error, ""), kText);
  EXPECT_NE(xml.transform(path.c_str(), path.c_str(), result, error), 0);
  EXPECT_EQ(std::exchange(error, ""), kText);
}

int parseDefault(TvXplMsg::MessageList_t& list) { return OpenHandler().ParseDefaultFile(list); }

TEST(FailedStartTest, IsToldAndLeavesAnInstanceThatFails) {
  inFreshProcess([] {
    const FilterConfiguration configuration;
    isStartBroken = true;
    StartedUtil util;
    EXPECT_FALSE(util.isStarted);
    EXPECT_EQ(util.startError, kText);
    EXPECT_EQ(util.xml.getTopologyXMLConfigPath(), configuration.folder().string() + "/");
    expectUnusable(util.xml);
  });
}

TEST(FailedStartTest, FailsTheLoadingOfDefinitions) {
  inFreshProcess([] {
    const FilterConfiguration configuration;
    isStartBroken = true;
    TvXplMsg::MessageList_t list;
    EXPECT_EQ(parseDefault(list), ZN_API_XML_SUBSYSTEM_INIT_FAILURE);
    EXPECT_EQ(textOf(list), std::string("Failed to initialize XMLUtil.\n") + kText + "\n");
    EXPECT_EQ(OpenHandler().ParseXmlString(list, filterDocument("")),
              ZN_API_XML_FILTER_VALIDATION_ERROR)
        << "the count is off by one: nobody tries to start";
  });
}

TEST(FailedStartTest, TheNextInstanceDoesNotStartAndFailsWithTheStartsText) {
  afterAFailedStart([] {
    {
      StartedUtil next;
      EXPECT_TRUE(next.isStarted);
      EXPECT_EQ(XMLUtil::getRefCount(), 0);
      expectUnusable(next.xml);
    }
    EXPECT_EQ(XMLUtil::getRefCount(), -1);
    TvXplMsg::MessageList_t list;
    EXPECT_EQ(parseDefault(list), ZN_API_XML_FILTER_VALIDATION_ERROR);
    EXPECT_THAT(textOf(list), testing::HasSubstr(kText));
  });
}

TEST(FailedStartTest, AnInstanceThatMeetsTheCountAtZeroStarts) {
  afterAFailedStart([] {
    const StartedUtil keepsTheCountAtZero;
    for (int i = 0; i < 2; ++i) {
      TvXplMsg::MessageList_t list;
      EXPECT_EQ(parseDefault(list), ZN_API_SUCCESS) << textOf(list);
      EXPECT_EQ(XMLUtil::getRefCount(), 0);
    }
  });
}

TEST(FailedStartTest, TheLibrariesStayForWhoHasThemWhateverTheCountSays) {
  afterAFailedStart([] {
    auto first = std::make_unique<StartedUtil>();
    StartedUtil second;
    EXPECT_EQ(XMLUtil::getRefCount(), 1);
    first.reset();
    EXPECT_EQ(XMLUtil::getRefCount(), 0);
    std::string result;
    std::string error;
    EXPECT_EQ(second.xml.transform((second.xml.getTopologyXMLConfigPath() + "TopoFilters.xml").c_str(),
                                   (second.xml.getTopologyXMLConfigPath() + "Filter2IFilter.xsl").c_str(),
                                   result, error),
              0)
        << error;
    TvXplMsg::MessageList_t list;
    EXPECT_EQ(parseDefault(list), ZN_API_SUCCESS) << textOf(list);
  });
}

}  // namespace
}  // namespace zntopo::test
