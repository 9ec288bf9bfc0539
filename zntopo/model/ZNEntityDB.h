#pragma once

#include <array>
#include <list>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "zntopo/core/ZNRefPtr.h"
#include "zntopo/model/ContainmentAss.h"
#include "zntopo/model/InetAddressIPv6.h"
#include "zntopo/model/RelatedToAss.h"
#include "zntopo/model/UserDefVar.h"
#include "zntopo/model/ZNCapability.h"
#include "zntopo/model/ZNEntity.h"

namespace zntopo {

/// The older, wider form of an entity: with its associations, its capabilities and the texts of
/// its addresses. Nothing in the library builds one; ZNEntity can be made from it.
///
/// It has no lock: one object belongs to one thread at a time.
class ZNTOPO_EXPORT ZNEntityDB {
 public:
  /// What is kept of an address.
  struct AddrAndType {
    std::string addressStr;
    ZNAddress::AddressType addrType = ZNAddress::Unknown;
    InetAddressIPv6::ScopeType scopeType = InetAddressIPv6::Unknown;
  };
  using AddressMap = std::map<ObjID, AddrAndType>;
  using AddressVector = std::vector<ZNRefPtr<ZNAddress>>;

  /// Named "NULL", of level IPv4.
  ZNEntityDB();
  explicit ZNEntityDB(const ObjID& id);
  ZNEntityDB(const ObjID& id, const std::string& zoneNumber, const ObjID& QRMObjId,
             const std::string& name, const std::string& description, const std::string& entityOid,
             EntityType entityType, const ObjectStatus& status, const std::vector<UserDefVar>& vars,
             const AddressVector& addresses, const std::vector<ZNCapability>& capabilities,
             ZNEntity::IPLevel ipLevel);
  ZNEntityDB(const ObjID& id, const std::string& zoneNumber, const ObjID& QRMObjId,
             const std::string& name, const std::string& description, const std::string& entityOid,
             EntityType entityType, const ObjectStatus& status, const ContainmentAss& contains,
             const std::list<RelatedToAss>& related, const AssEndPoint& partOf,
             const std::vector<UserDefVar>& userVars, const AddressVector& addresses,
             const std::vector<ZNCapability>& capabilities, long createTime, long changeTime,
             ZNEntity::IPLevel ipLevel);
  ZNEntityDB(const ObjID& id, const std::string& zoneNumber, const ObjID& QRMObjId,
             const std::string& name, const std::string& description, const std::string& entityOid,
             EntityType entityType, const ObjectStatus& overallStatus,
             const ObjectStatus& v6CompoundStatus, const ObjectStatus& v6GlobalStatus,
             const ObjectStatus& v6SiteStatus, long createTime, long changeTime,
             long statusChangeTime, ZNEntity::IPLevel ipLevel);
  ZNEntityDB(const ObjID& id, const std::string& zoneNumber, const ObjID& QRMObjId,
             const std::string& name, const std::string& description, const std::string& entityOid,
             EntityType entityType, const ObjectStatus& overallStatus,
             const ObjectStatus& v6CompoundStatus, const ObjectStatus& v6GlobalStatus,
             const ObjectStatus& v6SiteStatus, long createTime, long changeTime,
             long statusChangeTime, const ContainmentAss& contains,
             const std::list<RelatedToAss>& related, const AssEndPoint& partOf,
             const std::vector<UserDefVar>& userVars, const AddressVector& addresses,
             const std::vector<ZNCapability>& capabilities, ZNEntity::IPLevel ipLevel);
  ZNEntityDB(const ObjID& id, const std::string& zoneNumber, const ObjID& QRMObjId,
             const std::string& name, const std::string& description, const std::string& entityOid,
             EntityType entityType, const ObjectStatus& overallStatus,
             const ObjectStatus& v6CompoundStatus, const ObjectStatus& v6GlobalStatus,
             const ObjectStatus& v6SiteStatus, long createTime, long changeTime,
             long statusChangeTime, const ContainmentAss& contains,
             const std::list<RelatedToAss>& related, const AssEndPoint& partOf,
             const std::vector<UserDefVar>& userVars, const AddressVector& addresses,
             const std::vector<ZNCapability>& capabilities, int routeDistinguisher,
             ZNEntity::IPLevel ipLevel);
  ZNEntityDB(const ZNEntityDB& other) = default;
  ZNEntityDB& operator=(const ZNEntityDB& other) = default;
  virtual ~ZNEntityDB();

