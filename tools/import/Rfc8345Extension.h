#pragma once

#include <map>
#include <string>
#include <utility>

#include "tools/import/Rfc8345Document.h"
#include "tools/import/Rfc8345Layers.h"
#include "tools/network/NetworkModel.h"
#include "tools/network/NetworkReport.h"

/// @file
/// The attributes of data/yang/zntopo-topology.yang: what the model of a network holds and the
/// attributes of layers 2 and 3 have no words for.

namespace zntopo::tools::rfc8345 {

/// Puts the document's own attributes into a network whose devices, interfaces, addresses and
/// VLANs are there; their words win over those of other attributes. Throws ImportError for what
/// is malformed; references to what does not exist are counted in the report.
void addExtension(const Document& document, const Layers& layers, NetworkModel& model,
                  NetworkReport& report);

/// The subnets that the document names, by network and identifier.
using SubnetIds = std::map<std::pair<std::string, std::string>, Index>;

/// The part of it that tells of one network's HSRP groups, containers with their associations,
/// meshes and audit trail.
void addGroups(JsonObject& attributes, const Network& network, const Layers& layers,
               const SubnetIds& subnets, NetworkModel& model, NetworkReport& report);

}  // namespace zntopo::tools::rfc8345
