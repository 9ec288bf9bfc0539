#pragma once

#include <string>

#include "zntopo/model/ZNConnData.h"
#include "zntopo/platform/Export.h"

namespace zntopo {

/// A layer-2 link as applications receive it. A plain value.
class ZNTOPO_EXPORT ZNConnection {
 public:
  explicit ZNConnection(const ZNConnData& data) : myData(data) {}

  const ObjID& getSrcNodeObjID() const { return myData.getSrcNodeObjID(); }
  const ObjID& getDestNodeObjID() const { return myData.getDestNodeObjID(); }
  const ObjID& getSrcInterfaceObjID() const { return myData.getSrcInterfaceObjID(); }
  const ObjID& getDestInterfaceObjID() const { return myData.getDestInterfaceObjID(); }
  const ZNConnData& getConnData() const { return myData; }
  /// The source first if it is the owning node's side, else the destination.
  std::string toString() const;

 private:
  ZNConnData myData;
};

}  // namespace zntopo