  virtual bool hasCapability(const std::string& name) const;
  /// The first variable of that name, a default one without any.
  virtual UserDefVar getUserDefVarByName(const std::string& name) const;
  virtual const std::vector<UserDefVar>& getUserVars() const { return _userVars; }
  virtual std::vector<UserDefVar> getModifiedUserVars() const { return _modifiedUserVars; }
  virtual std::unique_ptr<std::vector<ZNCapability>> getCapabilityList() const;
  virtual const ContainmentAss& getContains() const { return _contains; }
  virtual const std::list<RelatedToAss>& getRelatedTo() const { return _relatedTo; }
  virtual const AssEndPoint& getContainmentParent() const { return _partOf; }
  /// Asks the store for the addresses of the map's identifiers, on the active tables.
  virtual AddressVector getAddresses() const;
  virtual std::unique_ptr<AddressVector> getAddressesByType(ZNAddress::AddressType type) const;
  virtual std::string getPhysAddr() const;
  /// As of ZNEntity, with the OID in the place of the zone and without the route distinguisher.
  virtual std::string toString() const;

  const ObjID& getObjID() const { return _id; }
  const ObjID& getQRMObjID() const { return _QRMObjId; }
  const std::string& getName() const { return _name; }
  const std::string& getDescription() const { return _description; }
  const std::string& getDesc() const { return _description; }
  const std::string& getZoneNumber() const { return _zoneNumber; }
  const std::string& getEntityOid() const { return _entityOid; }
  EntityType getEntityType() const { return _entityType; }
  /// By level, as ZNEntity does.
  const ObjectStatus& getOverallStatus() const;
  /// The status held for IPv4, whatever the level.
  const ObjectStatus& getIPv4Status() const { return _status; }
  const ObjectStatus& getStatus(ZNEntity::EntityStatusType type) const;
  const ObjectStatus& getV6OverallStatus() const { return _V6CompoundStatus; }
  const ObjectStatus& getV6GlobalStatus() const { return _V6GlobalStatus; }
  const ObjectStatus& getV6SiteStatus() const { return _V6SiteStatus; }
  int getRD() const { return _routeDistinguisher; }
  int getRouteDistinguisher() const { return _routeDistinguisher; }
  ZNEntity::IPLevel getIPLevel() const { return _ipLevel; }
  short getIPLevelAsShort() const { return static_cast<short>(_ipLevel); }
  long getCreateTime() const { return _createTime; }
  long getChangeTime() const { return _changeTime; }
  /// The change time.
  long getTimeStamp() const { return _changeTime; }
  long getStatusChangeTime() const { return _statusChangeTime; }
  std::vector<UserDefVar>& getUserVariables() { return _userVars; }
  std::vector<ZNCapability> getCapabilityListVal() const { return _capabilities; }
  /// The identifier's number.
  long getID() const { return _id.getLongValue(); }
  /// The text of the first address of its kind in the order of identifiers, or empty.
  std::string getIPAddr() const;
  bool hasIPAddr() const;
  bool hasPhysAddr() const;
  const AddressMap& getAddressMap() const { return myAddresses; }

  void setContains(const ContainmentAss& contains) { _contains = contains; }
  void setRelatedTo(const std::list<RelatedToAss>& related) { _relatedTo = related; }
  /// Adds the addresses to the map.
  void setAddresses(const AddressVector& addresses);
  /// Replaces every variable of this name by this one, as the last, and marks the variables.
  void InsertOrUpdateUDV(const UserDefVar& var);
  bool isUDVModified() const { return _fieldVector[ZNEntity::F_UDV] != 0; }

 private:
  const AddrAndType* firstOfType(ZNAddress::AddressType type) const;

  ObjID _id;
  ObjID _QRMObjId;
  std::string _name;
  std::string _description;
  std::string _entityOid;
  EntityType _entityType = E_Unknown;
  std::string _zoneNumber;
  int _routeDistinguisher = 0;
  ObjectStatus _status;
  ObjectStatus _V6CompoundStatus;
  ObjectStatus _V6GlobalStatus;
  ObjectStatus _V6SiteStatus;
  long _createTime = 0;
  long _changeTime = 0;
  long _statusChangeTime = 0;
  ZNEntity::IPLevel _ipLevel = ZNEntity::IPv4;
  ContainmentAss _contains;
  std::list<RelatedToAss> _relatedTo;
  AssEndPoint _partOf;
  std::vector<UserDefVar> _userVars;
  std::vector<UserDefVar> _modifiedUserVars;
  std::vector<ZNCapability> _capabilities;
  AddressMap myAddresses;
  std::array<short, 20> _fieldVector{};
};

}  // namespace zntopo
