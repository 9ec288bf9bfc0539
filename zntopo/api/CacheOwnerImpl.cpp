#include "zntopo/api/ZNTopoAPI_Impl.h"
#include "zntopo/notify/CacheOwner.h"

namespace zntopo {

namespace {

/// What received events ask of the API. Implementations are made for one call.
class CacheOwnerImpl : public CacheOwner {
 public:
  void clear() override { ZNTopoAPI_Impl().getTopoCache()->clear(true); }

  void updateCacheObjectStatus(const ObjID& id, EntityType type, int newStatus,
                               long statusChangeTimeUTC, ZNEntity::EntityStatusType statusType,
                               ZNTopoAPIStatus& status) override {
    ZNTopoAPI_Impl().updateCacheObjectStatus(id, false, type, newStatus, statusChangeTimeUTC,
                                             statusType, status, false);
  }

  void updateCacheObjectAttribute(const ObjID& id, EntityType type, TopologyAttributeType attribute,
                                  int value, const ObjID& addressID,
                                  ZNTopoAPIStatus& status) override {
    ZNTopoAPI_Impl().updateCacheObjectAttribute(id, type, attribute, value, addressID, status);
  }
};

}  // namespace

CacheOwner& cacheOwner() {
  static CacheOwner* const theOwner = new CacheOwnerImpl();
  return *theOwner;
}

}  // namespace zntopo
