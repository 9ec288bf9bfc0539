#include "zntopo/platform/tvdbil/detail/SqlText.h"

#include <cstddef>

namespace TvDbil::detail {
namespace {

bool isBlank(char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f' || c == '\v';
}

bool isDigit(char c) { return c >= '0' && c <= '9'; }

bool startsName(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' ||
         static_cast<unsigned char>(c) >= 0x80;
}

/// Walks over a text token by token.
class Lexer {
 public:
  Lexer(std::string_view text, const SqlDialect& dialect) : text_(text), dialect_(dialect) {}

  bool atEnd() const { return at_ >= text_.size(); }
  std::size_t position() const { return at_; }
  char current() const { return peek(0); }

  /// Passes one blank or comment; false if there is none here.
  bool passGap() {
    if (!atEnd() && isBlank(current())) {
      ++at_;
      return true;
    }
    return passLineComment() || passBlockComment();
  }

  /// Passes a quoted thing, a name or a single character.
  void passToken() {
    const char c = current();
    if (c == '\'' || c == '"' || (dialect_.foreignQuotes && c == '`')) {
      passQuoted(c, false);
    } else if (dialect_.foreignQuotes && c == '[') {
      passBehind("]");
    } else if (startsName(c)) {
      passName();
    } else if (!(dialect_.dollarQuotes && c == '$' && passDollarQuoted())) {
      ++at_;
    }
  }

 private:
  char peek(std::size_t ahead) const {
    return at_ + ahead < text_.size() ? text_[at_ + ahead] : '\0';
  }

  bool passLineComment() {
    if (current() != '-' || peek(1) != '-') return false;
    const std::size_t end = text_.find_first_of("\r\n", at_);
    at_ = end == std::string_view::npos ? text_.size() : end;
    return true;
  }

  bool passBlockComment() {
    if (current() != '/' || peek(1) != '*') return false;
    at_ += 2;
    for (int depth = 1; depth > 0 && !atEnd(); ++at_) {
      if (current() == '*' && peek(1) == '/') {
        --depth;
        ++at_;
      } else if (dialect_.nestedComments && current() == '/' && peek(1) == '*') {
        ++depth;
        ++at_;
      }
    }
    return true;
  }

  void passBehind(std::string_view mark) {
    const std::size_t found = text_.find(mark, at_);
    at_ = found == std::string_view::npos ? text_.size() : found + mark.size();
  }

  // A doubled quote needs no care: the text ends and the next one begins at once.
  void passQuoted(char quote, bool escapes) {
    for (++at_; !atEnd() && current() != quote; ++at_) {
      if (escapes && current() == '\\') ++at_;
    }
    at_ = at_ < text_.size() ? at_ + 1 : text_.size();
  }

  void passName() {
    const std::size_t start = at_;
    while (!atEnd() && (startsName(current()) || isDigit(current()) || current() == '$')) ++at_;
    const std::string_view name = text_.substr(start, at_ - start);
    if (dialect_.escapeTexts && (name == "E" || name == "e") && current() == '\'') {
      passEscapeText();
    }
  }

  // A text goes on in the same manner in the next line, and right behind a doubled quote.
  void passEscapeText() {
    std::size_t next = at_;
    do {
      at_ = next;
      passQuoted('\'', true);
      next = continuation();
    } while (next != std::string_view::npos);
  }

  std::size_t continuation() {
    const std::size_t end = at_;
    while (!atEnd() && passGap()) {
    }
    const std::size_t next = at_;
    at_ = end;
    const std::string_view gap = text_.substr(end, next - end);
    const bool joined = gap.empty() || gap.find_first_of("\r\n") != std::string_view::npos;
    return joined && next < text_.size() && text_[next] == '\'' ? next : std::string_view::npos;
  }

  bool passDollarQuoted() {
    std::size_t end = at_ + 1;
    if (end < text_.size() && startsName(text_[end])) {
      while (end < text_.size() && (startsName(text_[end]) || isDigit(text_[end]))) ++end;
    }
    if (end >= text_.size() || text_[end] != '$') return false;
    const std::string_view tag = text_.substr(at_, end + 1 - at_);
    at_ = end + 1;
    passBehind(tag);
    return true;
  }

  std::string_view text_;
  const SqlDialect& dialect_;
  std::size_t at_ = 0;
};

}  // namespace

std::vector<SqlStatement> splitStatements(std::string_view text, const SqlDialect& dialect) {
  std::vector<SqlStatement> statements;
  Lexer lexer(text, dialect);
  bool open = false;
  std::size_t start = 0;
  while (!lexer.atEnd()) {
    if (lexer.passGap()) continue;
    if (lexer.current() == ';') {
      open = false;
      lexer.passToken();
      continue;
    }
    if (!open) {
      statements.emplace_back();
      start = lexer.position();
      open = true;
    }
    if (lexer.current() == '?') ++statements.back().parameters;
    lexer.passToken();
    statements.back().text = text.substr(start, lexer.position() - start);
  }
  return statements;
}

}  // namespace TvDbil::detail
