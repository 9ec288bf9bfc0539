#pragma once

#include <string>

#include "zntopo/core/ObjID.h"
#include "zntopo/model/TopoDBType.h"
#include "zntopo/platform/Export.h"

namespace zntopo {

/// A member of a subnet: node, interface and address. A plain value.
class ZNTOPO_EXPORT SubnetEndPoint {
 public:
  SubnetEndPoint() = default;
  SubnetEndPoint(const ObjID& aNodeID, const ObjID& anIFID, const ObjID& anAddrID)
      : _addrID(anAddrID), _nodeID(aNodeID), _IFID(anIFID) {}

  const ObjID& getAddressID() const { return _addrID; }
  const ObjID& getNodeObjID() const { return _nodeID; }
  const ObjID& getIFObjID() const { return _IFID; }
  /// The identifiers, and the names behind them as the store has them; an empty name for what
  /// can't be read.
  std::string toString(TopoDBType dbType) const;

 private:
  ObjID _addrID;
  ObjID _nodeID;
  ObjID _IFID;
};

}  // namespace zntopo
