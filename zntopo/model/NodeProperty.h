#pragma once

#include <string>

#include "zntopo/core/AtomicField.h"
#include "zntopo/core/PublishedHandle.h"
#include "zntopo/model/InetAddressIPv4.h"
#include "zntopo/model/SnmpState.h"
#include "zntopo/model/ZNNodeCapabilitySet.h"
#include "zntopo/platform/Export.h"

namespace zntopo {

/// The properties of a node: columns of nwnode.
struct ZNTOPO_EXPORT NodeProperty {
  ZNNodeCapabilitySet capabilitySet;
  /// Column SysOID.
  std::string entityOid;
  /// Column L2DomainId, -1 for none.
  AtomicField<int> L2DomainID{-1};
  /// Columns of the management address; may be null.
  PublishedHandle<InetAddressIPv4> V4MgmtAddress;
  /// Column SNMPState.
  AtomicField<SnmpState> mySnmpState{RESPONDING};
  /// Column sysContact.
  std::string sysContact;
  /// Column sysLocation.
  std::string sysLocation;
};

}  // namespace zntopo
