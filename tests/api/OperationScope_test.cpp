#include "zntopo/core/detail/OperationScope.h"

#include <gmock/gmock.h>

#include "tests/api/ApiFixture.h"
#include "tests/support/CapturedLog.h"
#include "tests/tvxpl/Scratch.h"

namespace zntopo::test {
namespace {

using detail::OperationScope;
using detail::TracedBlock;
using testing::AllOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsSupersetOf;
using zntopo_test::linesOf;
using zntopo_test::Scratch;

// The trace is opened once in a process; run by ctest each test has a process of its own.

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

TEST(OperationScopeTest, SoDoesTheTraceWithThePlaceOfTheScope) {
  const Scratch scratch;
  zntopo_test::setEnv("TV_TRACE", scratch.path("trace"));
  const int line = __LINE__ + 1;
  { const OperationScope scope("find"); }
  const std::string place = " 9 ../OperationScope_test:" + std::to_string(line);
  EXPECT_THAT(linesOf(scratch.read("trace")),
              IsSupersetOf({EndsWith(place + " enter find"), EndsWith(place + " leave find")}));
}

TEST(OperationScopeTest, AQueryIsTracedAtItsSource) {
  const Scratch scratch;
  zntopo_test::setEnv("TV_TRACE", scratch.path("trace"));
  ZNTopoAPIStatus status;
  OpenImpl().getNodeByObjID(ObjID(), status);
  EXPECT_THAT(
      linesOf(scratch.read("trace")),
      IsSupersetOf({AllOf(HasSubstr(" 9 ../ZNTopoAPI_Node:"), EndsWith(" enter getNodeByObjID")),
                    AllOf(HasSubstr(" 9 ../ZNTopoAPI_Node:"), EndsWith(" leave getNodeByObjID"))}));
}

}  // namespace
}  // namespace zntopo::test
