#pragma once

#include <string>

namespace zntopo::tools {

/// Has Graphviz draw a graph in one of its formats ("svg", "png").
///
/// The program "dot" is called, not the library behind it: a graph that takes the layout too long,
/// or too much memory, ends that process alone, the user can interrupt it, and who never draws
/// needs no Graphviz. Throws a Failure where the program is not there or fails.
std::string drawGraph(const std::string& graph, const std::string& format);

}  // namespace zntopo::tools
