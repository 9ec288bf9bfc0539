#pragma once

#include <cstdint>
#include <list>
#include <string>

#include "zntopo/model/ZNAddress.h"

namespace zntopo {

/// A number that tells address spaces apart; printed as "OADId".
using RouteDistinguisher = std::uint32_t;

/// Base of the addresses of the internet protocols.
class ZNTOPO_EXPORT InetAddress : public ZNAddress {
 public:
  ~InetAddress() override;

  /// Asks the owning interface, once: a load that failed is tried again by the next call. False
  /// for a subnet's address, without asking.
  bool isInHSRP() const override;
  const std::list<ObjID>& getHSRPObjIDs() const override;
  bool isInetAddress() const override;
  /// Tells the HSRP groups, too, if the environment variable TOPODUMP_DETAIL is set; that may ask
  /// the store.
  std::string toString() const override;
  std::string toXML() const override;

  virtual RouteDistinguisher getRouteDistinguisher() const;

  /// True if this is a subnet's address and not a host's: column isSubnet.
  bool isSubnetAddress() const { return _isSubnetAddr; }
  /// The subnet that the address lies in: column SubnetObjID.
  const ObjID& getSubnetObjID() const { return _subnetID; }

 protected:
  InetAddress(const AddressType& type, TopoDBType dbType);
  InetAddress(const AddressType& type, bool isSubnetAddr, TopoDBType dbType);
  InetAddress(const AddressType& type, bool isSubnetAddr, const ObjID& anAID,
              const ObjID& anAssEntID, TopoDBType dbType);
  InetAddress(const AddressType& type, bool isSubnetAddr, const ObjID& anAID,
              const ObjID& anAssEntID, RouteDistinguisher rd, TopoDBType dbType);
  InetAddress(const AddressType& type, bool isSubnetAddr, const ObjID& anAID,
              const ObjID& anAssEntID, RouteDistinguisher rd, const ObjID& aSubnetID,
              TopoDBType dbType);
  InetAddress(const AddressType& type, bool isSubnetAddr, const ObjID& anAID,
              const ObjID& anAssEntID, const ObjID& aSubnetID, TopoDBType dbType);
  InetAddress(const AddressType& type, const PingState& aStat, long aPingStateUpdTime,
              bool isSubnetAddr, const ObjID& anAID, const ObjID& anAssEntID, RouteDistinguisher rd,
              const ObjID& aSubnetID, TopoDBType dbType);
  InetAddress(const InetAddress& other);
  InetAddress& operator=(const InetAddress& other);

  RouteDistinguisher _routeDistinguisher = 0;
  bool _isSubnetAddr = false;
  ObjID _subnetID;
  mutable AtomicField<bool> myIsHSRP;
  mutable AtomicField<bool> myHSRPLoaded;
};

}  // namespace zntopo
