#pragma once

#include <string>

#include "bench/support/Setting.h"
#include "zntopo/platform/tvdbil/TvDbil.h"

/// @file
/// The stores that are measured on.

namespace zntopo::bench {

/// Throws std::runtime_error with the driver's messages unless the code is a good one.
void check(TvDbil::DbilReturnCode_t code, const TvXplMsg::MessageList_t& messages);

/// A connection of its own to the store that TV_TOPO_STORE names. Throws std::runtime_error.
TvDbil::DbConnection_t connect();

/// Makes the store of a setting unless it is there already, and lets TV_TOPO_STORE name it.
/// Throws std::runtime_error.
void provideStore(const Setting& setting);

}  // namespace zntopo::bench
