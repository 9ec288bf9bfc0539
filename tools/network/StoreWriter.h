#pragma once

#include <array>
#include <functional>
#include <string>
#include <vector>

#include "tools/network/NetworkModel.h"
#include "tools/network/NetworkReport.h"
#include "tools/network/StoreError.h"
#include "tools/network/TableWriter.h"
#include "zntopo/platform/tvdbil/TvDbil.h"

namespace zntopo::tools {

/// What a write did, in all and in each table.
struct WriteReport : WriteCounts {
  std::array<WriteCounts, TableCount> tables;
};

/// Writes networks into the active tables of a store, with the row that says that the store is
/// ready, in one transaction: after a failure the store is as it was.
///
/// Rows are compared with those that are there, and written only if they differ; where there is
/// nothing yet, they just go in. Nothing is removed: what other imports brought stays. The row of
/// the store's state moves only when something else did, or when it did not say that the store is
/// ready.
///
/// Throws StoreError. The progress function hears the part done.
WriteReport writeNetworks(TvDbil::DbConnection_t& connection,
                          const std::vector<NetworkModel>& networks, const std::string& zone,
                          NetworkReport& report, const std::function<void(double)>& progress = {});

/// A network that comes part by part, since it is too large to be held as a whole. No row may
/// come from two parts.
struct NetworkParts {
  std::size_t count = 0;
  std::function<NetworkModel(std::size_t)> part;
  /// The nodes of all parts, for the progress.
  std::size_t nodes = 0;
};

/// The same for a network in parts, with rows that tell the given time instead of the present
/// one, and only into a store without topology unless "isMerging".
WriteReport writeParts(TvDbil::DbConnection_t& connection, const NetworkParts& parts,
                       const std::string& zone, int time, bool isMerging,
                       const std::function<void(double)>& progress = {});

/// What writeParts would write into an empty store: its rows, counted.
WriteReport countParts(const NetworkParts& parts, const std::string& zone,
                       const std::function<void(double)>& progress = {});

/// True if the store has the tables of a topology.
bool hasSchema(TvDbil::DbConnection_t& connection);

}  // namespace zntopo::tools
