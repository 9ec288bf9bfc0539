#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <string>

#include "tests/core/LogTest.h"
#include "zntopo/core/MCLog.h"

using namespace zntopo;
using testing::ElementsAre;
using testing::internal::CaptureStderr;
using testing::internal::CaptureStdout;
using testing::internal::GetCapturedStderr;
using testing::internal::GetCapturedStdout;
using zntopo::test::setEnv;

namespace {

class MCLogFileTest : public zntopo::test::LogTest {
 protected:
  // Writes a file that is so many minutes old.
  void writeOld(const std::string& name, const std::string& text, int minutes) const {
    scratch_.write(name, text);
    const auto now = std::filesystem::file_time_type::clock::now();
    std::filesystem::last_write_time(scratch_.path(name), now - std::chrono::minutes(minutes));
  }

  // Logs a line of about 500 bytes: two fill a file of 1000.
  static void logHalf(char mark) {
    MCLog::log(MC_CRITICAL, "%s\n", std::string(480, mark).c_str());
  }

  static std::string openFile() { return MCLog::getInstance()->getFileName(); }

  const std::string full_ = std::string(1000, 'f');
};

}  // namespace

TEST_F(MCLogFileTest, OneFileIsTheNameAlone) {
  init("app", {"-d", "6"});
  EXPECT_EQ(openFile(), "app.log");
  EXPECT_EQ(MCLog::getInstance()->getLogPath(), scratch_.path(""));
  EXPECT_NE(MCLog::getInstance()->getLogFile(), stdout);
  EXPECT_THAT(logged("app.log"), ElementsAre("BEGIN LOGGING - app"));
}

TEST_F(MCLogFileTest, OneFileIsAppendedToAtTheStart) {
  scratch_.write("app.log", "an older line\n");
  init("app", {"-d", "6"});
  EXPECT_EQ(zntopo::test::linesOf(scratch_.read("app.log")).front(), "an older line");
  EXPECT_EQ(logged("app.log").size(), 2U);
}

TEST_F(MCLogFileTest, OneFileIsEmptiedWhenItIsFull) {
  init("app", {"-d", "6", "-k", "1"});
  logHalf('a');
  EXPECT_EQ(logged("app.log").size(), 2U);
  logHalf('b');
  EXPECT_EQ(scratch_.read("app.log"), "");
  logHalf('c');
  EXPECT_EQ(logged("app.log").size(), 1U);
  EXPECT_EQ(openFile(), "app.log");
}

TEST_F(MCLogFileTest, WhatAFileHeldAtTheStartCounts) {
  scratch_.write("app.log", full_);
  init("app", {"-d", "6", "-k", "1"});
  EXPECT_EQ(scratch_.read("app.log"), "");
}

TEST_F(MCLogFileTest, SeveralFilesAreNumberedAndWrapToTheFirst) {
  setEnv("MC_DFILES", "3");
  init("app", {"-d", "6", "-k", "1"});
  EXPECT_EQ(openFile(), "app_1.log");
  for (const char* next : {"app_2.log", "app_3.log", "app_1.log", "app_2.log"}) {
    logHalf('x');
    logHalf('y');
    EXPECT_EQ(openFile(), next);
  }
  EXPECT_TRUE(scratch_.has("app_3.log"));
  EXPECT_EQ(scratch_.read("app_2.log"), "");
  EXPECT_FALSE(scratch_.has("app_4.log"));
  EXPECT_FALSE(scratch_.has("app.log"));
}

TEST_F(MCLogFileTest, FewerFilesWrapEarlier) {
  init("app", {"-d", "6", "-n", "3", "-k", "1"});
  logHalf('x');
  logHalf('y');
  ASSERT_EQ(openFile(), "app_2.log");
  MCLog::setLimits(2, 1);
  logHalf('x');
  logHalf('y');
  EXPECT_EQ(openFile(), "app_1.log");
}

TEST_F(MCLogFileTest, ANewProcessGoesOnWithTheNewestFile) {
  writeOld("app_1.log", "one\n", 3);
  writeOld("app_2.log", "two\n", 1);
  writeOld("app_3.log", "three\n", 2);
  init("app", {"-d", "6", "-n", "3", "-k", "1"});
  EXPECT_EQ(openFile(), "app_2.log");
  EXPECT_EQ(logged("app_2.log").size(), 2U);
  EXPECT_FALSE(scratch_.has("app_mcast.file"));
}

TEST_F(MCLogFileTest, ANewProcessEmptiesTheFileBehindAFullOne) {
  writeOld("app_2.log", full_, 1);
  writeOld("app_3.log", "three\n", 2);
  init("app", {"-n", "3", "-k", "1"});
  EXPECT_EQ(openFile(), "app_3.log");
  EXPECT_EQ(scratch_.read("app_3.log"), "");
  EXPECT_EQ(scratch_.read("app_2.log"), full_);
}

