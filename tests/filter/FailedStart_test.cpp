// A start of the XML libraries that fails. In a program of its own, for it has the platform's start
// fail when told to, or that of Xerces-C.

#include <functional>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <utility>
#include <xalanc/XSLT/XSLTInputSource.hpp>
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/framework/MemoryManager.hpp>
#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/util/PanicHandler.hpp>
#include <xercesc/util/RuntimeException.hpp>

#include "tests/filter/FilterFixture.h"
#include "tests/support/FreshProcess.h"
#include "zntopo/api/ZNTopoAPI.h"
#include "zntopo/platform/tvxpl/TvXplXml.h"
#include "zntopo/platform/tvxpl/XmlLibrary.h"

namespace {

bool isStartBroken = false;
/// What Xerces-C throws when it starts; nothing if it is null.
void (*libraryFailure)() = nullptr;
int libraryStarts = 0;

}  // namespace

extern "C" {
void __real__ZN8TvXplXml15startXmlLibraryEv();
void __wrap__ZN8TvXplXml15startXmlLibraryEv() {
  if (isStartBroken) throw TvXplMsg::Exception_t(TvXplMsg::MessageList_t());
  __real__ZN8TvXplXml15startXmlLibraryEv();
}
}

using xercesc::MemoryManager;
using xercesc::PanicHandler;

void realInitialize(const char* locale, const char* nlsHome, PanicHandler* panicHandler,
                    MemoryManager* memory) asm("__real_" XERCES_START);
// The linker takes the library to refer to it.
[[gnu::visibility("default")]] void initialize(const char* locale, const char* nlsHome,
                                               PanicHandler* panicHandler,
                                               MemoryManager* memory) asm("__wrap_" XERCES_START);
void initialize(const char* locale, const char* nlsHome, PanicHandler* panicHandler,
                MemoryManager* memory) {
  ++libraryStarts;
  // The library counts a start that fails, and takes the next one for done.
  realInitialize(locale, nlsHome, panicHandler, memory);
  if (const auto failure = std::exchange(libraryFailure, nullptr)) failure();
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
  for (const int code : {xml.transform(path.c_str(), path.c_str(), result, error),
                         xml.transform(path.c_str(), filterDocument(""), result, error),
                         xml.transform(filterDocument(""), path.c_str(), result, error)}) {
    EXPECT_NE(code, 0);
  }
  EXPECT_EQ(std::exchange(error, ""), kText);
}

