// How large the stored topology is.

#include <array>
#include <map>
#include <string>

#include "zntopo/api/ZNTopoAPI_Impl.h"
#include "zntopo/api/detail/StatisticSql.h"
#include "zntopo/core/MCLog.h"
#include "zntopo/core/detail/Failure.h"
#include "zntopo/core/detail/OperationScope.h"
#include "zntopo/store/StoreAccess.h"

namespace zntopo {

namespace {

constexpr LogLine kStatementLog = {"Failed to bind SQL Statement \n", MC_MAJOR};
constexpr LogLine kExecLog = {"Problem executing SQL Command: %s\n", MC_CRITICAL};

constexpr AccessTexts kStatisticTexts = {
    .statement = {.status = ZN_API_SQL_BIND_STATEMENT_ERROR,
                  .text = "Unable to bind SQL Statement: ",
                  .withSql = true,
                  .log = kStatementLog},
    .column = {.status = ZN_API_SQL_BIND_COLUMN_ERROR,
               .text = "Problem binding values for getStatistis()",
               .log = {"Problem binding values for", MC_CRITICAL}},
    .exec = {.status = ZN_API_SQL_EXEC_ERROR,
             .text = "Problem Executing SQL Command",
             .log = kExecLog},
    .preparing = {"SQL : %s \n", MC_INFO},
};

constexpr Column kCount[] = {intColumn("count")};

constexpr AccessTexts kMapTexts = {
    .statement = {.status = ZN_API_SQL_BIND_STATEMENT_ERROR,
                  .text = "Unable to bind SQL Statement: ",
                  .withSql = true,
                  .log = {"Error binding SQL to DbStatement in get_String_Int_Map()", MC_MAJOR}},
    .exec = {.status = ZN_API_SQL_EXEC_ERROR,
             .text = "Problem Executing SQL Command",
             .log = kExecLog,
             .secondLog = {"Error executing SQL in get_String_Int_Map()", MC_CRITICAL}},
};

constexpr AccessFailure kNoKey = {
    .status = ZN_API_SQL_BIND_COLUMN_ERROR,
    .text = "Problem binding first column in get_String_Int_Map()",
    .log = {"Error binding first column in get_String_Int_Map()", MC_CRITICAL}};
constexpr AccessFailure kNoValue = {
    .status = ZN_API_SQL_BIND_COLUMN_ERROR,
    .text = "Problem binding second column in get_String_Int_Map()",
    .log = {"Error binding second column in get_String_Int_Map()", MC_CRITICAL}};

enum MapColumn { Key, Value };

constexpr Column kMapColumns[] = {
    {"key", ColumnKind::Text, 256, &kNoKey},
    {"value", ColumnKind::Int, 0, &kNoValue},
};

}  // namespace

ZNTopologyInfo ZNTopoAPI_Impl::getTopologyInfo(ZNTopoAPIStatus& theStatus) {
  const detail::OperationScope scope("getTopologyInfo");
  theStatus.reset();
  const ZNTopologyState state = getTopologyState(theStatus);
  if (!theStatus.isOK()) return {};
  if (state.getTopoState() != ZNTopologyState::READY) {
    detail::setFailure(theStatus, ZN_API_DB_NOT_READY,
                       "Topology DataStore is in the state of : " + state.getStateAsString());
    return {};
  }
  const auto selects = detail::statisticSelects(*this);
  std::array<int, detail::kStatistics> counts{};
  for (std::size_t i = 0; i < selects.size(); ++i) {
    counts[i] = getStatistic(selects[i], theStatus);
    if (!theStatus.isOK()) return {};
  }
  std::map<std::string, int> nodesByRD;
  get_String_Int_Map(detail::nodesByRDSelect(*this), nodesByRD, theStatus);
  if (!theStatus.isOK()) return {};
  using namespace detail;
  return {counts[CountNodes],
          counts[CountIPv4Nodes],
          counts[CountIPv6Nodes],
          counts[CountInterfaces],
          counts[CountIPv4Interfaces],
          counts[CountIPv6Interfaces],
          counts[CountPrefixGroups],
          counts[CountSubnets],
          counts[CountVlans],
          counts[CountHSRPs],
          counts[CountMeshes],
          counts[CountL2Links],
          counts[CountV4Addresses],
          counts[CountV6Addresses],
          counts[CountDNSNames],
          counts[CountV4SnmpNodes],
          nodesByRD,
          state};
}

int ZNTopoAPI_Impl::getStatistic(const std::string& theSQL, ZNTopoAPIStatus& theStatus) {
  const detail::OperationScope scope("getStatistic");
  theStatus.reset();
  int value = 0;
  runQuery(theSQL, kCount, kStatisticTexts, theStatus, [&value](const Row& row) {
    if (row.isPresent(0)) value = row.integer(0);
    return true;
  });
  return theStatus.isOK() ? value : 0;
}

int ZNTopoAPI_Impl::get_String_Int_Map(const std::string& theSQL,
                                       std::map<std::string, int>& theMap,
                                       ZNTopoAPIStatus& theStatus) {
  const detail::OperationScope scope("get_String_Int_Map");
  theStatus.reset();
  StoreAccess access(theStatus, kMapTexts);
  const bool ran = access.run(theSQL, kMapColumns, [&theMap](const Row& row) {
    theMap[row.text(Key)] = row.integer(Value);
    return true;
  });
  if (ran && access.lastCode() != TvDbil::DBIL_NO_DATA) {
    MCLog::log(MC_CRITICAL, "Error fetching rows in get_String_Int_Map()");
    MCLog::log(MC_CRITICAL, "Problem fetching SQL Command: %s\n", theSQL.c_str());
  }
  return static_cast<int>(theMap.size());
}

}  // namespace zntopo
