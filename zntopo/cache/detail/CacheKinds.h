#pragma once

#include <optional>

#include "zntopo/cache/ZNTopoConfig.h"
#include "zntopo/core/ObjID.h"
#include "zntopo/model/MonitoredInetAddressIPv6.h"
#include "zntopo/model/ZNAddress.h"
#include "zntopo/model/ZNHSRP.h"
#include "zntopo/model/ZNIfc.h"
#include "zntopo/model/ZNInterface.h"
#include "zntopo/model/ZNNode.h"
#include "zntopo/model/ZNSubnet.h"
#include "zntopo/model/ZNVlan.h"

/// @file
/// What tells the seven cached kinds apart.

namespace zntopo::detail {

/// The words in which the log lines of the kinds differ.
struct KindWords {
  const char* name;         ///< in the names of operations and caches
  const char* nullReason;   ///< why a null handle is refused
  const char* removedName;  ///< what the line on an eviction calls the object
};

/// What most kinds have in common.
template <typename ObjectType>
struct KindDefaults {
  using Object = ObjectType;
  using LegacyKey = long;

  /// Whether a null identifier is refused with a line of its own, and before the size is looked at.
  static constexpr bool kTestsNullID = false;
  static const ObjID& idOf(const Object& object) { return object.getObjID(); }
  /// The key in the map of legacy identifiers, for a kind and object that has one.
  static std::optional<LegacyKey> legacyKeyOf(const Object&) { return std::nullopt; }
  static bool agesBy(const ZNTopoConfig& config) { return config.getEnableFIFOCacheSwap(); }
  static bool evictsBy(const ZNTopoConfig& config) { return config.getEnableCacheSwap(); }
};

struct NodeKind : KindDefaults<ZNNode> {
  static constexpr KindWords kWords{"Node", "because Null Node ", "node"};
  static constexpr bool kTestsNullID = true;
  static constexpr auto kSize = &ZNTopoConfig::getNodeCacheSize;
  static std::optional<long> legacyKeyOf(const ZNNode& node) {
    return node.getQRMObjID().getLongValue();
  }
};

struct InterfaceKind : KindDefaults<ZNInterface> {
  using LegacyKey = ObjID;
  static constexpr KindWords kWords{"Interface", "because of Null Interface", "Interface"};
  static constexpr auto kSize = &ZNTopoConfig::getInterfaceCacheSize;
  static std::optional<ObjID> legacyKeyOf(const ZNInterface& interface) {
    const ObjID& id = interface.getQRMObjID();
    return id.isNull() ? std::nullopt : std::optional<ObjID>(id);
  }
};

struct AddressKind : KindDefaults<ZNAddress> {
  static constexpr KindWords kWords{"Address", "becuase of Null Address ", "Address"};
  static constexpr auto kSize = &ZNTopoConfig::getAddressCacheSize;
  static const ObjID& idOf(const ZNAddress& address) { return address.getAddressID(); }
  static std::optional<long> legacyKeyOf(const ZNAddress& address) {
    if (!address.isMonitored()) return std::nullopt;
    const auto* monitored = dynamic_cast<const MonitoredInetAddressIPv6*>(&address);
    if (!monitored || monitored->getQRMObjID().isNull()) return std::nullopt;
    return monitored->getQRMObjID().getLongValue();
  }
  static bool agesBy(const ZNTopoConfig& config) {
    return config.getEnableFIFOCacheSwap() && config.getEnableAddressCacheSwap();
  }
  static bool evictsBy(const ZNTopoConfig& config) {
    return config.getEnableCacheSwap() && config.getEnableAddressCacheSwap();
  }
};

struct SubnetKind : KindDefaults<ZNSubnet> {
  static constexpr KindWords kWords{"Subnet", "because of Null Subnet ", "Subnet"};
  static constexpr auto kSize = &ZNTopoConfig::getSubnetCacheSize;
  static std::optional<long> legacyKeyOf(const ZNSubnet& subnet) {
    return subnet.getQRMObjID().getLongValue();
  }
};

struct VlanKind : KindDefaults<ZNVlan> {
  static constexpr KindWords kWords{"Vlan", "because Null Vlan ", "Vlan"};
  static constexpr bool kTestsNullID = true;
  static constexpr auto kSize = &ZNTopoConfig::getVlanCacheSize;
};

struct IfcKind : KindDefaults<ZNIfc> {
  // The line speaks of a VLAN, and readers of the log know it so.
  static constexpr KindWords kWords{"Ifc", "because Null Vlan ", "Ifc"};
  static constexpr bool kTestsNullID = true;
  static constexpr auto kSize = &ZNTopoConfig::getIfcCacheSize;
};

struct HSRPKind : KindDefaults<ZNHSRP> {
  static constexpr KindWords kWords{"HSRP", "because Null HSRP ", "HSRP"};
  static constexpr bool kTestsNullID = true;
  static constexpr auto kSize = &ZNTopoConfig::getHSRPCacheSize;
};

}  // namespace zntopo::detail
