#include "zntopo/api/ZNTopoAPIImplFactory.h"

#include "zntopo/api/detail/SharedInstances.h"

namespace zntopo {

struct ZNTopoAPIImplFactory::Shared : detail::SharedInstances<ZNTopoAPI_Impl> {};

ZNTopoAPIImplFactory::Shared& ZNTopoAPIImplFactory::shared() {
  static Shared* const theShared = new Shared();
  return *theShared;
}

ZNRefPtr<ZNTopoAPI_Impl> ZNTopoAPIImplFactory::getImplInstance(ZNTopoAPIStatus& theStatus,
                                                               TopoDBType theDBType) {
  const MutexLockInternal lock(shared().myLock);
  theStatus.reset();
  return shared().instance(theDBType);
}

}  // namespace zntopo
