#pragma once

#include <memory>
#include <string>

#include "zntopo/platform/tvdbil/detail/Connection.h"

namespace TvDbil::detail {

/// Opens a SQLite file that is there; null if that fails.
std::shared_ptr<Connection> openSqlite(MessageList_t& messages, const std::string& path);

/// Makes an empty SQLite file where there is none.
DbilReturnCode createSqlite(MessageList_t& messages, const std::string& path);

}  // namespace TvDbil::detail
