#include "zntopo/model/IPv4DecimalStr.h"

#include "zntopo/model/IPv4Bytes.h"

namespace zntopo {

IPv4DecimalStr::IPv4DecimalStr(const IPv4Bytes& bytes) {
  for (int i = 0; i < IPv4Bytes::kBYTELEN; ++i) {
    if (i > 0) _str += ".";
    _str += std::to_string(bytes.getByte(i));
  }
}

}  // namespace zntopo
