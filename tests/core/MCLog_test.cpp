#include "zntopo/core/MCLog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <pwd.h>
#include <unistd.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "tests/core/LogTest.h"
#include "tests/core/PlatformFailure.h"
#include "tests/support/Allocations.h"

using namespace zntopo;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::internal::CaptureStderr;
using testing::internal::CaptureStdout;
using testing::internal::GetCapturedStderr;
using testing::internal::GetCapturedStdout;
using zntopo::test::messagesOf;
using zntopo::test::setEnv;

namespace {

using MCLogTest = zntopo::test::LogTest;

// A line at each of the levels 0 to 7 and at the one above.
void logAtEachLevel() {
  for (int level = MC_VERBOSE; level <= MC_DEFAULT; ++level) MCLog::log(level, "%d\n", level);
}

std::vector<std::string> onStandardOutput(void (*work)()) {
  CaptureStdout();
  work();
  return messagesOf(GetCapturedStdout());
}

}  // namespace

TEST_F(MCLogTest, ALogCallBeforeAnyInitMakesTheInstance) {
  EXPECT_EQ(MCLog::getInstance(), nullptr);
  EXPECT_EQ(MCLog::debugLevel(), MC_NONE);
  MCLog::log(MC_VERBOSE, "unheard\n");
  EXPECT_NE(MCLog::getInstance(), nullptr);
  EXPECT_EQ(MCLog::debugLevel(), MC_DEFAULT);
}

TEST_F(MCLogTest, WithoutInitAndLevelNothingBelowTheHighestPasses) {
  EXPECT_THAT(onStandardOutput(logAtEachLevel), ElementsAre("8"));
}

TEST_F(MCLogTest, TheLevelOfTheEnvironmentHoldsForTheDefault) {
  setEnv("MC_DLEVEL", "3");
  EXPECT_THAT(onStandardOutput(logAtEachLevel), ElementsAre("3", "4", "5", "6", "7", "8"));
}

TEST_F(MCLogTest, AnExplicitLevelBeatsTheEnvironment) {
  setEnv("MC_DLEVEL", "3");
  MCLog::init(MC_MAJOR);
  EXPECT_EQ(MCLog::debugLevel(), MC_MAJOR);
  EXPECT_THAT(onStandardOutput(logAtEachLevel), ElementsAre("5", "6", "7", "8"));
}

TEST_F(MCLogTest, InitWithTheDefaultLetsTheEnvironmentThrough) {
  setEnv("MC_DLEVEL", "6");
  MCLog::init(MC_DEFAULT);
  EXPECT_THAT(onStandardOutput(logAtEachLevel), ElementsAre("6", "7", "8"));
}

TEST_F(MCLogTest, ALevelOutsideTheEightIsTheDefault) {
  MCLog::init(MC_DEFAULT);
  EXPECT_THAT(onStandardOutput([] {
                MCLog::log(-1, "below\n");
                MCLog::log(8, "eight\n");
                MCLog::log(99, "above\n");
                MCLog::log(7, "seven\n");
              }),
              ElementsAre("below", "eight", "above"));
}

TEST_F(MCLogTest, OptionsBeatTheEnvironment) {
  setEnv("MC_DLEVEL", "1");
  setEnv("MC_DFILES", "4");
  setEnv("MC_DFILESIZE", "7");
  init("app", {"-d", "5", "-n", "1", "-k", "9"});
  EXPECT_EQ(MCLog::debugLevel(), MC_MAJOR);
  EXPECT_EQ(MCLog::getInstance()->getNumFiles(), 1);
  EXPECT_EQ(MCLog::getInstance()->getFileSize(), 9);
}

TEST_F(MCLogTest, TheEnvironmentSetsWhatTheOptionsLeave) {
  setEnv("MC_DLEVEL", "1");
  setEnv("MC_DFILES", "4");
  setEnv("MC_DFILESIZE", "7");
  init("app", {});
  EXPECT_EQ(MCLog::debugLevel(), MC_TRACE_L2);
  EXPECT_EQ(MCLog::getInstance()->getNumFiles(), 4);
  EXPECT_EQ(MCLog::getInstance()->getFileSize(), 7);
}

