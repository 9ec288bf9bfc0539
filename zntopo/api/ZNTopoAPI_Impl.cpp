#include "zntopo/api/ZNTopoAPI_Impl.h"

#include "zntopo/core/MCLog.h"
#include "zntopo/core/detail/OperationScope.h"
#include "zntopo/notify/TopoNotificationClientFactory.h"
#include "zntopo/store/StoreAccess.h"

namespace zntopo {

namespace {

struct TableOfType {
  EntityType type;
  std::string TableSet::*table;
};

constexpr TableOfType kTablesOfTypes[] = {
    {E_Node, &TableSet::nwnodeTbl_}, {E_Interface, &TableSet::nwinterfaceTbl_},
    {E_Vlan, &TableSet::nwvlanTbl_}, {E_HSRP, &TableSet::nwhsrpTbl_},
    {E_IfC, &TableSet::nwifcTbl_},
};

}  // namespace

ZNTopoCache* ZNTopoAPI_Impl::cache() {
  static ZNTopoCache* const theCache = new ZNTopoCache();
  return theCache;
}

ZNTopoCache* const ZNTopoAPI_Impl::myCache = ZNTopoAPI_Impl::cache();

ZNTopoAPI_Impl::ZNTopoAPI_Impl() : ZNTopoAPI_Impl(ActiveDB) {}

ZNTopoAPI_Impl::ZNTopoAPI_Impl(TopoDBType theDBType) : dbType_(theDBType) {
  setUpTblNames(theDBType);
  MCLog::log(MC_INFO, "Creating ZNTopoAPI with TopoDBType : %d\n", static_cast<int>(dbType_));
}

ZNTopoAPI_Impl::~ZNTopoAPI_Impl() = default;

void ZNTopoAPI_Impl::setUpTblNames(TopoDBType theDBType) {
  static_cast<TableSet&>(*this) = TableSet(theDBType);
}

void ZNTopoAPI_Impl::release() {
  if (auto* const factory = TopoNotificationClientFactory::instance()) factory->doCleanup();
}

ZNTopoCache* ZNTopoAPI_Impl::getTopoCache() const { return cache(); }

std::string ZNTopoAPI_Impl::findTableNameFromEntityType(EntityType theType) const {
  for (const TableOfType& entry : kTablesOfTypes) {
    if (entry.type == theType) return this->*entry.table;
  }
  return "ERROR";
}

std::set<ObjID> ZNTopoAPI_Impl::ConvertObjIDListToSet(const std::list<ObjID>& theList) {
  return std::set<ObjID>(theList.begin(), theList.end());
}

void ZNTopoAPI_Impl::getVendor(TvDbil::DbilRdbmsVendor& theVendor, ZNTopoAPIStatus& theStatus) {
  const detail::OperationScope scope("getVendor");
  theStatus.reset();
  const ODBCConn holder;
  if (!holder.getStatus().isOK()) theStatus = holder.getStatus();
  // A failed holder does not keep the vendor from being read; one without a connection has none.
  const TvDbil::DbConnection_t* const connection = holder.getDbConnection();
  theVendor = connection ? connection->GetVendor() : TvDbil::Unknown;
}

std::unique_ptr<std::list<std::string>> ZNTopoAPI_Impl::dumpCache() const { return nullptr; }

ZNTopologyState ZNTopoAPI_Impl::getTopologyState(ZNTopoAPIStatus& theStatus) {
  return cache()->getTopologyState(theStatus);
}

bool ZNTopoAPI_Impl::isCacheValid() const { return cache()->isAddressIDMapValid(); }

bool ZNTopoAPI_Impl::validate(ZNTopoAPIStatus& theStatus) {
  if (dbType_ == WorkingDB) return true;
  switch (cache()->validate(theStatus)) {
    case ZNTopoCache::ZN_CACHE_VALID:
    case ZNTopoCache::ZN_CACHE_RESET:
      return true;
    case ZNTopoCache::ZN_DB_NOT_READY:
      theStatus.setStatus(ZN_API_DB_NOT_READY);
      theStatus.addAuxMsg("Topology DB is not ready");
      return false;
  }
  return false;
}

void ZNTopoAPI_Impl::addErrorListMessage(TvXplMsg::MessageList_t& theMessages,
                                         ZNTopoAPIStatus& theStatus) {
  zntopo::addErrorListMessage(theMessages, theStatus);
}

void ZNTopoAPI_Impl::useNode(const ZNRefPtr<ZNNode>& theNode) { cache()->useNode(theNode); }

void ZNTopoAPI_Impl::useInterface(const ZNRefPtr<ZNInterface>& theInterface) {
  cache()->useInterface(theInterface);
}

void ZNTopoAPI_Impl::useAddress(const ZNRefPtr<ZNAddress>& theAddress) {
  cache()->useAddress(theAddress);
}

void ZNTopoAPI_Impl::useSubnet(const ZNRefPtr<ZNSubnet>& theSubnet) {
  cache()->useSubnet(theSubnet);
}

void ZNTopoAPI_Impl::useVlan(const ZNRefPtr<ZNVlan>& theVlan) { cache()->useVlan(theVlan); }

void ZNTopoAPI_Impl::useIfc(const ZNRefPtr<ZNIfc>& theIfc) { cache()->useIfc(theIfc); }

void ZNTopoAPI_Impl::useHSRP(const ZNRefPtr<ZNHSRP>& theHSRP) { cache()->useHSRP(theHSRP); }

}  // namespace zntopo
