#pragma once

#include "zntopo/platform/tvxpl/TvXplMsg.h"

/// @file
/// The platform's log: syslog, or the file that the environment variable TV_LOG names.

namespace TvXplLog {

/// Writes every message of a list. May be called by several threads at once.
void Log(const TvXplMsg::MessageList_t& messages);

}  // namespace TvXplLog
