#include "zntopo/platform/tvxpl/TvXplTrc.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

#include "tests/support/Scratch.h"

using namespace TvXplTrc;
using testing::EndsWith;
using testing::SizeIs;
using zntopo::test::linesOf;
using zntopo::test::Scratch;
using zntopo::test::setEnv;

namespace {

constexpr TraceWrapper_t kSubject{"Subject"};

const TraceObj_t& subject() { return kSubject; }

}  // namespace

TEST(TvXplTrcTest, IsOffWithoutTheEnvironmentVariable) {
  unsetenv("TV_TRACE");
  EXPECT_FALSE(subject().IsActive(9));
  subject().DoTrace(9, "nobody reads this", "../File", 1);
  const BlockTrace_t block(kSubject, "function", 9, "../File", 2);
}

TEST(TvXplTrcTest, IsOffWhenTheFileWillNotOpen) {
  const Scratch scratch;
  setEnv("TV_TRACE", scratch.path("no/such/folder/trace"));
  EXPECT_FALSE(subject().IsActive(12));
}

TEST(TvXplTrcTest, WritesALineWithTheSubjectTheCategoryAndThePlace) {
  const Scratch scratch;
  setEnv("TV_TRACE", scratch.path("trace"));
  kSubject.InitObject();
  ASSERT_TRUE(subject().IsActive(25));
  subject().DoTrace(12, "a text\n", "../File", 17);
  subject().DoTrace(9, nullptr, nullptr, 0);
  const auto lines = linesOf(scratch.read("trace"));
  ASSERT_THAT(lines, SizeIs(2));
  EXPECT_THAT(lines[0], EndsWith(" Subject 12 ../File:17 a text"));
  EXPECT_THAT(lines[1], EndsWith(" Subject 9 :0 "));
}

TEST(TvXplTrcTest, ABlockMarksItsEntryAndItsExit) {
  const Scratch scratch;
  setEnv("TV_TRACE", scratch.path("trace"));
  {
    const BlockTrace_t block(kSubject, "find", 9, "../File", 5);
    subject().DoTrace(9, "within", "../File", 6);
  }
  EXPECT_THAT(linesOf(scratch.read("trace")),
              testing::ElementsAre(EndsWith(" 9 ../File:5 enter find"), EndsWith("within"),
                                   EndsWith(" 9 ../File:5 leave find")));
}

TEST(TvXplTrcTest, LinesOfSeveralThreadsStayWhole) {
  const Scratch scratch;
  setEnv("TV_TRACE", scratch.path("trace"));
  constexpr int kLines = 200;
  std::vector<std::thread> threads;
  for (int t = 0; t < 4; ++t) {
    threads.emplace_back([] {
      for (int i = 0; i < kLines; ++i) subject().DoTrace(9, "line", "../File", 1);
    });
  }
  for (auto& thread : threads) thread.join();
  const auto lines = linesOf(scratch.read("trace"));
  EXPECT_THAT(lines, SizeIs(4 * kLines));
  EXPECT_THAT(lines, testing::Each(EndsWith(" Subject 9 ../File:1 line")));
}
