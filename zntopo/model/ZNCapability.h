#pragma once

#include <string>

#include "zntopo/platform/Export.h"

namespace zntopo {

/// The name of something that a node or an interface can do. A plain value.
class ZNTOPO_EXPORT ZNCapability {
 public:
  ZNCapability() = default;
  explicit ZNCapability(const std::string& name) : _name(name) {}

  const std::string& getCapabilityName() const { return _name; }
  void setCapabilityName(const std::string& name) { _name = name; }
  std::string toString() const { return _name; }
  /// Always the number of VarValue::VT_Capability.
  short getCapabilityAsVarValType() const { return 4; }
  static bool hasCapabilityName(const ZNCapability& cap, const std::string& name) {
    return cap._name == name;
  }

 private:
  std::string _name;
};

/// By name.
inline bool operator<(const ZNCapability& left, const ZNCapability& right) {
  return left.getCapabilityName() < right.getCapabilityName();
}

}  // namespace zntopo
