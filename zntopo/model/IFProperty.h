#pragma once

#include <string>

#include "zntopo/core/AtomicField.h"
#include "zntopo/model/IfStatus.h"
#include "zntopo/model/ZNInterfaceCapabilitySet.h"
#include "zntopo/platform/Export.h"

namespace zntopo {

/// The properties of an interface: columns of nwinterface. "-" marks a text that the store does
/// not have. Port and card numbers are three characters and a terminator at most.
struct ZNTOPO_EXPORT IFProperty {
  /// Back to the defaults.
  void reset() { *this = IFProperty(); }

  char portNumber[4] = {0, 0, 0, 0};
  char vendorPortNumber[4] = {0, 0, 0, 0};
  char vendorCardNumber[4] = {0, 0, 0, 0};
  short vpi = 0;
  short vci = 0;
  AtomicField<IfOperStatus> ifOperStatus{up};
  AtomicField<IfAdminStatus> ifAdminStatus{Up};
  short ifType = 0;
  std::string ifName = "-";
  short ifIndex = 0;
  std::string physicalAddress;
  std::string ifAlias = "-";
  /// Column L2DomainId, -1 for none.
  AtomicField<short> L2DomainID{-1};
  int ifSpeed = 0;
  ZNInterfaceCapabilitySet capaSet;
};

}  // namespace zntopo
