#pragma once

#include <string>
#include <vector>

#include "zntopo/platform/tvdbil/TvDbil.h"

namespace zntopo::tools {

/// How the engine of a store would run a statement: a line a step, further in what belongs to the
/// step above. The statement is not run. Throws a StoreError if the engine does not take it.
std::vector<std::string> enginePlan(TvDbil::DbConnection_t& connection, const std::string& sql);

}  // namespace zntopo::tools
