#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "tools/generate/CampusPlan.h"
#include "tools/network/WriteCounts.h"
#include "zntopo/platform/tvdbil/TvDbil.h"

namespace zntopo::tools {

/// What a generated network holds, and what became of its rows: all are added to an empty store.
struct CampusCounts : WriteCounts {
  /// Objects by kind: {"nodes", 10000}, {"interfaces", 200000}, ... in a fixed order.
  std::vector<std::pair<std::string, long long>> objects;
  /// Rows by table, in a fixed order.
  std::vector<std::pair<std::string, long long>> rows;
};

/// Writes the network of a plan into the active tables of a store, with the row that says that
/// the store is ready, in one transaction: after a failure the store is as it was. The memory
/// that this takes is that of one site, however large the network.
///
/// A store that holds topology is refused unless "isMerging": then rows are compared with those
/// that are there, and nothing is removed, as an import does it.
///
/// Throws PlanError, StoreNotEmpty or StoreError. The progress function hears the part done, from 0
/// to 1.
CampusCounts generateCampus(TvDbil::DbConnection_t& connection, const CampusPlan& plan,
                            const std::function<void(double)>& progress = {},
                            bool isMerging = false);

/// The same counts without a store: what generateCampus would write. Throws PlanError.
CampusCounts countCampus(const CampusPlan& plan, const std::function<void(double)>& progress = {});

}  // namespace zntopo::tools
