#include "zntopo/core/detail/LogRotation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <string>

#include "tests/support/Scratch.h"

using namespace zntopo::detail;
using zntopo::test::Scratch;

namespace {

class LogRotationTest : public testing::Test {
 protected:
  void write(const std::string& name, int minutesOld) const {
    scratch_.write(name, "line\n");
    const auto now = std::filesystem::file_time_type::clock::now();
    std::filesystem::last_write_time(scratch_.path(name), now - std::chrono::minutes(minutesOld));
  }

  int newest(const std::string& base, int files) const {
    return newestLogNumber(scratch_.path(base), files);
  }

  Scratch scratch_;
};

}  // namespace

TEST_F(LogRotationTest, WithoutFilesItIsTheFirst) { EXPECT_EQ(newest("app", 3), 1); }

TEST_F(LogRotationTest, TheNewestFileWins) {
  write("app_1.log", 1);
  write("app_2.log", 0);
  write("app_3.log", 2);
  EXPECT_EQ(newest("app", 3), 2);
}

TEST_F(LogRotationTest, NamesOutsideTheNumbersArePassedOver) {
  for (const char* other : {"app_9.log", "app_0.log", "app_02.log", "app_x.log", "app_-1.log",
                            "app_2x.log", "app_99999999999999999999.log", "app_.log"}) {
    write(other, 0);
  }
  write("app_3.log", 5);
  write("app_2.log", 6);
  EXPECT_EQ(newest("app", 3), 3);
}

TEST_F(LogRotationTest, AHugeNumberOfFilesCostsNothing) {
  write("app_70000.log", 0);
  EXPECT_EQ(newest("app", 2000000000), 70000);
}

TEST_F(LogRotationTest, TheListIsRemoved) {
  write("app_1.log", 0);
  newest("app", 3);
  EXPECT_FALSE(scratch_.has("app_mcast.file"));
}

TEST_F(LogRotationTest, TheShellReadsNothingIntoAName) {
  for (const std::string base : {"two words", "it's", "$(touch made)", "`touch made`",
                                 "a;touch made", "-l", "a*b", "a\"b", "a\\b", "a\nb"}) {
    write(base + "_2.log", 0);
    write(base + "_1.log", 9);
    const bool oneLine = base.find('\n') == std::string::npos;
    EXPECT_EQ(newest(base, 3), oneLine ? 2 : 1) << base;
  }
  EXPECT_FALSE(scratch_.has("made"));
  EXPECT_FALSE(std::filesystem::exists("made"));
}

TEST_F(LogRotationTest, ARelativeNameMayBeginWithADash) {
  std::filesystem::current_path(scratch_.folder());
  write("-rf_2.log", 0);
  EXPECT_EQ(newestLogNumber("-rf", 3), 2);
  EXPECT_FALSE(scratch_.has("-rf_mcast.file"));
}

TEST_F(LogRotationTest, AListThatCannotBeReadIsToldAndGivesTheFirst) {
  unsetenv("LANG");
  testing::internal::CaptureStderr();
  EXPECT_EQ(newestLogNumber("/no/such/folder/app", 3), 1);
  EXPECT_THAT(testing::internal::GetCapturedStderr(),
              testing::EndsWith(" unable to open sorted log file /no/such/folder/app_mcast.file "));
}

TEST_F(LogRotationTest, AQuotedTextIsOneWord) {
  EXPECT_EQ(quotedForShell(""), "''");
  EXPECT_EQ(quotedForShell("a b"), "'a b'");
  EXPECT_EQ(quotedForShell("it's"), "'it'\\''s'");
}

TEST_F(LogRotationTest, AMessageTakesItsNameOnceAndIsNoFormat) {
  EXPECT_EQ(withName("open %s now", "x%n"), "open x%n now");
  EXPECT_EQ(withName("%n %s %s", "x"), "%n x %s");
  EXPECT_EQ(withName("none", "x"), "none");
}
