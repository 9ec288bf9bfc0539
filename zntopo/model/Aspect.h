#pragma once

#include <string>

#include "zntopo/platform/Export.h"

namespace zntopo {

/// An optional facet of an entity.
class ZNTOPO_EXPORT Aspect {
 public:
  virtual std::string getAspectName() const = 0;
  virtual std::string toString() const = 0;
  virtual ~Aspect();
};

}  // namespace zntopo
