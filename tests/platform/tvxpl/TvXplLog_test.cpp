#include "zntopo/platform/tvxpl/TvXplLog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/Scratch.h"

using namespace TvXplMsg;
using testing::EndsWith;
using testing::SizeIs;
using zntopo::test::linesOf;
using zntopo::test::Scratch;
using zntopo::test::setEnv;

TEST(TvXplLogTest, EveryMessageIsALineOfTheFileThatTvLogNames) {
  const Scratch scratch;
  setEnv("TV_LOG", scratch.path("platform.log"));
  MessageList_t list;
  list.Add(CreateError_t("no connection\n"));
  list.Add(Message_t(kWarning, "100%s of\ntwo lines"));
  list.Add(Message_t(kInformation, "done"));
  TvXplLog::Log(list);
  const auto lines = linesOf(scratch.read("platform.log"));
  ASSERT_THAT(lines, SizeIs(3));
  EXPECT_THAT(lines[0], EndsWith(" error: no connection"));
  EXPECT_THAT(lines[1], EndsWith(" warning: 100%s of\\ntwo lines"));
  EXPECT_THAT(lines[2], EndsWith(" information: done"));
}

TEST(TvXplLogTest, TheFileIsAppendedTo) {
  const Scratch scratch;
  scratch.write("platform.log", "older\n");
  setEnv("TV_LOG", scratch.path("platform.log"));
  MessageList_t list;
  list.Add(CreateError_t("newer"));
  TvXplLog::Log(list);
  EXPECT_THAT(linesOf(scratch.read("platform.log")),
              testing::ElementsAre("older", EndsWith("newer")));
}

TEST(TvXplLogTest, NothingReachesTheHostsStreamsWithoutAFile) {
  unsetenv("TV_LOG");
  MessageList_t list;
  list.Add(CreateError_t("for the system's log"));
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  TvXplLog::Log(list);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}
