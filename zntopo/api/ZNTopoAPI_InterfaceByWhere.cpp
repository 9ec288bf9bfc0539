// The big select of interfaces, and what hangs on them.

#include "zntopo/api/ZNTopoAPI_Impl.h"
#include "zntopo/api/detail/InterfaceRow.h"
#include "zntopo/api/detail/InterfaceSql.h"
#include "zntopo/core/MCLog.h"
#include "zntopo/core/ObjIDLookup.h"
#include "zntopo/core/detail/OperationScope.h"

namespace zntopo {

namespace {

using InterfaceList = std::list<ZNRefPtr<ZNInterface>>;

constexpr AccessTexts kTexts = {
    .column = {ZN_API_SQL_BIND_COLUMN_ERROR, "Problem binding values for Interface"},
};

/// Takes the rows, and notes what hangs on the interfaces.
class InterfaceReader {
 public:
  explicit InterfaceReader(TopoDBType dbType) : dbType_(dbType) {}

  /// False at a row without what no interface can be without, which ends the read.
  bool take(const Row& row) {
    if (row.integer(detail::IF_EntityType) != E_Interface) {
      MCLog::log(MC_INFO, "getInterfacesByWhereQuery - EntityType != E_Interface ! ");
      return true;
    }
    note(row, detail::IF_hasAddress, ifsWithAddress);
    note(row, detail::IF_hasDynamicProperty, ifsWithDynamicProperty);
    if (!detail::hasCriticalInterfaceData(row)) {
      MCLog::log(MC_INFO, "Received NULL values for critical data\n");
      MCLog::log(MC_INFO, "Unable to create Interface!\n");
      endedEarly = true;
      return false;
    }
    MCLog::log(MC_INFO, "Creating Interface Entity\n");
    theList->push_back(detail::interfaceFromRow(row, dbType_));
    return true;
  }

  std::unique_ptr<InterfaceList> theList = std::make_unique<InterfaceList>();
  std::list<ObjID> ifsWithAddress;
  std::list<ObjID> ifsWithDynamicProperty;
  bool endedEarly = false;

 private:
  static void note(const Row& row, int column, std::list<ObjID>& ids) {
    if (row.isPresent(column) && row.integer(column) != 0) {
      ids.push_back(ObjID(row.text(detail::IF_ObjId)));
    }
  }

  const TopoDBType dbType_;
};

/// Calls set with each interface that has an entry in the map.
template <typename Map, typename Setter>
void distribute(const InterfaceList& interfaces, const Map& map, const Setter& set) {
  for (const ZNRefPtr<ZNInterface>& interface : interfaces) {
    const auto entry = findObjID(map, interface->getObjID());
    if (entry != map.end() && !entry->second.isNull()) set(*interface, *entry->second);
  }
}

}  // namespace

ZNTopoAPI_Impl::OwnedInterfaceList ZNTopoAPI_Impl::getInterfacesByWhereQuery(
    const std::string& partOfWhere, ZNTopoAPIStatus& theStatus, int mode,
    const std::list<ObjID>& aNodeList) {
  const detail::OperationScope scope("getInterfacesByWhereQuery");
  theStatus.reset();
  InterfaceReader reader(dbType_);
  const std::string sql = detail::interfaceSelect(*this, partOfWhere);
  MCLog::log(MC_INFO, "SQL Statement: %s \n", sql.c_str());
  // The connection is held while the loaders take theirs.
  StoreAccess access(theStatus, kTexts);
  const bool ran =
      access.run(sql, detail::kInterfaceColumns, [&](const Row& row) { return reader.take(row); });
  auto theList = std::move(reader.theList);
  if (!ran || reader.endedEarly) return theList;

  if (!reader.ifsWithDynamicProperty.empty()) {
    const auto theVars = getUserDefVarsByObjIDList(reader.ifsWithDynamicProperty, theStatus);
    if (!theStatus.isOK()) {
      MCLog::log(MC_MAJOR, "Failed in getUserDefVarsByObjIDLIst \n");
      return theList;
    }
    distribute(*theList, *theVars, [](ZNInterface& interface, const std::vector<UserDefVar>& vars) {
      interface.setUserVars(vars);
    });
  }
  if (!reader.ifsWithAddress.empty()) {
    if (mode == detail::INTERFACES_BY_NODE)
      MCLog::log(MC_INFO, "Get all addresses using Node Id\n");
    const auto theAddresses = getAddrsByAssociatedObjIDList(
        mode == detail::INTERFACES_BY_NODE ? aNodeList : reader.ifsWithAddress, theStatus, mode);
    if (!theStatus.isOK()) {
      MCLog::log(MC_MAJOR, "Failed in getAddrByAssociatedObjIDList \n");
      return theList;
    }
    distribute(*theList, *theAddresses,
               [](ZNInterface& interface, const std::vector<ZNRefPtr<ZNAddress>>& addresses) {
                 interface.setAddresses(addresses);
               });
  }
  if (mode == detail::ALL_CONNECTED) return theList;
  for (const ZNRefPtr<ZNInterface>& interface : *theList) useInterface(interface);
  return theList;
}

}  // namespace zntopo
