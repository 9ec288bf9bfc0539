#pragma once

#include "zntopo/core/AtomicField.h"
#include "zntopo/platform/Export.h"

namespace zntopo {

/// The limits and switches of the topology cache, and what is loaded together with nodes.
///
/// A value, copied as a whole. Each field may be read and written by several threads at once,
/// so that the live record of the cache can be changed while queries run; a copy of a record
/// that is being changed can hold some fields of before and some of after.
///
/// Sizes are numbers of objects; a kind with a size of 0 or less is not cached at all.
class ZNTOPO_EXPORT ZNTopoConfig {
 public:
  int getNodeCacheSize() const { return nodeCacheSize; }
  void setNodeCacheSize(int size) { nodeCacheSize = size; }
  int getInterfaceCacheSize() const { return interfaceCacheSize; }
  void setInterfaceCacheSize(int size) { interfaceCacheSize = size; }
  int getAddressCacheSize() const { return addressCacheSize; }
  void setAddressCacheSize(int size) { addressCacheSize = size; }
  int getHSRPCacheSize() const { return hsrpCacheSize; }
  void setHSRPCacheSize(int size) { hsrpCacheSize = size; }
  int getVlanCacheSize() const { return vlanCacheSize; }
  void setVlanCacheSize(int size) { vlanCacheSize = size; }
  int getIfcCacheSize() const { return ifcCacheSize; }
  void setIfcCacheSize(int size) { ifcCacheSize = size; }
  int getSubnetCacheSize() const { return subnetCacheSize; }
  void setSubnetCacheSize(int size) { subnetCacheSize = size; }

  /// Has no effect: a kind is switched off by a size of 0.
  bool toUseCache() const { return useCache; }
  void setUseCache(bool use) { useCache = use; }

  /// Whether nodes are loaded together with their VLANs, containers and layer-2 connections.
  bool toLoadNodeVlanInfo() const { return loadNodeVlanInfo; }
  void setLoadNodeVlanInfo(bool load) { loadNodeVlanInfo = load; }
  bool toLoadNodeIfcInfo() const { return loadNodeIfcInfo; }
  void setLoadNodeIfcInfo(bool load) { loadNodeIfcInfo = load; }
  bool toLoadNodeL2ConnectionInfo() const { return loadNodeL2ConnectionInfo; }
  void setLoadNodeL2ConnectionInfo(bool load) { loadNodeL2ConnectionInfo = load; }

  /// Whether the object that was used longest ago leaves a full cache; without it the object
  /// with the lowest identifier does, even if it is the newest.
  bool getEnableFIFOCacheSwap() const { return enableFIFOCacheSwap; }
  void setEnableFIFOCacheSwap(bool enable) { enableFIFOCacheSwap = enable; }
  /// Whether objects leave a full cache at all; without it the sizes do not bound anything.
  bool getEnableCacheSwap() const { return enableCacheSwap; }
  void setEnableCacheSwap(bool enable) { enableCacheSwap = enable; }
  /// The same for addresses, which leave only if both switches are on.
  bool getEnableAddressCacheSwap() const { return enableAddressCacheSwap; }
  void setEnableAddressCacheSwap(bool enable) { enableAddressCacheSwap = enable; }

 private:
  AtomicField<int> nodeCacheSize = 10000;
  AtomicField<int> interfaceCacheSize = 15000;
  AtomicField<int> addressCacheSize = 15000;
  AtomicField<int> hsrpCacheSize = 500;
  AtomicField<int> vlanCacheSize = 500;
  AtomicField<int> ifcCacheSize = 500;
  AtomicField<int> subnetCacheSize = 500;
  AtomicField<bool> useCache = true;
  AtomicField<bool> loadNodeVlanInfo = true;
  AtomicField<bool> loadNodeIfcInfo = true;
  AtomicField<bool> loadNodeL2ConnectionInfo = true;
  AtomicField<bool> enableFIFOCacheSwap = false;
  AtomicField<bool> enableCacheSwap = true;
  AtomicField<bool> enableAddressCacheSwap = true;
};

}  // namespace zntopo
