#pragma once

#include "zntopo/model/ZNHSRPAddressInfo.h"
#include "zntopo/platform/Export.h"

namespace zntopo {

/// Tells whether a member of an HSRP group is on a given interface.
struct ZNTOPO_EXPORT ZNHSRPAddrEqualObjID {
  explicit ZNHSRPAddrEqualObjID(const ObjID& ifObjID) : m_ifObjID(ifObjID) {}
  bool operator()(const ZNHSRPAddressInfo& info) const { return info.getIFObjID() == m_ifObjID; }

  ObjID m_ifObjID;
};

}  // namespace zntopo
