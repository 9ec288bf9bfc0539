#include "tools/network/IpAddress.h"

#include <arpa/inet.h>

#include <algorithm>
#include <charconv>
#include <cstdio>

namespace zntopo::tools {

std::optional<IpAddress> IpAddress::parse(std::string_view text) {
  const std::string plain(text.substr(0, text.find('%')));
  if (plain.size() != text.size() && plain.find(':') == std::string::npos) return std::nullopt;
  // A text that holds a NUL would be read only up to it.
  if (plain.find('\0') != std::string::npos) return std::nullopt;
  IpAddress address;
  if (inet_pton(AF_INET, plain.c_str(), address.bytes_.data()) == 1) return address;
  address.isV6_ = true;
  if (inet_pton(AF_INET6, plain.c_str(), address.bytes_.data()) == 1) return address;
  return std::nullopt;
}

IpAddress IpAddress::v4(std::uint32_t bits) {
  IpAddress address;
  for (int i = 0; i < 4; ++i) address.bytes_[i] = static_cast<std::uint8_t>(bits >> (24 - 8 * i));
  return address;
}

IpAddress IpAddress::v6(std::uint64_t high, std::uint64_t low) {
  IpAddress address;
  address.isV6_ = true;
  for (int i = 0; i < 8; ++i) {
    address.bytes_[i] = static_cast<std::uint8_t>(high >> (56 - 8 * i));
    address.bytes_[8 + i] = static_cast<std::uint8_t>(low >> (56 - 8 * i));
  }
  return address;
}

std::string IpAddress::text() const {
  char buffer[INET6_ADDRSTRLEN] = "";
  inet_ntop(isV6_ ? AF_INET6 : AF_INET, bytes_.data(), buffer, sizeof buffer);
  std::string text = buffer;
  if (!isV6_ || text.find('.') == std::string::npos) return text;
  // The library takes a text with a full stop for a name, so an IPv4 tail is written in groups.
  char groups[10] = "";
  std::snprintf(groups, sizeof groups, "%x:%x", bytes_[12] * 256 + bytes_[13],
                bytes_[14] * 256 + bytes_[15]);
  return text.substr(0, text.rfind(':') + 1) + groups;
}

std::string IpAddress::bitText() const {
  std::string result;
  for (int bit = 0; bit < bits(); ++bit) {
    result += (bytes_[bit / 8] >> (7 - bit % 8)) & 1 ? '1' : '0';
  }
  return result;
}

IpAddress IpAddress::network(int prefixLength) const {
  IpAddress result = *this;
  for (int bit = std::max(prefixLength, 0); bit < bits(); ++bit) {
    result.bytes_[bit / 8] &= static_cast<std::uint8_t>(~(0x80 >> bit % 8));
  }
  return result;
}

bool IpAddress::isUnspecified() const {
  return std::all_of(bytes_.begin(), bytes_.end(), [](std::uint8_t byte) { return byte == 0; });
}

bool IpAddress::isLoopback() const {
  if (!isV6_) return bytes_[0] == 127;
  return bytes_[15] == 1 &&
         std::all_of(bytes_.begin(), bytes_.end() - 1, [](std::uint8_t byte) { return byte == 0; });
}

AddressScope IpAddress::scope() const {
  if (!isV6_) return AddressScope::Unknown;
  if (bytes_[0] == 0xfe && (bytes_[1] & 0xc0) == 0x80) return AddressScope::LinkLocal;
  if (bytes_[0] == 0xfe && (bytes_[1] & 0xc0) == 0xc0) return AddressScope::SiteLocal;
  return AddressScope::Global;
}

std::optional<int> parsePrefixLength(std::string_view text, const IpAddress& address) {
  int length = 0;
  const char* const end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, length);
  if (error != std::errc() || rest != end || length < 0 || length > address.bits()) {
    return std::nullopt;
  }
  return length;
}

std::optional<IpPrefix> IpPrefix::parse(std::string_view text) {
  const std::size_t slash = text.find('/');
  if (slash == std::string_view::npos) return std::nullopt;
  const auto address = IpAddress::parse(text.substr(0, slash));
  if (!address) return std::nullopt;
  const auto length = parsePrefixLength(text.substr(slash + 1), *address);
  if (!length) return std::nullopt;
  return IpPrefix{address->network(*length), *length};
}

bool IpPrefix::contains(const IpAddress& address) const {
  return address.isV6() == network.isV6() && address.network(length) == network;
}

}  // namespace zntopo::tools
