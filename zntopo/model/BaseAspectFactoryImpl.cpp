#include "zntopo/model/BaseAspectFactoryImpl.h"

namespace zntopo {

Aspect::~Aspect() = default;
AspectFactory::~AspectFactory() = default;

BaseAspectFactoryImpl::BaseAspectFactoryImpl() : myNameList{MonitoredIPv6Aspect::AspectName} {}

std::list<std::string> BaseAspectFactoryImpl::getFactoryRecognizedAspectNames() {
  return myNameList;
}

std::list<std::string> BaseAspectFactoryImpl::getValidAspectNames(ZNRefPtr<ZNEntity> ent) {
  if (ent.isNull() || ent->getIPLevel() != ZNEntity::IPv6) return {};
  return {MonitoredIPv6Aspect::AspectName};
}

bool BaseAspectFactoryImpl::isAspectValid(ZNRefPtr<ZNEntity> ent, const std::string& name) {
  return name == MonitoredIPv6Aspect::AspectName && !ent.isNull() &&
         ent->getIPLevel() == ZNEntity::IPv6;
}

std::unique_ptr<Aspect> BaseAspectFactoryImpl::createAspect(ZNRefPtr<ZNEntity> ent,
                                                            const std::string& name) {
  if (name != MonitoredIPv6Aspect::AspectName) return nullptr;
  return createMonitoredIPv6Aspect(ent);
}

std::unique_ptr<MonitoredIPv6Aspect> BaseAspectFactoryImpl::createMonitoredIPv6Aspect(
    ZNRefPtr<ZNEntity> ent) {
  if (!isAspectValid(ent, MonitoredIPv6Aspect::AspectName)) return nullptr;
  return std::make_unique<MonitoredIPv6Aspect>(ent);
}

}  // namespace zntopo
