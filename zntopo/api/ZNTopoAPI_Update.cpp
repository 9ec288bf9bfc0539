// The changes of states in the store. Each is one statement in a transaction of its own, which
// ends with the call: that it could not be committed shows in the log alone.

#include <ctime>

#include "zntopo/api/ZNTopoAPI_Impl.h"
#include "zntopo/api/detail/StoreTime.h"
#include "zntopo/api/detail/UpdateSql.h"
#include "zntopo/core/MCLog.h"
#include "zntopo/core/detail/LogText.h"
#include "zntopo/core/detail/OperationScope.h"
#include "zntopo/store/StoreAccess.h"

namespace zntopo {

namespace {

/// A line that tells of a place in this file.
std::string failedAt(const char* step, int line = __builtin_LINE()) {
  return step + std::string(" Failed:../ZNTopoAPI_Update:") + std::to_string(line) + "\n";
}

}  // namespace

ZNTopoAPIStatus ZNTopoAPI_Impl::update(const detail::TracedBlock& member, UpdateLog log,
                                       const std::string& sql) {
  const detail::OperationScope scope(member);
  ZNTopoAPIStatus status;
  if (!validate(status)) return status;
  if (log == UpdateLog::WithTableSet) {
    MCLog::log(MC_INFO, "TopoDBType : %d\n", static_cast<int>(dbType_));
  }
  detail::logLine(MC_INFO, "SQL: %s\n", sql);
  const std::string notBound = std::string("Problem binding SQL Command in ") + member.name + "()";
  const std::string notRun = std::string("Problem Executing SQL Command in ") + member.name + "()";
  StoreAccess access(status, {.statement = {ZN_API_SQL_BIND_STATEMENT_ERROR, notBound.c_str()},
                              .exec = {ZN_API_SQL_EXEC_ERROR, notRun.c_str()}});
  access.execute(sql);
  return status;
}

ZNTopoAPIStatus ZNTopoAPI_Impl::setHSRPAddressInfo(const ZNHSRPAddressInfo& anInfo) {
  return update("setHSRPAddressInfo", UpdateLog::WithTableSet,
                detail::hsrpAddressUpdate(*this, anInfo));
}

ZNTopoAPIStatus ZNTopoAPI_Impl::setNWInterfaceState(const ObjID& theObjID, int newAttrVal,
                                                    int attributeType) {
  return update("setNWInterfaceState", UpdateLog::Plain,
                detail::interfaceStateUpdate(*this, theObjID, newAttrVal, attributeType));
}

ZNTopoAPIStatus ZNTopoAPI_Impl::setAddressState(const ObjID& theObjID, int newAttrVal) {
  return update("setAddressState", UpdateLog::Plain,
                detail::pingStateUpdate(*this, theObjID, newAttrVal));
}

ZNTopoAPIStatus ZNTopoAPI_Impl::setNWNodeStatus(const ObjID& theObjID, int newStatus,
                                                int statType) {
  return update("setNWNodeStatus", UpdateLog::Plain,
                detail::nodeStatusUpdate(*this, theObjID, newStatus, statType));
}

ZNTopoAPIStatus ZNTopoAPI_Impl::setEntityStatus(const ObjID& theObjID, int newStatus,
                                                int statusChangeTimeUTC,
                                                ZNEntity::EntityStatusType statType,
                                                EntityType entType) {
  return update("setEntityStatus", UpdateLog::Plain,
                detail::entityStatusUpdate(*this, theObjID, newStatus, statusChangeTimeUTC,
                                           statType, entType));
}

ZNTopoAPIStatus ZNTopoAPI_Impl::setL2DomainIdOfNode(ZNNode& aNode, int& id) {
  return update("setL2DomainIdOfNode", UpdateLog::WithTableSet,
                detail::l2DomainUpdate(nwnodeTbl_, aNode.getObjID(), id));
}

ZNTopoAPIStatus ZNTopoAPI_Impl::setL2DomainIdOfInterface(ZNInterface& aInterface, int& id) {
  return update("setL2DomainIdOfInterface", UpdateLog::WithTableSet,
                detail::l2DomainUpdate(nwinterfaceTbl_, aInterface.getObjID(), id));
}

// Without a look at readiness.
ZNTopoAPIStatus ZNTopoAPI_Impl::setNWIfcAssocInfoState(const ObjID& leftIfcObjID,
                                                       const ObjID& rightIfcObjID, int assocType,
                                                       int state) {
  const detail::OperationScope scope("setNWIfcAssocInfoState");
  const std::string left = leftIfcObjID.getStrValue();
  const std::string right = rightIfcObjID.getStrValue();
  const int now = detail::storeTime(static_cast<long>(std::time(nullptr)));
  const std::string sql = detail::ifcAssociationUpdate();
  const std::string notPrepared = failedAt(" BindSql");
  const std::string notBound = failedAt(" BindParm");
  const std::string notRun = failedAt(" Exec");
  AccessTexts texts = {
      .exec = {.status = ZN_API_SQL_EXEC_ERROR,
               .text = "Problem Executing SQL Command in setNWIfcAssocInfoState()",
               .log = {" DbilEx is :%d \n", MC_INFO},
               .secondLog = {notRun.c_str(), MC_MAJOR}},
      .parametersBound = {" DbilBp1 is :%d DbilBp2 is :%d DbilBp3 is :%d DbilBp4 is :%d "
                          "DbilBp5 is :%d\n",
                          MC_INFO},
      .executed = {" DbilEx is :%d \n", MC_INFO}};
  texts.statement.log = {notPrepared.c_str(), MC_MAJOR};
  texts.parameter.log = {notBound.c_str(), MC_MAJOR};

  ZNTopoAPIStatus status;
  StoreAccess access(status, texts);
  if (!access.isConnected()) return status;
  MCLog::log(MC_TRACE_L1, " The BindSql Stmt is :%s\n", sql.c_str());
  MCLog::log(MC_TRACE_L1, " 1.LeftIfcObjId is:%s\n", left.c_str());
  MCLog::log(MC_TRACE_L1, " 2.RightIfcObjId is:%s\n", right.c_str());
  MCLog::log(MC_TRACE_L1, " 3.AssocType is:%d\n", assocType);
  MCLog::log(MC_TRACE_L1, " 4.state is:%d\n", state);
  MCLog::log(MC_TRACE_L1, " 5.state change Time is:%d\n", now);
  access.execute(sql,
                 {{&state}, {&now}, {.text = left.c_str()}, {.text = right.c_str()}, {&assocType}});
  return status;
}

}  // namespace zntopo
