#include "zntopo/model/ZNEntityDB.h"

#include <algorithm>

#include "zntopo/core/MCLog.h"
#include "zntopo/model/detail/Addresses.h"
#include "zntopo/model/detail/EntityText.h"
#include "zntopo/model/detail/UserVars.h"

namespace zntopo {

ZNEntityDB::ZNEntityDB() : _name("NULL") {}

ZNEntityDB::ZNEntityDB(const ObjID& id) : _id(id) {}

ZNEntityDB::ZNEntityDB(const ObjID& id, const std::string& zoneNumber, const ObjID& QRMObjId,
                       const std::string& name, const std::string& description,
                       const std::string& entityOid, EntityType entityType,
                       const ObjectStatus& status, const std::vector<UserDefVar>& vars,
                       const AddressVector& addresses,
                       const std::vector<ZNCapability>& capabilities, ZNEntity::IPLevel ipLevel)
    : ZNEntityDB(id, zoneNumber, QRMObjId, name, description, entityOid, entityType, status,
                 ContainmentAss(), {}, AssEndPoint(), vars, addresses, capabilities, 0, 0,
                 ipLevel) {}

ZNEntityDB::ZNEntityDB(const ObjID& id, const std::string& zoneNumber, const ObjID& QRMObjId,
                       const std::string& name, const std::string& description,
                       const std::string& entityOid, EntityType entityType,
                       const ObjectStatus& status, const ContainmentAss& contains,
                       const std::list<RelatedToAss>& related, const AssEndPoint& partOf,
                       const std::vector<UserDefVar>& userVars, const AddressVector& addresses,
                       const std::vector<ZNCapability>& capabilities, long createTime,
                       long changeTime, ZNEntity::IPLevel ipLevel)
    : ZNEntityDB(id, zoneNumber, QRMObjId, name, description, entityOid, entityType, status,
                 ObjectStatus(), ObjectStatus(), ObjectStatus(), createTime, changeTime, 0,
                 contains, related, partOf, userVars, addresses, capabilities, ipLevel) {}

ZNEntityDB::ZNEntityDB(const ObjID& id, const std::string& zoneNumber, const ObjID& QRMObjId,
                       const std::string& name, const std::string& description,
                       const std::string& entityOid, EntityType entityType,
                       const ObjectStatus& overallStatus, const ObjectStatus& v6CompoundStatus,
                       const ObjectStatus& v6GlobalStatus, const ObjectStatus& v6SiteStatus,
                       long createTime, long changeTime, long statusChangeTime,
                       ZNEntity::IPLevel ipLevel)
    : ZNEntityDB(id, zoneNumber, QRMObjId, name, description, entityOid, entityType, overallStatus,
                 v6CompoundStatus, v6GlobalStatus, v6SiteStatus, createTime, changeTime,
                 statusChangeTime, ContainmentAss(), {}, AssEndPoint(), {}, {}, {}, ipLevel) {}

ZNEntityDB::ZNEntityDB(const ObjID& id, const std::string& zoneNumber, const ObjID& QRMObjId,
                       const std::string& name, const std::string& description,
                       const std::string& entityOid, EntityType entityType,
                       const ObjectStatus& overallStatus, const ObjectStatus& v6CompoundStatus,
                       const ObjectStatus& v6GlobalStatus, const ObjectStatus& v6SiteStatus,
                       long createTime, long changeTime, long statusChangeTime,
                       const ContainmentAss& contains, const std::list<RelatedToAss>& related,
                       const AssEndPoint& partOf, const std::vector<UserDefVar>& userVars,
                       const AddressVector& addresses,
                       const std::vector<ZNCapability>& capabilities, ZNEntity::IPLevel ipLevel)
    : ZNEntityDB(id, zoneNumber, QRMObjId, name, description, entityOid, entityType, overallStatus,
                 v6CompoundStatus, v6GlobalStatus, v6SiteStatus, createTime, changeTime,
                 statusChangeTime, contains, related, partOf, userVars, addresses, capabilities, 0,
                 ipLevel) {}

ZNEntityDB::ZNEntityDB(const ObjID& id, const std::string& zoneNumber, const ObjID& QRMObjId,
                       const std::string& name, const std::string& description,
                       const std::string& entityOid, EntityType entityType,
                       const ObjectStatus& overallStatus, const ObjectStatus& v6CompoundStatus,
                       const ObjectStatus& v6GlobalStatus, const ObjectStatus& v6SiteStatus,
                       long createTime, long changeTime, long statusChangeTime,
                       const ContainmentAss& contains, const std::list<RelatedToAss>& related,
                       const AssEndPoint& partOf, const std::vector<UserDefVar>& userVars,
                       const AddressVector& addresses,
                       const std::vector<ZNCapability>& capabilities, int routeDistinguisher,
                       ZNEntity::IPLevel ipLevel)
    : _id(id),
      _QRMObjId(QRMObjId),
      _name(name),
      _description(description),
      _entityOid(entityOid),
      _entityType(entityType),
      _zoneNumber(zoneNumber),
      _routeDistinguisher(routeDistinguisher),
      _status(overallStatus),
      _V6CompoundStatus(v6CompoundStatus),
      _V6GlobalStatus(v6GlobalStatus),
      _V6SiteStatus(v6SiteStatus),
      _createTime(createTime),
      _changeTime(changeTime),
      _statusChangeTime(statusChangeTime),
      _ipLevel(ipLevel),
      _contains(contains),
      _relatedTo(related),
      _partOf(partOf),
      _userVars(userVars),
      _capabilities(capabilities) {
  setAddresses(addresses);
}

ZNEntityDB::~ZNEntityDB() = default;

bool ZNEntityDB::hasCapability(const std::string& name) const {
  return std::any_of(_capabilities.begin(), _capabilities.end(), [&name](const ZNCapability& cap) {
    return ZNCapability::hasCapabilityName(cap, name);
  });
}

UserDefVar ZNEntityDB::getUserDefVarByName(const std::string& name) const {
  return detail::userVarByName(_userVars, name);
}

std::unique_ptr<std::vector<ZNCapability>> ZNEntityDB::getCapabilityList() const {
  return std::make_unique<std::vector<ZNCapability>>(_capabilities);
}

ZNEntityDB::AddressVector ZNEntityDB::getAddresses() const {
  MCLog::log(MC_TRACE_L2, "Entering getAddresses() \n");
  std::list<ObjID> ids;
  for (const auto& entry : myAddresses) ids.push_back(entry.first);
  AddressVector result = ids.empty() ? AddressVector() : detail::readAddresses(ids);
  MCLog::log(MC_TRACE_L2, "Exiting getAddresses() \n");
  return result;
}

std::unique_ptr<ZNEntityDB::AddressVector> ZNEntityDB::getAddressesByType(
    ZNAddress::AddressType type) const {
  return detail::addressesOfType(getAddresses(), type);
}

std::string ZNEntityDB::getPhysAddr() const {
  const AddrAndType* const address = firstOfType(ZNAddress::Physical);
  return address ? address->addressStr : std::string();
}

std::string ZNEntityDB::toString() const {
  using Line = detail::Line<ZNEntityDB>;
  static constexpr Line kOid[] = {{"\nEntityOID:", Line::of<&ZNEntityDB::getEntityOid>}};
  MCLog::log(MC_TRACE_L2, "Entering ZNEntityDB::toString \n");
  std::string text = detail::entityText(*this, kOid);
  MCLog::log(MC_TRACE_L2, "Exiting ZNEntityDB::toString \n");
  return text;
}

const ObjectStatus& ZNEntityDB::getOverallStatus() const {
  return _ipLevel == ZNEntity::IPv6 ? _V6CompoundStatus : _status;
}

const ObjectStatus& ZNEntityDB::getStatus(ZNEntity::EntityStatusType type) const {
  switch (type) {
    case ZNEntity::IPv6Overall:
      return getV6OverallStatus();
    case ZNEntity::IPv6SiteLocal:
      return getV6SiteStatus();
    case ZNEntity::IPv6Global:
      return getV6GlobalStatus();
    default:
      return getOverallStatus();
  }
}

std::string ZNEntityDB::getIPAddr() const {
  const AddrAndType* const address = firstOfType(ZNAddress::IPv4);
  return address ? address->addressStr : std::string();
}

bool ZNEntityDB::hasIPAddr() const { return firstOfType(ZNAddress::IPv4) != nullptr; }

bool ZNEntityDB::hasPhysAddr() const { return firstOfType(ZNAddress::Physical) != nullptr; }

const ZNEntityDB::AddrAndType* ZNEntityDB::firstOfType(ZNAddress::AddressType type) const {
  const auto found =
      std::find_if(myAddresses.begin(), myAddresses.end(),
                   [type](const auto& entry) { return entry.second.addrType == type; });
  return found == myAddresses.end() ? nullptr : &found->second;
}

void ZNEntityDB::setAddresses(const AddressVector& addresses) {
  for (const ZNRefPtr<ZNAddress>& address : addresses) {
    if (address.isNull() || address->getAddressID().isNull()) continue;
    const ObjID& id = address->getAddressID();
    AddrAndType kept{address->getAddressAsString(), address->getAddressType()};
    if (const auto* v6 = dynamic_cast<const InetAddressIPv6*>(address.getObjectPointer())) {
      kept.scopeType = v6->getScopeType();
    }
    // An identifier of a foreign kind is never stored over what is there.
    const auto inserted = myAddresses.emplace(id, kept);
    if (!inserted.second && inserted.first->first == id) inserted.first->second = kept;
  }
}

void ZNEntityDB::InsertOrUpdateUDV(const UserDefVar& var) {
  const std::string name = var.getName();
  const UserDefVar kept = var;
  _userVars.erase(
      std::remove_if(_userVars.begin(), _userVars.end(),
                     [&name](const UserDefVar& other) { return other.getName() == name; }),
      _userVars.end());
  _userVars.push_back(kept);
  _fieldVector[ZNEntity::F_UDV] = 1;
}

}  // namespace zntopo
