#pragma once

#include "zntopo/core/ObjID.h"
#include "zntopo/model/ZNConnData.h"

/// @file
/// Small things that the walks over layer-2 connections share.

namespace zntopo::detail {

/// The node at the other end of a record, seen from the node that owns it.
inline const ObjID& farEnd(const ZNConnData& data) {
  return data.isNodeSide() ? data.getDestNodeObjID() : data.getSrcNodeObjID();
}

}  // namespace zntopo::detail
