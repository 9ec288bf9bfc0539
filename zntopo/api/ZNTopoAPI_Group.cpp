// VLANs, interface containers and HSRP groups by identifier, by list, or all of a kind: one way
// for all three, and a record of what differs.

#include "zntopo/api/ZNTopoAPI_Impl.h"
#include "zntopo/api/detail/CachedObjects.h"
#include "zntopo/api/detail/EntitiesOfKind.h"
#include "zntopo/api/detail/GroupSql.h"
#include "zntopo/api/detail/IfcDetails.h"
#include "zntopo/api/detail/NotDelivered.h"
#include "zntopo/api/detail/ObjectsRead.h"
#include "zntopo/api/detail/SingleObject.h"
#include "zntopo/core/MCLog.h"
#include "zntopo/core/detail/Failure.h"
#include "zntopo/core/detail/LogText.h"
#include "zntopo/core/detail/OperationScope.h"
#include "zntopo/store/detail/QuotedList.h"

namespace zntopo {

namespace {

template <typename T>
using GroupList = std::list<ZNRefPtr<T>>;

// A failure of the read stays as it is.
constexpr detail::SingleObjectTexts kVlanByObjID = {.afterID = " is not a valid Vlan"};
constexpr detail::SingleObjectTexts kIfcByObjID = {.afterID = " is not a valid Ifc"};

GroupList<ZNVlan> loadVlans(ZNTopoAPI_Impl& api, const GroupList<ZNVlan>& vlans, bool all,
                            ZNTopoAPIStatus& status) {
  const auto infos = api.getVlanInfosByObjIDList(detail::idsOf(vlans), status, false, all);
  if (!detail::handOutLoaded(status, "Failed in getVlanInfoByObjIDList \n", vlans, *infos,
                             &ZNVlan::setVlanInfoList)) {
    return {};
  }
  if (!all) return vlans;
  // All at once, behind the construction: the number of such a VLAN, which its constructor takes
  // from them, stays null. Of the three kinds VLANs alone have their variables read by kind; HSRP
  // groups get them with their entities and containers get none.
  const auto variables = api.getUserDefVarsByObjIDList_Int({}, status, E_Vlan);
  const bool given = detail::handOutLoaded(status, "Failed in getUserDefVarsByObjIDLIst \n", vlans,
                                           *variables, &ZNVlan::setUserVars);
  return given ? vlans : GroupList<ZNVlan>();
}

GroupList<ZNHSRP> loadHSRPs(ZNTopoAPI_Impl& api, const GroupList<ZNHSRP>& groups, bool all,
                            ZNTopoAPIStatus& status) {
  // Not every engine takes a list without an identifier in it.
  if (groups.empty()) return {};
  const auto infos = api.getHSRPInfosByObjIDList(detail::idsOf(groups), status, all);
  const bool given = detail::handOutLoaded(status, "Failed in getHSRPInfoByObjIDList \n", groups,
                                           *infos, &ZNHSRP::setZNHSRPAddressInfoList);
  return given ? groups : GroupList<ZNHSRP>();
}

GroupList<ZNIfc> loadIfcs(ZNTopoAPI_Impl& api, const GroupList<ZNIfc>& containers, bool all,
                          ZNTopoAPIStatus& status) {
  return detail::loadIfcDetails(api, containers, all, "getIfcsByObjIDList", status);
}

}  // namespace

template <typename T>
struct ZNTopoAPI_Impl::GroupKind {
  /// In the log lines.
  const char* name;
  EntityType type;
  const char* emptyList;
  const char* conditionStart;
  std::string (*allCondition)(int rd);
  OwnedEntityVector (ZNTopoAPI_Impl::*readEntities)(std::string&, ZNTopoAPIStatus&, bool);
  /// The user variables come with the entities even if all are asked for.
  bool alwaysLoadsVariables;
  /// Gives the groups for which that went well.
  GroupList<T> (*loadDetails)(ZNTopoAPI_Impl&, const GroupList<T>&, bool all, ZNTopoAPIStatus&);

  detail::CachedKind<T> cached;
  int (ZNTopoConfig::*cacheSize)() const;
  /// All of them, or null unless all are cached.
  std::unique_ptr<GroupList<T>> (ZNTopoCache::*allCached)() const;
  unsigned long (ZNTopoCache::*losses)() const;
  void (ZNTopoCache::*setAllLoaded)(unsigned long lossesBefore);
  /// Logged for each group that is handed to the cache, if there.
  const char* useLine = nullptr;

