#include "zntopo/model/ZNEntity.h"

#include <algorithm>
#include <ctime>
#include <utility>

#include "zntopo/core/MCLog.h"
#include "zntopo/model/ZNEntityDB.h"
#include "zntopo/model/detail/Addresses.h"
#include "zntopo/model/detail/UserVars.h"
#include "zntopo/model/detail/WriteThrough.h"

namespace zntopo {

/// All that is copied from one entity to another.
struct ZNEntity::Values {
  ObjID id;
  ObjID qrmObjId;
  std::string name;
  std::string description;
  std::string zoneNumber;
  EntityType entityType;
  ObjectStatus status;
  ObjectStatus v6CompoundStatus;
  ObjectStatus v6GlobalStatus;
  ObjectStatus v6SiteStatus;
  long createTime;
  long changeTime;
  long statusChangeTime;
  int routeDistinguisher;
  IPLevel ipLevel;
  std::list<ObjID> addresses;
  std::vector<UserDefVar> userVars;
  TopoDBType dbType;
};

/// In what the status setters differ.
struct ZNEntity::StatusRow {
  ObjectStatus ZNEntity::*field;
  Field flag;
  EntityStatusType type;

  static const StatusRow overall;
  static const StatusRow v6Overall;
  static const StatusRow v6Global;
  static const StatusRow v6Site;
};

constexpr ZNEntity::StatusRow ZNEntity::StatusRow::overall{&ZNEntity::_status, F_V4OverallStatus,
                                                           Overall};
constexpr ZNEntity::StatusRow ZNEntity::StatusRow::v6Overall{&ZNEntity::_V6CompoundStatus,
                                                             F_V6OverallStatus, IPv6Overall};
constexpr ZNEntity::StatusRow ZNEntity::StatusRow::v6Global{&ZNEntity::_V6GlobalStatus,
                                                            F_V6GlobalStatus, IPv6Global};
constexpr ZNEntity::StatusRow ZNEntity::StatusRow::v6Site{&ZNEntity::_V6SiteStatus, F_V6SiteStatus,
                                                          IPv6SiteLocal};

ZNEntity::ZNEntity() = default;

ZNEntity::ZNEntity(const ObjID& id, const std::string& zoneNumber, const ObjID& QRMObjId,
                   const std::string& name, const std::string& description,
                   const EntityType& entityType, const ObjectStatus& overallStatus,
                   const ObjectStatus& v6CompoundStatus, const ObjectStatus& v6GlobalStatus,
                   const ObjectStatus& v6SiteStatus, long createTime, long changeTime,
                   long statusChangeTime, int routeDistinguisher, const IPLevel& ipLevel,
                   TopoDBType theDBType)
    : _id(id),
      _QRMObjId(QRMObjId),
      _entityType(entityType),
      _status(overallStatus),
      _V6CompoundStatus(v6CompoundStatus),
      _V6GlobalStatus(v6GlobalStatus),
      _V6SiteStatus(v6SiteStatus),
      _createTime(createTime),
      _changeTime(changeTime),
      _statusChangeTime(statusChangeTime),
      _ipLevel(ipLevel),
      _dbType(theDBType),
      _routeDistinguisher(routeDistinguisher) {
  setTexts(name, description, zoneNumber);
}

ZNEntity::ZNEntity(ZNEntityDB ent)
    : ZNEntity(ent.getObjID(), ent.getZoneNumber(), ent.getQRMObjID(), ent.getName(),
               ent.getDescription(), ent.getEntityType(), ent.getIPv4Status(),
               ent.getV6OverallStatus(), ent.getV6GlobalStatus(), ent.getV6SiteStatus(),
               ent.getCreateTime(), ent.getChangeTime(), ent.getStatusChangeTime(), 0,
               ent.getIPLevel(), ActiveDB) {}

ZNEntity::ZNEntity(const ZNEntity& other) { overwrite(other.values()); }

ZNEntity::ZNEntity(ZNEntity&& other)
    : _id(other._id),
      _QRMObjId(other._QRMObjId),
      _name(std::move(other._name)),
      _description(std::move(other._description)),
      _entityType(other._entityType),
      _zoneNumber(std::move(other._zoneNumber)),
      _status(other._status),
      _V6CompoundStatus(other._V6CompoundStatus),
      _V6GlobalStatus(other._V6GlobalStatus),
      _V6SiteStatus(other._V6SiteStatus),
      _createTime(other._createTime),
      _changeTime(other._changeTime),
      _statusChangeTime(other._statusChangeTime),
      _ipLevel(other._ipLevel),
      _dbType(other._dbType),
      _userVars(std::move(other._userVars)),
      _routeDistinguisher(other._routeDistinguisher),
      myAddresses(std::move(other.myAddresses)) {}

ZNEntity& ZNEntity::operator=(const ZNEntity& other) {
  if (this == &other) return *this;
  const Values copied = other.values();
  clear();
  overwrite(copied);
  return *this;
}

ZNEntity::~ZNEntity() = default;

void ZNEntity::updateZNEntity(const ObjID& id, const std::string& zoneNumber, const ObjID& QRMObjId,
                              const std::string& name, const std::string& description,
                              const EntityType& entityType, const ObjectStatus& overallStatus,
                              const ObjectStatus& v6CompoundStatus,
                              const ObjectStatus& v6GlobalStatus, const ObjectStatus& v6SiteStatus,
                              long createTime, long changeTime, long statusChangeTime,
                              int routeDistinguisher, const IPLevel& ipLevel,
                              const std::list<ObjID>& addrs, const std::vector<UserDefVar>& varList,
                              TopoDBType theDBType) {
  overwrite({id, QRMObjId, name, description, zoneNumber, entityType, overallStatus,
             v6CompoundStatus, v6GlobalStatus, v6SiteStatus, createTime, changeTime,
             statusChangeTime, routeDistinguisher, ipLevel, addrs, varList, theDBType});
}

ZNEntity::Values ZNEntity::values() const {
  MutexLockInternal lock(myMutex);
  return {_id,
          _QRMObjId,
          _name.get(),
          _description.get(),
          _zoneNumber.get(),
          _entityType,
          _status,
          _V6CompoundStatus,
          _V6GlobalStatus,
          _V6SiteStatus,
          _createTime,
          _changeTime,
          _statusChangeTime,
          _routeDistinguisher,
          _ipLevel,
          myAddresses,
          _userVars,
          _dbType};
}

void ZNEntity::overwrite(const Values& values) {
  MutexLockInternal lock(myMutex);
  _id = values.id;
  _QRMObjId = values.qrmObjId;
  setTexts(values.name, values.description, values.zoneNumber);
  _entityType = values.entityType;
  _status = values.status;
  _V6CompoundStatus = values.v6CompoundStatus;
  _V6GlobalStatus = values.v6GlobalStatus;
  _V6SiteStatus = values.v6SiteStatus;
  _createTime = values.createTime;
  _changeTime = values.changeTime;
  _statusChangeTime = values.statusChangeTime;
  _routeDistinguisher = values.routeDistinguisher;
  _ipLevel = values.ipLevel;
  myAddresses = values.addresses;
  _userVars = values.userVars;
  _dbType = values.dbType;
}

void ZNEntity::setTexts(const std::string& name, const std::string& description,
                        const std::string& zoneNumber) {
  if (!name.empty()) _name.set(name);
  if (!description.empty()) _description.set(description);
  if (!zoneNumber.empty()) _zoneNumber.set(zoneNumber);
}

void ZNEntity::clear() {
  MutexLockInternal lock(myMutex);
  _name.clear();
  _description.clear();
  _zoneNumber.clear();
  myAddresses.clear();
}

std::string ZNEntity::getName() const {
  MutexLockInternal lock(myMutex);
  return _name.get();
}

std::string ZNEntity::getDescription() const {
  MutexLockInternal lock(myMutex);
  return _description.get();
}

std::string ZNEntity::getZoneNumber() const {
  MutexLockInternal lock(myMutex);
  return _zoneNumber.get();
}

EntityType ZNEntity::getEntityType() const { return locked(_entityType); }
TopoDBType ZNEntity::getDBType() const { return locked(_dbType); }
int ZNEntity::getRD() const { return locked(_routeDistinguisher); }
ZNEntity::IPLevel ZNEntity::getIPLevel() const { return locked(_ipLevel); }
short ZNEntity::getIPLevelAsShort() const { return static_cast<short>(locked(_ipLevel)); }
long ZNEntity::getCreateTime() const { return locked(_createTime); }
long ZNEntity::getChangeTime() const { return locked(_changeTime); }
long ZNEntity::getStatusChangeTime() const { return locked(_statusChangeTime); }

const ObjectStatus& ZNEntity::getOverallStatus() const {
  MutexLockInternal lock(myMutex);
  return _ipLevel == IPv6 ? _V6CompoundStatus : _status;
}

const ObjectStatus& ZNEntity::getV6OverallStatus() const {
  MutexLockInternal lock(myMutex);
  return _V6CompoundStatus;
}

const ObjectStatus& ZNEntity::getV6GlobalStatus() const {
  MutexLockInternal lock(myMutex);
  return _V6GlobalStatus;
}

const ObjectStatus& ZNEntity::getV6SiteStatus() const {
  MutexLockInternal lock(myMutex);
  return _V6SiteStatus;
}

const ObjectStatus& ZNEntity::getStatus(EntityStatusType type) const {
  switch (type) {
    case IPv6Overall:
      return getV6OverallStatus();
    case IPv6SiteLocal:
      return getV6SiteStatus();
    case IPv6Global:
      return getV6GlobalStatus();
    case IPv4Overall:
    case Overall:
      return getOverallStatus();
    default:
      MCLog::log(MC_CRITICAL,
                 "ZNEntity::getStatus() call with unimplemented EntityStatusType: %d\n", type);
      return getOverallStatus();
  }
}

UserDefVar ZNEntity::getUserDefVarByName(const std::string& name) const {
  MutexLockInternal lock(myMutex);
  return detail::userVarByName(_userVars, name);
}

const std::vector<UserDefVar>& ZNEntity::getUserVars() const {
  MutexLockInternal lock(myMutex);
  return _userVars;
}

std::vector<UserDefVar>& ZNEntity::getUserVariables() {
  MutexLockInternal lock(myMutex);
  return _userVars;
}

std::vector<UserDefVar> ZNEntity::getModifiedUserVars() const { return {}; }

const AssEndPoint& ZNEntity::getContainmentParent() const {
  MutexLockInternal lock(myMutex);
  return _partOf;
}

std::vector<ZNRefPtr<ZNAddress>> ZNEntity::getAddresses() const {
  MutexLockInternal lock(myMutex);
  const std::list<ObjID> ids = myAddresses;
  return ids.empty() ? std::vector<ZNRefPtr<ZNAddress>>() : getAddrsByObjIDList(ids);
}

std::vector<ZNRefPtr<ZNAddress>> ZNEntity::getAddrsByObjIDList(const std::list<ObjID>& ids) const {
  MCLog::log(MC_TRACE_L2, "Entering getAddrsByObjIDList() \n");
  std::vector<ZNRefPtr<ZNAddress>> addresses = detail::readAddresses(ids);
  MCLog::log(MC_TRACE_L2, "Exiting getAddrsByObjIDList() \n");
  return addresses;
}

std::unique_ptr<std::vector<ZNRefPtr<ZNAddress>>> ZNEntity::getAddressesByType(
    ZNAddress::AddressType type) const {
  return detail::addressesOfType(getAddresses(), type);
}

void ZNEntity::setObjID(const ObjID& id) {
  MutexLockInternal lock(myMutex);
  _id = id;
}

void ZNEntity::setName(const std::string& name) {
  MutexLockInternal lock(myMutex);
  _name.set(name);
}

void ZNEntity::setIPLevel(const IPLevel& level) {
  MutexLockInternal lock(myMutex);
  _ipLevel = level;
}

void ZNEntity::setUserVars(const std::vector<UserDefVar>& vars) {
  MutexLockInternal lock(myMutex);
  _userVars = vars;
}

void ZNEntity::setPartOf(const AssEndPoint& parent) {
  MutexLockInternal lock(myMutex);
  _partOf = parent;
}

void ZNEntity::setPartOf(AssEndPoint&& parent) {
  MutexLockInternal lock(myMutex);
  _partOf = std::move(parent);
}

void ZNEntity::setAddresses(const std::vector<ZNRefPtr<ZNAddress>>& addresses) {
  MutexLockInternal lock(myMutex);
  for (const ZNRefPtr<ZNAddress>& address : addresses) {
    if (!address.isNull()) myAddresses.push_back(address->getAddressID());
  }
}

void ZNEntity::setQRMObjID(const ObjID& id) {
  _QRMObjId = id;
  MarkFieldToBeUpdated(F_QRMObjId);
}

ZNTopoAPIStatus ZNEntity::changeStatus(const StatusRow& row, const ObjectStatus& aStat,
                                       long changeTimeUTC, bool updateDB) {
  MutexLockInternal lock(myMutex);
  const ObjectStatus newStatus = aStat;
  ObjectStatus previous;
  detail::WriteThroughSteps steps;
  steps.change = [&]() -> std::optional<ZNTopoAPIStatus> {
    ObjectStatus& field = this->*row.field;
    if (field.getStatusAsInt() == newStatus.getStatusAsInt()) {
      MCLog::log(MC_INFO, "No status change require");
      return ZNTopoAPIStatus();
    }
    previous = field;
    field = newStatus;
    _statusChangeTime = changeTimeUTC > 0 ? changeTimeUTC : static_cast<long>(std::time(nullptr));
    return std::nullopt;
  };
  steps.mark = [&] { MarkFieldToBeUpdated(row.flag); };
  steps.write = [&](TopologyGateway& gateway) {
    return gateway.setEntityStatus(_dbType, _id, newStatus.getStatusAsInt(), _statusChangeTime,
                                   row.type, _entityType);
  };
  steps.notify = [&](TopologyGateway& gateway) {
    return gateway.sendStatusNotification(
        {_entityType, _id, newStatus, previous, _statusChangeTime, row.type});
  };
  return detail::writeThrough({true, false}, _dbType, updateDB, steps);
}

ZNTopoAPIStatus ZNEntity::setOverallStatus(const ObjectStatus& aStat, long changeTimeUTC,
                                           bool updateDB, TopoDBType) {
  return changeStatus(StatusRow::overall, aStat, changeTimeUTC, updateDB);
}

ZNTopoAPIStatus ZNEntity::setIPv4OverallStatus(const ObjectStatus& aStat, long changeTimeUTC,
                                               bool updateDB, TopoDBType dbType) {
  return setOverallStatus(aStat, changeTimeUTC, updateDB, dbType);
}

ZNTopoAPIStatus ZNEntity::setV6OverallStatus(const ObjectStatus& aStat, long changeTimeUTC,
                                             bool updateDB) {
  return changeStatus(StatusRow::v6Overall, aStat, changeTimeUTC, updateDB);
}

ZNTopoAPIStatus ZNEntity::setV6SiteStatus(const ObjectStatus& aStat, long changeTimeUTC,
                                          bool updateDB) {
  return changeStatus(StatusRow::v6Site, aStat, changeTimeUTC, updateDB);
}

ZNTopoAPIStatus ZNEntity::setV6GlobalStatus(const ObjectStatus& aStat, long changeTimeUTC,
                                            bool updateDB) {
  return changeStatus(StatusRow::v6Global, aStat, changeTimeUTC, updateDB);
}

void ZNEntity::setStatus(const ObjectStatus& aStat, long changeTimeUTC, EntityStatusType type) {
  switch (type) {
    case IPv6Overall:
      setV6OverallStatus(aStat, changeTimeUTC, false);
      break;
    case IPv6SiteLocal:
      setV6SiteStatus(aStat, changeTimeUTC, false);
      break;
    case IPv6Global:
      setV6GlobalStatus(aStat, changeTimeUTC, false);
      break;
    case IPv4Overall:
    case Overall:
      setOverallStatus(aStat, changeTimeUTC, false, ActiveDB);
      break;
    default:
      MCLog::log(MC_CRITICAL,
                 "ZNEntity::setStatus() call with unimplemented EntityStatusType: %d\n", type);
  }
}

bool ZNEntity::isStatusModified() const {
  return isV4OverallStatusModified() || isV6GlobalStatusModified() || isV6SiteStatusModified() ||
         isV6OverallStatusModified();
}

void ZNEntity::MarkFieldToBeUpdated(Field field) {
  if (field >= 0 && field < static_cast<int>(_fieldVector.size())) _fieldVector[field] = 1;
}

void ZNEntity::initFieldVector() {
  for (AtomicField<short>& field : _fieldVector) field = 0;
}

void ZNEntity::clearModifiedData() {
  MutexLockInternal lock(myMutex);
  initFieldVector();
}

ZNEntity::Field ZNEntity::getFieldFromInt(int value) {
  return value >= F_QRMObjId && value <= F_V6OverallStatus ? static_cast<Field>(value) : F_QRMObjId;
}

}  // namespace zntopo
