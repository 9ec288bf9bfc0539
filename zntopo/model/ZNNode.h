#pragma once

#include <list>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "zntopo/core/ZNRefPtr.h"
#include "zntopo/model/NodeProperty.h"
#include "zntopo/model/ZNConnData.h"
#include "zntopo/model/ZNEntity.h"
#include "zntopo/model/ZNIfcInfo.h"
#include "zntopo/model/ZNInterface.h"
#include "zntopo/model/ZNVlanInfo.h"

namespace zntopo {

/// A node: a device of the network.
///
/// Read-only operations and setSnmpState() may be called by several threads at once: two threads
/// may both load what is loaded on demand, it is published as a whole, and references to it stay
/// good. addInterfaceID, setInterfaceIDSet, setConnDataList, setVlanInfoList and addVlanInfo are
/// for the one who builds the object.
class ZNTOPO_EXPORT ZNNode : public ZNEntity {
 public:
  using InterfaceList = std::list<ZNRefPtr<ZNInterface>>;
  using ConnDataVector = std::vector<ZNRefPtr<ZNConnData>>;

  ZNNode();
  explicit ZNNode(const ZNEntity& ent);
  ZNNode(const ZNEntity& ent, const InterfaceList& ifs);
  /// Keeps the entity's own kind; the others make it E_Node.
  ZNNode(const ZNEntity& ent, const NodeProperty& theProperty);
  ZNNode(const ZNNode& other);
  ZNNode& operator=(const ZNNode& other);
  ~ZNNode() override;

  std::string toString() const override;
  std::string toXML() const override;
  std::string toShortString() const override;
  virtual std::string toString(bool withInterfaces) const;

  /// The text of the management address, empty for a node without one.
  std::string getIPv4ManagementAddress() const;
  /// The management address, which is read from the store as long as the one held has no
  /// identifier with a number. The reference lives as long as the node.
  const InetAddressIPv4& getIPv4MgmtAddress() const;

  /// A copy of getInterfacesList().
  InterfaceList getInterfaceList() const;
  /// The interfaces of the node, from the cache or the store. Empty or null after a failure,
  /// which is only logged.
  std::unique_ptr<InterfaceList> getInterfacesList() const;
  /// The node's own interfaces that have a layer-2 link.
  std::unique_ptr<InterfaceList> getL2LinkConnectedInterfacesList() const;
  /// The interface whose first address of that type has that text, or null.
  ZNRefPtr<ZNInterface> getInterfaceByAddressValue(const std::string& value,
                                                   ZNAddress::AddressType type) const;

  /// Appends the identifiers and marks the list loaded.
  void setInterfaceIDSet(const std::set<ObjID>& ids);
  /// Appends the identifier without marking the list loaded.
  void addInterfaceID(const ObjID& id);
  std::set<ObjID> getInterfaceIDSet() const;
  /// Loads the list on first use; a load that failed is tried again by the next call.
  const std::list<ObjID>& getInterfaceIDList() const;

  int getL2DomainID() const { return myNodeProperty.L2DomainID; }
  /// Stores the number and writes it to the store; the object stays changed after a failure.
  ZNTopoAPIStatus setL2DomainID(int id);
  const ConnDataVector& getConnDataList() const { return myConnDataList; }
  void setConnDataList(const ConnDataVector& list) { myConnDataList = list; }

  /// The property block; its V4MgmtAddress is replaced by getIPv4MgmtAddress().
  const NodeProperty& getNodeProperty() const { return myNodeProperty; }
  const std::string& getEntityOid() const { return myNodeProperty.entityOid; }
  const std::string& getSysContact() const { return myNodeProperty.sysContact; }
  const std::string& getSysLocation() const { return myNodeProperty.sysLocation; }

  bool isSwitch() const { return has(0x1); }
  bool isIPv4Router() const { return has(0x2); }
  bool isIPv6Router() const { return has(0x4); }
  bool isRouter() const { return has(0x4 | 0x2); }
  bool isATM() const { return has(0x8); }
  bool isHSRP() const { return has(0x10); }
  bool isFrameRelay() const { return has(0x20); }
  bool isCDP() const { return has(0x40); }
  bool isBGP() const { return has(0x80); }
  bool isOSPF() const { return has(0x100); }
  bool isSTP() const { return has(0x200); }
  bool isVRRP() const { return has(0x400); }
  bool isWireless() const { return has(0x800); }
  bool isSonet() const { return has(0x1000); }
  bool isRMON() const { return has(0x2000); }
  bool isRMON2() const { return has(0x4000); }
  bool isDS1() const { return has(0x8000); }
  bool isDS3() const { return has(0x10000); }
  bool isMPLS() const { return has(0x20000); }
  bool isMultiHome() const { return has(0x40000); }
  bool isSnmpSupported() const { return has(0x200000); }
  /// True for each IPv6 router, too.
  bool isManageable() const { return has(0x80000 | 0x4); }
  bool isRelay() const { return isSwitch() || isRouter(); }

  const ZNNodeCapabilitySet& getNodeCapabilitySet() const { return myNodeProperty.capabilitySet; }
  /// The names of the capabilities.
  std::set<std::string> getCapabilities() const;
  bool hasCapability(const std::string& name) const;
  std::unique_ptr<std::vector<ZNCapability>> getCapabilityList() const;
  std::vector<ZNCapability> getCapabilityListVal() const;

  const std::list<ZNVlanInfo>& getVlanInfoList() const { return myVlanInfoList; }
  void addVlanInfo(const ZNVlanInfo& info) { myVlanInfoList.push_back(info); }
  void setVlanInfoList(const std::list<ZNVlanInfo>& list) { myVlanInfoList = list; }

  const std::list<ZNIfcInfo>& getIfcInfoList() const { return myIfcInfoList.get(); }
  void setIfcInfoList(const std::list<ZNIfcInfo>& list);
  /// Asks the store on every call; when it has nothing, or fails, the list stays.
  const std::list<ZNIfcInfo>& getAllIfcInfo() const;
  const std::list<ZNIfcInfo>& getIfcInfoByType(int IFCType) const;

  SnmpState getSnmpState() const { return myNodeProperty.mySnmpState; }
  /// Changes the state; with updateDB writes the store and sends an attribute change, the same
  /// state included, and returns the status of the send. ZN_API_DB_NOT_READY while the topology
  /// is not ready; after a failed write or send the object stays changed.
  ZNTopoAPIStatus setSnmpState(SnmpState newState, bool updateDB);

 private:
  bool has(unsigned long mask) const { return myNodeProperty.capabilitySet.isCapabilitySet(mask); }
  void copyOwnFields(const ZNNode& other);
  /// Loads the identifiers and leaves the objects in out; false if they were there already.
  bool getInterfaceIDs(std::unique_ptr<InterfaceList>& out) const;
  std::unique_ptr<InterfaceList> fetchInterfaces(const std::set<ObjID>& ids) const;
  const std::list<ZNIfcInfo>& loadIfcInfo(int IFCType, const char* logText) const;
  void publishIfcInfo(const std::list<ZNIfcInfo>& list) const;

  mutable Published<std::list<ObjID>> myInterfaceList;
  mutable NodeProperty myNodeProperty;
  mutable AtomicField<bool> myInterfaceLoaded;
  long myQRMObjectId = 0;
  ConnDataVector myConnDataList;
  std::list<ZNVlanInfo> myVlanInfoList;
  mutable Published<std::list<ZNIfcInfo>> myIfcInfoList;
};

}  // namespace zntopo
