#pragma once

#include <string>

#include "zntopo/notify/AttrValType.h"
#include "zntopo/notify/TopologyNotification.h"

namespace zntopo {

/// An attribute of an object has changed.
class ZNTOPO_EXPORT TopologyAttrChangeNotification : public TopologyNotification {
 public:
  TopologyAttrChangeNotification(EntityType entityType, TopoNotificationType notifType, ObjID id,
                                 TopologyAttributeType newAttrType, AttrValType valType, int valInt,
                                 std::string valStr, ObjID hsrpOrIfcObjID, int assocType)
      : TopologyNotification(notifType, static_cast<ObjID&&>(id), entityType),
        attrType(newAttrType),
        attrValInt(valInt),
        _hsrpOrIfcObjID(static_cast<ObjID&&>(hsrpOrIfcObjID)),
        attrValStr(static_cast<std::string&&>(valStr)),
        attrValType(valType),
        _assocType(assocType) {}

  /// Fails with ZN_API_ATTR_NOTIF_GEN_ERROR.
  ZNTopoAPIStatus createAndSendNotification() override;

  /// 7, which is no enumerator, for the state of an association of containers.
  TopologyAttributeType getAttrType() const { return attrType; }
  AttrValType getAttrValType() const { return attrValType; }
  /// The new value, if it is an integer; else 0 in a received notification.
  int getAttrValInt() const { return attrValInt; }
  /// The new value, if it is a text; always empty in a received notification.
  const std::string& getAttrValStr() const { return attrValStr; }
  /// The address in the group, for an attribute of an HSRP group.
  const ObjID& getAddrId() const { return _hsrpOrIfcObjID; }
  /// The other container, for the state of an association of containers.
  const ObjID& getIfcRightObjID() const { return _hsrpOrIfcObjID; }
  int getIfcAssociationType() const { return _assocType; }

 private:
  TopologyAttributeType attrType;
  int attrValInt;
  ObjID _hsrpOrIfcObjID;
  std::string attrValStr;
  AttrValType attrValType;
  int _assocType;
};

}  // namespace zntopo
