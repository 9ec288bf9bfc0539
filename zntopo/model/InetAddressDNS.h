#pragma once

#include <string>

#include "zntopo/model/InetAddress.h"

namespace zntopo {

/// A DNS name as an address.
class ZNTOPO_EXPORT InetAddressDNS : public InetAddress {
 public:
  InetAddressDNS();
  InetAddressDNS(const std::string& addrVal, TopoDBType dbType);
  InetAddressDNS(const std::string& addrVal, bool isSubnet, TopoDBType dbType);
  InetAddressDNS(const std::string& addrVal, bool isSubnet, const ObjID& anAID,
                 const ObjID& anAssEntID, TopoDBType dbType);
  InetAddressDNS(const std::string& addrVal, bool isSubnet, const ObjID& anAID,
                 const ObjID& anAssEntID, unsigned long rd, TopoDBType dbType);
  InetAddressDNS(const InetAddressDNS& other) = default;
  InetAddressDNS& operator=(const InetAddressDNS& other) = default;
  ~InetAddressDNS() override;

  /// Column DNSName.
  const std::string& getAddressAsString() const override;
  std::string toString() const override;

 private:
  std::string _addrVal;
};

}  // namespace zntopo
