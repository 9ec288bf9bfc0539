#pragma once

#include <string>

#include "zntopo/model/InetAddress.h"

namespace zntopo {

/// An IPv4 address: the private one and the public one through which it is reached. Constructors
/// without a public address use the private one; those without a subnet mask have prefix length 0.
class ZNTOPO_EXPORT InetAddressIPv4 : public InetAddress {
 public:
  InetAddressIPv4();
  InetAddressIPv4(const std::string& addrVal, TopoDBType dbType);
  InetAddressIPv4(const std::string& addrVal, bool isSubnet, TopoDBType dbType);
  InetAddressIPv4(const std::string& addrVal, bool isSubnet, const ObjID& anAID,
                  const ObjID& anAssEntID, TopoDBType dbType);
  InetAddressIPv4(const std::string& addrVal, bool isSubnet, const ObjID& anAID,
                  const ObjID& anAssEntID, const ObjID& aSubnetID, TopoDBType dbType);
  InetAddressIPv4(const std::string& addrVal, bool isSubnet, RouteDistinguisher rd,
                  const std::string& subnetMask, TopoDBType dbType);
  InetAddressIPv4(const std::string& addrVal, bool isSubnet, const ObjID& anAID,
                  const ObjID& anAssEntID, const ObjID& aSubnetID, RouteDistinguisher rd,
                  const std::string& pubAddr, TopoDBType dbType);
  InetAddressIPv4(const std::string& addrVal, bool isSubnet, const ObjID& anAID,
                  const ObjID& anAssEntID, const ObjID& aSubnetID, RouteDistinguisher rd,
                  const std::string& subnetMask, const std::string& pubAddr, TopoDBType dbType);
  InetAddressIPv4(const std::string& addrVal, bool isSubnet, const ObjID& anAID,
                  const ObjID& anAssEntID, const ObjID& aSubnetID, RouteDistinguisher rd,
                  const std::string& subnetMask, PingState aStat, long pingStateUpdTime,
                  const std::string& pubAddr, TopoDBType dbType);
  InetAddressIPv4(const std::string& addrVal, const std::string& publicAddressVal,
                  RouteDistinguisher rd, TopoDBType dbType);
  InetAddressIPv4(const std::string& addrVal, const std::string& publicAddressVal,
                  RouteDistinguisher rd, const std::string& subnetMask, TopoDBType dbType);
  /// The same for a literal, which would otherwise be taken for the truth value isSubnet.
  InetAddressIPv4(const std::string& addrVal, const char* publicAddressVal, RouteDistinguisher rd,
                  const std::string& subnetMask, TopoDBType dbType)
      : InetAddressIPv4(addrVal, std::string(publicAddressVal), rd, subnetMask, dbType) {}
  InetAddressIPv4(const InetAddressIPv4& other);
  InetAddressIPv4& operator=(const InetAddressIPv4& other);
  ~InetAddressIPv4() override;

  /// The private address: column V4Address.
  const std::string& getAddressAsString() const override;
  std::string toString() const override;
  std::string toXML() const override;

  /// The private address unchanged, dots and all: there is no bit form of it.
  virtual std::string getAddressAsBitString() const;

  /// The public address: column PubV4Address.
  const std::string& getPublicAddress() const { return _publicAddrVal; }
  const std::string& getCommunicationAddress() const { return getPublicAddress(); }
  short getPrefixLength() const { return _prefixLen; }

 private:
  short _prefixLen = 0;
  std::string _addrVal;
  std::string _publicAddrVal;
};

}  // namespace zntopo
