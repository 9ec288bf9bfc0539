#pragma once

#include <list>
#include <memory>
#include <string>

#include "zntopo/model/AspectFactory.h"
#include "zntopo/model/MonitoredIPv6Aspect.h"
#include "zntopo/platform/Export.h"

namespace zntopo {

/// Makes MonitoredIPv6Aspect, which the entities of level IPv6 have. A null entity has none.
class ZNTOPO_EXPORT BaseAspectFactoryImpl : public AspectFactory {
 public:
  BaseAspectFactoryImpl();

  std::list<std::string> getFactoryRecognizedAspectNames() override;
  std::list<std::string> getValidAspectNames(ZNRefPtr<ZNEntity> ent) override;
  bool isAspectValid(ZNRefPtr<ZNEntity> ent, const std::string& name) override;
  std::unique_ptr<Aspect> createAspect(ZNRefPtr<ZNEntity> ent, const std::string& name) override;

  /// Asks isAspectValid(), so that a subclass can widen it.
  std::unique_ptr<MonitoredIPv6Aspect> createMonitoredIPv6Aspect(ZNRefPtr<ZNEntity> ent);

 private:
  std::list<std::string> myNameList;
};

}  // namespace zntopo
