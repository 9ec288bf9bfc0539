#pragma once

#include "zntopo/core/ZNRefPtr.h"
#include "zntopo/model/TopoDBType.h"
#include "zntopo/model/ZNAddress.h"
#include "zntopo/store/StoreAccess.h"

/// @file
/// The row of the big select of addresses.

namespace zntopo::detail {

/// The columns in the order of the statement.
enum AddressColumn : int {
  ADDR_AddressId,
  ADDR_ObjId,
  ADDR_AddressType,
  ADDR_isSubnet,
  ADDR_SubnetObjId,
  ADDR_V6Address,
  ADDR_V6AddressBS,
  ADDR_V6ScopeType,
  ADDR_PrefixLength,
  ADDR_V4Address,
  ADDR_NodeObjId,
  ADDR_DNSName,
  ADDR_RouteDistinguisher,
  ADDR_AddressQRMId,
  ADDR_PingStatus,
  ADDR_V6AddressType,
  ADDR_V6AddressNtmState,
  ADDR_V6AddressStatus,
  ADDR_LastPingTimeUTC,
  ADDR_LastPingStateUpdTimeUTC,
  ADDR_PubV4Address,
  ADDR_PingState,
  ADDRESS_COLUMN_COUNT
};

inline constexpr Column kAddressColumns[] = {
    textColumn("AddressId", 66),     textColumn("ObjId", 66),
    intColumn("AddressType"),        intColumn("isSubnet"),
    textColumn("SubnetObjId", 66),   textColumn("V6Address", 42),
    textColumn("V6AddressBS", 130),  intColumn("V6ScopeType"),
    intColumn("PrefixLength"),       textColumn("V4Address", 17),
    textColumn("NodeObjId", 66),     textColumn("DNSName", 257),
    intColumn("RouteDistinguisher"), textColumn("AddressQRMId", 66),
    intColumn("PingStatus"),         intColumn("V6AddressType"),
    intColumn("V6AddressNtmState"),  intColumn("V6AddressStatus"),
    intColumn("LastPingTimeUTC"),    intColumn("LastPingStateUpdTimeUTC"),
    textColumn("PubV4Address", 17),  intColumn("PingState"),
};
static_assert(sizeof(kAddressColumns) / sizeof(Column) == ADDRESS_COLUMN_COUNT);

/// The address of a row, null for a row that makes none.
ZNRefPtr<ZNAddress> addressFromRow(const Row& row, TopoDBType dbType);

}  // namespace zntopo::detail
