#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "tools/export/StoreReader.h"
#include "tools/network/NetworkReport.h"

namespace zntopo::tools {

/// Writes a network in one format. What has no place there is counted in the report.
using WriteNetwork = void(const StoredNetwork& network, std::ostream& out, NetworkReport& report);

/// A format in which networks can be written.
struct ExportFormat {
  /// How a call names it ("graphml").
  const char* name;
  WriteNetwork* write;
};

/// All formats; the first is the one that a call means which names none.
const std::vector<ExportFormat>& exportFormats();

/// The format of a name, which must be one of them.
const ExportFormat& exportFormat(const std::string& name);

}  // namespace zntopo::tools
