#include <array>

#include "zntopo/model/CapabilityBits.h"
#include "zntopo/model/ZNInterfaceCapabilitySet.h"
#include "zntopo/model/ZNNodeCapabilitySet.h"
#include "zntopo/model/detail/Rendering.h"

namespace zntopo {

namespace {

struct Capability {
  std::uint32_t mask;
  const char* name;
};

}  // namespace

struct NodeCapabilities : NodeCapability {
  /// Names that stand for a bit without being the name that the bit is listed under.
  static constexpr Capability kAliases[] = {{IPv4Router, "isRouter"}, {BGP, "isWireless"}};
  static constexpr std::array<Capability, 0> kFirst{};
  /// What is listed, in this order. The bit Wireless is told by the accessor isWireless of a node
  /// and listed under the name of BGP, which by name stands for wireless, too.
  static constexpr Capability kListed[] = {
      {LanSwitch, "isLanSwitch"},
      {IPv4Router, "isIPv4Router"},
      {IPv6Router, "isIPv6Router"},
      {ATM, "isATM"},
      {HSRP, "isHSRP"},
      {FrameRelay, "isFrameRelay"},
      {CDP, "isCDP"},
      {BGP, "isBGP"},
      {OSPF, "isOSPF"},
      {STP, "isSTP"},
      {VRRP, "isVRRP"},
      {Wireless, "isBGP"},
      {SONET, "isSonet"},
      {RMON, "isRMON"},
      {RMON2, "isRMON2"},
      {DS1, "isDS1"},
      {DS3, "isDS3"},
      {MPLS, "isMPLS"},
      {MultiHome, "isMultiHome"},
      {Manageable, "isManageable"},
      {SnmpSupported, "isSnmpSupported"},
  };
  static constexpr const char* kNone = "";
};

struct InterfaceCapabilities : InterfaceCapability {
  static constexpr std::array<Capability, 0> kAliases{};
  /// What toCapabilityStr() looks for ahead of the list.
  static constexpr Capability kFirst[] = {{HSRP, "isHSRP"}, {L2Connected, "isL2Connected"}};
  /// ATM has no name; HSRP is listed twice.
  static constexpr Capability kListed[] = {
      {AccessPort, "isAccessPort"},
      {HSRP, "isHSRP"},
      {L2Connected, "isL2Connected"},
      {HSRP, "isHSRP"},
      {MPLS, "isMPLS"},
      {VRRP, "isVRRP"},
      {RMON, "isRMON"},
      {RMON2, "isRMON2"},
      {DS1, "isDS1"},
      {DS3, "isDS3"},
      {SONET, "isSonet"},
      {CDP, "isCDP"},
      {STP, "isSTP"},
      {FrameRelay, "isFrameRelay"},
      {BGP, "isBGP"},
      {OSPF, "isOSPF"},
      {Wireless, "isWireless"},
      {MeshInterface, "isMeshInterface"},
  };
  static constexpr const char* kNone = "UNKNOWN";
};

namespace {

/// The name of the first bit in the table that is set, or null.
template <typename Table, typename Set>
const char* firstNameIn(const Table& table, const Set& set) {
  for (const Capability& capability : table) {
    if (set.isCapabilitySet(capability.mask)) return capability.name;
  }
  return nullptr;
}

template <typename Table>
std::uint32_t maskIn(const Table& table, const std::string& name) {
  for (const Capability& capability : table) {
    if (name == capability.name) return capability.mask;
  }
  return 0;
}

/// 0 for an unknown name.
template <typename Kind>
std::uint32_t maskOf(const std::string& name) {
  const std::uint32_t mask = maskIn(Kind::kAliases, name);
  return mask ? mask : maskIn(Kind::kListed, name);
}

}  // namespace

template <typename Kind>
ZNCapabilitySet<Kind>::ZNCapabilitySet(const std::vector<ZNCapability>& capabilities) {
  for (const ZNCapability& capability : capabilities) {
    setCapability(capability.getCapabilityName());
  }
}

template <typename Kind>
void ZNCapabilitySet<Kind>::setCapability(const std::string& name) {
  capaSet |= maskOf<Kind>(name);
}

template <typename Kind>
bool ZNCapabilitySet<Kind>::isCapabilitySet(const std::string& name) const {
  return isCapabilitySet(maskOf<Kind>(name));
}

template <typename Kind>
std::vector<ZNCapability> ZNCapabilitySet<Kind>::toCapabilityList() const {
  std::vector<ZNCapability> list;
  for (const Capability& capability : Kind::kListed) {
    if (isCapabilitySet(capability.mask)) list.emplace_back(capability.name);
  }
  return list;
}

template <typename Kind>
std::string ZNCapabilitySet<Kind>::toCapabilityStr(unsigned long) const {
  if (const char* const name = firstNameIn(Kind::kFirst, *this)) return name;
  const char* const name = firstNameIn(Kind::kListed, *this);
  return name ? name : Kind::kNone;
}

template <typename Kind>
std::string ZNCapabilitySet<Kind>::toString() const {
  return detail::capabilityText(toCapabilityList());
}

template class ZNCapabilitySet<NodeCapabilities>;
template class ZNCapabilitySet<InterfaceCapabilities>;

}  // namespace zntopo
