#include "zntopo/model/VarValue.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>
#include <limits>
#include <memory>
#include <string>
#include <utility>

namespace zntopo::test {
namespace {

VarValue octets(const std::string& bytes) {
  return VarValue(bytes.data(), static_cast<unsigned>(bytes.size()));
}

std::string bytesOf(const VarValue& value) {
  return value.getOctetValLen() == 0
             ? std::string()
             : std::string(static_cast<const char*>(value.getOctetVal()), value.getOctetValLen());
}

void expectFreshButForTheTag(const VarValue& value) {
  EXPECT_EQ(0, value.getShortVal());
  EXPECT_EQ(0, value.getLongVal());
  EXPECT_EQ(0, value.getLongLongVal());
  EXPECT_EQ(0.0F, value.getFloatVal());
  EXPECT_EQ("", value.getStrVal());
  EXPECT_EQ(nullptr, value.getOctetVal());
  EXPECT_EQ(0u, value.getOctetValLen());
}

VarValue withUnknownTag() {
  VarValue value(5);
  value._type = static_cast<VarValue::ValType>(8);
  return value;
}

TEST(VarValueTest, AFreshValueIsACapabilityThatReadsTrue) {
  const VarValue value;
  EXPECT_EQ(VarValue::VT_Capability, value.getValType());
  EXPECT_EQ(4, value.getValTypeAsShort());
  EXPECT_TRUE(value.getBoolVal());
  expectFreshButForTheTag(value);
  EXPECT_EQ("N/A", value.getValAsStr());
}

TEST(VarValueTest, TheTagsHaveTheirNumbers) {
  EXPECT_EQ(0, VarValue::VT_Short);
  EXPECT_EQ(1, VarValue::VT_Long);
  EXPECT_EQ(2, VarValue::VT_LongLong);
  EXPECT_EQ(3, VarValue::VT_Str);
  EXPECT_EQ(4, VarValue::VT_Capability);
  EXPECT_EQ(5, VarValue::VT_Float);
  EXPECT_EQ(6, VarValue::VT_Bool);
  EXPECT_EQ(7, VarValue::VT_Octet);
}

TEST(VarValueTest, EachConstructorSetsItsTagAndItsField) {
  EXPECT_EQ(VarValue::VT_Bool, VarValue(false).getValType());
  EXPECT_FALSE(VarValue(false).getBoolVal());
  EXPECT_EQ(VarValue::VT_Short, VarValue(static_cast<short>(-3)).getValType());
  EXPECT_EQ(-3, VarValue(static_cast<short>(-3)).getShortVal());
  EXPECT_EQ(VarValue::VT_Long, VarValue(-4).getValType());
  EXPECT_EQ(-4, VarValue(-4).getLongVal());
  EXPECT_EQ(VarValue::VT_Long, VarValue(5L).getValType());
  EXPECT_EQ(5, VarValue(5L).getLongVal());
  EXPECT_EQ(VarValue::VT_LongLong, VarValue(6LL).getValType());
  EXPECT_EQ(6, VarValue(6LL).getLongLongVal());
  EXPECT_EQ(VarValue::VT_Float, VarValue(0.5F).getValType());
  EXPECT_EQ(0.5F, VarValue(0.5F).getFloatVal());
  EXPECT_EQ(VarValue::VT_Str, VarValue(std::string("text")).getValType());
  EXPECT_EQ("text", VarValue(std::string("text")).getStrVal());
  EXPECT_EQ(VarValue::VT_Str, VarValue("text").getValType());
  EXPECT_EQ("text", VarValue("text").getStrVal());
  EXPECT_EQ(VarValue::VT_Octet, octets("abc").getValType());
  EXPECT_EQ("abc", bytesOf(octets("abc")));
}

TEST(VarValueTest, SettingAValueLeavesTheOtherFieldsAlone) {
  VarValue value;
  value.setVal(false);
  value.setVal(static_cast<short>(1));
  value.setVal(2);
  value.setVal(3LL);
  value.setVal(4.0F);
  value.setVal("five");
  value.setVal("six", 3U);
  EXPECT_EQ(VarValue::VT_Octet, value.getValType());
  EXPECT_FALSE(value.getBoolVal());
  EXPECT_EQ(1, value.getShortVal());
  EXPECT_EQ(2, value.getLongVal());
  EXPECT_EQ(3, value.getLongLongVal());
  EXPECT_EQ(4.0F, value.getFloatVal());
  EXPECT_EQ("five", value.getStrVal());
  EXPECT_EQ("six", bytesOf(value));
  value.setVal(7L);
  EXPECT_EQ(VarValue::VT_Long, value.getValType());
  EXPECT_EQ(7, value.getLongVal());
  EXPECT_EQ("six", bytesOf(value));
}

TEST(VarValueTest, ALongBeyondThirtyTwoBitsSaturates) {
  EXPECT_EQ(std::numeric_limits<std::int32_t>::max(), VarValue(1L << 40).getLongVal());
  EXPECT_EQ(std::numeric_limits<std::int32_t>::min(), VarValue(-(1L << 40)).getLongVal());
}

TEST(VarValueTest, ANullTextIsAnEmptyText) {
  VarValue value("text");
  value.setVal(static_cast<const char*>(nullptr));
  EXPECT_EQ(VarValue::VT_Str, value.getValType());
  EXPECT_EQ("", value.getStrVal());
}

TEST(VarValueTest, InitMakesAValueFresh) {
  VarValue value(5);
  value.setVal("text");
  value.setVal(false);
  value.init();
  EXPECT_EQ(VarValue::VT_Capability, value.getValType());
  EXPECT_TRUE(value.getBoolVal());
  expectFreshButForTheTag(value);
}

TEST(VarValueTest, TheIntIsThatOfAShortOrALongAndZeroElsewhere) {
  EXPECT_EQ(-3, VarValue(static_cast<short>(-3)).getIntVal());
  EXPECT_EQ(-4, VarValue(-4).getIntVal());
  VarValue value(9);
  value.setVal(static_cast<short>(8));
  for (const VarValue& other : {VarValue(true), VarValue(6LL), VarValue(2.5F), VarValue("7")}) {
    value = other;
    EXPECT_EQ(0, value.getIntVal()) << other.toString();
  }
}

TEST(VarValueTest, ValuesWidenByTheirTag) {
  EXPECT_EQ(-3, VarValue(static_cast<short>(-3)).castIntValToLongLong());
  EXPECT_EQ(-4, VarValue(-4).castIntValToLongLong());
  EXPECT_EQ(1LL << 40, VarValue(1LL << 40).castIntValToLongLong());
  EXPECT_EQ(1, VarValue(true).castIntValToLongLong());
  EXPECT_EQ(0, VarValue(false).castIntValToLongLong());
  EXPECT_EQ(0, VarValue("7").castIntValToLongLong());
  EXPECT_EQ(0, VarValue(2.5F).castIntValToLongLong());
  EXPECT_EQ(0, VarValue().castIntValToLongLong());
  const VarValue block = octets("abc");
  EXPECT_EQ(reinterpret_cast<std::intptr_t>(block.getOctetVal()), block.castIntValToLongLong());
  EXPECT_EQ(0, octets("").castIntValToLongLong());
}

TEST(VarValueTest, EachTagHasItsText) {
  EXPECT_EQ("-3", VarValue(static_cast<short>(-3)).getValAsStr());
  EXPECT_EQ("-4", VarValue(-4).getValAsStr());
  EXPECT_EQ("text", VarValue("text").getValAsStr());
  EXPECT_EQ("N/A", VarValue().getValAsStr());
  EXPECT_EQ("2.500000", VarValue(2.5F).getValAsStr());
  EXPECT_EQ("340282346638528859811704183484516925440.000000",
            VarValue(std::numeric_limits<float>::max()).getValAsStr());
  EXPECT_EQ("true", VarValue(true).getValAsStr());
  EXPECT_EQ("false", VarValue(false).getValAsStr());
  EXPECT_EQ("Unknown", withUnknownTag().getValAsStr());
}

TEST(VarValueTest, OnlyTheLowWordOfALongLongIsPrinted) {
  const VarValue value(4294967297LL);
  EXPECT_EQ("1", value.getValAsStr());
  EXPECT_EQ(4294967297LL, value.getLongLongVal());
  EXPECT_EQ("-1", VarValue(4294967295LL).getValAsStr());
  EXPECT_EQ("-2147483648", VarValue(2147483648LL).getValAsStr());
}

TEST(VarValueTest, OctetsPrintTheirPlaceAndLength) {
  const VarValue value = octets("abc");
  char expected[64];
  std::snprintf(expected, sizeof expected, "OctetPtr 0x%08lx, OctetLen 3",
                static_cast<unsigned long>(value.castIntValToLongLong()));
  EXPECT_EQ(expected, value.getValAsStr());
  EXPECT_EQ("OctetPtr 0x00000000, OctetLen 0", octets("").getValAsStr());
}

TEST(VarValueTest, TheRenderingNamesTheType) {
  const std::pair<VarValue, const char*> values[] = {
      {VarValue(static_cast<short>(1)), "VarValueType:short\tVarValue:1"},
      {VarValue(2), "VarValueType:long\tVarValue:2"},
      {VarValue(3LL), "VarValueType:long long\tVarValue:3"},
      {VarValue("four"), "VarValueType:string\tVarValue:four"},
      {VarValue(), "VarValueType:CapabilityType\tVarValue:N/A"},
      {VarValue(5.0F), "VarValueType:float\tVarValue:5.000000"},
      {VarValue(true), "VarValueType:bool\tVarValue:true"},
      {octets(""), "VarValueType:octet\tVarValue:OctetPtr 0x00000000, OctetLen 0"},
  };
  for (const auto& [value, text] : values) EXPECT_EQ(text, value.toString());
  EXPECT_EQ("VarValueType:UnknownType\tVarValue:Unknown", withUnknownTag().toString());
}

TEST(VarValueTest, ACopyOfOctetsOutlivesItsSource) {
  auto source = std::make_unique<VarValue>(octets("abc"));
  const VarValue copy(*source);
  EXPECT_NE(source->getOctetVal(), copy.getOctetVal());
  source.reset();
  EXPECT_EQ("abc", bytesOf(copy));
}

TEST(VarValueTest, ACopyHasTagAndFieldOfItsSource) {
  const VarValue values[] = {VarValue(static_cast<short>(1)),
                             VarValue(2),
                             VarValue(3LL),
                             VarValue("four"),
                             VarValue(),
                             VarValue(5.0F),
                             VarValue(false),
                             octets("sixth")};
  for (const VarValue& value : values) {
    const VarValue copy(value);
    EXPECT_EQ(value.getValType(), copy.getValType());
    EXPECT_TRUE(value == copy) << value.toString();
  }
}

TEST(VarValueTest, OnlyTheFieldOfTheTagTravels) {
  VarValue source("text");
  source.setVal(5);
  VarValue target(7LL);
  target = source;
  EXPECT_EQ(VarValue::VT_Long, target.getValType());
  EXPECT_EQ(5, target.getLongVal());
  EXPECT_EQ("", target.getStrVal());
  EXPECT_EQ(7, target.getLongLongVal());
}

TEST(VarValueTest, ALongAssignedOverOctetsLeavesTheBlockInPlace) {
  VarValue target = octets("abc");
  const void* const block = target.getOctetVal();
  target = VarValue(5);
  EXPECT_EQ(VarValue::VT_Long, target.getValType());
  EXPECT_EQ(block, target.getOctetVal());
  EXPECT_EQ("abc", bytesOf(target));
}

TEST(VarValueTest, ACapabilityAssignedMakesTheValueFresh) {
  VarValue target = octets("abc");
  target.setVal("text");
  target = VarValue();
  EXPECT_EQ(VarValue::VT_Capability, target.getValType());
  expectFreshButForTheTag(target);
}

TEST(VarValueTest, AnAssignmentToItselfChangesNothing) {
  VarValue value = octets("abc");
  const VarValue& same = value;
  value = same;
  EXPECT_EQ("abc", bytesOf(value));
  VarValue capability;
  capability._vStr = "kept";
  const VarValue& sameCapability = capability;
  capability = sameCapability;
  EXPECT_EQ("kept", capability.getStrVal());
}

TEST(VarValueTest, OctetsCanGrowShrinkAndVanish) {
  VarValue value = octets("abc");
  value.setVal("longer than before", 18U);
  EXPECT_EQ("longer than before", bytesOf(value));
  value.setVal("xy", 2U);
  EXPECT_EQ("xy", bytesOf(value));
  value.setVal("xy", 0U);
  EXPECT_EQ(VarValue::VT_Octet, value.getValType());
  EXPECT_EQ(0u, value.getOctetValLen());
  value.setVal(static_cast<const void*>(nullptr), 4U);
  EXPECT_EQ(VarValue::VT_Octet, value.getValType());
  EXPECT_EQ(0u, value.getOctetValLen());
}

TEST(VarValueTest, OctetsMayBeSetFromAPartOfThemselves) {
  VarValue value = octets("0123456789");
  value.setVal(static_cast<const char*>(value.getOctetVal()) + 7, 3U);
  EXPECT_EQ("789", bytesOf(value));
}

TEST(VarValueTest, OctetsMayHoldZeros) {
  const std::string bytes("a\0b", 3);
  EXPECT_EQ(bytes, bytesOf(octets(bytes)));
  EXPECT_FALSE(octets(bytes) == octets(std::string("a\0c", 3)));
}

TEST(VarValueTest, ValuesOfDifferentTagsAreUnequalAndNeitherLessNorGreater) {
  const VarValue values[] = {VarValue(static_cast<short>(1)),
                             VarValue(1),
                             VarValue(1LL),
                             VarValue("1"),
                             VarValue(),
                             VarValue(1.0F),
                             VarValue(true),
                             octets("\x01")};
  for (const VarValue& left : values) {
    for (const VarValue& right : values) {
      if (&left == &right) continue;
      EXPECT_FALSE(left == right);
      EXPECT_FALSE(left < right);
      EXPECT_FALSE(left > right);
    }
  }
}

TEST(VarValueTest, LessAndGreaterReadTheirOperandsTheOtherWayRound) {
  EXPECT_FALSE(VarValue(1) < VarValue(2));
  EXPECT_TRUE(VarValue(2) < VarValue(1));
  const std::pair<VarValue, VarValue> pairs[] = {
      {VarValue(static_cast<short>(-1)), VarValue(static_cast<short>(1))},
      {VarValue(-1), VarValue(1)},
      {VarValue(1LL << 40), VarValue((1LL << 40) + 1)},
      {VarValue("a"), VarValue("b")},
      {VarValue(0.5F), VarValue(0.75F)},
      {VarValue(false), VarValue(true)},
  };
  for (const auto& [low, high] : pairs) {
    SCOPED_TRACE(low.toString());
    EXPECT_FALSE(low < high);
    EXPECT_TRUE(high < low);
    EXPECT_TRUE(low > high);
    EXPECT_FALSE(high > low);
    EXPECT_FALSE(low == high);
    EXPECT_TRUE(low == low);  // NOLINT(misc-redundant-expression)
    EXPECT_FALSE(low < low);  // NOLINT(misc-redundant-expression)
    EXPECT_FALSE(low > low);  // NOLINT(misc-redundant-expression)
  }
}

TEST(VarValueTest, CapabilitiesCompareByTheirText) {
  VarValue low;
  VarValue high;
  EXPECT_TRUE(low == high);
  low._vStr = "a";
  high._vStr = "b";
  EXPECT_FALSE(low == high);
  EXPECT_TRUE(high < low);
  EXPECT_TRUE(low > high);
}

TEST(VarValueTest, OctetsOfOneLengthCompareAsBytesTheRightWayRound) {
  const VarValue low = octets("abc");
  const VarValue high = octets("ab\xff");
  EXPECT_TRUE(low < high);
  EXPECT_FALSE(high < low);
  EXPECT_TRUE(high > low);
  EXPECT_FALSE(low > high);
  EXPECT_FALSE(low == high);
  EXPECT_TRUE(low == octets("abc"));
}

TEST(VarValueTest, OctetsOfDifferentLengthsCompareByLengthTheOtherWayRound) {
  const VarValue brief = octets("z");
  const VarValue lengthy = octets("aa");
  EXPECT_TRUE(lengthy < brief);
  EXPECT_FALSE(brief < lengthy);
  EXPECT_TRUE(brief > lengthy);
  EXPECT_FALSE(lengthy > brief);
  EXPECT_FALSE(brief == lengthy);
}

TEST(VarValueTest, EmptyOctetsAreEqual) {
  EXPECT_TRUE(octets("") == octets(""));
  EXPECT_FALSE(octets("") < octets(""));
  EXPECT_FALSE(octets("") > octets(""));
}

TEST(VarValueTest, AnUnknownTagEqualsNothing) {
  EXPECT_FALSE(withUnknownTag() == withUnknownTag());
  EXPECT_FALSE(withUnknownTag() < withUnknownTag());
  EXPECT_FALSE(withUnknownTag() > withUnknownTag());
}

}  // namespace
}  // namespace zntopo::test
