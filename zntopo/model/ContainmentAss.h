#pragma once

#include <list>
#include <string>

#include "zntopo/model/AssEndPoint.h"
#include "zntopo/platform/Export.h"

namespace zntopo {

/// What contains what: one container and its contents. A plain value.
class ZNTOPO_EXPORT ContainmentAss {
 public:
  ContainmentAss() = default;
  ContainmentAss(const AssEndPoint& container, const std::list<AssEndPoint>& contained)
      : _container(container), _contained(contained) {}

  const AssEndPoint& getContainer() const { return _container; }
  const std::list<AssEndPoint>& getContained() const { return _contained; }
  std::string toString() const;

  void setContainer(const AssEndPoint& container) { _container = container; }
  void setContained(const std::list<AssEndPoint>& contained) { _contained = contained; }

 private:
  AssEndPoint _container;
  std::list<AssEndPoint> _contained;
};

}  // namespace zntopo
