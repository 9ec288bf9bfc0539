#include "zntopo/api/ZNTopoAPIDefaultFactory.h"

namespace zntopo {

ZNTopoAPIDefaultFactory::ZNTopoAPIDefaultFactory() : myImpl(new ZNTopoAPIODBCFactory()) {}

ZNTopoAPIDefaultFactory::~ZNTopoAPIDefaultFactory() { delete myImpl; }

ZNTopoAPIStatus ZNTopoAPIDefaultFactory::initZNTopoAPI(const ZNTopoConfig& theConfig) {
  return myImpl->initZNTopoAPI(theConfig);
}

ZNTopoAPIStatus ZNTopoAPIDefaultFactory::initZNTopoAPI() { return myImpl->initZNTopoAPI(); }

ZNRefPtr<ZNTopoAPI> ZNTopoAPIDefaultFactory::getRDInstance(ZNTopoAPIStatus& theStatus,
                                                           TopoDBType theDBType) {
  return myImpl->getRDInstance(theStatus, theDBType);
}

}  // namespace zntopo
