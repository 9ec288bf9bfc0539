#pragma once

#include <list>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "zntopo/core/ZNRefPtr.h"
#include "zntopo/model/CapabilityBits.h"
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
  ZNNode(ZNEntity&& ent, NodeProperty&& theProperty);
  ZNNode(const ZNNode& other);
  ZNNode& operator=(const ZNNode& other);
  ~ZNNode() override;

  /// With the interfaces, which may be loaded for it.
  std::string toString() const override;
  /// Without them.
  std::string toXML() const override;
  /// Name, status, the two management addresses, route distinguisher and IP level.
  std::string toShortString() const override;
  virtual std::string toString(bool withInterfaces) const;
  std::string toXML(bool withInterfaces) const;

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

  bool isSwitch() const { return has(NodeCapability::LanSwitch); }
  bool isIPv4Router() const { return has(NodeCapability::IPv4Router); }
  bool isIPv6Router() const { return has(NodeCapability::IPv6Router); }
  bool isRouter() const { return has(NodeCapability::IPv6Router | NodeCapability::IPv4Router); }
  bool isATM() const { return has(NodeCapability::ATM); }
  bool isHSRP() const { return has(NodeCapability::HSRP); }
  bool isFrameRelay() const { return has(NodeCapability::FrameRelay); }
  bool isCDP() const { return has(NodeCapability::CDP); }
  bool isBGP() const { return has(NodeCapability::BGP); }
  bool isOSPF() const { return has(NodeCapability::OSPF); }
  bool isSTP() const { return has(NodeCapability::STP); }
  bool isVRRP() const { return has(NodeCapability::VRRP); }
  bool isWireless() const { return has(NodeCapability::Wireless); }
  bool isSonet() const { return has(NodeCapability::SONET); }
  bool isRMON() const { return has(NodeCapability::RMON); }
  bool isRMON2() const { return has(NodeCapability::RMON2); }
  bool isDS1() const { return has(NodeCapability::DS1); }
  bool isDS3() const { return has(NodeCapability::DS3); }
  bool isMPLS() const { return has(NodeCapability::MPLS); }
  bool isMultiHome() const { return has(NodeCapability::MultiHome); }
  bool isSnmpSupported() const { return has(NodeCapability::SnmpSupported); }
  /// True for each IPv6 router, too.
  bool isManageable() const { return has(NodeCapability::Manageable | NodeCapability::IPv6Router); }
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
  std::string print(bool withInterfaces) const;
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
