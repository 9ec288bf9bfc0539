#pragma once

#include <list>
#include <memory>
#include <string>

#include "zntopo/core/ZNRefPtr.h"
#include "zntopo/model/Aspect.h"
#include "zntopo/model/ZNEntity.h"
#include "zntopo/platform/Export.h"

namespace zntopo {

/// Knows which facets an entity has, and makes them.
class ZNTOPO_EXPORT AspectFactory {
 public:
  virtual std::list<std::string> getFactoryRecognizedAspectNames() = 0;
  virtual std::list<std::string> getValidAspectNames(ZNRefPtr<ZNEntity> ent) = 0;
  virtual bool isAspectValid(ZNRefPtr<ZNEntity> ent, const std::string& name) = 0;
  /// Empty if the entity has no such facet.
  virtual std::unique_ptr<Aspect> createAspect(ZNRefPtr<ZNEntity> ent, const std::string& name) = 0;
  virtual ~AspectFactory();
};

}  // namespace zntopo
