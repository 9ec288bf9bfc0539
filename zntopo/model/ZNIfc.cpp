#include "zntopo/model/ZNIfc.h"

#include <ctime>

#include "zntopo/core/MCLog.h"
#include "zntopo/model/detail/Rendering.h"

namespace zntopo {

namespace {

using Line = detail::Line<ZNIfc>;

constexpr const char* kBanner = "\n+++++++++++++++++ ZNIfc ++++++++++++++++";

constexpr Line kText[] = {
    {kBanner, Line::baseText<ZNEntity>},
    {"\n     +++++++++++++++++ ZNIfcInfoListBegins ++++++++++++++++",
     Line::texts<&ZNIfc::getAllIfcInfos>},
    {"\n     ----------------- ZNIfcInfoListEnds ----------------"},
    {"\n    "},
    {"\n     +++++++++++++++++ ZNIfcAssocInfoListBegins ++++++++++++++++",
     Line::texts<&ZNIfc::getAllIfcAssocInfos>},
    {"\n     ----------------- ZNIfcAssocInfoListEnds ----------------"},
    {"\n----------------- ZNIfc ----------------\n"},
};

}  // namespace

ZNIfc::ZNIfc() = default;

ZNIfc::ZNIfc(const ZNEntity& theEnt) : ZNEntity(theEnt) {}

ZNIfc::ZNIfc(const ZNEntity& theEnt, const std::list<ZNIfcInfo>& theInfoList)
    : ZNEntity(theEnt), _znIfcInfoList(theInfoList) {}

ZNIfc::ZNIfc(const ZNEntity& theEnt, const std::list<ZNIfcInfo>& theInfoList, int type, int appsId,
             bool isOrdered, bool cleanUpIfEmpty)
    : ZNIfc(theEnt, theInfoList, {}, type, appsId, isOrdered, cleanUpIfEmpty) {}

ZNIfc::ZNIfc(const ZNEntity& theEnt, const std::list<ZNIfcInfo>& theInfoList,
             const std::list<ZNRefPtr<ZNIfcAssocInfo>>& assocList, int type, int appsId,
             bool isOrdered, bool cleanUpIfEmpty)
    : ZNEntity(theEnt),
      _znIfcType(type),
      _znAppsId(appsId),
      _znIsOrdered(isOrdered),
      _znCleanUpIfEmpty(cleanUpIfEmpty),
      _znIfcInfoList(theInfoList),
      _znIfcAssocInfoRefPtrList(assocList) {}

ZNIfc::~ZNIfc() = default;

std::string ZNIfc::toString() const { return detail::rendered(*this, kText); }
std::string ZNIfc::toXML() const { return kBanner; }

const ZNIfcInfo& ZNIfc::getIfcInfoByNodeObjID(const ObjID& id) const {
  // What is returned for an unknown node outlives every caller.
  static const auto* const nothing = new ZNIfcInfo();
  MCLog::log(MC_TRACE_L2, "Entering ZNIfc::getIfcInfoByObjID() \n");
  const ZNIfcInfo* found = nothing;
  for (const ZNIfcInfo& info : _znIfcInfoList) {
    if (info.getIfcInfoObjID() == id) {
      found = &info;
      break;
    }
  }
  MCLog::log(MC_TRACE_L2, "Exiting ZNIfc::getIfcInfoByObjID() \n");
  return *found;
}

std::unique_ptr<std::list<ZNIfcIFInfo>> ZNIfc::getAllIfcIFInfosByOrder() const {
  MCLog::log(MC_TRACE_L2, "Entering ZNIfc::getIfcInfosByOrder() \n");
  auto members = std::make_unique<std::list<ZNIfcIFInfo>>();
  for (const ZNIfcInfo& info : _znIfcInfoList) {
    members->insert(members->end(), info.getAllIfcIFInfos().begin(), info.getAllIfcIFInfos().end());
  }
  members->sort();
  return members;
}

ZNTopoAPIStatus ZNIfc::setStatus(int status, bool updateDB) {
  return setOverallStatus(ObjectStatus(status), static_cast<long>(std::time(nullptr)), updateDB,
                          getDBType());
}

}  // namespace zntopo
