#include "tools/network/RowContext.h"
#include "zntopo/model/ZNAddress.h"

namespace zntopo::tools {

namespace {

void putAddressText(const IpAddress& ip, RowOf<Address>& row) {
  row["AddressType"] = static_cast<int>(ip.isV6() ? ZNAddress::IPv6 : ZNAddress::IPv4);
  row["IPLevel"] = ip.isV6() ? kIPv6Level : kIPv4Level;
  if (ip.isV6()) {
    row["V6Address"] = ip.text();
    row["V6AddressBS"] = ip.bitText();
    row["V6ScopeType"] = static_cast<int>(ip.scope());
  } else {
    row["V4Address"] = ip.text();
  }
}

void putMonitoring(const MonitoringModel& monitoring, RowOf<Address>& row) {
  row["AddressQRMId"] = textCell(monitoring.legacyId);
  row["PingStatus"] = monitoring.status;
  row["V6AddressType"] = monitoring.origin;
  row["V6AddressNtmState"] = monitoring.netToMedia;
  row["V6AddressStatus"] = monitoring.preference;
  row["LastPingTimeUTC"] = row["LastPingStateUpdTimeUTC"] = monitoring.lastTime;
}

void putMapping(RowContext& context, const std::string& left, const std::string& right,
                ZNAddress::AddrMapType type) {
  RowOf<AddressMapping> row;
  row["LeftAddressId"] = left;
  row["RightAddressId"] = right;
  row["AddressMappingType"] = static_cast<int>(type);
  context.put(std::move(row));
}

/// The name's own row, and the mapping of the address to it.
void addDnsName(RowContext& context, const EndPoint& end, const AddressModel& address,
                const std::string& addressId) {
  const std::string dnsId =
      context.id(address.dnsId, context.model().at(end).key + "\nname\n" + address.dnsName);
  RowOf<Address> row;
  row["AddressId"] = dnsId;
  row["ObjId"] = context.interfaceId(end);
  row["AddressType"] = static_cast<int>(ZNAddress::DNS);
  row["IPLevel"] = kIPv6Level;
  row["isSubnet"] = 0;
  row["NodeObjId"] = context.nodeId(end.node);
  row["DNSName"] = address.dnsName;
  row["RouteDistinguisher"] = 0;
  context.put(std::move(row));
  putMapping(context, addressId, dnsId, ZNAddress::IPV6_DNS);
}

/// The subnet and its own address. That has no public form and no route distinguisher: who
/// looks for a host's address must not find the network's. An IPv6 network of one or two
/// addresses has none at all, since IPv6 is looked up by the text alone.
void addSubnet(RowContext& context, Index index) {
  const SubnetModel& subnet = context.model().subnets[index];
  const bool hasAddress = subnet.prefix && !(subnet.isV6 && subnet.prefix->length >= 127);
  const std::string& subnetId = context.subnetId(index);
  context.putEntity(subnet, subnetId, E_Subnet, subnet.isV6 ? kIPv6Level : kIPv4Level, hasAddress);
  if (!hasAddress) return;
  RowOf<Address> row;
  row["AddressId"] = context.id(subnet.addressId, subnet.key + "\naddress");
  row["ObjId"] = row["SubnetObjId"] = subnetId;
  row["isSubnet"] = 1;
  row["PrefixLength"] = subnet.prefix->length;
  putAddressText(subnet.prefix->network, row);
  context.put(std::move(row));
}

}  // namespace

void addAddressRows(RowContext& context, const EndPoint& end, const AddressModel& address) {
  const std::string addressId = context.addressId(end, address);
  RowOf<Address> row;
  row["AddressId"] = addressId;
  row["ObjId"] = context.interfaceId(end);
  row["NodeObjId"] = context.nodeId(end.node);
  row["isSubnet"] = 0;
  row["PrefixLength"] = cellOf(address.prefixLength);
  row["RouteDistinguisher"] = 0;
  putAddressText(address.address, row);
  if (!address.address.isV6()) row["PubV4Address"] = row["V4Address"];
  if (address.subnet) row["SubnetObjId"] = context.subnetId(*address.subnet);
  if (address.monitoring) putMonitoring(*address.monitoring, row);
  context.put(std::move(row));
  if (!address.dnsName.empty()) addDnsName(context, end, address, addressId);
  if (address.mappedV4) {
    putMapping(context, addressId, context.addressId(end, *address.mappedV4), ZNAddress::IPV6_IPV4);
  }
}

void addSubnetRows(RowContext& context) {
  for (Index i = 0; i < context.model().subnets.size(); ++i) {
    if (!context.model().subnets[i].isElsewhere) addSubnet(context, i);
  }
}

}  // namespace zntopo::tools
