#include <arpa/inet.h>

#include <array>
#include <random>
#include <set>

#include "tests/filterlanguage/LanguageTest.h"
#include "tests/support/ApiFixture.h"
#include "zntopo/model/IPv6AddrToBin.h"

/// @file
/// Addresses, patterns and prefixes of both IP versions, at addresses, interfaces and nodes.

namespace zntopo::test {
namespace {

std::string v4(const std::string& content) {
  return "<IPAddress><IPv4>" + content + "</IPv4></IPAddress>";
}
std::string v6(const std::string& content) {
  return "<IPAddress><IPv6>" + content + "</IPv6></IPAddress>";
}
std::string address(const std::string& text) { return "<address>" + text + "</address>"; }
std::string prefix(const std::string& text) { return "<prefix>" + text + "</prefix>"; }

class AddressesTest : public LanguageTest {
 protected:
  void addV6(const std::string& id, const std::string& owner, const std::string& text,
             const Values& more = {}) {
    Values row = {{"AddressType", 2},        {"IPLevel", 6},
                  {"PubV4Address", nullptr}, {"V4Address", nullptr},
                  {"V6Address", text},       {"V6AddressBS", IPv6AddrToBin(text).getBinStr()}};
    for (const auto& [name, value] : more) row.insert_or_assign(name, value);
    store_->addAddress(id, owner, owner + "-node", "", row);
  }
};

ZNTOPO_ON_ENGINES(AddressesTest, kMainEngines);

/// An address of either version as bytes, and how a prefix reads it.
using Bytes = std::vector<unsigned char>;

std::string textOf(const Bytes& bytes) {
  std::array<char, INET6_ADDRSTRLEN> text{};
  inet_ntop(bytes.size() == 4 ? AF_INET : AF_INET6, bytes.data(), text.data(), text.size());
  return text.data();
}

bool isIn(const Bytes& address, const Bytes& network, int length) {
  for (int bit = 0; bit < length; ++bit) {
    const int mask = 0x80 >> (bit % 8);
    if ((address[bit / 8] & mask) != (network[bit / 8] & mask)) return false;
  }
  return true;
}

/// The last or first address of a prefix, or the one beyond.
Bytes edgeOf(const Bytes& network, int length, bool isLast, bool isBeyond) {
  Bytes result = network;
  for (int bit = length; bit < static_cast<int>(result.size()) * 8; ++bit) {
    const int mask = 0x80 >> (bit % 8);
    result[bit / 8] = isLast ? result[bit / 8] | mask : result[bit / 8] & ~mask;
  }
  for (int byte = static_cast<int>(result.size()) - 1; isBeyond && byte >= 0; --byte) {
    const unsigned char before = result[byte];
    result[byte] = isLast ? before + 1 : before - 1;
    if (before != (isLast ? 255 : 0)) break;
  }
  return result;
}

struct Prefix {
  Bytes network;
  int length;
};

/// Prefixes of each length, and addresses at both sides of their edges.
struct Sample {
  std::vector<Prefix> prefixes;
  std::set<Bytes> addresses;
};

Sample sampleOf(std::size_t bytes, int each, unsigned seed) {
  std::mt19937 random(seed);
  Sample sample;
  for (int length = 0; length <= static_cast<int>(bytes) * 8; ++length) {
    for (int i = 0; i < each; ++i) {
      Bytes network(bytes);
      for (unsigned char& byte : network) byte = random() % 4 == 0 ? 0 : random() % 256;
      sample.prefixes.push_back({network, length});
      for (const bool isLast : {false, true}) {
        for (const bool isBeyond : {false, true}) {
          sample.addresses.insert(edgeOf(network, length, isLast, isBeyond));
        }
      }
    }
  }
  return sample;
}

Ids expectedOf(const Sample& sample, const Prefix& prefix) {
  Ids result;
  int number = 0;
  for (const Bytes& address : sample.addresses) {
    if (isIn(address, prefix.network, prefix.length)) result.push_back(uuid(number));
    ++number;
  }
  return result;
}

TEST_P(AddressesTest, AnIPv4PrefixOfAnyLengthSelectsWhatIsInIt) {
  const Sample sample = sampleOf(4, 3, 4);
  int number = 0;
  for (const Bytes& each : sample.addresses) {
    store_->addAddress(uuid(number++), "i", "n", textOf(each));
  }
  std::string filters;
  for (std::size_t i = 0; i < sample.prefixes.size(); ++i) {
    const Prefix& each = sample.prefixes[i];
    filters += addressFilter(v4(prefix(textOf(each.network) + "/" + std::to_string(each.length))),
                             "f" + std::to_string(i));
  }
  parse(document(filters));
  for (std::size_t i = 0; i < sample.prefixes.size(); ++i) {
    EXPECT_EQ(selected("f" + std::to_string(i)), expectedOf(sample, sample.prefixes[i]))
        << filters_.condition("f" + std::to_string(i));
  }
}

TEST_P(AddressesTest, AnIPv6PrefixOfAnyLengthSelectsWhatIsInIt) {
  const Sample sample = sampleOf(16, 1, 6);
  int number = 0;
  for (const Bytes& each : sample.addresses) addV6(uuid(number++), "i", textOf(each));
  std::string filters;
  for (std::size_t i = 0; i < sample.prefixes.size(); ++i) {
    const Prefix& each = sample.prefixes[i];
    filters += addressFilter(v6(prefix(textOf(each.network) + "/" + std::to_string(each.length))),
                             "f" + std::to_string(i));
  }
  parse(document(filters));
  for (std::size_t i = 0; i < sample.prefixes.size(); ++i) {
    EXPECT_EQ(selected("f" + std::to_string(i)), expectedOf(sample, sample.prefixes[i]))
        << filters_.condition("f" + std::to_string(i));
  }
}

TEST_P(AddressesTest, AnIPv6AddressIsFoundInAnySpelling) {
  addV6(uuid(1), "i", "2001:db8::1");
  addV6(uuid(2), "i", "2001:db8::1:0");
  addV6(uuid(3), "i", "::");
  for (const char* spelling : {"2001:db8::1", "2001:DB8::1", "2001:0db8:0:0:0:0:0:1",
                               "2001:0DB8:0000:0000:0000:0000:0000:0001"}) {
    EXPECT_EQ(addresses(v6(address(spelling))), Ids{uuid(1)}) << spelling;
  }
  EXPECT_EQ(addresses(v6(address("::"))), Ids{uuid(3)});
  EXPECT_EQ(addresses(v6(address("0:0:0:0:0:0:0:0"))), Ids{uuid(3)});
  EXPECT_EQ(addresses(v6(address("2001:db8:*"))), (Ids{uuid(1), uuid(2)}));
  EXPECT_EQ(addresses(v6(address("2001:DB8::?"))), Ids{uuid(1)});
}

TEST_P(AddressesTest, ATextThatIsNoAddressFindsNothing) {
  addV6(uuid(1), "i", "2001:db8::1");
  store_->addAddress(uuid(2), "i", "n", "10.0.0.1");
  for (const char* text : {"", " ", ":::", "1::2::3", "1:2:3:4:5:6:7:8:9", "12345::", "g::",
                           "1:2:3:4:5:6:7:", ":1:2:3:4:5:6:7", "2001:db8::1 ", "'"}) {
    EXPECT_EQ(addresses(v6(address(text))), Ids{}) << text;
    EXPECT_EQ(addresses(v4(address(text))), Ids{}) << text;
  }
}

TEST_P(AddressesTest, PublicAddressesAreComparedUnlessARouteDistinguisherIsGiven) {
  const Values mapped = {{"PubV4Address", "198.51.100.7"}, {"RouteDistinguisher", 3}};
  store_->addAddress(uuid(1), "i", "n", "10.0.0.7", mapped);
  store_->addAddress(uuid(2), "i", "n", "10.0.0.7", {{"RouteDistinguisher", 0}});
  const std::string inThree = "<OADId>3</OADId>";
  EXPECT_EQ(addresses(v4(address("198.51.100.7"))), Ids{uuid(1)});
  EXPECT_EQ(addresses(v4(address("10.0.0.7"))), Ids{uuid(2)});
  EXPECT_EQ(addresses(v4(address("10.0.0.7") + inThree)), Ids{uuid(1)});
  EXPECT_EQ(addresses(v4(prefix("10.0.0.0/9") + inThree)), Ids{uuid(1)});
  EXPECT_EQ(addresses(v4(prefix("10.0.0.0/8") + "<OADId>0</OADId>")), Ids{uuid(2)});
  EXPECT_EQ(addresses(v4("<present/>")), (Ids{uuid(1), uuid(2)}));
  addV6(uuid(3), "i", "2001:db8::1", {{"RouteDistinguisher", 3}});
  EXPECT_EQ(addresses(v6("<present/>")), Ids{uuid(3)});
  EXPECT_EQ(addresses(v6(address("2001:db8::1") + inThree)), Ids{uuid(3)});
  EXPECT_EQ(addresses(v6(address("2001:db8::1") + "<OADId>4</OADId>")), Ids{});
}

TEST_P(AddressesTest, NodesAreFoundByTheAddressesThatTheyOwnOrAreManagedThrough) {
  store_->addNode(uuid(1), "owner");
  store_->addNode(uuid(2), "managed",
                  {{"PubV4ManagementAdd", "10.0.0.2"}, {"V4ManagementAddressRD", 5}});
  store_->addNode(uuid(3), "both", {{"PubV4ManagementAdd", "10.0.0.3"}});
  store_->addNode(uuid(4), "none", {{"V4ManagementAddress", "10.0.0.4"}});
  // Two addresses of one node, which must not come twice.
  store_->addInterface(uuid(1, 'b'), uuid(1), "eth0");
  store_->addAddress(uuid(1, 'c'), uuid(1, 'b'), uuid(1), "10.0.0.1");
  store_->addAddress(uuid(2, 'c'), uuid(1, 'b'), uuid(1), "10.0.0.9");
  store_->addInterface(uuid(2, 'b'), uuid(3), "eth0");
  store_->addAddress(uuid(3, 'c'), uuid(2, 'b'), uuid(3), "10.0.0.3");
  EXPECT_EQ(nodes(v4(address("10.0.0.*"))), (Ids{uuid(1), uuid(2), uuid(3)}));
  EXPECT_EQ(nodes(v4(prefix("10.0.0.0/30"))), (Ids{uuid(1), uuid(2), uuid(3)}));
  EXPECT_EQ(nodes(v4(address("10.0.0.2") + "<OADId>5</OADId>")), Ids{uuid(2)});
  EXPECT_EQ(nodes(v4(address("10.0.0.2") + "<OADId>4</OADId>")), Ids{});
  EXPECT_EQ(nodes("<managementAddress><prefix>10.0.0.2/31</prefix></managementAddress>"),
            (Ids{uuid(2), uuid(3)}));
  EXPECT_EQ(nodes("<managementAddress><address>*</address><OADId>5</OADId></managementAddress>"),
            Ids{uuid(2)});
  EXPECT_EQ(nodes("<privateManagementAddress><present/></privateManagementAddress>"), Ids{uuid(4)});
  EXPECT_EQ(nodes("<routeDistinguisher><integer>5</integer></routeDistinguisher>"), Ids{uuid(2)});
  EXPECT_EQ(interfaces(v4(prefix("10.0.0.0/8"))), (Ids{uuid(1, 'b'), uuid(2, 'b')}));
  EXPECT_EQ(interfaces(v4(address("10.0.0.2"))), Ids{});
}

TEST_P(AddressesTest, NamesInTheDnsLeadToNodesInterfacesAndAddresses) {
  store_->addNode(uuid(1), "a");
  store_->addInterface(uuid(1, 'b'), uuid(1), "eth0");
  store_->addAddress(uuid(1, 'c'), uuid(1, 'b'), uuid(1), "",
                     {{"AddressType", 16},
                      {"DNSName", "a.example"},
                      {"V4Address", nullptr},
                      {"PubV4Address", nullptr}});
  const std::string test = "<DNSName><string>*.example</string></DNSName>";
  EXPECT_EQ(nodes(test), Ids{uuid(1)});
  EXPECT_EQ(interfaces(test), Ids{uuid(1, 'b')});
  EXPECT_EQ(addresses(test), Ids{uuid(1, 'c')});
}

}  // namespace
}  // namespace zntopo::test
