#include "zntopo/core/ObjID.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <type_traits>
#include <unordered_set>
#include <vector>

#include "zntopo/platform/tv/MS_Uuid.h"

using zntopo::ObjID;

namespace {

const std::string kUuid = "01234567-89ab-cdef-0123-456789abcdef";
constexpr long kMax = std::numeric_limits<std::int32_t>::max();
constexpr long kMin = std::numeric_limits<std::int32_t>::min();

std::vector<ObjID> oneOfEachKind() { return {ObjID(), ObjID(7), ObjID(kUuid), ObjID("router7")}; }

}  // namespace

TEST(ObjIDTest, TheEmptyTextAndTheNullPointerAreNull) {
  EXPECT_TRUE(ObjID().isNull());
  EXPECT_TRUE(ObjID("").isNull());
  EXPECT_TRUE(ObjID(std::string()).isNull());
  EXPECT_TRUE(ObjID(static_cast<const char*>(nullptr)).isNull());
  EXPECT_EQ(ObjID().getIDType(), ObjID::E_Null);
}

TEST(ObjIDTest, TheNumberZeroIsNotNull) {
  EXPECT_FALSE(ObjID(0L).isNull());
  EXPECT_FALSE(ObjID(0).isNull());
  EXPECT_FALSE(ObjID("0").isNull());
  EXPECT_EQ(ObjID(0L).getIDType(), ObjID::E_Long);
}

TEST(ObjIDTest, DigitsAloneAreANumber) {
  EXPECT_EQ(ObjID("123").getIDType(), ObjID::E_Long);
  EXPECT_EQ(ObjID("123").getLongValue(), 123);
  EXPECT_EQ(ObjID("007"), ObjID(7));
}

TEST(ObjIDTest, ANonDigitMakesATextOfIt) {
  for (const char* text : {"12a", "-1", "+1", " 1", "1.5", "x", "\xB2"}) {
    EXPECT_EQ(ObjID(text).getIDType(), ObjID::E_String) << text;
    EXPECT_EQ(ObjID(text).getStrValue(), text);
  }
}

TEST(ObjIDTest, ANumberBeyondThirtyTwoBitsSaturates) {
  EXPECT_EQ(ObjID("2147483647").getLongValue(), kMax);
  EXPECT_EQ(ObjID("2147483648").getLongValue(), kMax);
  EXPECT_EQ(ObjID("99999999999999999999999999").getLongValue(), kMax);
  EXPECT_EQ(ObjID(5000000000L).getLongValue(), kMax);
  EXPECT_EQ(ObjID(-5000000000L).getLongValue(), kMin);
  EXPECT_EQ(ObjID("-5000000000x").getLongValue(), kMin);
}

TEST(ObjIDTest, DigitsBeyondThirtySixCharactersAreANumberAgain) {
  EXPECT_EQ(ObjID(std::string(37, '1')).getIDType(), ObjID::E_Long);
  EXPECT_EQ(ObjID(std::string(35, '1')).getIDType(), ObjID::E_Long);
}

TEST(ObjIDTest, ThirtySixDigitsAreAText) {
  EXPECT_EQ(ObjID(std::string(36, '1')).getIDType(), ObjID::E_String);
}

TEST(ObjIDTest, ThirtySixCharactersWithThreeDashesAreAUuid) {
  EXPECT_EQ(ObjID(kUuid).getIDType(), ObjID::E_MsUuid);
  std::string text = kUuid;
  text[18] = 'x';
  EXPECT_EQ(ObjID(text).getIDType(), ObjID::E_MsUuid);
  EXPECT_EQ(ObjID(text), ObjID(kUuid));
}

TEST(ObjIDTest, ThirtySixCharactersWithADashMissingAreAText) {
  for (const std::size_t place : {8U, 13U, 23U}) {
    std::string text = kUuid;
    text[place] = '0';
    EXPECT_EQ(ObjID(text).getIDType(), ObjID::E_String);
    EXPECT_EQ(ObjID(text).getStrValue(), text);
  }
}

TEST(ObjIDTest, ATextEndsAtItsFirstZero) {
  EXPECT_EQ(ObjID(std::string("ab\0cd", 5)), ObjID("ab"));
  EXPECT_TRUE(ObjID(std::string("\0cd", 3)).isNull());
}

