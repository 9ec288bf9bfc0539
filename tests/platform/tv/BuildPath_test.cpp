#include "zntopo/platform/tv/BuildPath.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/Scratch.h"

using zntopo::test::setEnv;

namespace {

class BuildPathTest : public testing::Test {
 protected:
  ~BuildPathTest() override {
    for (const char* name : {"TV_ETC_PATH", "TV_DATA_PATH", "TV_SOME_PATH"}) unsetenv(name);
  }
};

}  // namespace

TEST_F(BuildPathTest, TheDirectoryIsThatOfTheVariable) {
  setEnv("TV_ETC_PATH", "/site/etc");
  EXPECT_EQ(_TVBuildPath("%TV_ETC_PATH%\\conf", "qrmrz\\topology\\filter\\", 0),
            "/site/etc/conf/qrmrz/topology/filter/");
  EXPECT_EQ(_TVBuildPath("%TV_ETC_PATH%\\conf", "qrmrz/topology/filter/TopoFilters.xml"),
            "/site/etc/conf/qrmrz/topology/filter/TopoFilters.xml");
}

TEST_F(BuildPathTest, WithoutTheVariableItIsInTheDataDirectory) {
  setEnv("TV_DATA_PATH", "/data");
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(_TVBuildPath("%TV_ETC_PATH%\\conf", "x"), "/data/etc/conf/x");
    setEnv("TV_ETC_PATH", "");
  }
}

TEST_F(BuildPathTest, OtherVariablesAreKnownIfTheyAreSet) {
  EXPECT_EQ(_TVBuildPath("/%TV_SOME_PATH%/a", "x"), "/%TV_SOME_PATH%/a/x");
  setEnv("TV_SOME_PATH", "b");
  EXPECT_EQ(_TVBuildPath("/%TV_SOME_PATH%/a", "x"), "/b/a/x");
}

TEST_F(BuildPathTest, ALonePercentSignIsACharacter) {
  EXPECT_EQ(_TVBuildPath("/50%/a\\b", "x%y"), "/50%/a/b/x%y");
}

TEST_F(BuildPathTest, TheVariablesValueIsTakenAsItIs) {
  setEnv("TV_ETC_PATH", "/a b\\c%TV_SOME_PATH%#");
  EXPECT_EQ(_TVBuildPath("%TV_ETC_PATH%\\conf", "x"), "/a b\\c%TV_SOME_PATH%#/conf/x");
}

TEST_F(BuildPathTest, ThePathIsAbsoluteAndClean) {
  EXPECT_EQ(_TVBuildPath("/a/./b/..//c", "d/../e"), "/a/c/e");
  setEnv("TV_ETC_PATH", "etc/");
  EXPECT_EQ(_TVBuildPath("%TV_ETC_PATH%\\conf", "x\\"),
            (std::filesystem::current_path() / "etc/conf/x/").string());
}

TEST_F(BuildPathTest, ASlashAtTheEndIsThatOfTheName) {
  EXPECT_EQ(_TVBuildPath("/a/", "b"), "/a/b");
  EXPECT_EQ(_TVBuildPath("/a", "b/"), "/a/b/");
  EXPECT_EQ(_TVBuildPath("/a", "b\\\\"), "/a/b/");
}
