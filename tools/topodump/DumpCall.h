#pragma once

#include <optional>
#include <string>
#include <vector>

namespace zntopo::tools {

/// A call of the dump tool, as its usage text has it.
struct DumpCall {
  enum Kind { Nodes, NodesWithInterfaces, Interfaces, Info, Filters };

  Kind kind;
  /// A node: its name or an address. Empty for all.
  std::string node = {};
  /// -1 for any.
  int routeDistinguisher = -1;
  /// A filter of the default file; empty for none.
  std::string filter = {};
};

/// The call that words make; nothing if they are none. A number alone is a route distinguisher.
std::optional<DumpCall> dumpCallOf(const std::vector<std::string>& words);

}  // namespace zntopo::tools
