#pragma once

#include "zntopo/core/ObjID.h"
#include "zntopo/platform/Export.h"

namespace zntopo {

/// One directed layer-2 link. With isNodeSide() true the node that owns the record is its source
/// side. A plain value.
class ZNTOPO_EXPORT ZNConnData {
 public:
  ZNConnData(const ObjID& theSrcInterfaceObjID, const ObjID& theDestInterfaceObjID,
             const ObjID& theSrcNodeObjID, const ObjID& theDestNodeObjID, bool nodeSideFlag)
      : mySrcInterfaceObjID(theSrcInterfaceObjID),
        myDestInterfaceObjID(theDestInterfaceObjID),
        mySrcNodeObjID(theSrcNodeObjID),
        myDestNodeObjID(theDestNodeObjID),
        myNodeSideFlag(nodeSideFlag) {}

  const ObjID& getSrcNodeObjID() const { return mySrcNodeObjID; }
  const ObjID& getDestNodeObjID() const { return myDestNodeObjID; }
  const ObjID& getSrcInterfaceObjID() const { return mySrcInterfaceObjID; }
  const ObjID& getDestInterfaceObjID() const { return myDestInterfaceObjID; }
  void setSrcNodeObjID(const ObjID& id) { mySrcNodeObjID = id; }
  void setDestNodeObjID(const ObjID& id) { myDestNodeObjID = id; }

  /// True when all four identifiers are non-null.
  bool isPopulated() const;
  bool isNodeSide() const { return myNodeSideFlag; }
  /// Tells which end the interface is; the destination is tested first. Leaves isSrc alone when
  /// it is neither.
  bool isInterfacePartOfConnection(const ObjID& id, bool& isSrc) const;

 private:
  ZNConnData() = default;

  ObjID mySrcInterfaceObjID;
  ObjID myDestInterfaceObjID;
  ObjID mySrcNodeObjID;
  ObjID myDestNodeObjID;
  bool myNodeSideFlag = false;
};

}  // namespace zntopo
