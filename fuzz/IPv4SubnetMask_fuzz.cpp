// Outside bytes as a mask and, behind a line feed, an address: prefix lengths count as the octets'
// table says, and masking is the and of 32 bits.
#include <bit>
#include <cstring>

#include "fuzz/Fuzz.h"
#include "fuzz/IPv4Reading.h"
#include "zntopo/model/IPv4Octet.h"
#include "zntopo/model/IPv4SubnetMask.h"

namespace {

using zntopo::IPv4Bytes;
using zntopo::IPv4DecimalStr;
using zntopo::IPv4Octet;
using zntopo::IPv4SubnetMask;
using zntopo::fuzz::bitsOf;
using zntopo::fuzz::maskBits;
using zntopo::fuzz::Octets;
using zntopo::fuzz::octetsOf;

/// The leading ones of an octet that has no other ones, else 0.
int lengthOf(unsigned char octet) {
  const int ones = std::countl_one(octet);
  return (octet << ones & 0xFF) == 0 ? ones : 0;
}

int prefixOf(const Octets& octets) {
  int prefix = 0;
  for (const unsigned char octet : octets) {
    prefix += lengthOf(octet);
    if (lengthOf(octet) < 8) break;
  }
  return prefix;
}

std::string dotted(unsigned bits) {
  std::string text;
  for (int shift = 24; shift >= 0; shift -= 8) {
    text += std::to_string(bits >> shift & 0xFF) + (shift > 0 ? "." : "");
  }
  return text;
}

void checkMask(const std::string& text, const std::string& address) {
  const IPv4SubnetMask mask(text);
  const Octets octets = octetsOf(text);
  ZNTOPO_REQUIRE(mask.getDecimalStr() == dotted(bitsOf(octets)));
  ZNTOPO_REQUIRE(mask.getPrefixLen() == prefixOf(octets));
  ZNTOPO_REQUIRE(mask.getCIDR() == "/" + std::to_string(prefixOf(octets)));
  ZNTOPO_REQUIRE(IPv4SubnetMask(mask.getBytes()).getPrefixLen() == mask.getPrefixLen());
  ZNTOPO_REQUIRE(IPv4SubnetMask(IPv4DecimalStr(text)).getDecimalStr() == mask.getDecimalStr());
  // A mask without a hole is the mask of its length.
  const bool isWhole = bitsOf(octets) == maskBits(mask.getPrefixLen());
  const IPv4SubnetMask ofLength(mask.getPrefixLen());
  ZNTOPO_REQUIRE(isWhole == (ofLength.getDecimalStr() == mask.getDecimalStr()));

  const std::string masked = mask & address;
  ZNTOPO_REQUIRE(masked == dotted(bitsOf(octets) & bitsOf(octetsOf(address))));
  ZNTOPO_REQUIRE((address & mask) == masked);
  ZNTOPO_REQUIRE((mask & masked) == masked);
}

void checkLength(unsigned short length) {
  IPv4SubnetMask mask;
  mask.setPrefixLen(length);
  ZNTOPO_REQUIRE(mask.getPrefixLen() == length);
  ZNTOPO_REQUIRE(mask.getCIDR() == "/" + std::to_string(length));
  ZNTOPO_REQUIRE(mask.getDecimalStr() == dotted(maskBits(length)));
  const IPv4SubnetMask read(mask.getDecimalStr());
  ZNTOPO_REQUIRE(read.getPrefixLen() == (length > 32 ? 0 : length));
}

void checkOctet(int number, const std::string& text) {
  const auto octet = static_cast<unsigned char>(number);
  ZNTOPO_REQUIRE(IPv4Octet::mapOctetToLen(octet) == lengthOf(octet));
  const auto length = static_cast<IPv4Octet::OCTETBITLEN>(number);
  const bool isLength = number >= 0 && number <= 8;
  ZNTOPO_REQUIRE(IPv4Octet::mapLenToOctet(length) == (isLength ? 0xFF00 >> number & 0xFF : 0));
  const IPv4Octet clamped(number);
  ZNTOPO_REQUIRE(lengthOf(clamped) == (number < 0 ? 0 : number > 8 ? 8 : number));
  const long value = std::strtol(text.c_str(), nullptr, 10);
  ZNTOPO_REQUIRE(IPv4Octet(text) == (value >= 0 && value <= 255 ? value : 0));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::vector<std::string> lines =
      zntopo::fuzz::split(zntopo::fuzz::textOf(data, size), '\n');
  checkMask(lines.front(), lines.back());
  int number = 0;
  std::memcpy(&number, data, std::min(size, sizeof number));
  checkLength(static_cast<unsigned short>(number));
  checkLength(static_cast<unsigned short>(number & 0x3F));
  checkOctet(number, lines.front());
  checkOctet(static_cast<signed char>(number), lines.back());
  return 0;
}
