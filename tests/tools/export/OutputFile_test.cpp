#include "tools/export/OutputFile.h"

#include <gmock/gmock.h>
#include <sys/stat.h>

#include <filesystem>

#include "tests/support/Scratch.h"
#include "tools/network/ToolError.h"

namespace zntopo::tools {
namespace {

using testing::HasSubstr;
using testing::ThrowsMessage;

class OutputFileTest : public testing::Test {
 protected:
  static void put(const std::string& path, const std::string& text, bool mayReplace = false) {
    writeFile(path, mayReplace, [&](std::ostream& out) { out << text; });
  }
  std::size_t files() const {
    const std::filesystem::directory_iterator all(scratch_.folder());
    return static_cast<std::size_t>(std::distance(begin(all), end(all)));
  }

  const test::Scratch scratch_;
  const std::string path_ = scratch_.path("out");
};

TEST_F(OutputFileTest, AFileIsWrittenAsAnyOtherOfTheUser) {
  const mode_t mask = umask(027);
  put(path_, "text");
  umask(mask);
  EXPECT_EQ(scratch_.read("out"), "text");
  struct stat info {};
  ASSERT_EQ(stat(path_.c_str(), &info), 0);
  EXPECT_EQ(info.st_mode & 0777, 0640u);
  EXPECT_EQ(files(), 1u);
}

TEST_F(OutputFileTest, AFileThatIsThereStaysUnlessItMayBeReplaced) {
  put(path_, "before");
  EXPECT_THAT([&] { put(path_, "after"); }, ThrowsMessage<ToolError>(HasSubstr("already")));
  EXPECT_EQ(scratch_.read("out"), "before");
  put(path_, "after", true);
  EXPECT_EQ(scratch_.read("out"), "after");
  EXPECT_EQ(files(), 1u);
}

TEST_F(OutputFileTest, AFileThatAppearsMeanwhileStays) {
  EXPECT_THROW(writeFile(path_, false,
                         [&](std::ostream& out) {
                           scratch_.write("out", "theirs");
                           out << "ours";
                         }),
               ToolError);
  EXPECT_EQ(scratch_.read("out"), "theirs");
  EXPECT_EQ(files(), 1u);
}

TEST_F(OutputFileTest, AFailureLeavesNothingBehind) {
  put(path_, "before");
  const auto fail = [](std::ostream& out) {
    out << "half";
    throw std::runtime_error("broken");
  };
  EXPECT_THROW(writeFile(path_, true, fail), std::runtime_error);
  EXPECT_THROW(writeFile(scratch_.path("new"), false, fail), std::runtime_error);
  EXPECT_EQ(scratch_.read("out"), "before");
  EXPECT_EQ(files(), 1u);
}

TEST_F(OutputFileTest, ALinkStaysOne) {
  put(path_, "before");
  std::filesystem::create_symlink(path_, scratch_.path("link"));
  put(scratch_.path("link"), "after", true);
  EXPECT_TRUE(std::filesystem::is_symlink(scratch_.path("link")));
  EXPECT_EQ(scratch_.read("out"), "after");
}

TEST_F(OutputFileTest, FoldersAndPlacesThatAreNotThereAreRefused) {
  EXPECT_THAT([&] { put(scratch_.folder(), ""); },
              ThrowsMessage<ToolError>(HasSubstr("it is a folder")));
  EXPECT_THAT([&] { put(scratch_.path("no/where"), ""); },
              ThrowsMessage<ToolError>(HasSubstr("No such file")));
}

TEST_F(OutputFileTest, ADeviceIsWrittenTo) {
  put("/dev/null", "text");
  EXPECT_TRUE(std::filesystem::is_character_file("/dev/null"));
}

}  // namespace
}  // namespace zntopo::tools
