#include "zntopo/api/detail/SingleObject.h"

#include <gtest/gtest.h>

#include <list>
#include <memory>

#include "zntopo/core/ZNRefPtr.h"

namespace zntopo::test {
namespace {

using Handle = ZNRefPtr<int>;
using Handles = std::list<Handle>;

constexpr detail::SingleObjectTexts kKeepsFailure = {
    .nullID = "none given", .beforeID = "The ID: ", .afterID = " is not valid"};
constexpr detail::SingleObjectTexts kReplacesFailure = {.beforeID = "nothing read",
                                                        .replacesFailure = true};

constexpr detail::SingleObjectTexts kGivesIncomplete = {.beforeID = "nothing read",
                                                        .givesIncomplete = true};

class SingleObjectTest : public testing::Test {
 protected:
  /// The value that is found, 0 for none.
  int find(const detail::SingleObjectTexts& texts, const ObjID& id, const std::list<int>& values,
           ZNTopoStatus readStatus = ZN_API_SUCCESS) {
    status.reset();
    reads = 0;
    const Handle found = detail::singleObject(id, texts, status, [&] {
      ++reads;
      if (readStatus) detail::setFailure(status, readStatus, "of the read");
      auto handles = std::make_unique<Handles>();
      for (const int value : values) handles->push_back(new int(value));
      return handles;
    });
    return found.isNull() ? 0 : *found;
  }

  ZNTopoAPIStatus status;
  int reads = 0;
};

TEST_F(SingleObjectTest, TheFirstObjectIsTaken) {
  EXPECT_EQ(find(kKeepsFailure, "a", {7, 8}), 7);
  EXPECT_TRUE(status.isOK());
}

TEST_F(SingleObjectTest, AReadMayGiveTheObjectItself) {
  const auto give = [this](const Handle& object) {
    return detail::singleObject("a", kKeepsFailure, status, [&] { return object; });
  };
  EXPECT_EQ(*give(new int(7)), 7);
  EXPECT_TRUE(status.isOK());
  EXPECT_TRUE(give({}).isNull());
  EXPECT_EQ(status.getAuxMsg(), "The ID: a is not valid\n");
}

TEST_F(SingleObjectTest, TheNullIdentifierIsRefusedWithoutARead) {
  EXPECT_EQ(find(kKeepsFailure, ObjID(), {7}), 0);
  EXPECT_EQ(reads, 0);
  EXPECT_EQ(status.getStatus(), ZN_API_INVALID_ID);
  EXPECT_EQ(status.getAuxMsg(), "none given\n");
}

TEST_F(SingleObjectTest, WithoutAComplaintTheNullIdentifierIsAskedFor) {
  EXPECT_EQ(find(kReplacesFailure, ObjID(), {7}), 7);
  EXPECT_EQ(reads, 1);
}

TEST_F(SingleObjectTest, AnEmptyAnswerIsAnInvalidIdentifier) {
  EXPECT_EQ(find(kKeepsFailure, "a", {}), 0);
  EXPECT_EQ(status.getStatus(), ZN_API_INVALID_ID);
  EXPECT_EQ(status.getAuxMsg(), "The ID: a is not valid\n");
}

TEST_F(SingleObjectTest, WithoutATextBehindItTheIdentifierIsLeftOut) {
  EXPECT_EQ(find(kReplacesFailure, "a", {}), 0);
  EXPECT_EQ(status.getAuxMsg(), "nothing read\n");
}

TEST_F(SingleObjectTest, AFailureIsKeptAndKeepsWhatWasRead) {
  EXPECT_EQ(find(kKeepsFailure, "a", {}, ZN_API_SQL_EXEC_ERROR), 0);
  EXPECT_EQ(status.getStatus(), ZN_API_SQL_EXEC_ERROR);
  EXPECT_EQ(find(kKeepsFailure, "a", {7}, ZN_API_SQL_EXEC_ERROR), 0);
  EXPECT_EQ(status.getStatus(), ZN_API_SQL_EXEC_ERROR);
}

TEST_F(SingleObjectTest, AFailureIsReplacedUnlessSomethingWasRead) {
  EXPECT_EQ(find(kReplacesFailure, "a", {}, ZN_API_SQL_EXEC_ERROR), 0);
  EXPECT_EQ(status.getStatus(), ZN_API_INVALID_ID);
  EXPECT_EQ(find(kReplacesFailure, "a", {7}, ZN_API_SQL_EXEC_ERROR), 7);
  EXPECT_EQ(status.getStatus(), ZN_API_SQL_EXEC_ERROR);
}

TEST_F(SingleObjectTest, AnIncompleteObjectIsGivenWithItsFailureIfThatIsWanted) {
  EXPECT_EQ(find(kGivesIncomplete, "a", {7}, ZN_API_SQL_EXEC_ERROR), 7);
  EXPECT_EQ(status.getStatus(), ZN_API_SQL_EXEC_ERROR);
  EXPECT_EQ(status.getAuxMsg(), "of the read\n");
  EXPECT_EQ(find(kGivesIncomplete, "a", {}, ZN_API_SQL_EXEC_ERROR), 0);
  EXPECT_EQ(status.getStatus(), ZN_API_SQL_EXEC_ERROR);
  EXPECT_EQ(status.getAuxMsg(), "of the read\n");
}

}  // namespace
}  // namespace zntopo::test
