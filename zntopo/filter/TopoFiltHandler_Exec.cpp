// How filters are run.

#include "zntopo/core/detail/Failure.h"
#include "zntopo/core/detail/OperationScope.h"
#include "zntopo/filter/TopoFiltHandler.h"
#include "zntopo/filter/TopoFiltSql.h"
#include "zntopo/filter/detail/FilterTrace.h"
#include "zntopo/store/StoreAccess.h"

namespace zntopo {

namespace {

using TvXplMsg::MessageList_t;

/// A failed step, whose messages go into the caller's list.
constexpr AccessFailure failedStep(ZNTopoStatus status, const char* text, bool withSql = false) {
  return {.status = status, .text = text, .withSql = withSql, .errorList = ErrorList::Dropped};
}

// Of nodes, whatever the filter selects.
constexpr AccessTexts kTexts = {
    .statement =
        failedStep(ZN_API_SQL_BIND_STATEMENT_ERROR, "Unable to bind SQL Statement: ", true),
    .column = failedStep(ZN_API_SQL_BIND_COLUMN_ERROR,
                         "Problem binding values for getNodeIDsByXmlFilter"),
    .exec = failedStep(ZN_API_SQL_EXEC_ERROR, "Problem Executing SQL Command"),
    .executing = {"Executing .. \n", MC_TRACE_L2},
};

constexpr Column kColumns[] = {textColumn("objid", 37)};

/// Tells a failure to the list and to the status.
void fail(MessageList_t& list, ZNTopoAPIStatus& status, ZNTopoStatus code,
          const std::string& text) {
  list.Add(TvXplMsg::CreateError_t(text));
  detail::setFailure(status, code, text);
}

void runFilter(const std::string& sql, MessageList_t& list, ZNTopoAPIStatus& status,
               std::list<ObjID>& ids) {
  detail::traceFilter(detail::kTraceStatement,
                      [&] { return "DEBUG: Ready to exec SQL: [" + sql + "]"; });
  StoreAccess access(status, kTexts);
  if (!access.isConnected()) {
    fail(list, status, ZN_API_INTERNAL_ERROR, "  Failed to get a connection.");
    return;
  }
  access.run(sql, kColumns, [&ids](const Row& row) {
    if (row.isPresent(0)) {
      ids.emplace_back(row.text(0));
    } else {
      MCLog::log(MC_INFO, "Found Null data in retrieval of getNodeIDsByXmlFilter\n");
    }
    return true;
  });
  for (int i = 0; i < access.messages().GetMessageCount(); ++i) {
    list.Add(access.messages().GetMessage(i));
  }
}

}  // namespace

std::unique_ptr<std::list<ObjID>> TopoFiltHandler::ExecFilter(MessageList_t& list,
                                                              const std::string& filterName,
                                                              ZNTopoAPIStatus& status) {
  const detail::OperationScope scope("ExecFilter");
  return run(objectsOfTopoFiltSql, list, filterName, status);
}

std::unique_ptr<std::list<ObjID>> TopoFiltHandler::ExecAddressFilter(MessageList_t& list,
                                                                     const std::string& filterName,
                                                                     ZNTopoAPIStatus& status) {
  const detail::OperationScope scope("ExecAddressFilter");
  return run(addressesOfTopoFiltSql, list, filterName, status);
}

std::unique_ptr<std::list<ObjID>> TopoFiltHandler::run(std::string (*sqlOf)(const TopoFilt&),
                                                       MessageList_t& list,
                                                       const std::string& filterName,
                                                       ZNTopoAPIStatus& status) {
  status.reset();
  auto ids = std::make_unique<std::list<ObjID>>();
  // A name that is not known becomes an empty filter.
  const TopoFilt filter = m_FiltMap[filterName];
  if (filter.getName() != filterName) {
    fail(list, status, ZN_API_XML_FILTER_NAME_NOT_FOUND_ERROR,
         " Filter '" + filterName + "' was NOT found in the filter definition!");
    return ids;
  }
  runFilter(sqlOf(filter), list, status, *ids);
  return ids;
}

}  // namespace zntopo
