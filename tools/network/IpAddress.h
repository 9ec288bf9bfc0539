#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zntopo::tools {

/// How far an address reaches; the numbers are those of the store's column V6ScopeType.
enum class AddressScope : int { Unknown = 0, LinkLocal = 1, SiteLocal = 2, Global = 3 };

/// An IPv4 or IPv6 address. A plain value.
class IpAddress {
 public:
  /// Dotted decimal of four parts, or any form of IPv6 text; a zone ("%eth0") is cut off.
  static std::optional<IpAddress> parse(std::string_view text);

  static IpAddress v4(std::uint32_t bits);
  /// The first and the last 64 bits.
  static IpAddress v6(std::uint64_t high, std::uint64_t low);

  bool isV6() const { return isV6_; }
  /// The length in bits: 32 or 128.
  int bits() const { return isV6_ ? 128 : 32; }
  /// The one form that the store keeps: dotted decimal, or the shortest hexadecimal form in
  /// lower case, which never has a full stop in it.
  std::string text() const;
  /// One "0" or "1" a bit.
  std::string bitText() const;
  /// The first bits of the address, the others cleared.
  IpAddress network(int prefixLength) const;

  bool isUnspecified() const;
  bool isLoopback() const;
  AddressScope scope() const;

  friend bool operator==(const IpAddress& left, const IpAddress& right) = default;

 private:
  bool isV6_ = false;
  std::array<std::uint8_t, 16> bytes_{};
};

/// A prefix: the network's address and the number of its bits.
struct IpPrefix {
  IpAddress network;
  int length = 0;

  /// "10.1.0.0/16". Bits behind the length are cleared. Nothing if the text is anything else.
  static std::optional<IpPrefix> parse(std::string_view text);
  std::string text() const { return network.text() + "/" + std::to_string(length); }
  bool contains(const IpAddress& address) const;
  bool isHost() const { return length == network.bits(); }

  friend bool operator==(const IpPrefix& left, const IpPrefix& right) = default;
};

/// The length behind the "/", if it is a number that fits the address.
std::optional<int> parsePrefixLength(std::string_view text, const IpAddress& address);

}  // namespace zntopo::tools
