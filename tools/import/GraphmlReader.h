#pragma once

#include "tools/import/InputFile.h"
#include "tools/network/NetworkModel.h"
#include "tools/network/NetworkReport.h"

namespace zntopo::tools {

/// Reads a GraphML file into a network: a node for each node, and for each edge a link between
/// two interfaces made for it. docs/import-graphml.md tells the rules.
///
/// The file's name without folder and ending is part of every key, for ids are unique within one
/// file only. Throws ImportError for a malformed file, with line and column. What is well formed
/// and was not carried over is counted in the report. The progress function hears the part read.
NetworkModel readGraphml(const InputFile& file, NetworkReport& report,
                         const ProgressFunction& progress = {});

}  // namespace zntopo::tools
