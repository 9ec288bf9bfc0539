#pragma once

#include <string>
#include <vector>

#include "tools/import/InputFile.h"
#include "tools/network/NetworkModel.h"
#include "tools/network/NetworkReport.h"

namespace zntopo::tools {

/// Reads a file of one format. Throws ImportError; see the readers.
using ReadNetwork = NetworkModel(const InputFile& file, NetworkReport& report,
                                 const ProgressFunction& progress);

/// A format of network files that can be read.
struct NetworkFormat {
  /// How a call names it ("graphml").
  const char* name;
  /// How people know it ("GraphML").
  const char* title;
  ReadNetwork* read;
};

/// All formats.
const std::vector<NetworkFormat>& networkFormats();

/// The format of a name, or, for an empty name, the one that a file's first character tells.
/// Throws ImportError if the name is none, or if the character tells nothing.
const NetworkFormat& networkFormat(const std::string& name, const InputFile& file);

}  // namespace zntopo::tools
