// Outside bytes as the text of an IPv6 address: 128 bits whatever it is, those of inet_pton where
// the text is an address, and else those that reading group by group from both ends gives.
#include <arpa/inet.h>

#include <algorithm>
#include <array>
#include <bitset>
#include <cctype>

#include "fuzz/Fuzz.h"
#include "zntopo/model/IPv6AddrToBin.h"

namespace {

using zntopo::IPv6AddrToBin;
using Groups = std::array<unsigned, 8>;

std::string bitsOf(const std::string& text) { return IPv6AddrToBin(text).getBinStr(); }

unsigned valueOf(const std::string& group) {
  const std::string padded = std::string(4 - std::min<std::size_t>(4, group.size()), '0') + group;
  unsigned value = 0;
  for (const char c : padded.substr(0, 4)) {
    const bool isHex = std::isxdigit(static_cast<unsigned char>(c)) != 0;
    value =
        16 * value + (isHex ? static_cast<unsigned>(std::stoi(std::string(1, c), nullptr, 16)) : 0);
  }
  return value;
}

/// The fields up to the first empty one. The end of the text behind a ":" is no field.
std::vector<std::string> untilEmpty(std::vector<std::string> fields) {
  if (fields.back().empty()) fields.pop_back();
  fields.erase(std::find(fields.begin(), fields.end(), ""), fields.end());
  return fields;
}

std::string expectedBits(const std::string& text) {
  Groups groups{};
  std::vector<std::string> fields = zntopo::fuzz::split(text, ':');
  const std::vector<std::string> front = untilEmpty(fields);
  for (std::size_t i = 0; i < std::min(front.size(), groups.size()); ++i) {
    groups[i] = valueOf(front[i]);
  }
  const std::size_t whole = fields.size() - (fields.back().empty() ? 1 : 0);
  if (front.size() < whole) {
    std::reverse(fields.begin(), fields.end());
    const std::vector<std::string> back = untilEmpty(fields);
    for (std::size_t i = 0; i < std::min(back.size(), groups.size()); ++i) {
      groups[groups.size() - 1 - i] = valueOf(back[i]);
    }
  }
  std::string bits;
  for (const unsigned group : groups) bits += std::bitset<16>(group).to_string();
  return bits;
}

std::string bitsOf(const in6_addr& address) {
  std::string bits;
  for (const unsigned char byte : address.s6_addr) bits += std::bitset<8>(byte).to_string();
  return bits;
}

bool isPlain(const std::string& text) {
  return text.find_first_of(std::string(".\0", 2)) == std::string::npos;
}

void checkAgainstSystem(const std::string& text) {
  in6_addr address;
  if (!isPlain(text) || inet_pton(AF_INET6, text.c_str(), &address) != 1) return;
  ZNTOPO_REQUIRE(bitsOf(text) == bitsOf(address));
}

/// The shortest text of any address is read back, a dotted tail apart.
void checkRoundTrip(const std::string& bytes) {
  in6_addr address{};
  std::copy_n(bytes.begin(), std::min(bytes.size(), sizeof address.s6_addr), address.s6_addr);
  char text[INET6_ADDRSTRLEN];
  ZNTOPO_REQUIRE(inet_ntop(AF_INET6, &address, text, sizeof text) != nullptr);
  if (isPlain(text)) ZNTOPO_REQUIRE(bitsOf(text) == bitsOf(address));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text = zntopo::fuzz::textOf(data, size);
  const std::string bits = bitsOf(text);
  ZNTOPO_REQUIRE(bits == (text.empty() ? "" : expectedBits(text)));
  ZNTOPO_REQUIRE(text.empty() || bits.size() == 128);
  std::string upper = text;
  for (char& c : upper) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  ZNTOPO_REQUIRE(bitsOf(upper) == bits);
  const int length = static_cast<int>(size % 160) - 16;
  ZNTOPO_REQUIRE(IPv6AddrToBin::getBinStrPrefix(bits, length) ==
                 bits.substr(0, static_cast<std::size_t>(std::max(length, 0))));
  checkAgainstSystem(text);
  checkRoundTrip(text);
  return 0;
}
