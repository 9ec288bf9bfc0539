#pragma once

#include "zntopo/model/IPv4DecimalStr.h"
#include "zntopo/platform/Export.h"

namespace zntopo {

/// Four bytes, the most significant first. A plain value.
class ZNTOPO_EXPORT IPv4Bytes {
 public:
  static constexpr int kBYTELEN = 4;

  IPv4Bytes() = default;
  /// The mask of a prefix length; all zero for a length outside 1 to 32.
  explicit IPv4Bytes(int prefixLen) { setPrefixLen(prefixLen); }
  /// The bytes of a dotted text. There is no check: a field is truncated to 8 bits, and where a
  /// dot is missing the rest stays zero.
  explicit IPv4Bytes(const IPv4DecimalStr& text);

  void setPrefixLen(int prefixLen);
  /// 0 for an index outside 0 to 3.
  unsigned char getByte(int i) const { return i >= 0 && i < kBYTELEN ? _bytes[i] : 0; }

  unsigned char _bytes[kBYTELEN] = {0, 0, 0, 0};
};

}  // namespace zntopo
