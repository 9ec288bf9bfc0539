#pragma once

#include <list>
#include <memory>
#include <string>

#include "zntopo/core/ZNRefPtr.h"
#include "zntopo/model/Aspect.h"
#include "zntopo/model/MonitoredInetAddressIPv6.h"
#include "zntopo/model/ZNEntity.h"
#include "zntopo/platform/Export.h"

namespace zntopo {

/// The IPv6 monitoring of an entity: its statuses and its monitored addresses. The setters change
/// the entity in memory only, at the current time.
class ZNTOPO_EXPORT MonitoredIPv6Aspect : public Aspect {
 public:
  static constexpr const char* AspectName = "MonitoredIPv6Aspect";
  static constexpr const char* SiteLocalStatus = "IPv6SiteLocalStatus";
  static constexpr const char* GlobalStatus = "IPv6GlobalStatus";

  /// A null entity counts as a fresh one.
  explicit MonitoredIPv6Aspect(const ZNRefPtr<ZNEntity>& ent);

  ObjectStatus getSiteLocalStatus() const;
  ObjectStatus getGlobalStatus() const;
  ObjectStatus getOverallStatus() const;
  void setSiteLocalStatus(const ObjectStatus& status);
  void setGlobalStatus(const ObjectStatus& status);
  void setOverallStatus(const ObjectStatus& status);
  /// Asks the store. A handle is null where an IPv6 address is not monitored.
  std::unique_ptr<std::list<ZNRefPtr<MonitoredInetAddressIPv6>>> getMonitoredIPv6Addresses() const;

  std::string getAspectName() const override;
  std::string toString() const override;

 private:
  ZNRefPtr<ZNEntity> _ent;
};

}  // namespace zntopo
