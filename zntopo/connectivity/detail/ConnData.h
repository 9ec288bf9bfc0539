#pragma once

#include <set>
#include <string>

#include "zntopo/api/detail/QueryText.h"
#include "zntopo/core/MCLog.h"
#include "zntopo/core/ObjID.h"
#include "zntopo/model/ZNConnData.h"

/// @file
/// Small things that the walks over layer-2 connections share.

namespace zntopo::detail {

/// The node at the other end of a record, seen from the node that owns it.
inline const ObjID& farEnd(const ZNConnData& data) {
  return data.isNodeSide() ? data.getDestNodeObjID() : data.getSrcNodeObjID();
}

/// Inserts an identifier into a working set, which never holds the null one.
inline void insertObjID(std::set<ObjID>& set, const ObjID& id) {
  if (!id.isNull()) set.insert(id);
}

/// Logs a line that is kept as data: "%s" in it, if it is there, stands for the value.
inline void logLine(MCDebugLevel level, std::string line, const std::string& value) {
  const std::size_t mark = line.find("%s");
  if (mark != std::string::npos) line.replace(mark, 2, value);
  MCLog::log(level, "%s", line.c_str());
}

}  // namespace zntopo::detail
