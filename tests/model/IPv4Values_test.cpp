#include <gtest/gtest.h>

#include "zntopo/model/IPv4Bytes.h"
#include "zntopo/model/IPv4DecimalStr.h"
#include "zntopo/model/IPv4Octet.h"
#include "zntopo/model/IPv4SubnetMask.h"

namespace zntopo::test {

namespace {

std::string textOf(const IPv4Bytes& bytes) { return IPv4DecimalStr(bytes).data(); }
std::string bytesOf(const std::string& text) { return textOf(IPv4Bytes(IPv4DecimalStr(text))); }
int prefixOf(const std::string& mask) { return IPv4SubnetMask(mask).getPrefixLen(); }

constexpr int kOctets[] = {0, 128, 192, 224, 240, 248, 252, 254, 255};

}  // namespace

TEST(IPv4OctetTest, LengthsAndBoundariesMapBothWays) {
  for (int length = 1; length <= 8; ++length) {
    EXPECT_EQ(kOctets[length], IPv4Octet::mapLenToOctet(IPv4Octet::OCTETBITLEN(length)));
    EXPECT_EQ(length, IPv4Octet::mapOctetToLen(static_cast<unsigned char>(kOctets[length])));
  }
  EXPECT_EQ(0, IPv4Octet::mapLenToOctet(IPv4Octet::eZERO));
  EXPECT_EQ(0, IPv4Octet::mapLenToOctet(IPv4Octet::OCTETBITLEN(9)));
}

TEST(IPv4OctetTest, BytesThatAreNoBoundaryHaveLengthZero) {
  for (const int byte : {0, 1, 127, 129, 193, 250}) {
    EXPECT_EQ(IPv4Octet::eZERO, IPv4Octet::mapOctetToLen(static_cast<unsigned char>(byte))) << byte;
  }
}

TEST(IPv4OctetTest, LengthsAreClampedToZeroAndEight) {
  EXPECT_EQ(255, IPv4Octet(9));
  EXPECT_EQ(255, IPv4Octet(1000));
  EXPECT_EQ(0, IPv4Octet(-1));
  EXPECT_EQ(224, IPv4Octet(3));
}

TEST(IPv4OctetTest, TextsOutsideAByteGiveAFixedValue) {
  EXPECT_EQ(0, IPv4Octet(std::string("0")));
  EXPECT_EQ(255, IPv4Octet(std::string("255")));
  EXPECT_EQ(0, IPv4Octet(std::string("256")));
  EXPECT_EQ(0, IPv4Octet(std::string("-1")));
}

TEST(IPv4BytesTest, PrefixLengthsFillFromTheLeft) {
  EXPECT_EQ("128.0.0.0", textOf(IPv4Bytes(1)));
  EXPECT_EQ("255.0.0.0", textOf(IPv4Bytes(8)));
  EXPECT_EQ("255.128.0.0", textOf(IPv4Bytes(9)));
  EXPECT_EQ("255.255.0.0", textOf(IPv4Bytes(16)));
  EXPECT_EQ("255.255.254.0", textOf(IPv4Bytes(23)));
  EXPECT_EQ("255.255.255.128", textOf(IPv4Bytes(25)));
  EXPECT_EQ("255.255.255.255", textOf(IPv4Bytes(32)));
}

TEST(IPv4BytesTest, LengthsOutsideOneToThirtyTwoAreAllZero) {
  for (const int length : {0, -1, 33, 1000}) {
    EXPECT_EQ("0.0.0.0", textOf(IPv4Bytes(length))) << length;
  }
  IPv4Bytes bytes(32);
  bytes.setPrefixLen(33);
  EXPECT_EQ("0.0.0.0", textOf(bytes));
}

TEST(IPv4BytesTest, AByteOutsideTheFourIsZero) {
  const IPv4Bytes bytes(32);
  EXPECT_EQ(0, bytes.getByte(-1));
  EXPECT_EQ(255, bytes.getByte(0));
  EXPECT_EQ(255, bytes.getByte(3));
  EXPECT_EQ(0, bytes.getByte(4));
}

TEST(IPv4BytesTest, TheFieldBeforeAMissingDotIsNotStored) {
  EXPECT_EQ("10.0.0.0", bytesOf("10.1"));
  EXPECT_EQ("0.0.0.0", bytesOf("10"));
  EXPECT_EQ("0.0.0.0", bytesOf(""));
  EXPECT_EQ("10.1.2.0", bytesOf("10.1.2."));
}

TEST(IPv4BytesTest, FieldsAreNeitherCheckedNorBounded) {
  EXPECT_EQ("0.1.1.1", bytesOf("256.1.1.1"));
  EXPECT_EQ("10.1.2.3", bytesOf("10x.1y.2z.3 and more"));
  EXPECT_EQ("0.0.0.0", bytesOf("a.b.c.d"));
}

TEST(IPv4SubnetMaskTest, AMaskOfTextHasItsPrefixLength) {
  const IPv4SubnetMask mask(std::string("255.255.255.0"));
  EXPECT_EQ(24, mask.getPrefixLen());
  EXPECT_EQ("/24", mask.getCIDR());
}

TEST(IPv4SubnetMaskTest, AMaskOfALengthHasItsText) {
  EXPECT_EQ("255.255.255.0", IPv4SubnetMask(static_cast<unsigned short>(24)).getDecimalStr());
  EXPECT_EQ("0.0.0.0", IPv4SubnetMask(static_cast<unsigned short>(0)).getDecimalStr());
  EXPECT_EQ("0.0.0.0", IPv4SubnetMask().getDecimalStr());
  EXPECT_EQ("/0", IPv4SubnetMask().getCIDR());
}

TEST(IPv4SubnetMaskTest, AHoleEndsTheCountAndTheBytesStay) {
  const IPv4SubnetMask mask(std::string("255.255.0.255"));
  EXPECT_EQ(16, mask.getPrefixLen());
  EXPECT_EQ(255, mask.getBytes().getByte(3));
  EXPECT_EQ(16, prefixOf("255.255.129.0"));
  EXPECT_EQ(8, prefixOf("255.0.255.0"));
  EXPECT_EQ(0, prefixOf("0.255.255.255"));
  EXPECT_EQ(32, prefixOf("255.255.255.255"));
}

TEST(IPv4SubnetMaskTest, EachWayOfMakingItCountsAlike) {
  EXPECT_EQ(20, IPv4SubnetMask(IPv4DecimalStr("255.255.240.0")).getPrefixLen());
  EXPECT_EQ(20, IPv4SubnetMask(IPv4Bytes(20)).getPrefixLen());
}

TEST(IPv4SubnetMaskTest, ALengthBeyondTheAddressIsKeptWithoutBytes) {
  IPv4SubnetMask mask;
  mask.setPrefixLen(33);
  EXPECT_EQ(33, mask.getPrefixLen());
  EXPECT_EQ("0.0.0.0", mask.getDecimalStr());
}

TEST(IPv4SubnetMaskTest, AnAddressIsMaskedFromEitherSide) {
  const IPv4SubnetMask mask(static_cast<unsigned short>(16));
  EXPECT_EQ("10.1.0.0", mask & std::string("10.1.2.3"));
  EXPECT_EQ("10.1.0.0", std::string("10.1.2.3") & mask);
}

}  // namespace zntopo::test
