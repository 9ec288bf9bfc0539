#pragma once

#include "tools/import/InputFile.h"
#include "tools/network/NetworkModel.h"
#include "tools/network/NetworkReport.h"

namespace zntopo::tools {

/// Reads a file of RFC 8345 JSON, with the attributes of layers 2 and 3, into a network.
///
/// Throws ImportError for a malformed file, with the place in it. What is well formed and was
/// not carried over is counted in the report. The progress function hears the part read.
NetworkModel readRfc8345(const InputFile& file, NetworkReport& report,
                         const ProgressFunction& progress = {});

}  // namespace zntopo::tools
