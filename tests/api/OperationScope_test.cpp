#include "zntopo/core/detail/OperationScope.h"

#include <gmock/gmock.h>

#include "tests/support/ApiFixture.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/FreshProcess.h"

namespace zntopo::test {
namespace {

using detail::OperationScope;
using detail::TracedBlock;
using testing::AllOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsSupersetOf;

TEST(OperationScopeTest, TheSourceIsQuotedWithoutItsFolderAndItsExtension) {
  const TracedBlock block("find");
  EXPECT_STREQ(block.name, "find");
  EXPECT_STREQ(block.file, "../OperationScope_test");
  EXPECT_EQ(block.line, __LINE__ - 3);
}

TEST(OperationScopeTest, TheLogTellsTheEntryAndTheExit) {
  const CapturedLog log(MC_INFO);
  { const OperationScope scope("find"); }
  EXPECT_THAT(log.lines(), ElementsAre("+find\n", "-find\n"));
}

/// What some work traces. Call it in a process of its own, for the trace is opened once.
std::vector<std::string> tracedBy(const std::function<void()>& work) {
  const Scratch scratch;
  setEnv("TV_TRACE", scratch.path("trace"));
  work();
  return linesOf(scratch.read("trace"));
}

TEST(OperationScopeTest, SoDoesTheTraceWithThePlaceOfTheScope) {
  inFreshProcess([] {
    constexpr int kLine = __LINE__ + 1;
    const auto lines = tracedBy([] { const OperationScope scope("find"); });
    const std::string place = " 9 ../OperationScope_test:" + std::to_string(kLine);
    EXPECT_THAT(lines,
                IsSupersetOf({EndsWith(place + " enter find"), EndsWith(place + " leave find")}));
  });
}

TEST(OperationScopeTest, AQueryIsTracedAtItsSource) {
  inFreshProcess([] {
    const auto lines = tracedBy([] {
      ZNTopoAPIStatus status;
      OpenImpl().getNodeByObjID(ObjID(), status);
    });
    const auto isOfQuery = [](const char* what) {
      return AllOf(HasSubstr(" 9 ../ZNTopoAPI_Node:"), EndsWith(what));
    };
    EXPECT_THAT(lines, IsSupersetOf({isOfQuery(" enter getNodeByObjID"),
                                     isOfQuery(" leave getNodeByObjID")}));
  });
}

}  // namespace
}  // namespace zntopo::test
