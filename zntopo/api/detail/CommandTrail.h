#pragma once

#include <list>
#include <set>
#include <string>

#include "zntopo/core/ObjID.h"

/// @file
/// The command trail: a line in the log, "#TPC#" and a command, for what an application asked.

namespace zntopo::detail {

/// Each does nothing unless the log's level is below MC_MAJOR.
void commandLog(const std::string& name);
void commandLog(const std::string& name, const std::string& arguments);
/// Every identifier is followed by a blank.
void commandLog(const std::string& name, const std::set<ObjID>& identifiers);
void commandLog(const std::string& name, const std::list<ObjID>& identifiers);

}  // namespace zntopo::detail
