#pragma once

#include <cstdint>
#include <string>

#include "zntopo/model/IPv4Bytes.h"
#include "zntopo/model/IPv4DecimalStr.h"
#include "zntopo/platform/Export.h"

namespace zntopo {

/// An IPv4 subnet mask: its bytes and its prefix length. Masks are not validated: the bytes stay
/// as they are given, and the first hole or junk ends the count. A plain value.
class ZNTOPO_EXPORT IPv4SubnetMask {
 public:
  IPv4SubnetMask() = default;
  explicit IPv4SubnetMask(const std::string& text);
  explicit IPv4SubnetMask(const IPv4DecimalStr& text);
  explicit IPv4SubnetMask(const IPv4Bytes& bytes);
  explicit IPv4SubnetMask(unsigned short prefixLen) { setPrefixLen(prefixLen); }

  /// The length is stored as it is; beyond 32 the bytes are zero.
  void setPrefixLen(unsigned short prefixLen);
  unsigned short getPrefixLen() const { return _prefixLen; }
  /// "/" and the prefix length.
  std::string getCIDR() const;
  std::string getDecimalStr() const;
  const IPv4Bytes& getBytes() const { return _ipv4bytes; }

 private:
  void calcPrefix();

  IPv4Bytes _ipv4bytes;
  std::uint16_t _prefixLen = 0;
};

/// The address masked, in dotted-decimal form.
ZNTOPO_EXPORT std::string operator&(const IPv4SubnetMask& mask, const std::string& address);
ZNTOPO_EXPORT std::string operator&(const std::string& address, const IPv4SubnetMask& mask);

}  // namespace zntopo
