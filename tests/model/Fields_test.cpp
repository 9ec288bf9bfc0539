#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "zntopo/core/AtomicField.h"
#include "zntopo/core/OwnedText.h"
#include "zntopo/core/Published.h"
#include "zntopo/core/PublishedHandle.h"

namespace zntopo::test {
namespace {

TEST(AtomicFieldTest, AFieldReadsAssignsAndCopiesLikeItsValue) {
  AtomicField<int> field;
  EXPECT_EQ(0, field);
  field = 5;
  EXPECT_EQ(5, field.get());
  AtomicField<int> copy(field);
  field = 6;
  EXPECT_EQ(5, copy);
  copy = field;
  EXPECT_EQ(6, copy);
}

TEST(OwnedTextTest, ATextIsAbsentUntilItIsSet) {
  OwnedText text;
  EXPECT_TRUE(text.isNull());
  EXPECT_EQ("", text.get());
  EXPECT_EQ(nullptr, text.c_str());
  text.set("");
  EXPECT_FALSE(text.isNull());
  EXPECT_EQ("", text.get());
  EXPECT_STREQ("", text.c_str());
}

TEST(OwnedTextTest, ATextIsReplacedAndCleared) {
  OwnedText text;
  text.set("one");
  text.set("another");
  EXPECT_EQ("another", text.get());
  text.set(text.get());
  EXPECT_EQ("another", text.get());
  text.clear();
  EXPECT_TRUE(text.isNull());
}

TEST(OwnedTextTest, ATextEndsAtItsFirstZero) {
  OwnedText text;
  text.set(std::string("ab\0cd", 5));
  EXPECT_EQ("ab", text.get());
}

TEST(OwnedTextTest, ACopyIsATextOfItsOwnAndAbsenceIsCopiedToo) {
  OwnedText source;
  source.set("one");
  OwnedText copy(source);
  source.set("two");
  EXPECT_EQ("one", copy.get());
  copy = source;
  EXPECT_EQ("two", copy.get());
  const OwnedText& same = copy;
  copy = same;
  EXPECT_EQ("two", copy.get());
  copy = OwnedText();
  EXPECT_TRUE(copy.isNull());
}

using Numbers = Published<std::vector<int>>;

TEST(PublishedTest, AFreshValueIsEmpty) { EXPECT_TRUE(Numbers().get().empty()); }

TEST(PublishedTest, ValuesBeforeTheCurrentOneStayAsTheyAre) {
  Numbers numbers;
  numbers.publish({1});
  const std::vector<int>& first = numbers.get();
  numbers.publish({2, 3});
  const std::vector<int>& second = numbers.get();
  EXPECT_EQ(std::vector<int>({1}), first);
  EXPECT_EQ(std::vector<int>({2, 3}), second);
}

TEST(PublishedTest, AnEqualValueIsTakenUpAgain) {
  Numbers numbers;
  numbers.publish({1});
  const std::vector<int>* const first = &numbers.get();
  numbers.publish({2});
  numbers.publish({1});
  EXPECT_EQ(first, &numbers.get());
}

TEST(PublishedTest, TheCallerTellsWhatCountsAsEqual) {
  Numbers numbers;
  numbers.publish({1, 2});
  numbers.publish({3, 4},
                  [](const auto& left, const auto& right) { return left.size() == right.size(); });
  EXPECT_EQ(std::vector<int>({1, 2}), numbers.get());
}

TEST(PublishedTest, AnEditChangesTheCurrentValueInPlace) {
  Numbers numbers;
  numbers.edit().push_back(1);
  const std::vector<int>* const place = &numbers.get();
  numbers.edit().push_back(2);
  EXPECT_EQ(place, &numbers.get());
  EXPECT_EQ(std::vector<int>({1, 2}), numbers.get());
  EXPECT_TRUE(Numbers().get().empty());
}

TEST(PublishedTest, ACopyHasTheCurrentValueAlone) {
  Numbers source;
  source.publish({1});
  source.publish({2});
  Numbers copy(source);
  source.edit().push_back(3);
  EXPECT_EQ(std::vector<int>({2}), copy.get());
  const std::vector<int>& before = copy.get();
  copy = source;
  EXPECT_EQ(std::vector<int>({2, 3}), copy.get());
  EXPECT_EQ(std::vector<int>({2}), before);
  const Numbers empty;
  EXPECT_TRUE(Numbers(empty).get().empty());
}

/// Counts its living objects.
struct Counted {
  explicit Counted(int& living) : living_(living) { ++living_; }
  ~Counted() { --living_; }
  Counted(const Counted&) = delete;
  Counted& operator=(const Counted&) = delete;
  int& living_;
};

TEST(PublishedHandleTest, AHandleIsNullUntilItIsAssigned) {
  int living = 0;
  PublishedHandle<Counted> handle;
  EXPECT_TRUE(handle.isNull());
  EXPECT_EQ(nullptr, handle.getObjectPointer());
  const ZNRefPtr<Counted> object(new Counted(living));
  handle = object;
  EXPECT_FALSE(handle.isNull());
  EXPECT_EQ(object.getObjectPointer(), handle.getObjectPointer());
  EXPECT_EQ(&living, &handle->living_);
  EXPECT_EQ(object.getCounter(), static_cast<const ZNRefPtr<Counted>&>(handle).getCounter());
}

TEST(PublishedHandleTest, ObjectsBeforeTheCurrentOneLiveAsLongAsTheOwner) {
  int living = 0;
  {
    PublishedHandle<Counted> handle{ZNRefPtr<Counted>(new Counted(living))};
    Counted& first = *handle;
    handle.publish(new Counted(living), std::equal_to<ZNRefPtr<Counted>>());
    EXPECT_NE(&first, handle.getObjectPointer());
    EXPECT_EQ(2, living);
  }
  EXPECT_EQ(0, living);
}

}  // namespace
}  // namespace zntopo::test