TEST(ObjIDTest, A64BitNumberKeepsItsLowThirtyTwoBits) {
  EXPECT_EQ(ObjID(zntopo::int64{0x100000005}).getLongValue(), 5);
  EXPECT_EQ(ObjID(zntopo::int64{0xFFFFFFFF}).getLongValue(), -1);
  EXPECT_EQ(ObjID(0x100000005ULL).getLongValue(), 5);
}

TEST(ObjIDTest, UnsignedNumbersKeepTheirLowThirtyTwoBits) {
  EXPECT_EQ(ObjID(5U).getLongValue(), 5);
  EXPECT_EQ(ObjID(0xFFFFFFFFU).getLongValue(), -1);
  EXPECT_EQ(ObjID(5UL).getLongValue(), 5);
  EXPECT_EQ(ObjID(~0UL).getLongValue(), -1);
  EXPECT_EQ(ObjID(0xFFFFFFFFUL).getLongValue(), -1);
}

TEST(ObjIDTest, EveryIntegerTypeFindsAConstructor) {
  EXPECT_TRUE((std::is_constructible_v<ObjID, short>));
  EXPECT_TRUE((std::is_constructible_v<ObjID, unsigned short>));
  EXPECT_TRUE((std::is_constructible_v<ObjID, std::size_t>));
  EXPECT_TRUE((std::is_constructible_v<ObjID, std::int64_t>));
  EXPECT_TRUE((std::is_constructible_v<ObjID, std::uint64_t>));
  EXPECT_TRUE((std::is_constructible_v<ObjID, ObjID::ObjType>));
}

TEST(ObjIDTest, TheTextsOfEachKind) {
  EXPECT_EQ(ObjID().getStrValue(), "NULL");
  EXPECT_EQ(static_cast<std::string>(ObjID()), "NULL");
  EXPECT_EQ(ObjID().toString(), "");
  const ObjID upper("01234567-89AB-CDEF-0123-456789ABCDEF");
  for (const auto& [id, text] : {std::pair<ObjID, std::string>{ObjID(-42), "-42"},
                                 {upper, kUuid},
                                 {ObjID("Router-7"), "Router-7"}}) {
    EXPECT_EQ(id.getStrValue(), text);
    EXPECT_EQ(id.toString(), text);
    EXPECT_EQ(static_cast<std::string>(id), text);
  }
}

TEST(ObjIDTest, TheNumberOfEachKind) {
  EXPECT_EQ(ObjID().getLongValue(), 0);
  EXPECT_EQ(ObjID(-42).getLongValue(), -42);
  EXPECT_EQ(ObjID(kUuid).getLongValue(), 0);
  EXPECT_EQ(ObjID("77x").getLongValue(), 77);
  EXPECT_EQ(ObjID(" -3 ").getLongValue(), -3);
  EXPECT_EQ(ObjID("x77").getLongValue(), 0);
}

TEST(ObjIDTest, TheHashOfEachKind) {
  EXPECT_EQ(ObjID().getHash(), 0U);
  EXPECT_EQ(ObjID(2047).getHash(), 2047U);
  EXPECT_EQ(ObjID(2049).getHash(), 1U);
  EXPECT_EQ(ObjID(kUuid).getHash(), MS_Uuid(kUuid.c_str()).hash());
  EXPECT_EQ(ObjID("ab").getHash(), static_cast<unsigned long>('a' + 'b'));
  EXPECT_EQ(ObjID(std::string(30, 'z')).getHash(), 30UL * 'z' % 2048);
}

TEST(ObjIDTest, ANegativeRemainderComesBackAsAnUnsignedWord) {
  EXPECT_EQ(ObjID(-1).getHash(), 0xFFFFFFFFU);
  EXPECT_EQ(ObjID(-2049).getHash(), 0xFFFFFFFFU);
  // Characters count as signed numbers of 8 bits.
  EXPECT_EQ(ObjID("\xFF").getHash(), 0xFFFFFFFFU);
}

