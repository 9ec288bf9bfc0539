#include "tools/network/IpAddress.h"

#include <gtest/gtest.h>

#include "zntopo/model/IPv6AddrToBin.h"

namespace zntopo::tools {
namespace {

std::string canonical(const std::string& text) {
  const auto address = IpAddress::parse(text);
  return address ? address->text() : "none";
}

TEST(IpAddressTest, EveryFormOfAnAddressHasOneText) {
  EXPECT_EQ(canonical("10.1.2.3"), "10.1.2.3");
  EXPECT_EQ(canonical("2001:DB8:0:0::0001"), "2001:db8::1");
  EXPECT_EQ(canonical("::"), "::");
  EXPECT_EQ(canonical("fe80::1%eth0"), "fe80::1");
}

TEST(IpAddressTest, AnIPv6TextNeverHasAFullStop) {
  EXPECT_EQ(canonical("::ffff:1.2.3.4"), "::ffff:102:304");
  EXPECT_EQ(canonical("::1.2.3.4"), "::102:304");
}

TEST(IpAddressTest, OtherTextsAreNoAddresses) {
  for (const char* text : {"", "10.1.2", "10.1.2.256", "1.2.3.4.5", "area10:10.0.0.1", "10.1.2.3%x",
                           "2001:db8:::1", "host", "192.168,10.0"}) {
    EXPECT_EQ(canonical(text), "none") << text;
  }
  EXPECT_EQ(canonical(std::string("10.1.2.3\0x", 10)), "none");
}

TEST(IpAddressTest, PrefixesClearTheBitsBehindTheirLength) {
  EXPECT_EQ(IpPrefix::parse("10.1.2.3/16")->text(), "10.1.0.0/16");
  EXPECT_EQ(IpPrefix::parse("10.1.2.3/0")->text(), "0.0.0.0/0");
  EXPECT_EQ(IpPrefix::parse("10.1.2.3/31")->text(), "10.1.2.2/31");
  EXPECT_EQ(IpPrefix::parse("2001:db8:ffff::1/33")->text(), "2001:db8:8000::/33");
  for (const char* text : {"10.1.2.3", "10.1.2.3/33", "10.1.2.3/-1", "10.1.2.3/", "10.1.2.3/1x",
                           "::/129", "192.168,10.0/24"}) {
    EXPECT_FALSE(IpPrefix::parse(text)) << text;
  }
}

TEST(IpAddressTest, APrefixHoldsItsOwnFamilyOnly) {
  const auto prefix = *IpPrefix::parse("10.1.0.0/16");
  EXPECT_TRUE(prefix.contains(*IpAddress::parse("10.1.255.255")));
  EXPECT_FALSE(prefix.contains(*IpAddress::parse("10.2.0.0")));
  EXPECT_FALSE(IpPrefix::parse("0.0.0.0/0")->contains(*IpAddress::parse("::1")));
}

TEST(IpAddressTest, ScopesAreThoseOfTheStore) {
  EXPECT_EQ(IpAddress::parse("fe80::1")->scope(), AddressScope::LinkLocal);
  EXPECT_EQ(IpAddress::parse("fec0::1")->scope(), AddressScope::SiteLocal);
  EXPECT_EQ(IpAddress::parse("2001:db8::1")->scope(), AddressScope::Global);
  EXPECT_EQ(IpAddress::parse("10.0.0.1")->scope(), AddressScope::Unknown);
}

TEST(IpAddressTest, TheBitsAreThoseThatTheLibraryReadsFromTheText) {
  for (const char* text : {"2001:db8::1", "fe80::1", "::", "1::", "1:2:3:4:5:6:7:8"}) {
    EXPECT_EQ(IpAddress::parse(text)->bitText(), IPv6AddrToBin(text).getBinStr()) << text;
  }
}

}  // namespace
}  // namespace zntopo::tools
