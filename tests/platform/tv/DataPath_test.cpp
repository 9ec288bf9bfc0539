#include "zntopo/platform/tv/DataPath.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/Scratch.h"

using zntopo::test::Scratch;
using zntopo::test::setEnv;

namespace {

// An installation that was moved, with a file of a name in its folder for programs.
class DataPathTest : public testing::Test {
 protected:
  void SetUp() override {
    std::filesystem::create_directories(prefix_.path("bin"));
    std::filesystem::create_directories(prefix_.path("share/zntopo"));
    prefix_.write("bin/program", "");
  }

  Scratch prefix_;
};

}  // namespace

TEST_F(DataPathTest, TheEnvironmentVariableWins) {
  setEnv("TV_DATA_PATH", "/somewhere/else/");
  EXPECT_EQ(tv::dataDirectory(), "/somewhere/else");
  setEnv("TV_DATA_PATH", "/");
  EXPECT_EQ(tv::dataDirectory(), "/");
}

TEST_F(DataPathTest, WithoutItTheInstallationIsTaken) {
  setEnv("TV_DATA_PATH", "");
  EXPECT_THAT(tv::dataDirectory(), testing::EndsWith("/zntopo"));
}

TEST_F(DataPathTest, AnInstallationThatWasMovedIsFoundFromItsFiles) {
  EXPECT_EQ(tv::installedDataDirectory(prefix_.path("bin/program")),
            std::filesystem::canonical(prefix_.path("share/zntopo")).string());
}

TEST_F(DataPathTest, ALinkToAProgramLeadsToItsInstallation) {
  const Scratch elsewhere;
  std::filesystem::create_symlink(prefix_.path("bin/program"), elsewhere.path("link"));
  EXPECT_EQ(tv::installedDataDirectory(elsewhere.path("link")),
            std::filesystem::canonical(prefix_.path("share/zntopo")).string());
}

TEST_F(DataPathTest, AFileOutsideAnyInstallationGivesTheConfiguredPlace) {
  const std::string configured = tv::installedDataDirectory("/no/such/file");
  EXPECT_THAT(configured, testing::EndsWith("/zntopo"));
  EXPECT_EQ(tv::installedDataDirectory(""), configured);
}
