#include "zntopo/core/ZNExeTimeLogger.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "tests/support/Scratch.h"

using testing::internal::CaptureStdout;
using testing::internal::GetCapturedStdout;
using zntopo::ZNExeTimeLogger;
using zntopo::test::Scratch;

namespace {

const char* const kMarker = "/tmp/ExeTimeLoggerStart";

// The marker stands for the whole machine: these tests take turns.
class ZNExeTimeLoggerTest : public testing::Test {
 protected:
  void SetUp() override {
    turn_ = open("/tmp/ExeTimeLoggerStart.turn", O_RDWR | O_CREAT | O_CLOEXEC, 0666);
    ASSERT_EQ(flock(turn_, LOCK_EX), 0);
    std::filesystem::remove(kMarker);
  }
  void TearDown() override {
    std::filesystem::remove(kMarker);
    close(turn_);
  }

  void start() const {
    std::ofstream(kMarker) << "";
    ZNExeTimeLogger::InitLogger(scratch_.path("times"));
  }
  std::string fileName() const { return "times-" + std::to_string(getpid()) + ".dat"; }

  Scratch scratch_;
  int turn_ = -1;
};

}  // namespace

TEST_F(ZNExeTimeLoggerTest, DoesNothingAtAllWithoutTheMarkerFile) {
  CaptureStdout();
  ZNExeTimeLogger::InitLogger(scratch_.path("times"));
  { const ZNExeTimeLogger timer("scope"); }
  EXPECT_EQ(GetCapturedStdout(), "");
  EXPECT_TRUE(std::filesystem::is_empty(scratch_.folder()));
}

TEST_F(ZNExeTimeLoggerTest, WritesEntryExitAndTheTimeBetween) {
  start();
  CaptureStdout();
  {
    const ZNExeTimeLogger timer("scope");
    EXPECT_THAT(scratch_.read(fileName()),
                testing::MatchesRegex("[0-9]+\\.[0-9][0-9][0-9][0-9][0-9][0-9]\\[\\+scope\\]\n"));
    usleep(1000);
  }
  EXPECT_EQ(GetCapturedStdout(), "File open\n");
  const auto lines = zntopo::test::linesOf(scratch_.read(fileName()));
  ASSERT_EQ(lines.size(), 2U);
  const std::string time = "[0-9]+\\.[0-9][0-9][0-9][0-9][0-9][0-9]";
  EXPECT_THAT(lines[1], testing::MatchesRegex(time + "\\[-scope\\]\\(" + time + "\\)"));
}

TEST_F(ZNExeTimeLoggerTest, TheFirstObjectToEndIsTheLastThatIsWritten) {
  start();
  {
    const ZNExeTimeLogger outer("outer");
    { const ZNExeTimeLogger inner("inner"); }
    const ZNExeTimeLogger late("late");
  }
  const std::string text = scratch_.read(fileName());
  EXPECT_THAT(text, testing::HasSubstr("[+outer]\n"));
  EXPECT_THAT(text, testing::HasSubstr("[-inner]("));
  EXPECT_THAT(text, testing::Not(testing::HasSubstr("late")));
  EXPECT_THAT(text, testing::Not(testing::HasSubstr("[-outer]")));
}

TEST_F(ZNExeTimeLoggerTest, AFileThatWillNotOpenIsToldOnStandardOutput) {
  start();
  ZNExeTimeLogger::InitLogger("/no/such/folder/times");
  CaptureStdout();
  { const ZNExeTimeLogger timer("scope"); }
  EXPECT_THAT(GetCapturedStdout(),
              testing::HasSubstr("Sorry can't open the file : /no/such/folder/times-" +
                                 std::to_string(getpid()) + ".dat"));
}

TEST_F(ZNExeTimeLoggerTest, OnceTheMarkerWasSeenItStaysOn) {
  start();
  std::filesystem::remove(kMarker);
  ZNExeTimeLogger::InitLogger(scratch_.path("renamed"));
  { const ZNExeTimeLogger timer("scope"); }
  EXPECT_TRUE(scratch_.has("renamed-" + std::to_string(getpid()) + ".dat"));
}
