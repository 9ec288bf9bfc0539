// Outside bytes as the text of a pattern, an exact text and an address, in the language of filters
// that is installed. Each becomes a literal with that very text, or a concatenation of some, in a
// condition that is else the one of a harmless text, and SQLite takes the statement.
#include "fuzz/EmptyStore.h"
#include "fuzz/FilterFolder.h"
#include "zntopo/core/ZNTopoStatus.h"
#include "zntopo/filter/FilterNamespace.h"
#include "zntopo/filter/TopoFiltHandler.h"
#include "zntopo/filter/TopoFiltSql.h"
#include "zntopo/filter/XMLUtil.h"
#include "zntopo/platform/tvxpl/Utf8.h"

namespace {

using namespace zntopo;

/// What no column holds is not looked for any more.
constexpr std::size_t kLongestText = 2000;

/// Where a document takes any text.
struct Place {
  const char* name;
  const char* before;
  const char* after;
  bool isPattern;
};

constexpr Place kPlaces[] = {
    {"string", "<name><string>", "</string></name>", true},
    {"exact", "<name><exact>", "</exact></name>", false},
    {"address", "<IPAddress><IPv4><address>", "</address></IPv4></IPAddress>", true},
};

/// The bytes as characters of XML: what is no UTF-8 stands for a character each, and what XML does
/// not have is left out.
std::string textOf(std::string_view bytes) {
  std::string text;
  while (!bytes.empty()) {
    const std::size_t length = TvXplStr::sequenceLength(bytes);
    const auto first = static_cast<unsigned char>(bytes.front());
    if (length == 0) {
      text += static_cast<char>(0xC0 | first >> 6);
      text += static_cast<char>(0x80 | (first & 0x3F));
    } else if (const std::string_view one = bytes.substr(0, length);
               (first >= ' ' || first == '\t' || first == '\n' || first == '\r') &&
               one != "\uFFFE" && one != "\uFFFF") {
      text += one;
    }
    bytes.remove_prefix(length == 0 ? 1 : length);
  }
  return text;
}

std::string escaped(const std::string& text) {
  std::string xml;
  for (const char c : text) {
    switch (c) {
      case '<':
      case '>':
      case '&':
      case '\r':
        xml += "&#" + std::to_string(c) + ";";
        break;
      default:
        xml += c;
    }
  }
  return xml;
}

/// A text as LIKE reads it, with "!" to escape.
std::string likeOf(const std::string& text) {
  std::string pattern;
  for (const char c : text) {
    if (c == '!' || c == '%' || c == '_') pattern += '!';
    pattern += c == '*' ? '%' : c == '?' ? '_' : c;
  }
  return pattern;
}

bool hasWildcards(const std::string& text) { return text.find_first_of("*?") != std::string::npos; }

/// Reads a condition piece by piece; nothing but what is expected may stand in it.
class Reader {
 public:
  explicit Reader(std::string_view rest) : rest_(rest) {}
  bool isAtEnd() const { return rest_.empty(); }

  void expect(std::string_view piece) { ZNTOPO_REQUIRE(skip(piece)); }

  /// The text that a literal stands for, or a concatenation in parentheses.
  std::string text() {
    if (skip("chr( 35 )")) return "#";
    if (!skip("( ")) return literal();
    std::string joined = text();
    while (skip(" || ")) joined += text();
    expect(" )");
    return joined;
  }

 private:
  bool skip(std::string_view piece) {
    const bool isThere = rest_.substr(0, piece.size()) == piece;
    if (isThere) rest_.remove_prefix(piece.size());
    return isThere;
  }

  std::string literal() {
    expect("'");
    std::string value;
    for (;;) {
      const std::size_t end = rest_.find('\'');
      ZNTOPO_REQUIRE(end != std::string_view::npos);
      value += rest_.substr(0, end);
      rest_.remove_prefix(end + 1);
      if (!skip("'")) break;
      value += '\'';
    }
    for (const char* special : {"#", " NODE.", " IF.", " ADDR."}) {
      ZNTOPO_REQUIRE(value.find(special) == std::string::npos);
    }
    return value;
  }

  std::string_view rest_;
};

/// The filters of a document with the text in each place.
class Filters : TopoFiltHandler {
 public:
  explicit Filters(const std::string& text) {
    std::string xml = std::string("<filters xmlns=\"") + kTopologyFilterNamespace + "\">";
    for (const Place& place : kPlaces) {
      xml += std::string("<nodeAssertion name=\"") + place.name +
             "\"><operator oper=\"NOOP\"><attribute>" + place.before + escaped(text) + place.after +
             "</attribute></operator></nodeAssertion>";
    }
    TvXplMsg::MessageList_t list;
    const int status = ParseXmlString(list, xml + "</filters>");
    if (status != ZN_API_SUCCESS) {
      std::fprintf(stderr, "%s\n", list.Format(TvXplMsg::fRecurse_k).c_str());
    }
    ZNTOPO_REQUIRE(status == ZN_API_SUCCESS);
  }

  const TopoFilt& at(const Place& place) const { return m_FiltMap.at(place.name); }
};

/// Holds a condition against that of a harmless text, which has literals of it alone.
void compare(const std::string& condition, const std::string& value, const std::string& harmless,
             const std::string& harmlessLiteral) {
  Reader reader(condition);
  std::size_t begin = 0;
  for (;;) {
    const std::size_t end = harmless.find(harmlessLiteral, begin);
    reader.expect(std::string_view(harmless).substr(begin, end - begin));
    if (end == std::string::npos) break;
    ZNTOPO_REQUIRE(reader.text() == value);
    begin = end + harmlessLiteral.size();
  }
  ZNTOPO_REQUIRE(begin > 0 && reader.isAtEnd());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const fuzz::FilterFolder folder(ZNTOPO_SOURCE_DIR "/data/filter");
  // Keeps the libraries started.
  static bool isStarted = false;
  static std::string error;
  static const XMLUtil keeper(isStarted, error);
  ZNTOPO_REQUIRE(isStarted);
  static fuzz::EmptyStore store;
  static const Filters plain("ab");
  static const Filters wild("a*b");

  const std::string text = textOf(fuzz::textOf(data, size));
  if (size > kLongestText || text.empty()) return -1;
  const Filters filters(text);
  for (const Place& place : kPlaces) {
    const bool isWild = place.isPattern && hasWildcards(text);
    const TopoFilt& filter = filters.at(place);
    compare(filter.getFinalWhereClause(), isWild ? likeOf(text) : text,
            (isWild ? wild : plain).at(place).getFinalWhereClause(), isWild ? "'a%b'" : "'ab'");
    store.take(objectsOfTopoFiltSql(filter));
  }
  return 0;
}
