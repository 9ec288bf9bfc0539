#include <optional>

#include "zntopo/cache/ZNTopoCache.h"
#include "zntopo/cache/detail/Shelves.h"
#include "zntopo/core/MCLog.h"
#include "zntopo/core/detail/OperationScope.h"
#include "zntopo/store/StoreAccess.h"

namespace zntopo {

const int ZNTopoCache::readinessCheckInterval = 30;  // seconds

namespace {

using detail::OperationScope;

/// What the trace quotes, whichever file of the class the operation is in.
constexpr const char* kSourceName = "ZNTopoCache.cpp";

constexpr const char* kStateSql =
    "select TopologyReady, DISCOCYCLECOMPLETE, MeshState, HSRPState, ContainmentState, "
    "RelatedToState, TOPOLOGYREADYCHANGETIME,"
    "DiscoZoneComplete, DiscoZoneInProgress, ChangeTime, CreateTime, PrevDiscoEndTime from State";

enum StateColumn : int {
  TopologyReady,
  DiscoCycleComplete,
  MeshState,
  HSRPState,
  ContainmentState,
  RelatedToState,
  TopologyReadyChangeTime,
  DiscoZoneComplete,
  DiscoZoneInProgress,
  ChangeTime,
  CreateTime,
  PrevDiscoEndTime
};

constexpr Column kStateColumns[] = {
    intColumn("TopologyReady"),
    intColumn("DISCOCYCLECOMPLETE"),
    intColumn("MeshState"),
    intColumn("HSRPState"),
    intColumn("ContainmentState"),
    intColumn("RelatedToState"),
    intColumn("TOPOLOGYREADYCHANGETIME"),
    intColumn("DiscoZoneComplete"),
    intColumn("DiscoZoneInProgress"),
    intColumn("ChangeTime"),
    intColumn("CreateTime"),
    intColumn("PrevDiscoEndTime"),
};

// The words "getObjIDs" are what readers of this status know.
constexpr AccessTexts kStateTexts = {
    .column = {ZN_API_SQL_BIND_COLUMN_ERROR, "Problem binding values for getObjIDs:", true},
    .exec = {ZN_API_SQL_EXEC_ERROR, "Problem Executing SQL Command:", true},
    .preparing = {"getTopologyState SQL String: %s \n", MC_INFO},
    .fetchesOnce = true,
};

constexpr const char* kReadinessSql = "select TopologyReady, TopologyReadyChangeTime from state";

constexpr Column kReadinessColumns[] = {intColumn("TopologyReady"),
                                        intColumn("TopologyReadyChangeTime")};

constexpr AccessTexts kReadinessTexts = {
    .statement = {ZN_API_SQL_BIND_STATEMENT_ERROR,
                  "Unable to obtain model readiness information, unable to bind sql!",
                  false,
                  ErrorList::ToStandardError,
                  {"Unable to obtain model readiness statistics. Impact to Cache! The statement "
                   "was null. \n",
                   MC_CRITICAL}},
    .column = {ZN_API_SQL_BIND_COLUMN_ERROR, "Unable to bind SQL", false, ErrorList::Dropped},
    .exec = {ZN_API_SQL_EXEC_ERROR,
             "Unable to obtain model readiness information, unable to exec sql!",
             false,
             ErrorList::ToStandardError,
             {"Unable to obtain model readiness statistics. Impact to Cache! Error: %d\n",
              MC_CRITICAL}},
    .fetchesOnce = true,
};

/// All columns but the end of the previous discovery must have a value.
bool isComplete(const Row& row) {
  for (int column = TopologyReady; column < PrevDiscoEndTime; ++column) {
    if (!row.isPresent(column)) return false;
  }
  return true;
}

ZNTopologyState stateOf(const Row& row) {
  ZNTopologyState::CompleteTopologyState state;
  state.createTime = row.integer(CreateTime);
  state.topologyReadyTime = row.integer(TopologyReadyChangeTime);
  state.lastChangeTime = row.integer(ChangeTime);
  state.DiscoCycleComplete = row.integer(DiscoCycleComplete);
  state.DiscoZoneComplete = row.integer(DiscoZoneComplete);
  state.DiscoZoneInProgress = row.integer(DiscoZoneInProgress);
  state.MeshState = row.integer(MeshState);
  state.HSRPState = row.integer(HSRPState);
  state.ContainmentState = row.integer(ContainmentState);
  state.RelatedToState = row.integer(RelatedToState);
  state.TopologyReady = row.integer(TopologyReady);
  state.prevDiscoEndTime = row.integer(PrevDiscoEndTime);
  const auto topoState = state.TopologyReady == 1 ? ZNTopologyState::READY
                                                  : ZNTopologyState::TOPOLOGY_INTERNAL_PROCESSING;
  return ZNTopologyState(topoState, state.topologyReadyTime, state);
}

void refuse(ZNTopoAPIStatus& status, const char* text) {
  status.setStatus(ZN_API_DB_NOT_READY);
  status.addAuxMsg(text);
}

}  // namespace

ZNTopoCache::ZNCacheStatus ZNTopoCache::validate(ZNTopoAPIStatus& status) {
  std::optional<detail::Shelves::Cleared> cleared;  // dies after the lock
  MutexLockInternal lock(myMutex);
  const long now = now_();
  const bool isRecent = now - lastReadinessCheckTime < readinessCheckInterval;
  lastReadinessCheckTime = now;
  if (isRecent && isModelReady()) {
    MCLog::log(MC_TRACE_L2, "Model is ready\n");
    return ZN_CACHE_VALID;
  }
  const ZNTopologyState state = getTopologyState(status);
  ZNCacheStatus result = ZN_CACHE_VALID;
  if (!status.isOK() || state.getTopoState() != ZNTopologyState::READY) {
    cleared = shelves_->clear();
    MCLog::log(MC_TRACE_L2, "TopoDB is not ready !\n");
    result = ZN_DB_NOT_READY;
  } else if (myTimeStamp != state.getLastTopoReadyChangeTime()) {
    cleared = shelves_->clear();
    MCLog::log(MC_TRACE_L2, "Cache reset \n");
    result = ZN_CACHE_RESET;
  } else {
    MCLog::log(MC_TRACE_L2, "Model is ready\n");
  }
  myModelStatus = state.getTopoState();
  myTimeStamp = state.getLastTopoReadyChangeTime();
  return result;
}

bool ZNTopoCache::isModelReady() const { return myModelStatus == ZNTopologyState::READY; }

long ZNTopoCache::getTimeStamp() const { return myTimeStamp; }

ZNTopologyState ZNTopoCache::getTopologyState(ZNTopoAPIStatus& status) {
  const OperationScope scope({"ZNTopoCache::getTopologyState", kSourceName});
  status.reset();
  ZNTopologyState state;
  runQuery(kStateSql, kStateColumns, kStateTexts, status, [&](const Row& row) {
    if (isComplete(row)) state = stateOf(row);
    return true;
  });
  return state;
}

void ZNTopoCache::getModelReadiness(long& timeStamp, int& status, ZNTopoAPIStatus& apiStatus) {
  const OperationScope scope({"ZNTopoCache::getModelReadiness", kSourceName});
  apiStatus.reset();
  timeStamp = 0;
  status = 0;
  bool isFound = false;
  const bool hasRun =
      runQuery(kReadinessSql, kReadinessColumns, kReadinessTexts, apiStatus, [&](const Row& row) {
        isFound = true;
        if (row.indicator(0) < 0 || row.indicator(1) < 0) {
          refuse(apiStatus, "Invalid data received from the state table of model.");
          return true;
        }
        status = row.integer(0);
        timeStamp = row.integer(1);
        MCLog::log(MC_INFO, "getModelReadiness: Status = %d, TimeStamp = %d \n", status,
                   row.integer(1));
        return true;
      });
  if (hasRun && !isFound) {
    refuse(apiStatus, "No Results received from the State Table, may not be populated!");
  }
}

}  // namespace zntopo
