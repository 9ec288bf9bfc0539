// Outside bytes as a statement: the splitter stays within the text, and what it gives is one
// statement each.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "zntopo/platform/tvdbil/detail/SqlText.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  for (const auto& dialect : {TvDbil::detail::kSqliteDialect, TvDbil::detail::kPostgresDialect,
                              TvDbil::detail::kPlainDialect, TvDbil::detail::kBracketDialect}) {
    for (const auto& statement : TvDbil::detail::splitStatements(text, dialect)) {
      if (TvDbil::detail::splitStatements(statement.text, dialect).size() != 1) std::abort();
    }
  }
  TvDbil::detail::isUtf8(text);
  return 0;
}
