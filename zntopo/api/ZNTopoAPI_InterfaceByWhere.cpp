// The big select of interfaces, and what hangs on them.

#include "zntopo/api/ZNTopoAPI_Impl.h"
#include "zntopo/api/detail/InterfaceRow.h"
#include "zntopo/api/detail/InterfaceSql.h"
#include "zntopo/api/detail/ObjectsRead.h"
#include "zntopo/core/MCLog.h"
#include "zntopo/core/detail/OperationScope.h"

namespace zntopo {

namespace {

using InterfaceList = std::list<ZNRefPtr<ZNInterface>>;

constexpr AccessTexts kTexts = {
    .column = {ZN_API_SQL_BIND_COLUMN_ERROR, "Problem binding values for Interface"},
};

/// False at a row without what no interface can be without, which ends the read.
bool addInterface(const Row& row, TopoDBType dbType, detail::ObjectsRead<ZNInterface>& read) {
  if (row.integer(detail::IF_EntityType) != E_Interface) {
    MCLog::log(MC_INFO, "getInterfacesByWhereQuery - EntityType != E_Interface ! ");
    return true;
  }
  return read.add(row, detail::kInterfaceEntityColumns, [dbType](const Row& complete) {
    MCLog::log(MC_INFO, "Creating Interface Entity\n");
    return detail::interfaceFromRow(complete, dbType);
  });
}

}  // namespace

ZNTopoAPI_Impl::OwnedInterfaceList ZNTopoAPI_Impl::getInterfacesByWhereQuery(
    const std::string& partOfWhere, ZNTopoAPIStatus& theStatus, int mode,
    const std::list<ObjID>& aNodeList) {
  const detail::OperationScope scope("getInterfacesByWhereQuery");
  theStatus.reset();
  const std::string sql = detail::interfaceSelect(*this, partOfWhere);
  MCLog::log(MC_INFO, "SQL Statement: %s \n", sql.c_str());
  // The connection is held while the loaders take theirs.
  StoreAccess access(theStatus, kTexts);
  detail::ObjectsRead<ZNInterface> read;
  const bool isRead = access.run(sql, detail::kInterfaceColumns,
                                 [&](const Row& row) { return addInterface(row, dbType_, read); });
  const auto addressesOf = [&](const std::list<ObjID>& ids) {
    const bool byNode = mode == detail::INTERFACES_BY_NODE;
    if (byNode) MCLog::log(MC_INFO, "Get all addresses using Node Id\n");
    return getAddrsByAssociatedObjIDList(byNode ? aNodeList : ids, theStatus, mode);
  };
  if (isRead && !read.isCutShort && detail::giveUserVars(*this, read, theStatus) &&
      detail::giveAddresses(read, addressesOf, theStatus) && mode != detail::ALL_CONNECTED) {
    for (const ZNRefPtr<ZNInterface>& interface : read.objects) useInterface(interface);
  }
  return std::make_unique<InterfaceList>(std::move(read.objects));
}

}  // namespace zntopo
