#include "zntopo/api/ZNTopoAPI_Impl.h"
#include "zntopo/core/detail/Failure.h"

/// @file
/// The operations that the library declares and does not carry out yet: each answers
/// ZN_API_NOT_SUPPORTED_OPERATION, and its name in the auxiliary text.

namespace zntopo {

namespace {

ZNTopoAPIStatus notYet(const char* operation) {
  ZNTopoAPIStatus status;
  detail::setFailure(status, ZN_API_NOT_SUPPORTED_OPERATION,
                     std::string(operation) + " is not supported yet");
  return status;
}

/// An empty container.
template <typename Owned>
Owned nothingYet(ZNTopoAPIStatus& status, const char* operation) {
  status = notYet(operation);
  return std::make_unique<typename Owned::element_type>();
}

}  // namespace

// ---- the cache ----

ZNTopoAPIStatus ZNTopoAPI_Impl::preLoadTopoCache(bool /*loadSwitchNode*/, bool /*loadRouterNode*/,
                                                 bool /*loadVlan*/, bool /*loadHSRP*/,
                                                 bool /*loadConnectedInterfaces*/,
                                                 bool /*loadIfcs*/) {
  return notYet(__func__);
}

void ZNTopoAPI_Impl::updateCacheObjectStatus(const ObjID& /*theObjID*/, bool /*isAddress*/,
                                             EntityType /*theEntityType*/, int /*tvwStatus*/,
                                             long /*statusChangeTimeUTC*/,
                                             ZNEntity::EntityStatusType /*entStatusType*/,
                                             ZNTopoAPIStatus& theStatus, bool /*isQRMID*/) {
  theStatus = notYet(__func__);
}

void ZNTopoAPI_Impl::updateCacheObjectAttribute(const ObjID& /*objIDArg*/,
                                                EntityType /*theEntType*/,
                                                TopologyAttributeType /*theAttrType*/,
                                                int /*theAttrVal*/, const ObjID& /*theAddrID*/,
                                                ZNTopoAPIStatus& theStatus) {
  theStatus = notYet(__func__);
}

void ZNTopoAPI_Impl::refreshCacheObject(const ObjID& /*theObjID*/, bool /*isAddress*/,
                                        EntityType /*theEntityType*/, int /*tvwStatus*/,
                                        long /*statusChangeTimeUTC*/, ZNTopoAPIStatus& theStatus) {
  theStatus = notYet(__func__);
}

// ---- updates of the store ----

ZNTopoAPIStatus ZNTopoAPI_Impl::setHSRPAddressInfo(const ZNHSRPAddressInfo& /*anInfo*/) {
  return notYet(__func__);
}

ZNTopoAPIStatus ZNTopoAPI_Impl::setNWInterfaceState(const ObjID& /*theObjID*/, int /*newAttrVal*/,
                                                    int /*attributeType*/) {
  return notYet(__func__);
}

ZNTopoAPIStatus ZNTopoAPI_Impl::setAddressState(const ObjID& /*theObjID*/, int /*newAttrVal*/) {
  return notYet(__func__);
}

ZNTopoAPIStatus ZNTopoAPI_Impl::setNWNodeStatus(const ObjID& /*theObjID*/, int /*newStatus*/,
                                                int /*statType*/) {
  return notYet(__func__);
}

ZNTopoAPIStatus ZNTopoAPI_Impl::setEntityStatus(const ObjID& /*theObjID*/, int /*newStatus*/,
                                                int /*statusChangeTimeUTC*/,
                                                ZNEntity::EntityStatusType /*statType*/,
                                                EntityType /*entType*/) {
  return notYet(__func__);
}

ZNTopoAPIStatus ZNTopoAPI_Impl::setL2DomainIdOfNode(ZNNode& /*aNode*/, int& /*id*/) {
  return notYet(__func__);
}

ZNTopoAPIStatus ZNTopoAPI_Impl::setL2DomainIdOfInterface(ZNInterface& /*aInterface*/, int& /*id*/) {
  return notYet(__func__);
}

ZNTopoAPIStatus ZNTopoAPI_Impl::setNWIfcAssocInfoState(const ObjID& /*leftIfcObjID*/,
                                                       const ObjID& /*rightIfcObjID*/,
                                                       int /*assocType*/, int /*state*/) {
  return notYet(__func__);
}

// ---- audit trail and statistics ----

ZNTopoAPI_Impl::OwnedAuditTrailVector ZNTopoAPI_Impl::getAuditTrail(
    long /*actionStartTime*/, long /*actionEndTime*/, ZNAuditAction::Type /*actionType*/,
    ZNAuditTrail::ObjectType /*objType*/, ZNTopoAPIStatus& theStatus) {
  return nothingYet<OwnedAuditTrailVector>(theStatus, __func__);
}

ZNTopologyInfo ZNTopoAPI_Impl::getTopologyInfo(ZNTopoAPIStatus& theStatus) {
  theStatus = notYet(__func__);
  return {};
}

int ZNTopoAPI_Impl::getStatistic(const std::string& /*theSQL*/, ZNTopoAPIStatus& theStatus) {
  theStatus = notYet(__func__);
  return 0;
}

int ZNTopoAPI_Impl::get_String_Int_Map(const std::string& /*theSQL*/,
                                       std::map<std::string, int>& /*theMap*/,
                                       ZNTopoAPIStatus& theStatus) {
  theStatus = notYet(__func__);
  return 0;
}

}  // namespace zntopo
