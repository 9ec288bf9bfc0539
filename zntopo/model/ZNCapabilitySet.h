#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "zntopo/model/ZNCapability.h"
#include "zntopo/platform/Export.h"

namespace zntopo {

/// A 32-bit mask of capabilities, which has names through the tables of Kind. The names overlap:
/// what a name sets need not come back under the same name.
///
/// A plain value.
template <typename Kind>
class ZNTOPO_EXPORT ZNCapabilitySet {
 public:
  ZNCapabilitySet() = default;
  explicit ZNCapabilitySet(unsigned long mask) : capaSet(static_cast<std::uint32_t>(mask)) {}
  /// The bits of these names; an unknown name sets nothing.
  explicit ZNCapabilitySet(const std::vector<ZNCapability>& capabilities);

  /// True if any bit of the mask is set.
  bool isCapabilitySet(unsigned long mask) const { return (capaSet & mask) != 0; }
  /// True if the bit of this name is set; the case matters, an unknown name is false.
  bool isCapabilitySet(const std::string& name) const;
  /// A capability for each set bit that has a name, in the order of the kind's table.
  std::vector<ZNCapability> toCapabilityList() const;
  /// The name of the first set bit of this set; the argument is not looked at.
  std::string toCapabilityStr(unsigned long mask) const;
  unsigned long getCapabilityMask() const { return capaSet; }
  /// The names of toCapabilityList(), a blank behind each.
  std::string toString() const;

 private:
  void setCapability(const std::string& name);

  std::uint32_t capaSet = 0;
};

}  // namespace zntopo