TEST(ObjIDTest, DifferentKindsAreUnequalAndDoNotOrder) {
  const auto ids = oneOfEachKind();
  for (std::size_t i = 0; i < ids.size(); ++i) {
    for (std::size_t j = 0; j < ids.size(); ++j) {
      EXPECT_EQ(ids[i] == ids[j], i == j);
      EXPECT_EQ(ids[i] != ids[j], i != j);
      EXPECT_FALSE(ids[i] < ids[j]);
    }
  }
  EXPECT_FALSE(ObjID(7) == ObjID("7x"));
}

TEST(ObjIDTest, TwoNullIdentifiersAreEqualAndNeitherIsLess) {
  EXPECT_EQ(ObjID(), ObjID(""));
  EXPECT_FALSE(ObjID() < ObjID());
}

TEST(ObjIDTest, OneKindOrdersByItsValue) {
  EXPECT_LT(ObjID(-5), ObjID(3));
  EXPECT_FALSE(ObjID(3) < ObjID(-5));
  EXPECT_LT(ObjID("a"), ObjID("ab"));
  EXPECT_LT(ObjID("a"), ObjID("\xFF"));
  EXPECT_FALSE(ObjID("b") < ObjID("ab"));
  EXPECT_LT(ObjID(kUuid), ObjID("11234567-89ab-cdef-0123-456789abcdef"));
  EXPECT_FALSE(ObjID(kUuid) < ObjID(kUuid));
}

TEST(ObjIDTest, ACopyHasAHeapPartOfItsOwn) {
  for (const ObjID& id : oneOfEachKind()) {
    ObjID original(id);
    const ObjID copy(original);
    original.clear();
    EXPECT_EQ(copy, id);
    EXPECT_TRUE(original.isNull());
  }
}

TEST(ObjIDTest, AssignmentReplacesEveryKindByEveryKind) {
  for (const ObjID& from : oneOfEachKind()) {
    for (const ObjID& to : oneOfEachKind()) {
      ObjID target(to);
      target = from;
      EXPECT_EQ(target, from);
      ObjID moved(to);
      ObjID source(from);
      moved = std::move(source);
      EXPECT_EQ(moved, from);
    }
  }
}

TEST(ObjIDTest, AssignmentToItselfChangesNothing) {
  for (const ObjID& id : oneOfEachKind()) {
    ObjID same(id);
    const ObjID& alias = same;
    same = alias;
    EXPECT_EQ(same, id);
    same = std::move(const_cast<ObjID&>(alias));
    EXPECT_EQ(same, id);
  }
}

TEST(ObjIDTest, AssigningANumberReleasesWhatWasThere) {
  for (ObjID id : oneOfEachKind()) {
    id = 9UL;
    EXPECT_EQ(id, ObjID(9));
  }
}

TEST(ObjIDTest, AnAssignedNumberIsTheOneThatTheConstructorMakes) {
  ObjID id;
  id = -5;
  EXPECT_EQ(id, ObjID(-5));
  id = 0xFFFFFFFFU;
  EXPECT_EQ(id, ObjID(0xFFFFFFFFU));
  id = 0xFFFFFFFFUL;
  EXPECT_EQ(id, ObjID(0xFFFFFFFFUL));
  id = zntopo::int64{0x100000005};
  EXPECT_EQ(id, ObjID(zntopo::int64{0x100000005}));
}

TEST(ObjIDTest, ClearLeavesNull) {
  for (ObjID id : oneOfEachKind()) {
    id.clear();
    EXPECT_TRUE(id.isNull());
    id.clear();
    EXPECT_TRUE(id.isNull());
  }
}

// The value of a UUID is in its identifier, so that neither a copy nor a comparison leaves it.
TEST(ObjIDTest, IsAUuidAndItsKind) { EXPECT_EQ(sizeof(ObjID), sizeof(MS_Uuid) + sizeof(void*)); }

TEST(ObjIDTest, TheFunctionObjectsServeUnorderedContainers) {
  std::unordered_set<ObjID, zntopo::ObjIDHash, zntopo::ObjIDEQ> ids;
  for (const ObjID& id : oneOfEachKind()) ids.insert(id);
  for (const ObjID& id : oneOfEachKind()) ids.insert(id);
  EXPECT_EQ(ids.size(), 4U);
  EXPECT_EQ(zntopo::ObjIDHash()(ObjID(-1)), 0xFFFFFFFFU);
}