/// The same with the sources that a caller makes, who has Xerces-C himself.
void expectUnusableWithSources(XMLUtil& xml) {
  const TvXplXml::XmlLibraryUse library;
  std::string error;
  std::string result;
  const std::string document = filterDocument("");
  const xercesc::MemBufInputSource source(reinterpret_cast<const XMLByte*>(document.data()),
                                          document.size(), "named");
  EXPECT_FALSE(xml.validate(source, "n u", error, true));
  EXPECT_EQ(std::exchange(error, ""), kText);
  std::istringstream text(document);
  xalanc::XSLTInputSource in(text);
  EXPECT_NE(xml.transform(in, in, result, error), 0);
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

TEST(FailedStartTest, IsToldByTheFacade) {
  inFreshProcess([] {
    const FilterConfiguration configuration;
    ZNTopoAPIStatus status;
    isStartBroken = true;
    EXPECT_EQ(ZNTopoAPI().ParseDefaultFile(status), ZN_API_XML_SUBSYSTEM_INIT_FAILURE);
    EXPECT_EQ(status.getStatus(), ZN_API_XML_SUBSYSTEM_INIT_FAILURE);
    EXPECT_THAT(status.getAuxMsg(),
                testing::HasSubstr(std::string("Failed to initialize XMLUtil.\n") + kText));
  });
}

TEST(FailedStartTest, EndsAQuestionWithADocumentOfItsOwn) {
  inFreshProcess([] {
    const FilterConfiguration configuration;
    isStartBroken = true;
    ZNTopoAPIStatus status;
    const auto nodes = ZNTopoAPI().ParseAndGetNodesByTopoFilter(filterDocument(""), "up", status);
    EXPECT_THAT(*nodes, testing::IsEmpty());
    EXPECT_EQ(status.getStatus(), ZN_API_XML_SUBSYSTEM_INIT_FAILURE);
  });
}

TEST(FailedStartTest, FailsTheLoadingOfDefinitions) {
  inFreshProcess([] {
    const FilterConfiguration configuration;
    const Scratch scratch;
    setEnv("TV_TRACE", scratch.path("trace"));
    isStartBroken = true;
    TvXplMsg::MessageList_t list;
    EXPECT_EQ(parseDefault(list), ZN_API_XML_SUBSYSTEM_INIT_FAILURE);
    EXPECT_THAT(scratch.read("trace"),
                testing::ContainsRegex(" 12 \\.\\./[^\n]*Failed to initialize XMLUtil\\."));
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
      expectUnusableWithSources(next.xml);
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
    EXPECT_EQ(
        second.xml.transform((second.xml.getTopologyXMLConfigPath() + "TopoFilters.xml").c_str(),
                             (second.xml.getTopologyXMLConfigPath() + "Filter2IFilter.xsl").c_str(),
                             result, error),
        0)
        << error;
    TvXplMsg::MessageList_t list;
    EXPECT_EQ(parseDefault(list), ZN_API_SUCCESS) << textOf(list);
  });
}

void panic() { throw std::runtime_error("a panic"); }

void refuse() {
  throw xercesc::RuntimeException(__FILE__, __LINE__, xercesc::XMLExcepts::Gen_ParseInProgress);
}

void runOut() { throw xercesc::OutOfMemoryException(); }

std::string whyNoReader() {
  try {
    const TvXplXml::SAXParser_t reader;
  } catch (const TvXplMsg::Exception_t& exception) {
    return exception.GetMessages().Format(TvXplMsg::fNone_k);
  }
  return {};
}

struct LibraryFailure {
  void (*thrown)();
  const char* text;
};

class FailedLibraryTest : public testing::TestWithParam<LibraryFailure> {};

TEST_P(FailedLibraryTest, IsToldByAReaderAndForGood) {
  inFreshProcess([] {
    libraryFailure = GetParam().thrown;
    EXPECT_EQ(whyNoReader(),
              std::string("The XML library can't be started: ") + GetParam().text + "\n");
    for (int i = 0; i < 2; ++i) {
      EXPECT_EQ(whyNoReader(),
                "The XML library can't be started: an earlier start in this process failed\n");
    }
    EXPECT_EQ(libraryStarts, 1) << "what is left of the library is not used";
  });
}

TEST_P(FailedLibraryTest, FailsEveryLaterLoadingToo) {
  inFreshProcess([] {
    const FilterConfiguration configuration;
    libraryFailure = GetParam().thrown;
    TvXplMsg::MessageList_t list;
    EXPECT_EQ(parseDefault(list), ZN_API_XML_SUBSYSTEM_INIT_FAILURE);
    const StartedUtil bringsTheCountToZero;
    EXPECT_EQ(parseDefault(list), ZN_API_XML_SUBSYSTEM_INIT_FAILURE) << "it tries, then";
    const StartedUtil bringsItBack;
    EXPECT_EQ(parseDefault(list), ZN_API_XML_SUBSYSTEM_INIT_FAILURE);
    EXPECT_EQ(libraryStarts, 1);
  });
}

INSTANTIATE_TEST_SUITE_P(Kinds, FailedLibraryTest,
                         testing::Values(LibraryFailure{panic, "a panic"},
                                         LibraryFailure{refuse, "its initialisation failed"},
                                         LibraryFailure{runOut, "there is not enough memory"}));

}  // namespace
}  // namespace zntopo::test
