// Outside bytes as the value of a column, fetched from a real store into a buffer of any width: a
// text is cut to the buffer less one, with info and its full length; NULL leaves zeros.
//
// An input is a letter for the kind of value, the width of the buffer, a line feed, and the value.
// The stores are files in a temporary folder, for the library refuses to open stores in memory.
#include <sqlite3.h>

#include <cerrno>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <limits>
#include <memory>
#include <optional>

#include "fuzz/Fuzz.h"
#include "zntopo/platform/tvdbil/TvDbil.h"
#include "zntopo/platform/tvdbil/detail/BoundColumn.h"
#include "zntopo/platform/tvxpl/Utf8.h"

namespace {

using TvDbil::DbConnection_t;
using TvDbil::DbilReturnCode;
using TvDbil::DbSource_t;
using TvDbil::DbStatement_t;
using TvDbil::MessageList_t;

constexpr int kWidestBuffer = 5000;
constexpr std::size_t kLongestValue = 20000;
/// What stands in a buffer before and behind what a fetch may touch.
constexpr char kUntouched = '\x5A';

/// A store that keeps its texts in one of SQLite's encodings.
class Store {
 public:
  explicit Store(const char* encoding) {
    std::string folder = (std::filesystem::temp_directory_path() / "zntopo-fuzz.XXXXXX").string();
    ZNTOPO_REQUIRE(mkdtemp(folder.data()) != nullptr);
    const std::string path = folder + "/store.db";
    make(path, std::string("pragma encoding='") + encoding + "'; create table made (a)");
    MessageList_t messages;
    const DbSource_t source(messages, path);
    connection_ = std::make_unique<DbConnection_t>(messages, &source);
    ZNTOPO_REQUIRE(connection_->IsValid());
    // Nothing is read from the file any more, so that it need not stay.
    std::filesystem::remove_all(folder);
  }

  DbConnection_t* connection() { return connection_.get(); }

 private:
  static void make(const std::string& path, const std::string& script) {
    sqlite3* database = nullptr;
    ZNTOPO_REQUIRE(sqlite3_open(path.c_str(), &database) == SQLITE_OK);
    ZNTOPO_REQUIRE(sqlite3_exec(database, script.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK);
    sqlite3_close(database);
  }

  std::unique_ptr<DbConnection_t> connection_;
};

Store& utf8Store() {
  static auto* const store = new Store("UTF-8");
  return *store;
}

Store& utf16Store() {
  static auto* const store = new Store("UTF-16le");
  return *store;
}

std::string literalOf(const std::string& bytes) {
  static constexpr char kDigits[] = "0123456789abcdef";
  std::string literal = "x'";
  for (const char c : bytes) {
    literal += kDigits[static_cast<unsigned char>(c) >> 4];
    literal += kDigits[c & 0xF];
  }
  return literal + "'";
}

/// A buffer with room on either side, which nothing may touch.
class Buffer {
 public:
  explicit Buffer(int width) : width_(static_cast<std::size_t>(width)) {
    bytes_.assign(width_ + 2 * kMargin, kUntouched);
  }

  char* begin() { return bytes_.data() + kMargin; }
  int width() const { return static_cast<int>(width_); }
  std::string content(std::size_t length) const { return {bytes_.data() + kMargin, length}; }
  bool isZeroed() const { return content(width_) == std::string(width_, '\0'); }
  bool isMarginUntouched() const {
    const std::string margin(kMargin, kUntouched);
    return std::string(bytes_.data(), kMargin) == margin &&
           std::string(bytes_.data() + kMargin + width_, kMargin) == margin;
  }

