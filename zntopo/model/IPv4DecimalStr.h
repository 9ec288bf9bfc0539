#pragma once

#include <string>

#include "zntopo/platform/Export.h"

namespace zntopo {

class IPv4Bytes;

/// An IPv4 address or mask in dotted-decimal form; no check. A plain value.
class ZNTOPO_EXPORT IPv4DecimalStr {
 public:
  explicit IPv4DecimalStr(const std::string& text) : _str(text) {}
  explicit IPv4DecimalStr(const IPv4Bytes& bytes);

  std::string data() const { return _str; }

 private:
  std::string _str;
};

}  // namespace zntopo