TEST_F(MCLogTest, WithoutEitherTheStartValuesStand) {
  init("app", {});
  EXPECT_EQ(MCLog::debugLevel(), MC_NONE);
  EXPECT_EQ(MCLog::getInstance()->getNumFiles(), 1);
  EXPECT_EQ(MCLog::getInstance()->getFileSize(), 5120);
}

TEST_F(MCLogTest, WhatIsNoNumberChangesNothing) {
  setEnv("MC_DLEVEL", "loud");
  setEnv("MC_DFILES", "");
  init("app", {"-k", "big", "-d", "99999999999999999999"});
  EXPECT_EQ(MCLog::getInstance()->getNumFiles(), 1);
  EXPECT_EQ(MCLog::getInstance()->getFileSize(), 5120);
  EXPECT_EQ(static_cast<int>(MCLog::debugLevel()), 2147483647);
}

TEST_F(MCLogTest, TheProgramsOwnArgumentsStayAsTheyAre) {
  std::string texts[] = {"program", "file", "-x", "-d", "3", "--long", "-n"};
  std::vector<char*> arguments;
  for (std::string& text : texts) arguments.push_back(text.data());
  const std::vector<char*> before = arguments;
  const int place = optind;
  const int reports = opterr;
  CaptureStderr();
  MCLog::init("app", static_cast<int>(arguments.size()), arguments.data(), MC_DAEMON);
  EXPECT_EQ(GetCapturedStderr(), "");
  EXPECT_EQ(arguments, before);
  EXPECT_EQ(optind, place);
  EXPECT_EQ(opterr, reports);
  EXPECT_EQ(MCLog::debugLevel(), MC_INFO);
}

TEST_F(MCLogTest, ArgumentsMayBeMissing) {
  MCLog::init("app", 0, nullptr, MC_DAEMON);
  char* none[] = {nullptr};
  MCLog::init("app", 3, none, MC_DAEMON);
  EXPECT_EQ(MCLog::debugLevel(), MC_NONE);
}

TEST_F(MCLogTest, AMessageIsCut) {
  init("app", {"-d", "6"});
  MCLog::log(MC_CRITICAL, "%s", (std::string(10239, 'a') + "bc").c_str());
  EXPECT_EQ(logged("app.log").back(), std::string(10239, 'a'));
}

TEST_F(MCLogTest, TheTextIsReadAsAFormatASecondTime) {
  init("app", {"-d", "6"});
  MCLog::log(MC_CRITICAL, "100%%%% of %s\n", "it");
  MCLog::log(MC_CRITICAL, "%s\n", "a%%b%%%%c");
  EXPECT_EQ(logged("app.log")[1], "100% of it");
  EXPECT_EQ(logged("app.log")[2], "a%b%%c");
}

TEST_F(MCLogTest, AConversionThatIsLeftIsWrittenAsItStands) {
  init("app", {"-d", "6"});
  const std::string text = "%s %n %d %5.2f %*d %1$s %hhn %m 100% x %";
  MCLog::log(MC_CRITICAL, "%s\n", text.c_str());
  MCLog::log(MC_CRITICAL, "%s", "%");
  EXPECT_EQ(logged("app.log")[1], text);
  EXPECT_EQ(logged("app.log")[2], "%");
}

TEST_F(MCLogTest, ANullFormatIsAnEmptyMessage) {
  init("app", {"-d", "6"});
  const char* const none = nullptr;
  MCLog::log(MC_CRITICAL, none);
  EXPECT_EQ(logged("app.log").back(), "");
}

TEST_F(MCLogTest, ALineBeginsWithTheTimeAndABlank) {
  init("app", {"-d", "6"});
  const std::string line = scratch_.read("app.log");
  EXPECT_THAT(line, testing::MatchesRegex(
                        "[A-Z][a-z][a-z] [A-Z][a-z][a-z] [ 0-9][0-9] [0-9][0-9]:[0-9][0-9]:[0-9]"
                        "[0-9] [0-9]+ BEGIN LOGGING - app\n"));
}

TEST_F(MCLogTest, SubSecondTimesStandInBracketsWithoutASeparatorBehindThem) {
  setEnv("MC_DMSEC", "1");
  init("app", {"-d", "6"});
  EXPECT_THAT(
      scratch_.read("app.log"),
      testing::MatchesRegex(".* [0-9][0-9][0-9][0-9]  \\([0-9]+\\.[0-9][0-9][0-9][0-9][0-9][0-9]\\)"
                            "BEGIN LOGGING - app\n"));
}

