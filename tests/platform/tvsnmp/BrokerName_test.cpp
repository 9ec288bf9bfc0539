#include "zntopo/platform/tvsnmp/detail/BrokerName.h"

#include <gtest/gtest.h>

namespace {

using tvsnmp::BrokerName;
using tvsnmp::parseBrokerName;

TEST(BrokerNameTest, AHostAloneHasTheUsualPort) {
  const auto plain = parseBrokerName("mqtt://broker");
  ASSERT_TRUE(plain);
  EXPECT_EQ(plain->host, "broker");
  EXPECT_EQ(plain->port, 1883);
  EXPECT_FALSE(plain->isSecure);
  EXPECT_EQ(plain->user, "");
  const auto secure = parseBrokerName("mqtts://broker/");
  ASSERT_TRUE(secure);
  EXPECT_EQ(secure->host, "broker");
  EXPECT_EQ(secure->port, 8883);
  EXPECT_TRUE(secure->isSecure);
}

TEST(BrokerNameTest, UserPasswordAndPortAreRead) {
  const auto name = parseBrokerName("mqtt://ann:p%40ss:w%25rd@10.0.0.1:1884");
  ASSERT_TRUE(name);
  EXPECT_EQ(name->user, "ann");
  EXPECT_EQ(name->password, "p@ss:w%rd");
  EXPECT_EQ(name->host, "10.0.0.1");
  EXPECT_EQ(name->port, 1884);
}

TEST(BrokerNameTest, AUserNeedsNoPassword) {
  const auto name = parseBrokerName("mqtt://ann@broker");
  ASSERT_TRUE(name);
  EXPECT_EQ(name->user, "ann");
  EXPECT_EQ(name->password, "");
}

TEST(BrokerNameTest, AnIPv6AddressStandsInBrackets) {
  const auto name = parseBrokerName("mqtt://[::1]:1885");
  ASSERT_TRUE(name);
  EXPECT_EQ(name->host, "::1");
  EXPECT_EQ(name->port, 1885);
}

class MalformedBrokerNameTest : public testing::TestWithParam<const char*> {};

TEST_P(MalformedBrokerNameTest, IsRefused) { EXPECT_FALSE(parseBrokerName(GetParam())); }

INSTANTIATE_TEST_SUITE_P(Names, MalformedBrokerNameTest,
                         testing::Values("", "broker", "http://broker", "mqtt:/broker", "mqtt://",
                                         "mqtt://broker:", "mqtt://broker:0", "mqtt://broker:65536",
                                         "mqtt://broker:1x", "mqtt://broker:-1", "mqtt://@broker",
                                         "mqtt://:pass@broker", "mqtt://a%4@broker",
                                         "mqtt://a%zz@broker", "mqtt://a%00@broker",
                                         "mqtt://broker/path", "mqtt://broker?x=1", "mqtt://a b",
                                         "mqtt://[::1", "mqtt://[::1]x", "mqtt://[]", "mqtt://%"));

}  // namespace
