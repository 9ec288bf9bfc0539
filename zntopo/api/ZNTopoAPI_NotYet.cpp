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
