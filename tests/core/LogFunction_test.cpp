#include "zntopo/core/LogFunction.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/core/LogTest.h"
#include "tests/core/PlatformFailure.h"
#include "tests/support/Allocations.h"

using testing::ElementsAre;
using zntopo::LogFunction;
using zntopo::MCLog;

namespace {

using LogFunctionTest = zntopo::test::LogTest;

}  // namespace

TEST_F(LogFunctionTest, LogsEntryAndExitAtInfo) {
  init("app", {"-d", "3"});
  {
    const LogFunction outer("outer");
    const LogFunction inner(std::string("inner 100%"));
  }
  EXPECT_THAT(logged("app.log"),
              ElementsAre("BEGIN LOGGING - app", "+outer", "+inner 100%", "-inner 100%", "-outer"));
}

TEST_F(LogFunctionTest, ALastingNameIsLoggedLikeAnyOther) {
  init("app", {"-d", "3"});
  { const LogFunction scope(LogFunction::Lasting{"scope"}); }
  EXPECT_THAT(logged("app.log"), ElementsAre("BEGIN LOGGING - app", "+scope", "-scope"));
}

TEST_F(LogFunctionTest, IsSilentAboveInfo) {
  init("app", {"-d", "4"});
  { const LogFunction scope("scope"); }
  EXPECT_THAT(logged("app.log"), ElementsAre("BEGIN LOGGING - app"));
}

TEST_F(LogFunctionTest, TheExitIsLoggedIfTheLevelAllowsItByThen) {
  init("app", {"-d", "6"});
  {
    std::string name = "scope that is entered unheard";
    const LogFunction scope(name);
    name.assign(name.size(), 'x');
    MCLog::setDebuggingLevel(zntopo::MC_VERBOSE);
  }
  EXPECT_THAT(logged("app.log"),
              ElementsAre("BEGIN LOGGING - app", "-scope that is entered unheard"));
}

TEST_F(LogFunctionTest, ALongNameIsKeptWhole) {
  init("app", {"-d", "3"});
  for (const std::size_t length : {94U, 95U, 96U, 500U}) {
    const std::string name(length, 'n');
    { const LogFunction scope(name); }
    EXPECT_EQ(logged("app.log").back(), "-" + name);
  }
}

TEST_F(LogFunctionTest, ANullNameIsEmpty) {
  init("app", {"-d", "3"});
  { const LogFunction scope(static_cast<const char*>(nullptr)); }
  EXPECT_THAT(logged("app.log"), ElementsAre("BEGIN LOGGING - app", "+", "-"));
}

TEST_F(LogFunctionTest, AllocatesNothingWhenNobodyListens) {
  MCLog::log(zntopo::MC_VERBOSE, "makes the instance");
  const std::string name(95, 'n');
  const unsigned long before = zntopo::test::allocations();
  { const LogFunction scope("ZNTopoAPI_Impl::getNodesByObjIDList"); }
  { const LogFunction scope(name); }
  EXPECT_EQ(zntopo::test::allocations(), before);
}

TEST_F(LogFunctionTest, TheFirstScopeMakesTheInstance) {
  ASSERT_EQ(MCLog::getInstance(), nullptr);
  { const LogFunction scope("scope"); }
  EXPECT_NE(MCLog::getInstance(), nullptr);
}
