#include "zntopo/model/IPv6AddrToBin.h"

#include <algorithm>
#include <cstdlib>

namespace zntopo {

namespace {

constexpr int kGroups = 8;
constexpr std::size_t kDigits = 4;
constexpr std::size_t kRoom = 100;

}  // namespace

IPv6AddrToBin::IPv6AddrToBin(const std::string& text)
    : hexStr(text), reverseHexStr(text.rbegin(), text.rend()) {
  if (hexStr.empty()) return;
  parseHexStr.reserve(kRoom);
  parseHexStr.assign(kGroups, std::string(kDigits, '0'));
  for (int value = 0; value < 16; ++value) {
    std::string bits;
    for (int bit = 3; bit >= 0; --bit) bits += (value >> bit & 1) != 0 ? '1' : '0';
    binarySet.push_back(bits);
  }
  if (scanGroups(hexStr, frontIdx, false) != 0) scanGroups(reverseHexStr, backIdx, true);
  for (const std::string& group : parseHexStr) binStr += groupToBin(group);
}

std::string IPv6AddrToBin::getBinStrPrefix(const std::string& bin, int len) {
  return bin.substr(0, static_cast<std::size_t>(std::max(len, 0)));
}

int IPv6AddrToBin::scanGroups(const std::string& text, int& index, bool backward) {
  std::size_t start = 0;
  while (true) {
    std::size_t end = text.find(':', start);
    if (end == std::string::npos) {
      if (start >= text.size()) return 0;
      end = text.size();
    }
    if (end == start) return 1;
    std::string group = text.substr(start, end - start);
    if (backward) std::reverse(group.begin(), group.end());
    store(index, group);
    index += backward ? -1 : 1;
    start = end + 1;
  }
}

// What would stand outside the eight groups is dropped: the conversion does not look there.
void IPv6AddrToBin::store(int index, const std::string& group) {
  if (index < 0 || index >= kGroups) return;
  const std::size_t missing = kDigits - std::min(kDigits, group.size());
  parseHexStr[static_cast<std::size_t>(index)] = std::string(missing, '0') + group;
}

std::string IPv6AddrToBin::groupToBin(const std::string& group) const {
  std::string bits;
  for (std::size_t i = 0; i < kDigits; ++i) {
    const char digit[] = {group[i], '\0'};
    bits += binarySet[static_cast<std::size_t>(std::strtol(digit, nullptr, 16))];
  }
  return bits;
}

}  // namespace zntopo
