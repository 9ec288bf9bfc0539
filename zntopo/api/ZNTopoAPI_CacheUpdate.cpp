// The changes of cached objects in their place, as events tell of them, and of the cache as a
// whole. None of them touches the store.

#include "zntopo/api/ZNTopoAPI_Impl.h"
#include "zntopo/core/MCLog.h"
#include "zntopo/core/detail/Failure.h"
#include "zntopo/core/detail/LogText.h"
#include "zntopo/core/detail/OperationScope.h"
#include "zntopo/model/ZNRefPtrConversion.h"

namespace zntopo {

namespace {

// ---- statuses -----------------------------------------------------------------------------------

template <typename T>
using Lookup = bool (ZNTopoCache::*)(const ObjID&, ZNRefPtr<T>&) const;

template <typename T>
ZNRefPtr<T> found(Lookup<T> lookup, const ObjID& id) {
  ZNRefPtr<T> object;
  (ZNTopoAPI_Impl::cache()->*lookup)(id, object);
  return object;
}

/// A cached entity by one of its identifiers, null if it is not there.
template <auto byObjID, auto byQRMID, auto toEntity>
ZNRefPtr<ZNEntity> entityFound(const ObjID& id, bool isQRMID) {
  return toEntity(found(isQRMID ? byQRMID : byObjID, id));
}

struct CachedEntityKind {
  EntityType type;
  ZNRefPtr<ZNEntity> (*find)(const ObjID& id, bool isQRMID);
};

/// The kinds whose status is changed in its place.
constexpr CachedEntityKind kEntityKinds[] = {
    {E_Node, entityFound<&ZNTopoCache::inNodeIDCache, &ZNTopoCache::inNodeQRMIDCache,
                         &ZNRefPtrConversion::ZNNode2ZNEntity>},
    {E_Interface, entityFound<&ZNTopoCache::inInterfaceIDCache, &ZNTopoCache::inInterfaceQRMIDCache,
                              &ZNRefPtrConversion::ZNInterface2ZNEntity>},
    {E_Subnet, entityFound<&ZNTopoCache::inSubnetIDCache, &ZNTopoCache::inSubnetQRMIDCache,
                           &ZNRefPtrConversion::ZNSubnet2ZNEntity>},
};

const CachedEntityKind* kindOf(EntityType type) {
  for (const CachedEntityKind& kind : kEntityKinds) {
    if (kind.type == type) return &kind;
  }
  return nullptr;
}

void logStatus(const char* format, const ObjID& id, const ObjectStatus& status) {
  const std::string line = detail::filledIn(format, "%d", std::to_string(status.getStatusAsInt()));
  detail::logLine(MC_TRACE_L2, line.c_str(), detail::shown(MC_TRACE_L2, id));
}

void updateEntity(const CachedEntityKind& kind, const ObjID& id, bool isQRMID,
                  const ObjectStatus& newStatus, long changeTime,
                  ZNEntity::EntityStatusType statusType) {
  const ZNRefPtr<ZNEntity> entity = kind.find(id, isQRMID);
  if (entity.isNull()) return;
  if (entity->getStatus(statusType).getStatusAsInt() == newStatus.getStatusAsInt()) return;
  logStatus("Setting Entity QRM id = %s to status = %d\n", id, newStatus);
  entity->setStatus(newStatus, changeTime, statusType);
}

/// An HSRP group is thrown out, and the next read builds it anew.
void updateGroup(const ObjID& id, bool isQRMID, ZNTopoAPIStatus& status) {
  if (isQRMID) {
    detail::setFailure(status, ZN_API_NOT_SUPPORTED_OPERATION, "QRMID is not valid for HSRP");
    return;
  }
  ZNTopoAPI_Impl::cache()->removeHSRP(id);
}

void updateAddress(const ObjID& id, bool isQRMID, const ObjectStatus& newStatus, long changeTime,
                   ZNTopoAPIStatus& status) {
  if (!isQRMID) {
    detail::setFailure(status, ZN_API_NOT_SUPPORTED_OPERATION,
                       "Status update for address is only supported via QRMID");
    return;
  }
  // An address that nobody monitors has no status, and becomes a null handle here.
  const auto address = ZNRefPtrConversion::Address2MonitoredIPv6(
      found<ZNAddress>(&ZNTopoCache::inAddressQRMIDCache, id));
  if (address.isNull()) return;
  const short current = address->getPingStatus().getStatus().getStatusAsInt();
  if (current == newStatus.getStatusAsInt()) return;
  logStatus("Setting Address QRM id = %s to status = %d\n", id, newStatus);
  address->setPingStatus(PingStatus(newStatus, 0, changeTime));
}

// ---- attributes ---------------------------------------------------------------------------------

/// A change of an attribute as it comes in.
struct AttributeUpdate {
  const ObjID& id;
  TopologyAttributeType type;
  int value;
  const ObjID& addressID;
};

// Whatever the attribute is said to be: a node has no other.
void updateNode(const AttributeUpdate& update) {
  const auto node = found<ZNNode>(&ZNTopoCache::inNodeIDCache, update.id);
  if (node.isNull() || node->getSnmpState() == update.value) return;
  node->setSnmpState(static_cast<SnmpState>(update.value), false);
}

void updateInterface(const AttributeUpdate& update) {
  const auto interface = found<ZNInterface>(&ZNTopoCache::inInterfaceIDCache, update.id);
  if (interface.isNull()) return;
  if (update.type == IfAdmin_Status && interface->getIfAdminStatus() != update.value) {
    interface->setIfAdminStatus(static_cast<IfAdminStatus>(update.value), false);
  }
  if (update.type == IfOper_Status && interface->getIfOperStatus() != update.value) {
    interface->setIfOperStatus(static_cast<IfOperStatus>(update.value), false);
  }
}

void updateMember(ZNHSRP& group, ZNHSRPAddressInfo& member, TopologyAttributeType type, int value) {
  const ZNHSRPAddressInfo::HSRPState state = member.getHSRPState();
  const int certainty = member.getHSRPStateCertainty();
  switch (type) {
    case HSRP_State:
      if (state == value) return;
      group.setHSRPState(member, static_cast<ZNHSRPAddressInfo::HSRPState>(value), certainty, false,
                         ActiveDB);
      return;
    case HSRP_Certainity:
      if (certainty != value) group.setHSRPState(member, state, value, false, ActiveDB);
      return;
    case HSRP_Priority:
      if (member.getHSRPPriority() == value) return;
      group.setHSRPStateAndPriority(member, state, certainty, value, false, ActiveDB);
      return;
    default:
      return;
  }
}

void updateHSRP(const AttributeUpdate& update) {
  const auto group = found<ZNHSRP>(&ZNTopoCache::inHSRPObjIDCache, update.id);
  if (group.isNull()) return;
  for (ZNHSRPAddressInfo& member : group->getHSRPAddrInfoList()) {
    if (member.getAddressID() == update.addressID) {
      updateMember(*group, member, update.type, update.value);
    }
  }
}

void updatePingState(const AttributeUpdate& update) {
  const auto address = found<ZNAddress>(&ZNTopoCache::inAddressIDCache, update.id);
  if (address.isNull() || address->getPingState() == update.value) return;
  address->setPingState(static_cast<PingState>(update.value), false);
}

struct AttributeKind {
  EntityType type;
  void (*update)(const AttributeUpdate& update);
};

constexpr AttributeKind kAttributeKinds[] = {{E_Node, updateNode},
                                             {E_Interface, updateInterface},
                                             {E_HSRP, updateHSRP},
                                             {E_Address, updatePingState}};

}  // namespace

void ZNTopoAPI_Impl::updateCacheObjectStatus(const ObjID& theObjID, bool isAddress,
                                             EntityType theEntityType, int tvwStatus,
                                             long statusChangeTimeUTC,
                                             ZNEntity::EntityStatusType entStatusType,
                                             ZNTopoAPIStatus& theStatus, bool isQRMID) {
  const detail::OperationScope scope("updateCacheObjectStatus");
  theStatus.reset();
  const ObjectStatus newStatus(tvwStatus);
  if (isAddress) {
    updateAddress(theObjID, isQRMID, newStatus, statusChangeTimeUTC, theStatus);
  } else if (theEntityType == E_HSRP) {
    updateGroup(theObjID, isQRMID, theStatus);
  } else if (const CachedEntityKind* const kind = kindOf(theEntityType)) {
    updateEntity(*kind, theObjID, isQRMID, newStatus, statusChangeTimeUTC, entStatusType);
  } else {
    detail::setFailure(
        theStatus, ZN_API_NOT_SUPPORTED_OPERATION,
        "Entity Type : " + getEntityTypeAsString(theEntityType) + "is not valid for status update");
  }
}

// What the objects' setters answer is dropped.
void ZNTopoAPI_Impl::updateCacheObjectAttribute(const ObjID& objIDArg, EntityType theEntType,
                                                TopologyAttributeType theAttrType, int theAttrVal,
                                                const ObjID& theAddrID,
                                                ZNTopoAPIStatus& theStatus) {
  const detail::OperationScope scope("updateCacheObjectAttribute");
  theStatus.reset();
  for (const AttributeKind& kind : kAttributeKinds) {
    if (kind.type == theEntType) kind.update({objIDArg, theAttrType, theAttrVal, theAddrID});
  }
}

void ZNTopoAPI_Impl::refreshCacheObject(const ObjID& /*theObjID*/, bool /*isAddress*/,
                                        EntityType /*theEntityType*/, int /*tvwStatus*/,
                                        long /*statusChangeTimeUTC*/,
                                        ZNTopoAPIStatus& /*theStatus*/) {}

ZNTopoStatus ZNTopoAPI_Impl::refreshTopology(ZNTopoAPIStatus& /*theStatus*/) {
  return ZN_API_NOT_SUPPORTED_OPERATION;
}

void ZNTopoAPI_Impl::clearCache() { cache()->clear(true); }

long ZNTopoAPI_Impl::getCacheTimeStamp() const { return cache()->getTimeStamp(); }

}  // namespace zntopo