TEST_F(MCLogTest, NoTimeIsWrittenToANullStream) {
  init("app", {});
  MCLog::getInstance()->printTime(nullptr);
  EXPECT_EQ(scratch_.read("app.log"), "");
}

TEST_F(MCLogTest, DisablingKeepsLinesFromTheLogAndNotFromTheTrace) {
  setEnv("TV_TRACE", scratch_.path("trace"));
  init("app", {"-d", "0"});
  MCLog::disableLogging();
  MCLog::log(MC_CRITICAL, "while disabled\n");
  MCLog::enableLogging();
  MCLog::log(MC_CRITICAL, "enabled again\n");
  EXPECT_THAT(logged("app.log"), ElementsAre("BEGIN LOGGING - app", "enabled again"));
  EXPECT_THAT(scratch_.read("trace"), HasSubstr(" QRMRZTopology 12 ../MCLog:"));
  EXPECT_THAT(scratch_.read("trace"), HasSubstr(" while disabled\n"));
}

TEST_F(MCLogTest, NoInstanceIsMadeWhileLoggingIsDisabled) {
  MCLog::disableLogging();
  MCLog::log(MC_CRITICAL, "unheard\n");
  EXPECT_FALSE(MCLog::isHeard(MC_CRITICAL));
  EXPECT_EQ(MCLog::getInstance(), nullptr);
}

TEST_F(MCLogTest, TheTraceGetsEveryLevelInItsCategory) {
  setEnv("TV_TRACE", scratch_.path("trace"));
  logAtEachLevel();
  MCLog::log(static_cast<MCDebugLevel>(42), "42\n");
  std::vector<std::string> categories;
  for (const std::string& line : zntopo::test::linesOf(scratch_.read("trace"))) {
    const auto start = line.find("QRMRZTopology ") + 14;
    categories.push_back(line.substr(start, line.find(' ', start) - start) +
                         line.substr(line.rfind(' ')));
  }
  EXPECT_THAT(categories, ElementsAre("25 0", "9 1", "9 2", "9 3", "10 4", "12 5", "12 6", "9 7",
                                      "9 8", "9 42"));
}

TEST_F(MCLogTest, WithoutAPlatformMutexOnlyTheTraceIsWritten) {
  const zntopo::test::NoMutexes refused;
  setEnv("MC_DLEVEL", "0");
  setEnv("TV_TRACE", scratch_.path("trace"));
  EXPECT_THAT(onStandardOutput(logAtEachLevel), ElementsAre());
  EXPECT_EQ(MCLog::getInstance(), nullptr);
  EXPECT_THAT(scratch_.read("trace"), HasSubstr(" 6\n"));
}

TEST_F(MCLogTest, WithoutAPlatformMutexAnInstanceThatIsThereWritesNothingEither) {
  const zntopo::test::NoMutexes refused;
  init("app", {"-d", "0"});
  EXPECT_NE(MCLog::getInstance(), nullptr);
  logAtEachLevel();
  EXPECT_TRUE(scratch_.has("app.log"));
  EXPECT_EQ(scratch_.read("app.log"), "");
  EXPECT_FALSE(MCLog::isHeard(MC_CRITICAL));
}

TEST_F(MCLogTest, LimitsNeedAnInstance) {
  EXPECT_EQ(MCLog::setLimits(3, 4), -1);
  MCLog::setDebuggingLevel(MC_INFO);
  EXPECT_EQ(MCLog::debugLevel(), MC_NONE);
  MCLog::init(MC_NONE);
  EXPECT_EQ(MCLog::setLimits(3, 4), 1);
  EXPECT_EQ(MCLog::getInstance()->getNumFiles(), 3);
  EXPECT_EQ(MCLog::getInstance()->getFileSize(), 4);
  MCLog::setDebuggingLevel(MC_INFO);
  EXPECT_EQ(MCLog::debugLevel(), MC_INFO);
  EXPECT_EQ(MCLog::getInstance()->getDebugLevel(), MC_INFO);
}

TEST_F(MCLogTest, ASecondInitMakesANewInstanceAndLeavesTheOldOne) {
  MCLog::init(MC_MAJOR);
  MCLog* const first = MCLog::getInstance();
  MCLog::init(MC_MINOR);
  EXPECT_NE(MCLog::getInstance(), first);
  EXPECT_EQ(first->getDebugLevel(), MC_MAJOR);
  EXPECT_EQ(MCLog::debugLevel(), MC_MINOR);
}

