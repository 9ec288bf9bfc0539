// Outside bytes as a dotted IPv4 text, and as a prefix length: the bytes are those of inet_pton
// where the text is an address, and else those that its fields begin with.
#include <arpa/inet.h>

#include <algorithm>
#include <cstring>

#include "fuzz/Fuzz.h"
#include "fuzz/IPv4Reading.h"
#include "zntopo/model/IPv4Bytes.h"
#include "zntopo/model/IPv4DecimalStr.h"

namespace {

using zntopo::IPv4Bytes;
using zntopo::IPv4DecimalStr;
using zntopo::fuzz::Octets;

Octets octetsOf(const IPv4Bytes& bytes) {
  Octets octets{};
  for (int i = 0; i < IPv4Bytes::kBYTELEN; ++i) {
    octets[static_cast<std::size_t>(i)] = bytes.getByte(i);
  }
  return octets;
}

Octets systemOctets(const std::string& text, bool& isAddress) {
  Octets octets{};
  isAddress =
      text.find('\0') == std::string::npos && inet_pton(AF_INET, text.c_str(), octets.data()) == 1;
  return octets;
}

void checkText(const std::string& text) {
  const IPv4Bytes bytes{IPv4DecimalStr(text)};
  ZNTOPO_REQUIRE(IPv4DecimalStr(text).data() == text);
  ZNTOPO_REQUIRE(octetsOf(bytes) == zntopo::fuzz::octetsOf(text));
  bool isAddress = false;
  const Octets told = systemOctets(text, isAddress);
  if (isAddress) ZNTOPO_REQUIRE(octetsOf(bytes) == told);
  // What was read is written as an address, which is read as the same.
  const std::string written = IPv4DecimalStr(bytes).data();
  ZNTOPO_REQUIRE(systemOctets(written, isAddress) == octetsOf(bytes) && isAddress);
  ZNTOPO_REQUIRE(octetsOf(IPv4Bytes(IPv4DecimalStr(written))) == octetsOf(bytes));
}

void checkLength(int length) {
  const IPv4Bytes bytes(length);
  ZNTOPO_REQUIRE(zntopo::fuzz::bitsOf(octetsOf(bytes)) == zntopo::fuzz::maskBits(length));
  IPv4Bytes again(32);
  again.setPrefixLen(length);
  ZNTOPO_REQUIRE(octetsOf(again) == octetsOf(bytes));
  const bool isInside = length >= 0 && length < IPv4Bytes::kBYTELEN;
  ZNTOPO_REQUIRE(isInside || bytes.getByte(length) == 0);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  checkText(zntopo::fuzz::textOf(data, size));
  int length = 0;
  std::memcpy(&length, data, std::min(size, sizeof length));
  checkLength(length);
  checkLength(static_cast<signed char>(length));
  return 0;
}
