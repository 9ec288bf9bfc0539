#pragma once

#include "zntopo/platform/tvdbil/TvDbil.h"

namespace zntopo::tools {

/// Makes the state row say that the store is ready. If something changed, or if it did not say
/// so before, the time of readiness moves to now, or one beyond the old one if that is later.
/// True if the row was written. Throws StoreError.
bool markReady(TvDbil::DbConnection_t& connection, bool isChanged, int now);

}  // namespace zntopo::tools
