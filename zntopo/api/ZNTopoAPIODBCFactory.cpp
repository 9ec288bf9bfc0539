#include "zntopo/api/ZNTopoAPIODBCFactory.h"

#include "zntopo/api/detail/SharedInstances.h"

namespace zntopo {

struct ZNTopoAPIODBCFactory::Shared : detail::SharedInstances<ZNTopoAPI> {
  bool myInited = false;
};

ZNTopoAPIODBCFactory::Shared& ZNTopoAPIODBCFactory::shared() {
  static Shared* const theShared = new Shared();
  return *theShared;
}

ZNTopoAPIStatus ZNTopoAPIODBCFactory::initZNTopoAPI(const ZNTopoConfig& theConfig) {
  const MutexLockInternal lock(shared().myLock);
  ZNTopoAPI::setTopoConfiguration(theConfig);
  shared().myInited = true;
  return ZNTopoAPIStatus();
}

ZNTopoAPIStatus ZNTopoAPIODBCFactory::initZNTopoAPI() { return initZNTopoAPI(ZNTopoConfig()); }

ZNRefPtr<ZNTopoAPI> ZNTopoAPIODBCFactory::getRDInstance(ZNTopoAPIStatus& theStatus,
                                                        TopoDBType theDBType) {
  const MutexLockInternal lock(shared().myLock);
  theStatus.reset();
  if (!shared().myInited) {
    theStatus.setStatus(ZN_API_NOT_INITED);
    return {};
  }
  return shared().instance(theDBType);
}

}  // namespace zntopo
