#include "zntopo/model/IPv6AddrToBin.h"

#include <gtest/gtest.h>

#include <bitset>
#include <sstream>

namespace zntopo::test {

namespace {

/// The bits of eight groups in hexadecimal, made apart from what is tested.
std::string bitsOf(const std::string& groups) {
  std::istringstream words(groups);
  std::string bits;
  for (unsigned group = 0; words >> std::hex >> group;) bits += std::bitset<16>(group).to_string();
  return bits;
}

std::string binOf(const std::string& text) { return IPv6AddrToBin(text).getBinStr(); }

}  // namespace

TEST(IPv6AddrToBinTest, AnEmptyTextHasNoBits) { EXPECT_EQ("", binOf("")); }

TEST(IPv6AddrToBinTest, AnyOtherTextGives128Bits) {
  for (const char* text : {"::", "x", ":", "1", "1:2:3:4:5:6:7:8", "1:2:3:4:5:6:7:8:9:a:b",
                           "not an address at all", "12345::6789abc", ":::::"}) {
    EXPECT_EQ(128U, binOf(text).size()) << text;
  }
}

TEST(IPv6AddrToBinTest, ADoubleColonAloneIsAllZeros) {
  EXPECT_EQ(std::string(128, '0'), binOf("::"));
}

TEST(IPv6AddrToBinTest, ADoubleColonFillsWithZeros) {
  EXPECT_EQ(bitsOf("0 0 0 0 0 0 0 1"), binOf("::1"));
  EXPECT_EQ(bitsOf("1 0 0 0 0 0 0 0"), binOf("1::"));
  EXPECT_EQ(bitsOf("2001 db8 0 0 0 0 0 1"), binOf("2001:db8::1"));
  EXPECT_EQ(bitsOf("2001 db8 1 2 0 0 abcd ef"), binOf("2001:db8:1:2::abcd:ef"));
}

TEST(IPv6AddrToBinTest, AWholeAddressFillsAllGroups) {
  EXPECT_EQ(bitsOf("2001 db8 1 22 333 4444 5 fffe"), binOf("2001:db8:1:22:333:4444:5:fffe"));
}

TEST(IPv6AddrToBinTest, CaseDoesNotMatter) {
  EXPECT_EQ(binOf("fe80::abcd"), binOf("FE80::ABCD"));
  const std::string bits = binOf("FE80::1");
  EXPECT_EQ("1111111010000000", bits.substr(0, 16));
  EXPECT_EQ("0001", bits.substr(124));
}

TEST(IPv6AddrToBinTest, AShortTextIsFilledOnTheRight) {
  EXPECT_EQ(bitsOf("1 2 0 0 0 0 0 0"), binOf("1:2"));
}

TEST(IPv6AddrToBinTest, WhatIsNoHexDigitCountsAsZero) {
  EXPECT_EQ(bitsOf("a 0 0 0 0 0 0 0"), binOf("g00a"));
}

TEST(IPv6AddrToBinTest, ALongGroupGivesItsFirstFourCharacters) {
  EXPECT_EQ(bitsOf("1234 0 0 0 0 0 0 0"), binOf("123456"));
}

TEST(IPv6AddrToBinTest, ADottedTailIsReadAsFourCharacters) {
  // 1 . 2 . of the tail, with zeros for the dots
  EXPECT_EQ(bitsOf("0 0 0 0 0 0 0 1020"), binOf("::1.2.3.4"));
}

TEST(IPv6AddrToBinTest, GroupsBeyondTheEighthAreDropped) {
  EXPECT_EQ(bitsOf("1 2 3 4 5 6 7 8"), binOf("1:2:3:4:5:6:7:8:9:a"));
  EXPECT_EQ(128U, binOf(std::string(1000, '1') + "::" + std::string(1000, '2')).size());
  std::string many = "1";
  for (int i = 0; i < 500; ++i) many += ":1";
  EXPECT_EQ(bitsOf("1 1 1 1 1 1 1 1"), binOf(many));
  EXPECT_EQ(128U, binOf("::" + many).size());
}

TEST(IPv6AddrToBinTest, APrefixIsTheFirstCharacters) {
  EXPECT_EQ("01", IPv6AddrToBin::getBinStrPrefix("0110", 2));
  EXPECT_EQ("0110", IPv6AddrToBin::getBinStrPrefix("0110", 99));
}

}  // namespace zntopo::test
