#pragma once

#include <string>

#include "zntopo/platform/tvdbil/TvDbil.h"

/// @file
/// The data definition of the topology store, which the library carries for each engine.

namespace zntopo {

/// The script that makes all tables and indices, for an engine as
/// TvDbil::DbConnection_t::GetEngineName() names it; empty for an engine without one.
const std::string& schemaScript(const std::string& engineName);

/// Makes the schema in an empty store, in one transaction: after a failure nothing of it is
/// there. DBIL_ERROR, with a message, for an engine without a script.
TvDbil::DbilReturnCode_t createSchema(TvXplMsg::MessageList_t& messages,
                                      TvDbil::DbConnection_t& connection);

}  // namespace zntopo