TEST_F(MCLogFileTest, BehindTheLastFileComesTheFirst) {
  writeOld("app_3.log", full_, 1);
  writeOld("app_1.log", "one\n", 2);
  init("app", {"-n", "3", "-k", "1"});
  EXPECT_EQ(openFile(), "app_1.log");
  EXPECT_EQ(scratch_.read("app_1.log"), "");
}

TEST_F(MCLogFileTest, AfterAStartTheRotationGoesOnFromTheFileThatIsOpen) {
  writeOld("app_2.log", "two\n", 1);
  init("app", {"-d", "6", "-n", "3", "-k", "1"});
  logHalf('x');
  logHalf('y');
  EXPECT_EQ(openFile(), "app_3.log");
}

TEST_F(MCLogFileTest, AForegroundProcessHasItsUserInTheNameAheadOfTheNumber) {
  init("app", {"-d", "6", "-n", "2", "-k", "1"}, MC_FOREGROUND);
  EXPECT_EQ(openFile(), "app_tester_1.log");
  logHalf('x');
  logHalf('y');
  EXPECT_EQ(openFile(), "app_tester_2.log");
}

TEST_F(MCLogFileTest, AForegroundProcessWithoutAUserNameHasTheUsersNumber) {
  setEnv("MC_DUSER", "");
  init("app", {}, MC_FOREGROUND);
  EXPECT_EQ(openFile(), "app_" + std::to_string(getuid()) + ".log");
}

TEST_F(MCLogFileTest, TheFileOptionBeatsTheApplicationName) {
  init("app", {"-f", "other"});
  EXPECT_EQ(openFile(), "other.log");
}

TEST_F(MCLogFileTest, ANameFromTheRootIgnoresTheFolder) {
  setEnv("TV_SHARE_LOG", "/no/such/folder");
  init("app", {"-f", scratch_.path("rooted")});
  EXPECT_TRUE(scratch_.has("rooted.log"));
}

TEST_F(MCLogFileTest, WithoutAFolderTheNameIsRelative) {
  unsetenv("TV_SHARE_LOG");
  std::filesystem::current_path(scratch_.folder());
  init("app", {});
  EXPECT_TRUE(scratch_.has("app.log"));
  EXPECT_EQ(openFile(), "");
  EXPECT_EQ(MCLog::getInstance()->getLogPath(), "");
}

TEST_F(MCLogFileTest, WithoutAnyNameLinesGoToStandardOutput) {
  CaptureStdout();
  init("", {"-d", "6"});
  EXPECT_EQ(zntopo::test::messagesOf(GetCapturedStdout()).front(), "BEGIN LOGGING - ");
  EXPECT_EQ(MCLog::getInstance()->getLogFile(), stdout);
  EXPECT_EQ(openFile(), "");
}

TEST_F(MCLogFileTest, AFileThatWillNotOpenIsToldAndStandardOutputUsed) {
  setEnv("TV_SHARE_LOG", "/no/such/folder");
  CaptureStdout();
  init("app", {"-d", "6"});
  const std::string output = GetCapturedStdout();
  const std::string told =
      " Failed to open file /no/such/folder/app.log for logging, using standard out!";
  EXPECT_EQ(output.substr(0, told.size()), told);
  EXPECT_EQ(zntopo::test::messagesOf(output.substr(told.size())).front(), "BEGIN LOGGING - app");
  EXPECT_EQ(MCLog::getInstance()->getLogFile(), stdout);
}

TEST_F(MCLogFileTest, SeveralFilesThatWillNotOpenAreNotTold) {
  setEnv("TV_SHARE_LOG", "/no/such/folder");
  CaptureStdout();
  CaptureStderr();
  init("app", {"-n", "2"});
  EXPECT_EQ(GetCapturedStdout(), "");
  EXPECT_THAT(
      GetCapturedStderr(),
      testing::HasSubstr(" unable to open sorted log file /no/such/folder/app_mcast.file "));
  EXPECT_EQ(MCLog::getInstance()->getLogFile(), stdout);
}

TEST_F(MCLogFileTest, AnyVersionButZeroEmptiesItsFile) {
  init("app", {"-d", "6", "-n", "2"});
  scratch_.write("app_2.log", "old\n");
  MCLog::getInstance()->createLog(2);
  EXPECT_EQ(openFile(), "app_2.log");
  EXPECT_EQ(scratch_.read("app_2.log"), "");
  MCLog::getInstance()->createLog(-1);
  EXPECT_EQ(openFile(), "app.log");
}

TEST_F(MCLogFileTest, UpdateSizeLooksAtTheOpenFile) {
  init("app", {"-d", "6", "-n", "2"});
  MCLog::getInstance()->updateSize();
  EXPECT_EQ(openFile(), "app_1.log");
  MCLog::getInstance()->setFileSize(0);
  MCLog::getInstance()->updateSize();
  EXPECT_EQ(openFile(), "app_2.log");
}