 private:
  static constexpr std::size_t kMargin = 16;
  std::size_t width_;
  std::vector<char> bytes_;
};

/// What the buffer must hold for a value.
void checkText(const Buffer& buffer, const std::string& value, DbilReturnCode code, int indicator) {
  const auto room = static_cast<std::size_t>(buffer.width()) - 1;
  const bool fits = value.size() <= room;
  ZNTOPO_REQUIRE(code == (fits ? TvDbil::DBIL_SUCCESS : TvDbil::DBIL_SUCCESS_WITH_INFO));
  ZNTOPO_REQUIRE(indicator == static_cast<int>(value.size()));
  ZNTOPO_REQUIRE(buffer.content(std::min(value.size(), room) + 1) ==
                 value.substr(0, room) + std::string(1, '\0'));
  ZNTOPO_REQUIRE(buffer.isMarginUntouched());
}

/// One row after another into the same variables: the value, NULL, and the value again.
void checkRows(Store& store, const std::string& expression, int width, const std::string& value) {
  MessageList_t messages;
  DbStatement_t statement(messages, store.connection());
  const std::string sql =
      "select " + expression + " union all select null union all select " + expression;
  Buffer buffer(width);
  int indicator = 99;
  ZNTOPO_REQUIRE(statement.BindSql(messages, sql.c_str()) == TvDbil::DBIL_SUCCESS);
  ZNTOPO_REQUIRE(statement.BindColumn(messages, 1, buffer.begin(), &indicator, width) ==
                 TvDbil::DBIL_SUCCESS);
  ZNTOPO_REQUIRE(statement.Exec(messages) == TvDbil::DBIL_SUCCESS);
  DbilReturnCode code = statement.Fetch(messages);
  checkText(buffer, value, code, indicator);
  ZNTOPO_REQUIRE(statement.Fetch(messages) == TvDbil::DBIL_SUCCESS);
  ZNTOPO_REQUIRE(indicator == -1 && buffer.isZeroed() && buffer.isMarginUntouched());
  code = statement.Fetch(messages);
  checkText(buffer, value, code, indicator);
  ZNTOPO_REQUIRE(statement.Fetch(messages) == TvDbil::DBIL_NO_DATA);
}

/// A parameter that comes back as a column; nothing if it was refused.
std::optional<std::string> fetchBound(Store& store, std::string value, int width) {
  MessageList_t messages;
  DbStatement_t statement(messages, store.connection());
  Buffer buffer(width);
  int indicator = 99;
  ZNTOPO_REQUIRE(statement.BindSql(messages, "select ?") == TvDbil::DBIL_SUCCESS);
  ZNTOPO_REQUIRE(statement.BindParm(messages, 1, value.data(), false) == TvDbil::DBIL_SUCCESS);
  ZNTOPO_REQUIRE(statement.BindColumn(messages, 1, buffer.begin(), &indicator, width) ==
                 TvDbil::DBIL_SUCCESS);
  if (statement.Exec(messages) != TvDbil::DBIL_SUCCESS) return std::nullopt;
  const DbilReturnCode code = statement.Fetch(messages);
  const std::string text = value.c_str();
  checkText(buffer, text, code, indicator);
  return text;
}

/// Texts that are UTF-8 come back as they are, whatever the store keeps them in; others are
/// refused.
void checkBound(const std::string& value, int width) {
  const bool isUtf8 = TvXplStr::isUtf8(value.c_str());
  for (Store* store : {&utf8Store(), &utf16Store()}) {
    ZNTOPO_REQUIRE(fetchBound(*store, value, width).has_value() == isUtf8);
  }
}

/// A text in the store's own encoding that may be malformed: whatever it is read as, a narrow
/// buffer gets the beginning of what a wide one gets.
void checkCut(Store& store, const std::string& expression, int width) {
  MessageList_t messages;
  DbStatement_t statement(messages, store.connection());
  const std::string sql = "select " + expression + ", " + expression;
  Buffer wide(4 * static_cast<int>(kLongestValue));
  Buffer narrow(width);
  int full = 99;
  int indicator = 99;
  ZNTOPO_REQUIRE(statement.BindSql(messages, sql.c_str()) == TvDbil::DBIL_SUCCESS);
  statement.BindColumn(messages, 1, wide.begin(), &full, wide.width());
  statement.BindColumn(messages, 2, narrow.begin(), &indicator, width);
  ZNTOPO_REQUIRE(statement.Exec(messages) == TvDbil::DBIL_SUCCESS);
  const DbilReturnCode code = statement.Fetch(messages);
  ZNTOPO_REQUIRE(full >= 0 && full < wide.width());
  const std::string value = wide.content(static_cast<std::size_t>(full));
  checkText(narrow, value, code, indicator);
}

/// True for a text that is a decimal number from its first to its last character.
bool isDecimal(const std::string& text) {
  if (text.empty() || text.find_first_not_of("0123456789.eE-") != std::string::npos) return false;
  char* end = nullptr;
  std::strtod(text.c_str(), &end);
  return end == text.c_str() + text.size();
}

/// A text into a number: the nearest one that fits.
void checkNumber(const std::string& text) {
  int number = 4711;
  float real = 47.11F;
  int indicators[] = {99, 99};
  const TvDbil::detail::BoundColumn asInt{TvDbil::detail::BoundColumn::Int, &number, 0,
                                          &indicators[0]};
  const TvDbil::detail::BoundColumn asFloat{TvDbil::detail::BoundColumn::Float, &real, 0,
                                            &indicators[1]};
  const DbilReturnCode code = TvDbil::detail::storeText(asInt, text);
  TvDbil::detail::storeText(asFloat, text);
  ZNTOPO_REQUIRE(indicators[0] == sizeof number && indicators[1] == sizeof real);
  if (!isDecimal(text)) return;
  using Limits = std::numeric_limits<int>;
  const double value = std::strtod(text.c_str(), nullptr);
  const double fitting = std::fmin(std::fmax(std::trunc(value), Limits::min()), Limits::max());
  ZNTOPO_REQUIRE(number == static_cast<int>(fitting));
  if (fitting != std::trunc(value)) ZNTOPO_REQUIRE(code == TvDbil::DBIL_SUCCESS_WITH_INFO);
  const double most = std::numeric_limits<float>::max();
  ZNTOPO_REQUIRE(real == static_cast<float>(std::fmin(std::fmax(value, -most), most)));
}

/// An integer of 64 bits into a text and into a number.
void checkInteger(const std::string& bytes, int width) {
  long long value = 0;
  std::memcpy(&value, bytes.data(), std::min(bytes.size(), sizeof value));
  if (value == std::numeric_limits<long long>::min()) ++value;
  checkRows(utf8Store(), std::to_string(value), width, std::to_string(value));
}

void checkValue(char kind, int width, const std::string& value) {
  switch (kind) {
    case 't':
      checkRows(utf8Store(), "cast(" + literalOf(value) + " as text)", width, value);
      break;
    case 'b':
      checkRows(utf8Store(), literalOf(value), width, value);
      break;
    case 'w':
      checkCut(utf16Store(), "cast(" + literalOf(value) + " as text)", width);
      break;
    case 'p':
      checkBound(value, width);
      break;
    case 'i':
      checkInteger(value, width);
      break;
    case 'n':
      checkNumber(value);
      break;
    default:
      break;
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string input = zntopo::fuzz::textOf(data, size);
  const std::size_t line = input.find('\n');
  if (line == std::string::npos || line < 2 || size > kLongestValue) return -1;
  const std::string value = input.substr(line + 1);
  const long width = std::strtol(input.substr(1, line - 1).c_str(), nullptr, 10);
  if (width < 1 || width > kWidestBuffer) return -1;
  checkValue(input[0], static_cast<int>(width), value);
  return 0;
}