  /// A cache that keeps none of them never holds them all.
  bool isKept(const ZNTopoCache& cache) const { return (cache.getTopoConfig().*cacheSize)() > 0; }
};

// Whatever route distinguisher is asked for: the cache gives all that it has.
template <typename T>
std::unique_ptr<std::list<ZNRefPtr<T>>> ZNTopoAPI_Impl::allCachedGroups(const GroupKind<T>& kind) {
  if (!kind.isKept(*cache())) return nullptr;
  auto groups = (cache()->*kind.allCached)();
  if (!groups) return nullptr;
  MCLog::log(MC_INFO, "Retrieve all %ss from cache\n", kind.name);
  MCLog::log(MC_INFO, "Number of %s in Cache = %d\n", kind.name, static_cast<int>(groups->size()));
  return groups;
}

template <typename T>
std::unique_ptr<std::list<ZNRefPtr<T>>> ZNTopoAPI_Impl::groupsByObjIDList(
    const GroupKind<T>& kind, const ObjIDSet& theObjIDs, ObjIDSet& theNotFoundIDs,
    ZNTopoAPIStatus& theStatus, bool getAll, int aRD) {
  theStatus.reset();
  auto theGroups = std::make_unique<GroupList<T>>();
  if (!validate(theStatus)) return theGroups;
  if (!getAll && theObjIDs.empty()) {
    detail::setFailure(theStatus, ZN_API_EMPTY_OBJID_LIST, kind.emptyList);
    return theGroups;
  }
  if (getAll) {
    if (auto all = allCachedGroups(kind)) return all;
  }
  const unsigned long lossesBefore = (cache()->*kind.losses)();
  MCLog::log(MC_INFO, "Some %ss are not in cache, continue to get from DB\n", kind.name);
  std::string condition = kind.allCondition(aRD);
  if (!getAll) {
    const auto missing = detail::takeCached(*cache(), kind.cached, theObjIDs, *theGroups);
    if (theGroups->size() == theObjIDs.size()) {
      MCLog::log(MC_INFO, "Found all %s in cache ! \n", kind.name);
      return theGroups;
    }
    condition = detail::quotedList(kind.conditionStart, missing);
  }
  readGroups(kind, condition, *theGroups, theStatus, getAll);
  if (!theStatus.isOK()) return theGroups;
  // A request that is limited to a route distinguisher counts as one for all here, too.
  if (getAll && kind.isKept(*cache())) (cache()->*kind.setAllLoaded)(lossesBefore);
  if (!getAll) theNotFoundIDs = detail::notDelivered(theObjIDs, *theGroups, kind.cached.idOf);
  return theGroups;
}

/// Appends the groups of a condition, and hands all of the list to the cache whose parts did not
/// fail.
template <typename T>
void ZNTopoAPI_Impl::readGroups(const GroupKind<T>& kind, std::string& condition,
                                GroupList<T>& theGroups, ZNTopoAPIStatus& theStatus, bool getAll) {
  const auto entities =
      (this->*kind.readEntities)(condition, theStatus, kind.alwaysLoadsVariables || !getAll);
  MCLog::log(MC_INFO, "List size = %d \n", static_cast<int>(entities->size()));
  const auto read = detail::entitiesOfKind<T>(*entities, kind.type);
  theGroups.insert(theGroups.end(), read.begin(), read.end());
  // What failed already has told its status, which a loader would reset.
  if (!theStatus.isOK()) return;
  const auto loaded = kind.loadDetails(*this, read, getAll, theStatus);
  for (const ZNRefPtr<T>& group : theStatus.isOK() ? theGroups : loaded) {
    if (kind.useLine) {
      detail::logLine(MC_INFO, kind.useLine, detail::shown(MC_INFO, group->getObjID()));
    }
    (cache()->*kind.cached.use)(group);
  }
}

// ---- VLANs ------------------------------------------------------------------------------------

ZNTopoAPI_Impl::OwnedVlanList ZNTopoAPI_Impl::getVlansByObjIDList(const ObjIDSet& theObjIDs,
                                                                  ObjIDSet& theNotFoundIDs,
                                                                  ZNTopoAPIStatus& theStatus,
                                                                  bool getAllVlans, int aRD) {
  static constexpr GroupKind<ZNVlan> kKind = {
      .name = "Vlan",
      .type = E_Vlan,
      .emptyList = "getVlansByObjIDLIst() - empty list ! ",
      .conditionStart = " ObjID in (",
      .allCondition = detail::allVlans,
      .readEntities = &ZNTopoAPI_Impl::getEntitiesByWhereClause,
      .alwaysLoadsVariables = false,
      .loadDetails = loadVlans,
      .cached = {.inCache = &ZNTopoCache::inVlanObjIDCache,
                 .use = &ZNTopoCache::useVlan,
                 .foundLine = "FOUND Vlan = %s IN CACHE! \n",
                 .idOf = &ZNVlan::getObjID},
      .cacheSize = &ZNTopoConfig::getVlanCacheSize,
      .allCached = &ZNTopoCache::getAllVlans,
      .losses = &ZNTopoCache::vlanLosses,
      .setAllLoaded = &ZNTopoCache::setAllVlanLoaded,
  };
  const detail::OperationScope scope("getVlansByObjIDList");
  return groupsByObjIDList(kKind, theObjIDs, theNotFoundIDs, theStatus, getAllVlans, aRD);
}

ZNRefPtr<ZNVlan> ZNTopoAPI_Impl::getVlanByObjID(const ObjID& theObjID, ZNTopoAPIStatus& theStatus) {
  const detail::OperationScope scope("getVlanByObjID");
  theStatus.reset();
  return detail::singleObject(theObjID, kVlanByObjID, theStatus, [&] {
    ObjIDSet notFoundIDs;
    return getVlansByObjIDList({theObjID}, notFoundIDs, theStatus, false, -1);
  });
}

// ---- containers -------------------------------------------------------------------------------

ZNTopoAPI_Impl::OwnedIfcList ZNTopoAPI_Impl::getIfcsByObjIDList(const ObjIDSet& theObjIDs,
                                                                ObjIDSet& theNotFoundIDs,
                                                                ZNTopoAPIStatus& theStatus,
                                                                bool getAll, int aRD) {
  static constexpr GroupKind<ZNIfc> kKind = {
      .name = "Ifc",
      .type = E_IfC,
      .emptyList = "getIfcsByObjIDLIst() - empty list ! ",
      .conditionStart = " ObjId in (",
      .allCondition = detail::allIfcs,
      .readEntities = &ZNTopoAPI_Impl::getIfcEntitiesByWhereClause,
      .alwaysLoadsVariables = false,
      .loadDetails = loadIfcs,
      .cached = {.inCache = &ZNTopoCache::inIfcObjIDCache,
                 .use = &ZNTopoCache::useIfc,
                 .foundLine = "FOUND Ifc = %s IN CACHE! \n",
                 .missedLine = "Cannot FOUND Ifc = %s IN CACHE! \n",
                 .idOf = &ZNIfc::getObjID},
      .cacheSize = &ZNTopoConfig::getIfcCacheSize,
      .allCached = &ZNTopoCache::getAllIfcs,
      .losses = &ZNTopoCache::ifcLosses,
      .setAllLoaded = &ZNTopoCache::setAllIfcLoaded,
      .useLine = "getIfcsByObjIDList inserting into cache the Ifc=%s\n",
  };
  const detail::OperationScope scope("getIfcsByObjIDList");
  return groupsByObjIDList(kKind, theObjIDs, theNotFoundIDs, theStatus, getAll, aRD);
}

ZNRefPtr<ZNIfc> ZNTopoAPI_Impl::getIfcByObjID(const ObjID& theObjID, ZNTopoAPIStatus& theStatus) {
  const detail::OperationScope scope("getIfcByObjID");
  theStatus.reset();
  return detail::singleObject(theObjID, kIfcByObjID, theStatus, [&] {
    ObjIDSet notFoundIDs;
    return getIfcsByObjIDList({theObjID}, notFoundIDs, theStatus, false, -1);
  });
}

// ---- HSRP groups ------------------------------------------------------------------------------

ZNTopoAPI_Impl::OwnedHSRPList ZNTopoAPI_Impl::getHSRPsByObjIDList(const ObjIDSet& theObjIDs,
                                                                  ObjIDSet& theNotFoundIDs,
                                                                  ZNTopoAPIStatus& theStatus,
                                                                  bool getAllHSRPs, int aRD) {
  static constexpr GroupKind<ZNHSRP> kKind = {
      .name = "HSRP",
      .type = E_HSRP,
      .emptyList = "getHSRPsByObjIDLIst() - empty list !",
      .conditionStart = " ObjID in (",
      .allCondition = detail::allHSRPs,
      .readEntities = &ZNTopoAPI_Impl::getEntitiesByWhereClause,
      .alwaysLoadsVariables = true,
      .loadDetails = loadHSRPs,
      .cached = {.inCache = &ZNTopoCache::inHSRPObjIDCache,
                 .use = &ZNTopoCache::useHSRP,
                 .foundLine = "FOUND HSRP = %s IN CACHE! \n",
                 .idOf = &ZNHSRP::getObjID},
      .cacheSize = &ZNTopoConfig::getHSRPCacheSize,
      .allCached = &ZNTopoCache::getAllHSRPs,
      .losses = &ZNTopoCache::hsrpLosses,
      .setAllLoaded = &ZNTopoCache::setAllHSRPLoaded,
  };
  const detail::OperationScope scope("getHSRPsByObjIDList");
  return groupsByObjIDList(kKind, theObjIDs, theNotFoundIDs, theStatus, getAllHSRPs, aRD);
}

}  // namespace zntopo