TEST_F(MCLogTest, TheUserIsTheNameOrTheNumber) {
  MCLog::init(MC_NONE);
  EXPECT_EQ(MCLog::getInstance()->getUserInfo(), "tester");
  setEnv("MC_DUSER", "");
  MCLog::init(MC_NONE);
  EXPECT_EQ(MCLog::getInstance()->getUserInfo(), std::to_string(getuid()));
}

TEST_F(MCLogTest, TheUserIsThatOfTheProcessWhenTheEnvironmentNamesNone) {
  unsetenv("MC_DUSER");
  MCLog::init(MC_NONE);
  const passwd* const user = getpwuid(getuid());
  EXPECT_EQ(MCLog::getInstance()->getUserInfo(),
            user ? std::string(user->pw_name) : std::to_string(getuid()));
}

TEST_F(MCLogTest, IsHeardAsksTheLevelAndTheTrace) {
  init("app", {"-d", "4"});
  EXPECT_FALSE(MCLog::isHeard(MC_INFO));
  EXPECT_TRUE(MCLog::isHeard(MC_MINOR));
  MCLog::disableLogging();
  EXPECT_FALSE(MCLog::isHeard(MC_CRITICAL));
}

TEST_F(MCLogTest, IsHeardWhenOnlyTheTraceListens) {
  setEnv("TV_TRACE", scratch_.path("trace"));
  EXPECT_TRUE(MCLog::isHeard(MC_VERBOSE));
}

TEST_F(MCLogTest, IsHeardMakesTheInstanceSoThatTheEnvironmentCounts) {
  setEnv("MC_DLEVEL", "3");
  EXPECT_TRUE(MCLog::isHeard(MC_INFO));
  EXPECT_FALSE(MCLog::isHeard(MC_TRACE_L1));
  EXPECT_NE(MCLog::getInstance(), nullptr);
}

TEST_F(MCLogTest, NothingIsFormattedWhenNobodyListens) {
  MCLog::log(MC_VERBOSE, "makes the instance");
  const unsigned long before = zntopo::test::allocations();
  MCLog::log(MC_CRITICAL, "%s %d\n", "unheard", 1);
  EXPECT_EQ(zntopo::test::allocations(), before);
}

TEST_F(MCLogTest, ThreadsMayLogRotateAndSwitchAtOnce) {
  init("app", {"-d", "3", "-n", "3", "-k", "2"});
  std::atomic<bool> done{false};
  std::vector<std::thread> writers;
  for (int t = 0; t < 2; ++t) {
    writers.emplace_back([t] {
      for (int i = 0; i < 300; ++i) MCLog::log(MC_MAJOR, "thread %d line %d\n", t, i);
    });
  }
  std::thread switcher([&done] {
    for (int i = 0; !done; ++i) {
      MCLog::setDebuggingLevel(i % 2 ? MC_INFO : MC_NONE);
      MCLog::disableLogging();
      MCLog::setLimits(3, 2 + i % 2);
      MCLog::enableLogging();
      MCLog::getInstance()->getFileName();
      std::this_thread::yield();
    }
  });
  for (auto& writer : writers) writer.join();
  done = true;
  switcher.join();
  int lines = 0;
  for (const char* file : {"app_1.log", "app_2.log", "app_3.log"}) {
    for (const std::string& line : logged(file)) {
      ++lines;
      EXPECT_THAT(line, testing::AnyOf(testing::MatchesRegex("thread [01] line [0-9]+"),
                                       "BEGIN LOGGING - app"));
    }
  }
  EXPECT_GT(lines, 0);
}

TEST_F(MCLogTest, ThreadsMayMakeTheFirstInstanceAtOnce) {
  std::vector<MCLog*> seen(4);
  std::vector<std::thread> threads;
  for (auto& instance : seen) {
    threads.emplace_back([&instance] {
      MCLog::log(MC_VERBOSE, "first\n");
      instance = MCLog::getInstance();
    });
  }
  for (auto& thread : threads) thread.join();
  EXPECT_NE(seen[0], nullptr);
  EXPECT_THAT(seen, testing::Each(seen[0]));
}
