// Outside bytes as a statement: the splitter stays within the text, and what it gives is one
// statement each; a text is UTF-8 exactly if each of its characters has its shortest form.
#include "fuzz/Fuzz.h"
#include "zntopo/platform/tvdbil/detail/SqlText.h"
#include "zntopo/platform/tvxpl/Utf8.h"

namespace {

using TvDbil::detail::splitStatements;
using TvDbil::detail::SqlDialect;

constexpr SqlDialect kDialects[] = {TvDbil::detail::kSqliteDialect,
                                    TvDbil::detail::kPostgresDialect, TvDbil::detail::kPlainDialect,
                                    TvDbil::detail::kBracketDialect};

void checkStatements(std::string_view text, const SqlDialect& dialect) {
  const char* behind = text.data();
  for (const auto& statement : splitStatements(text, dialect)) {
    ZNTOPO_REQUIRE(!statement.text.empty() && statement.text.data() >= behind);
    behind = statement.text.data() + statement.text.size();
    ZNTOPO_REQUIRE(behind <= text.data() + text.size());
    const auto again = splitStatements(statement.text, dialect);
    ZNTOPO_REQUIRE(again.size() == 1 && again.front().text == statement.text);
    ZNTOPO_REQUIRE(again.front().parameters == statement.parameters);
  }
}

/// The character at the beginning of a text, and its length; 0 if there is none.
std::size_t decode(std::string_view text, unsigned& character) {
  const auto lead = static_cast<unsigned char>(text[0]);
  const std::size_t length = lead < 0x80   ? 1
                             : lead < 0xC0 ? 0
                             : lead < 0xE0 ? 2
                             : lead < 0xF0 ? 3
                                           : 4;
  if (lead >= 0xF8 || length == 0 || text.size() < length) return 0;
  character = length == 1 ? lead : lead & (0x7FU >> length);
  for (std::size_t i = 1; i < length; ++i) {
    const auto next = static_cast<unsigned char>(text[i]);
    if ((next & 0xC0) != 0x80) return 0;
    character = character << 6 | (next & 0x3F);
  }
  return length;
}

bool isUtf8(std::string_view text) {
  constexpr unsigned kLeast[] = {0, 0, 0x80, 0x800, 0x10000};
  while (!text.empty()) {
    unsigned character = 0;
    const std::size_t length = decode(text, character);
    const bool isSurrogate = character >= 0xD800 && character < 0xE000;
    if (length == 0 || character < kLeast[length] || character > 0x10FFFF || isSurrogate) {
      return false;
    }
    text.remove_prefix(length);
  }
  return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  for (const SqlDialect& dialect : kDialects) checkStatements(text, dialect);
  ZNTOPO_REQUIRE(TvXplStr::isUtf8(text) == isUtf8(text));
  return 0;
}
