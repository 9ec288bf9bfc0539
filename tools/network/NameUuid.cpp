#include "tools/network/NameUuid.h"

#include <uuid/uuid.h>

namespace zntopo::tools {

std::string nameUuid(const std::string& key) {
  // The name space of this project's identifiers. It must never change: every identifier in
  // every store that was imported before hangs on it.
  static constexpr uuid_t kNamespace = {0x6b, 0x0f, 0x9a, 0x5e, 0x2d, 0x41, 0x4c, 0x8b,
                                        0x9e, 0x37, 0x51, 0xc4, 0x0a, 0x7d, 0x1f, 0xe3};
  uuid_t id;
  uuid_generate_sha1(id, kNamespace, key.data(), key.size());
  char text[UUID_STR_LEN];
  uuid_unparse_lower(id, text);
  return text;
}

}  // namespace zntopo::tools
