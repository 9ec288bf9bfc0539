#include "tools/topodump/DumpCall.h"

#include <charconv>

namespace zntopo::tools {

namespace {

struct KindWord {
  const char* word;
  DumpCall::Kind kind;
};

constexpr KindWord kKinds[] = {
    {"-node", DumpCall::Nodes},    {"-nodeif", DumpCall::NodesWithInterfaces},
    {"-if", DumpCall::Interfaces}, {"-info", DumpCall::Info},
    {"-lfilt", DumpCall::Filters},
};

std::optional<int> numberOf(const std::string& text) {
  int number = 0;
  const char* const end = text.data() + text.size();
  const auto [at, error] = std::from_chars(text.data(), end, number);
  return error == std::errc() && at == end && number >= 0 ? std::optional(number) : std::nullopt;
}

/// What may follow "-node" and "-nodeif".
std::optional<DumpCall> nodesCall(DumpCall call, const std::vector<std::string>& rest) {
  if (rest.empty()) return call;
  if (rest.size() > 2 || rest[0].empty()) return std::nullopt;
  const std::optional<int> last = numberOf(rest.back());
  if (rest.size() == 2 && !last) return std::nullopt;
  if (last) call.routeDistinguisher = *last;
  if (rest.size() == 2 || !last) call.node = rest[0];
  // What begins with a dash is a word that is not known.
  return call.node.empty() || call.node[0] != '-' ? std::optional(call) : std::nullopt;
}

}  // namespace

std::optional<DumpCall> dumpCallOf(const std::vector<std::string>& words) {
  if (words.empty()) return std::nullopt;
  const std::vector<std::string> rest(words.begin() + 1, words.end());
  for (const KindWord& one : kKinds) {
    if (words[0] != one.word) continue;
    DumpCall call{.kind = one.kind};
    const bool isListed = one.kind == DumpCall::Info || one.kind == DumpCall::Filters;
    if (isListed) return rest.empty() ? std::optional(call) : std::nullopt;
    if (rest.size() == 2 && rest[0] == "-filt" && !rest[1].empty()) {
      call.filter = rest[1];
      return call;
    }
    return one.kind == DumpCall::Interfaces ? std::nullopt : nodesCall(call, rest);
  }
  return std::nullopt;
}

}  // namespace zntopo::tools
