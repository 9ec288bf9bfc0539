#pragma once

#include <string_view>
#include <vector>

namespace TvDbil::detail {

/// What an engine reads differently from the others when it splits a text into tokens.
struct SqlDialect {
  bool dollarQuotes;    ///< $tag$ ... $tag$ is a text
  bool escapeTexts;     ///< in E'...' a backslash guards the next character
  bool nestedComments;  ///< /* /* */ */ is one comment
  bool foreignQuotes;   ///< `...` and [...] are names
};

inline constexpr SqlDialect kSqliteDialect{false, false, false, true};
inline constexpr SqlDialect kPostgresDialect{true, true, true, false};
inline constexpr SqlDialect kPlainDialect{false, false, false, false};
inline constexpr SqlDialect kBracketDialect{false, false, true, true};

/// One statement of a text, without the comments before it and the semicolon behind it.
struct SqlStatement {
  std::string_view text;
  int parameters = 0;  ///< the number of its "?" marks
};

/// The statements of a text, in order. Semicolons in quotes and comments do not separate, and
/// where there are only blanks and comments between two of them there is no statement. A quote
/// or comment that never ends reaches to the end of the text.
std::vector<SqlStatement> splitStatements(std::string_view text, const SqlDialect& dialect);

}  // namespace TvDbil::detail
