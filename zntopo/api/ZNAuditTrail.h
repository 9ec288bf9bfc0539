#pragma once

#include <list>
#include <memory>
#include <string>

#include "zntopo/core/ObjID.h"
#include "zntopo/platform/Export.h"

namespace zntopo {

/// One thing that discovery did to an object: a row of the table nwtopoaudittrail.
class ZNTOPO_EXPORT ZNAuditAction {
 public:
  enum Type : int {
    TypeDontCare = -1,
    ObjectDeletion = 1,
    ObjectCreation = 2,
    AssociationCreation = 3,
    AssociationDeletion = 4,
    AssociationChange = 5,
    AttributeChange = 6
  };

  enum Detail : int {
    DetailDontCare = -1,
    NotApplicable = 0,
    L2Connection = 1,
    VlanContainment = 2,
    IfcContainment = 3,
    NodeIFContainment = 4,
    IFAddressAssociation = 5,
    SubnetAddressAssociation = 6,
    HSRPAddressChange = 101,
    HSRPAddressAddOrDelete = 102
  };

  /// Numbers outside the enumerations are kept as they are.
  ZNAuditAction(long theTime, int theType, int theDetail, const std::string& theInfo)
      : _time(theTime),
        _type(static_cast<Type>(theType)),
        _detail(static_cast<Detail>(theDetail)),
        _info(theInfo) {}

  /// Seconds UTC (ActionTimeUTC).
  long getActionTimeUTC() const { return _time; }
  Type getType() const { return _type; }
  Detail getDetail() const { return _detail; }
  const std::string& getInfo() const { return _info; }

 private:
  long _time;
  Type _type;
  Detail _detail;
  std::string _info;
};

/// What discovery did to one object, in the order in which the store told it.
class ZNTOPO_EXPORT ZNAuditTrail {
 public:
  /// The numbers are those of EntityType.
  enum ObjectType : int {
    ObjectTypeDontCare = -1,
    Node = 1,
    IF = 2,
    Vlan = 4,
    Subnet = 7,
    HSRP = 11,
    Address = 25
  };

  ZNAuditTrail(const ObjID& theObjID, int theObjType)
      : _objID(theObjID), _objType(static_cast<ObjectType>(theObjType)) {}

  const ObjID& getObjID() const { return _objID; }
  ObjectType getObjType() const { return _objType; }
  /// A copy that belongs to the caller.
  std::unique_ptr<std::list<ZNAuditAction>> getActionList() const {
    return std::make_unique<std::list<ZNAuditAction>>(_actionList);
  }
  void addAuditAction(const ZNAuditAction& theAction) { _actionList.push_back(theAction); }

 private:
  ObjID _objID;
  ObjectType _objType;
  std::list<ZNAuditAction> _actionList;
};

}  // namespace zntopo
