#pragma once

#include <string>

#include "zntopo/model/InetAddress.h"

namespace zntopo {

/// An IPv6 address.
class ZNTOPO_EXPORT InetAddressIPv6 : public InetAddress {
 public:
  /// How far an address reaches.
  enum ScopeType : int { Unknown = 0, LinkLocal = 1, SiteLocal = 2, Global = 3 };

  InetAddressIPv6();
  InetAddressIPv6(const std::string& addrVal, ScopeType sType, short prefixLen, TopoDBType dbType);
  InetAddressIPv6(const std::string& addrVal, ScopeType sType, short prefixLen, bool isSubnet,
                  TopoDBType dbType);
  InetAddressIPv6(const std::string& addrVal, ScopeType sType, short prefixLen, bool isSubnet,
                  const ObjID& anAID, const ObjID& anAssEntID, const ObjID& aSubnetID,
                  TopoDBType dbType);
  InetAddressIPv6(const std::string& addrVal, ScopeType sType, short prefixLen, bool isSubnet,
                  const ObjID& anAID, const ObjID& anAssEntID, const ObjID& aSubnetID,
                  unsigned long rd, TopoDBType dbType);
  InetAddressIPv6(const InetAddressIPv6& other);
  InetAddressIPv6& operator=(const InetAddressIPv6& other);
  ~InetAddressIPv6() override;

  /// Column V6Address.
  const std::string& getAddressAsString() const override;
  std::string toString() const override;

  /// The first len characters of the 128 of the bit form, all of it for len 0 and below. An
  /// address without text has an empty form.
  virtual std::string getAddressAsBitString(int len) const;

  short getPrefixLength() const { return _prefixLen; }
  ScopeType getScopeType() const { return _scopeType; }

  /// Empty for a number that is no scope.
  static std::string ScopeTypeToString(ScopeType scope);
  /// Unknown for a number that is no scope.
  static ScopeType ShortToScopeType(short value);
  static short ScopeTypeToShort(ScopeType scope) { return static_cast<short>(scope); }

 private:
  std::string _addrVal;
  /// Filled on first use.
  mutable Published<std::string> _addrValBS;
  short _prefixLen = 0;
  ScopeType _scopeType = Global;
};

}  // namespace zntopo
