#pragma once

#include <string>

namespace zntopo::bench {

/// The store that a run of the program measures on.
struct Setting {
  enum class Shape { Campus, Ring };

  Shape shape = Shape::Campus;
  int nodes = 0;
  /// Nodes have user variables.
  bool userVariables = false;
  bool isColdWanted = true;
  bool isWarmWanted = true;
  /// The store as TV_TOPO_STORE names it.
  std::string store;

  const char* shapeName() const { return shape == Shape::Ring ? "ring" : "campus"; }
};

}  // namespace zntopo::bench
