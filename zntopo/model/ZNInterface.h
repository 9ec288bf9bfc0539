#pragma once

#include <list>
#include <memory>
#include <string>
#include <vector>

#include "zntopo/core/ZNRefPtr.h"
#include "zntopo/model/CapabilityBits.h"
#include "zntopo/model/IFProperty.h"
#include "zntopo/model/ZNConnData.h"
#include "zntopo/model/ZNEntity.h"

namespace zntopo {

/// An interface of a node.
///
/// Read-only operations and the three state setters may be called by several threads at once:
/// what is loaded on demand is published as a whole, and the references to it stay good. The
/// getters of properties lock the object, apart from getIfAdminStatus, getL2DomainID and the
/// capability accessors. addConnData() is for the one who builds the object.
class ZNTOPO_EXPORT ZNInterface : public ZNEntity {
 public:
  using ConnDataVector = std::vector<ZNRefPtr<ZNConnData>>;
  using AddressVector = std::vector<ZNRefPtr<ZNAddress>>;

  ZNInterface();
  explicit ZNInterface(const ZNEntity& ent);
  ZNInterface(const ZNEntity& ent, const ConnDataVector& connData);
  ZNInterface(const ZNEntity& ent, const IFProperty& ifProp);
  ZNInterface(ZNEntity&& ent, IFProperty&& ifProp);
  ZNInterface(const ZNEntity& ent, const ConnDataVector& connData, const IFProperty& ifProp);
  ZNInterface(const ZNEntity& ent, const ConnDataVector& connData, const IFProperty& ifProp,
              const AddressVector& addresses);
  ZNInterface(const ZNInterface& other);
  ZNInterface& operator=(const ZNInterface& other);
  ~ZNInterface() override;

  std::string toString() const override;
  std::string toXML() const override;
  /// A row of the interface, and one of each address, which are asked for.
  std::string toShortString() const override;

  /// The links that touch this interface, out of those of its parent node. Asks the store as long
  /// as there are none; empty after a failure, which is only logged.
  const ConnDataVector& getConnData() const;
  void addConnData(ZNRefPtr<ZNConnData>& connData);
  bool isConnDataListEmptyNoNodeAccess() const;
  /// The interface at the other end of the first link, or null.
  ZNRefPtr<ZNInterface> getConnectedL2Interface() const;
  /// The interface at the other end of each link; a null handle where it can't be read.
  std::unique_ptr<std::list<ZNRefPtr<ZNInterface>>> getConnectedL2Interfaces() const;

  /// Alias, name, description or card/port, cut or padded with NUL to exactly 33 characters.
  std::string getInterfaceName() const;
  /// The identifier of the parent node.
  ObjID getParentObjID() const;
  std::string getCardLoc() const;
  std::string getPortNum() const;
  std::string getAuxPortNum() const;
  short getVPI() const;
  short getVCI() const;
  bool isValidATMInterface() const;
  bool isATMEnabled() const;
  IfOperStatus getIfOperStatus() const;
  IfAdminStatus getIfAdminStatus() const { return ifProperty.ifAdminStatus; }
  short getL2DomainID() const { return ifProperty.L2DomainID; }
  std::string getIfName() const;
  std::string getIfAlias() const;
  int getIfSpeed() const;
  short getIfIndex() const;
  short getIfType() const;
  std::string getPhysAddr() const;
  const IFProperty& getIFProperty() const;
  const AddressVector& getAddressList() const;

  /// Stores the number and writes it to the store; the object stays changed after a failure.
  ZNTopoAPIStatus setL2DomainID(int id);
  /// Change a state; with updateDB write the store and send an attribute change, and return the
  /// status of the send. The same state changes nothing. ZN_API_DB_NOT_READY while the topology
  /// is not ready; after a failed write or send the object stays changed.
  ZNTopoAPIStatus setIfAdminStatus(IfAdminStatus newStatus, bool updateDB);
  ZNTopoAPIStatus setIfOperStatus(IfOperStatus newStatus, bool updateDB);

  bool isAccessPort() const { return has(InterfaceCapability::AccessPort); }
  bool isConnectedByL2Link() const { return has(InterfaceCapability::L2Connected); }
  bool isATM() const { return has(InterfaceCapability::ATM); }
  bool isHSRP() const { return has(InterfaceCapability::HSRP); }
  bool isFrameRelay() const { return has(InterfaceCapability::FrameRelay); }
  bool isCDP() const { return has(InterfaceCapability::CDP); }
  bool isBGP() const { return has(InterfaceCapability::BGP); }
  bool isOSPF() const { return has(InterfaceCapability::OSPF); }
  bool isSTP() const { return has(InterfaceCapability::STP); }
  bool isVRRP() const { return has(InterfaceCapability::VRRP); }
  bool isWireless() const { return has(InterfaceCapability::Wireless); }
  bool isSONET() const { return has(InterfaceCapability::SONET); }
  bool isDS1() const { return has(InterfaceCapability::DS1); }
  bool isDS3() const { return has(InterfaceCapability::DS3); }
  bool isMPLS() const { return has(InterfaceCapability::MPLS); }
  bool isMeshInterface() const { return has(InterfaceCapability::MeshInterface); }
  std::vector<ZNCapability> getCapabilityList() const;
  bool isInHSRP() const;
  /// The HSRP groups that this interface serves in. Asks the store as long as there are none.
  const std::list<ObjID>& getHSRPObjIDs() const;

 private:
  struct StateRow;

  bool has(unsigned long mask) const { return ifProperty.capaSet.isCapabilitySet(mask); }
  ZNRefPtr<ZNInterface> peerOf(const ZNConnData& connData) const;
  template <typename State>
  ZNTopoAPIStatus changeState(AtomicField<State>& field, State newState, bool updateDB,
                              const StateRow& row);

  mutable Published<ConnDataVector> myConnData;
  IFProperty ifProperty;
  mutable Published<std::list<ObjID>> myHSRPObjIDList;
  AddressVector myAddressList;
};

}  // namespace zntopo
