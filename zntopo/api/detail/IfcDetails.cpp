#include "zntopo/api/detail/IfcDetails.h"

#include "zntopo/api/detail/ObjectsRead.h"
#include "zntopo/core/MCLog.h"
#include "zntopo/core/detail/LogText.h"

namespace zntopo::detail {

namespace {

/// Notes a failure, unless there was one before. True if there is none.
bool isGood(const ZNTopoAPIStatus& step, const char* failureLine, ZNTopoAPIStatus& status) {
  if (step.isOK()) return true;
  MCLog::log(MC_MAJOR, "%s", failureLine);
  if (status.isOK()) status = step;
  return false;
}

bool loadData(ZNTopoAPI_Impl& api, ZNIfc& container, ZNTopoAPIStatus& status) {
  int type = 0;
  int appsID = 0;
  bool isOrdered = false;
  bool cleanUpOnEmpty = false;
  const auto step =
      api.getIfcDataByObjID(container.getObjID(), type, appsID, isOrdered, cleanUpOnEmpty);
  if (!isGood(step, "Failed in getIfcDataByObjID \n", status)) return false;
  container.setIfcType(type);
  container.setOrder(isOrdered);
  container.setAppsId(appsID);
  container.setCleanUpIfEmpty(cleanUpOnEmpty);
  return true;
}

bool loadAssociations(ZNTopoAPI_Impl& api, ZNIfc& container, ZNTopoAPIStatus& status) {
  logLine(MC_INFO, "getIfcsByObjIDList Calling getIfcAssocInfosByObjID=%s\n",
          shown(MC_INFO, container.getObjID()));
  std::list<ZNRefPtr<ZNIfcAssocInfo>> associations;
  const auto step = api.getIfcAssocInfosByObjID(container.getObjID(), associations);
  if (!isGood(step, "Failed in getIfcAssocInfosByObjID \n", status)) return false;
  MCLog::log(MC_INFO, "getIfcsByObjIDList settting the retrived assocInfoList\n");
  container.setIfcAssocInfoList(associations);
  return true;
}

}  // namespace

std::list<ZNRefPtr<ZNIfc>> loadIfcDetails(ZNTopoAPI_Impl& api,
                                          const std::list<ZNRefPtr<ZNIfc>>& containers, bool all,
                                          const char* operation, ZNTopoAPIStatus& status) {
  std::list<ZNRefPtr<ZNIfc>> complete;
  for (const ZNRefPtr<ZNIfc>& container : containers) {
    const bool hasData = loadData(api, *container, status);
    const bool hasAssociations = loadAssociations(api, *container, status);
    if (hasData && hasAssociations) complete.push_back(container);
  }
  MCLog::log(MC_INFO, "%s calling getIfcInfosByObjIDList\n", operation);
  const std::list<ObjID> ids = idsOf(containers);
  ZNTopoAPIStatus step;
  const auto infos = api.getIfcInfosByObjIDList({ids.begin(), ids.end()}, step, false, all, 0);
  if (!isGood(step, "Failed in getIfcInfoByObjIDList \n", status)) return {};
  for (const ZNRefPtr<ZNIfc>& container : containers) {
    const auto found = findObjID(*infos, container->getObjID());
    if (found == infos->end()) continue;
    MCLog::log(MC_INFO, "%s setting the infolist for Ifc=%s\n", operation,
               shown(MC_INFO, container->getObjID()).c_str());
    container->setIfcInfoList(*found->second);
  }
  return complete;
}

}  // namespace zntopo::detail
