#include <array>

#include "zntopo/model/ZNInterfaceCapabilitySet.h"
#include "zntopo/model/ZNNodeCapabilitySet.h"

namespace zntopo {

namespace {

struct Capability {
  std::uint32_t mask;
  const char* name;
};

}  // namespace

struct NodeCapabilities {
  /// Names that stand for a bit without being the name that the bit is listed under.
  static constexpr Capability kAliases[] = {{0x2, "isRouter"}, {0x80, "isWireless"}};
  /// What is listed, in this order. The bit 0x800 is told by the accessor isWireless of a node
  /// and listed under the name of 0x80, which by name stands for wireless, too.
  static constexpr Capability kListed[] = {
      {0x1, "isLanSwitch"},     {0x2, "isIPv4Router"},     {0x4, "isIPv6Router"},
      {0x8, "isATM"},           {0x10, "isHSRP"},          {0x20, "isFrameRelay"},
      {0x40, "isCDP"},          {0x80, "isBGP"},           {0x100, "isOSPF"},
      {0x200, "isSTP"},         {0x400, "isVRRP"},         {0x800, "isBGP"},
      {0x1000, "isSonet"},      {0x2000, "isRMON"},        {0x4000, "isRMON2"},
      {0x8000, "isDS1"},        {0x10000, "isDS3"},        {0x20000, "isMPLS"},
      {0x40000, "isMultiHome"}, {0x80000, "isManageable"}, {0x200000, "isSnmpSupported"},
  };
  /// In which order toCapabilityStr() looks for the first bit.
  static constexpr const auto& kFirst = kListed;
  static constexpr const char* kNone = "";
};

struct InterfaceCapabilities {
  static constexpr std::array<Capability, 0> kAliases{};
  /// The bit 0x8 has no name; 0x10 is listed twice.
  static constexpr Capability kListed[] = {
      {0x1, "isAccessPort"}, {0x10, "isHSRP"},       {0x2, "isL2Connected"},
      {0x10, "isHSRP"},      {0x20000, "isMPLS"},    {0x400, "isVRRP"},
      {0x2000, "isRMON"},    {0x4000, "isRMON2"},    {0x8000, "isDS1"},
      {0x10000, "isDS3"},    {0x1000, "isSonet"},    {0x40, "isCDP"},
      {0x200, "isSTP"},      {0x20, "isFrameRelay"}, {0x80, "isBGP"},
      {0x100, "isOSPF"},     {0x800, "isWireless"},  {0x100000, "isMeshInterface"},
  };
  static constexpr Capability kFirst[] = {
      {0x10, "isHSRP"},
      {0x2, "isL2Connected"},
      {0x1, "isAccessPort"},
      {0x20000, "isMPLS"},
      {0x400, "isVRRP"},
      {0x2000, "isRMON"},
      {0x4000, "isRMON2"},
      {0x8000, "isDS1"},
      {0x10000, "isDS3"},
      {0x1000, "isSonet"},
      {0x40, "isCDP"},
      {0x200, "isSTP"},
      {0x20, "isFrameRelay"},
      {0x80, "isBGP"},
      {0x100, "isOSPF"},
      {0x800, "isWireless"},
      {0x100000, "isMeshInterface"},
  };
  static constexpr const char* kNone = "UNKNOWN";
};

namespace {

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
  for (const Capability& capability : Kind::kFirst) {
    if (isCapabilitySet(capability.mask)) return capability.name;
  }
  return Kind::kNone;
}

template <typename Kind>
std::string ZNCapabilitySet<Kind>::toString() const {
  std::string text;
  for (const ZNCapability& capability : toCapabilityList()) text += capability.toString() + " ";
  return text;
}

template class ZNCapabilitySet<NodeCapabilities>;
template class ZNCapabilitySet<InterfaceCapabilities>;

}  // namespace zntopo
