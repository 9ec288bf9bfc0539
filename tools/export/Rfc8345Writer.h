#pragma once

#include <ostream>

#include "tools/network/NetworkModel.h"
#include "tools/network/NetworkReport.h"

namespace zntopo::tools {

/// Writes a network as an RFC 8345 document that readRfc8345 makes the same network of: nodes,
/// termination points and links of one network of layers 2 and 3, the rest as attributes of
/// data/yang/zntopo-topology.yang. docs/export.md tells the rules.
///
/// Of VLANs with one number, each after the first stands in a further network over the same nodes.
/// What has no place in such a document is counted in the report.
void writeRfc8345(const NetworkModel& model, std::ostream& out, NetworkReport& report);

}  // namespace zntopo::tools
