#pragma once

#include <array>
#include <string>
#include <vector>

#include "zntopo/model/EntityType.h"
#include "zntopo/model/InetAddressIPv6.h"
#include "zntopo/model/ZNAddress.h"
#include "zntopo/model/ZNCapability.h"
#include "zntopo/model/ZNEntity.h"
#include "zntopo/platform/Export.h"

namespace zntopo {

/// A bag of optional attributes for the ...ByFilter operations: a setter stores a value and
/// marks its field, a field that is not marked is ignored. An operation that doesn't know a
/// field ignores it too.
///
/// Text values go into statements between quotes, as they stand: names and descriptions, and the
/// addresses that addresses are asked for by, as patterns of the store's "like", in which a
/// backslash escapes on PostgreSQL alone; the address of getNodeIDsByFilter() as a text. A quote in
/// a value ends its text, and a condition behind it is run as a part of the statement. The names of
/// capabilities are columns, without quotes. Do not pass on what you did not check: the texts of
/// XML filters have no such limits.
class ZNTOPO_EXPORT ZNTopoFilter {
 public:
  enum Field : int {
    F_IPLevel = 0,
    F_AddressType = 1,
    F_V6ScopeType = 2,
    F_RegexEntityName = 3,
    F_AddressValue = 4,
    F_Capability = 5,
    F_ExCapability = 6,
    F_OrCapability = 7,
    F_PrefixLength = 8,
    F_PrefixAddress = 9,
    F_L2DomainId = 10,  ///< has no setter
    F_EntityType = 11
  };

  void setIPLevel(ZNEntity::IPLevel theLevel) { set(F_IPLevel, myIPLevel, theLevel); }
  void setAddressType(ZNAddress::AddressType theType) { set(F_AddressType, myAddrType, theType); }
  void setV6ScopeType(InetAddressIPv6::ScopeType theScope) {
    set(F_V6ScopeType, myV6ScopeType, theScope);
  }
  void setRegexEntityName(const std::string& theName) {
    set(F_RegexEntityName, myEntityName, theName);
  }
  void setAddressStr(const std::string& theValue) { set(F_AddressValue, myAddrValue, theValue); }
  void setCapabilityNames(const std::vector<ZNCapability>& theList) {
    set(F_Capability, myCapaList, theList);
  }
  void setExcludeCapabilityNames(const std::vector<ZNCapability>& theList) {
    set(F_ExCapability, myExCapaList, theList);
  }
  void setOrCapabilityNames(const std::vector<ZNCapability>& theList) {
    set(F_OrCapability, myOrCapaList, theList);
  }
  void setPrefixLength(int theLength) { set(F_PrefixLength, myPrefixLen, theLength); }
  void setPrefixAddressStr(const std::string& theAddress) {
    set(F_PrefixAddress, myPrefixAddrStr, theAddress);
  }
  void setEntityType(EntityType theType) { set(F_EntityType, myEntityType, theType); }

  ZNEntity::IPLevel getIPLevel() const { return myIPLevel; }
  ZNAddress::AddressType getAddressType() const { return myAddrType; }
  InetAddressIPv6::ScopeType getV6ScopeType() const { return myV6ScopeType; }
  const std::string& getRegexEntityName() const { return myEntityName; }
  const std::string& getAddressStr() const { return myAddrValue; }
  const std::vector<ZNCapability>& getCapabilityNames() const { return myCapaList; }
  const std::vector<ZNCapability>& getOrCapabilityNames() const { return myOrCapaList; }
  const std::vector<ZNCapability>& getExcludeCapabilityNames() const { return myExCapaList; }
  int getPrefixLength() const { return myPrefixLen; }
  const std::string& getPrefixAddressStr() const { return myPrefixAddrStr; }
  /// Means something only after setEntityType().
  EntityType getEntityType() const { return myEntityType; }
  int getL2DomainId() const { return myL2DomainId; }

  void MarkFieldToBeFiltered(Field theField) {
    myFieldVector.at(static_cast<std::size_t>(theField)) = 1;
  }
  bool isFieldIgnored(Field theField) const {
    return myFieldVector.at(static_cast<std::size_t>(theField)) == 0;
  }

 private:
  template <typename T>
  void set(Field theField, T& theMember, const T& theValue) {
    theMember = theValue;
    MarkFieldToBeFiltered(theField);
  }

  ZNEntity::IPLevel myIPLevel = static_cast<ZNEntity::IPLevel>(6);
  ZNAddress::AddressType myAddrType = static_cast<ZNAddress::AddressType>(2);
  InetAddressIPv6::ScopeType myV6ScopeType = static_cast<InetAddressIPv6::ScopeType>(3);
  std::string myEntityName;
  std::string myAddrValue;
  std::vector<ZNCapability> myCapaList;
  std::vector<ZNCapability> myOrCapaList;
  std::vector<ZNCapability> myExCapaList;
  int myPrefixLen = 0;
  std::string myPrefixAddrStr;
  EntityType myEntityType = static_cast<EntityType>(0);
  int myL2DomainId = -1;
  std::array<short, 20> myFieldVector{};
};

}  // namespace zntopo
