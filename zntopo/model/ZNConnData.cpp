#include "zntopo/model/ZNConnData.h"

namespace zntopo {

bool ZNConnData::isPopulated() const {
  return !mySrcInterfaceObjID.isNull() && !myDestInterfaceObjID.isNull() &&
         !mySrcNodeObjID.isNull() && !myDestNodeObjID.isNull();
}

bool ZNConnData::isInterfacePartOfConnection(const ObjID& id, bool& isSrc) const {
  const bool isDest = id == myDestInterfaceObjID;
  if (!isDest && !(id == mySrcInterfaceObjID)) return false;
  isSrc = !isDest;
  return true;
}

}  // namespace zntopo
