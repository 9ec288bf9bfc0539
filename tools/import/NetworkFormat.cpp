#include "tools/import/NetworkFormat.h"

#include <string_view>

#include "tools/import/GraphmlReader.h"
#include "tools/import/Rfc8345Reader.h"

namespace zntopo::tools {

namespace {

constexpr std::string_view kJson = "rfc8345";
constexpr std::string_view kXml = "graphml";

/// The first character that is no blank, in any encoding of Unicode; NUL if there is none.
char firstCharacter(std::string_view text) {
  for (const std::string_view mark : {"\xef\xbb\xbf", "\xff\xfe", "\xfe\xff"}) {
    if (text.substr(0, mark.size()) == mark) text.remove_prefix(mark.size());
  }
  const std::size_t found = text.find_first_not_of(std::string_view(" \t\r\n\0", 5));
  return found == std::string_view::npos ? '\0' : text[found];
}

std::string_view nameByContent(const InputFile& file) {
  switch (firstCharacter(file.text)) {
    case '{':
    case '[':
      return kJson;
    case '<':
      return kXml;
    case '\0':
      throw ImportError(file.label, "is empty");
    default:
      throw ImportError(file.label,
                        "is neither RFC 8345 JSON, which begins with \"{\", nor GraphML, which "
                        "begins with \"<\" (--format says which it is meant to be)");
  }
}

}  // namespace

const std::vector<NetworkFormat>& networkFormats() {
  static const auto* const formats = new std::vector<NetworkFormat>{
      {kJson.data(), "RFC 8345 JSON", readRfc8345}, {kXml.data(), "GraphML", readGraphml}};
  return *formats;
}

const NetworkFormat& networkFormat(const std::string& name, const InputFile& file) {
  const std::string_view wanted = name.empty() ? nameByContent(file) : std::string_view(name);
  for (const NetworkFormat& format : networkFormats()) {
    if (wanted == format.name) return format;
  }
  throw ImportError(file.label, "can't be read as \"" + name + "\", which is no known format");
}

}  // namespace zntopo::tools
