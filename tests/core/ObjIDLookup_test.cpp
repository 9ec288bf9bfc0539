#include "zntopo/core/ObjIDLookup.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>

using zntopo::containsObjID;
using zntopo::findObjID;
using zntopo::ObjID;

namespace {

const ObjID kUuid("01234567-89ab-cdef-0123-456789abcdef");

}  // namespace

TEST(ObjIDLookupTest, FindsWhatIsThere) {
  std::map<ObjID, std::string> names{{ObjID(1), "one"}, {ObjID(2), "two"}};
  const auto found = findObjID(names, ObjID(2));
  ASSERT_NE(found, names.end());
  found->second = "zwei";
  EXPECT_EQ(names[ObjID(2)], "zwei");
  EXPECT_EQ(findObjID(names, ObjID(3)), names.end());
}

TEST(ObjIDLookupTest, AForeignKindIsNotFoundThoughItIsEquivalent) {
  const std::set<ObjID> numbers{ObjID(1), ObjID(2), ObjID(3)};
  EXPECT_NE(numbers.find(ObjID("text")), numbers.end());
  EXPECT_FALSE(containsObjID(numbers, ObjID("text")));
  EXPECT_FALSE(containsObjID(numbers, kUuid));
  EXPECT_FALSE(containsObjID(numbers, ObjID()));
  EXPECT_TRUE(containsObjID(numbers, ObjID("2")));
  EXPECT_EQ(findObjID(numbers, ObjID("text")), numbers.end());
}

TEST(ObjIDLookupTest, ASetHoldsOneKindOnly) {
  std::set<ObjID> ids{kUuid};
  EXPECT_FALSE(ids.insert(ObjID(1)).second);
  EXPECT_FALSE(ids.insert(ObjID()).second);
  EXPECT_TRUE(containsObjID(ids, kUuid));
}

TEST(ObjIDLookupTest, ALoneNullIsFoundByNullAlone) {
  const std::set<ObjID> ids{ObjID()};
  EXPECT_TRUE(containsObjID(ids, ObjID()));
  EXPECT_FALSE(containsObjID(ids, ObjID(0)));
  EXPECT_FALSE(containsObjID(ids, ObjID("NULL")));
  EXPECT_FALSE(containsObjID(ids, kUuid));
}

TEST(ObjIDLookupTest, NothingIsFoundInAnEmptyContainer) {
  const std::map<ObjID, int> none;
  EXPECT_FALSE(containsObjID(none, ObjID()));
  EXPECT_FALSE(containsObjID(none, ObjID(1)));
}
