#include "zntopo/core/detail/LogRotation.h"

#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <optional>
#include <string_view>
#include <system_error>

#include "zntopo/core/detail/MessageTexts.h"

namespace zntopo::detail {

namespace {

void runInShell(const std::string& command) {
  // A shell without these tools leaves no list behind, which is told there.
  [[maybe_unused]] const int result = std::system(command.c_str());
}

// The number in the name of a rotating file; nothing for the name of another file.
std::optional<int> numberIn(std::string_view name, const std::string& base, int numFiles) {
  const std::string prefix = base + "_";
  if (!name.starts_with(prefix)) return std::nullopt;
  const std::string_view rest = name.substr(prefix.size());
  int number = 0;
  std::from_chars(rest.data(), rest.data() + rest.size(), number);
  const bool known = number >= 1 && number <= numFiles && name == numberedLogName(base, number);
  return known ? std::optional(number) : std::nullopt;
}

}  // namespace

std::string numberedLogName(const std::string& base, int number) {
  return base + "_" + std::to_string(number) + ".log";
}

std::string quotedForShell(const std::string& text) {
  std::string quoted = "'";
  for (const char c : text) {
    if (c == '\'') {
      quoted += "'\\''";
    } else {
      quoted += c;
    }
  }
  return quoted + "'";
}

std::string withName(const char* message, const std::string& name) {
  std::string text = message;
  const auto place = text.find("%s");
  if (place != std::string::npos) text.replace(place, 2, name);
  return text;
}

int newestLogNumber(const std::string& base, int numFiles) {
  const std::string listName = base + "_mcast.file";
  const std::string list = quotedForShell(listName);
  // The "--" keeps a name that begins with a dash from being an option.
  runInShell("ls -t -- " + quotedForShell(base) + "_*.log > " + list + " 2> /dev/null ");
  std::ifstream names(listName);
  if (!names) {
    std::fputs(withName(messages::kNoSortedLogFile.get(), listName).c_str(), stderr);
    return 1;
  }
  std::optional<int> newest;
  for (std::string name; !newest && std::getline(names, name);) {
    newest = numberIn(name, base, numFiles);
  }
  names.close();
  runInShell("rm -- " + list);
  return newest.value_or(1);
}

}  // namespace zntopo::detail
