#include "zntopo/model/MonitoredIPv6Aspect.h"

#include "zntopo/model/ZNRefPtrConversion.h"
#include "zntopo/model/detail/Rendering.h"

namespace zntopo {

// A factory's subclass may let any entity pass, a null one included: no operation goes through a
// null handle for that.
MonitoredIPv6Aspect::MonitoredIPv6Aspect(const ZNRefPtr<ZNEntity>& ent)
    : _ent(ent.isNull() ? ZNRefPtr<ZNEntity>(new ZNEntity()) : ent) {}

ObjectStatus MonitoredIPv6Aspect::getSiteLocalStatus() const { return _ent->getV6SiteStatus(); }
ObjectStatus MonitoredIPv6Aspect::getGlobalStatus() const { return _ent->getV6GlobalStatus(); }
ObjectStatus MonitoredIPv6Aspect::getOverallStatus() const { return _ent->getV6OverallStatus(); }

void MonitoredIPv6Aspect::setSiteLocalStatus(const ObjectStatus& status) {
  _ent->setV6SiteStatus(status, 0, false);
}

void MonitoredIPv6Aspect::setGlobalStatus(const ObjectStatus& status) {
  _ent->setV6GlobalStatus(status, 0, false);
}

void MonitoredIPv6Aspect::setOverallStatus(const ObjectStatus& status) {
  _ent->setV6OverallStatus(status, 0, false);
}

std::unique_ptr<std::list<ZNRefPtr<MonitoredInetAddressIPv6>>>
MonitoredIPv6Aspect::getMonitoredIPv6Addresses() const {
  return ZNRefPtrConversion::AddressList2MonitoredIPv6List(
      _ent->getAddressesByType(ZNAddress::IPv6));
}

std::string MonitoredIPv6Aspect::getAspectName() const { return AspectName; }

std::string MonitoredIPv6Aspect::toString() const {
  using Line = detail::Line<MonitoredIPv6Aspect>;
  static constexpr Line kText[] = {
      {"\n+++++++++++++++MonitoredIPv6Aspect++++++++++++"},
      {"\nGlobalStatus:", Line::of<&MonitoredIPv6Aspect::getGlobalStatus>},
      {"\nSiteLocalStatus:", Line::of<&MonitoredIPv6Aspect::getSiteLocalStatus>},
      {"\nOverallStatus:", Line::of<&MonitoredIPv6Aspect::getOverallStatus>},
      {"\nEntityObjID:",
       [](const MonitoredIPv6Aspect& aspect) { return aspect._ent->getObjID().getStrValue(); }},
      {"\n---------------------MonitoredIPv6Aspect-------------"},
  };
  return detail::rendered(*this, kText);
}

}  // namespace zntopo
