#pragma once

#include <string>

#include "zntopo/platform/tvdbil/TvDbil.h"

namespace zntopo::tools {

/// Runs a statement without parameters and results. Throws StoreError with "what" in front.
void runSql(TvDbil::DbConnection_t& connection, const std::string& sql, const std::string& what);

}  // namespace zntopo::tools
