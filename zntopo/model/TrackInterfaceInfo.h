#pragma once

#include "zntopo/core/ObjID.h"
#include "zntopo/platform/Export.h"

namespace zntopo {

/// An interface that a member of an HSRP group tracks. A plain record.
struct ZNTOPO_EXPORT TrackInterfaceInfo {
  ObjID ifObjID;
  int ifPriority = 0;
};

}  // namespace zntopo
