#pragma once

#include <functional>
#include <string>
#include <vector>

#include "tools/network/NetworkModel.h"
#include "tools/network/NetworkReport.h"
#include "zntopo/platform/tvdbil/TvDbil.h"

namespace zntopo::tools {

/// How many rows were brought into the store, and what became of them.
struct WriteCounts {
  int added = 0;
  int changed = 0;
  int unchanged = 0;

  bool isAnyChange() const { return added + changed > 0; }
};

/// Writes networks into the active tables of a store, with the row that says that the store is
/// ready, in one transaction: after a failure the store is as it was.
///
/// Rows are compared with those that are there, and written only if they differ. Nothing is
/// removed: what other imports brought stays. The row of the store's state moves only when
/// something else did, or when it did not say that the store is ready.
///
/// Throws StoreError. The progress function hears the part done.
WriteCounts writeNetworks(TvDbil::DbConnection_t& connection,
                          const std::vector<NetworkModel>& networks, const std::string& zone,
                          NetworkReport& report, const std::function<void(double)>& progress = {});

/// True if the store has the tables of a topology.
bool hasSchema(TvDbil::DbConnection_t& connection);

}  // namespace zntopo::tools
