#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "tools/network/IpAddress.h"

/// @file
/// A network as a reader or a generator hands it to the StoreWriter: nodes with their interfaces
/// and addresses, the groups that interfaces belong to, layer-2 links, and what became of objects.
///
/// Each object has a key, a text that names it within the model and stays the same when the
/// same network is read again: its identifier in the store is made of it, unless the object brings
/// an identifier of its own. Keys have no meaning beyond that. An empty text means that nothing is
/// known.
///
/// A large network may come as several models. One of them brings an object, others may name it
/// by the same key, with isElsewhere set: that makes no rows, but links and memberships can refer
/// to it.

namespace zntopo::tools {

/// An index into one of the model's vectors.
using Index = std::size_t;

/// A property that users attach to an object. A value of 64 bits must fit 32, as all the store's
/// numbers.
struct UserVariableModel {
  std::string name;
  std::variant<short, int, long long, std::string, float, bool> value;
};

/// The numbers of ObjectStatus, and the time of the last change in seconds UTC.
struct StatusModel {
  int overall = 1;
  int v6 = 1;
  int changeTime = 0;
};

/// What objects of all kinds have.
struct EntityModel {
  std::string key;
  /// The identifier in the store, from a source that tells it.
  std::string id;
  /// The zone in which the object was, from a source that tells it.
  std::string zone;
  std::string name;
  std::string description;
  /// A decimal number: what the object is called in a store of the legacy kind.
  std::string legacyId;
  std::optional<StatusModel> status;
  std::vector<UserVariableModel> variables;
  /// Another model brings this object.
  bool isElsewhere = false;
};

/// A further property by name, of a node or an interface.
struct PropertyModel {
  std::string name;
  std::string value;
};

/// What the monitoring of an IPv6 address knows; the numbers are those of
/// MonitoredInetAddressIPv6 and ObjectStatus, the times are seconds UTC.
struct MonitoringModel {
  std::string legacyId;
  int status = 1;
  int netToMedia = 1;
  int preference = 1;
  int origin = 1;
  int lastTime = 0;
};

struct AddressModel {
  IpAddress address;
  /// Nothing if the length is not known.
  std::optional<int> prefixLength;
  /// True if the source says the length of this very address; false if it was concluded.
  bool isLengthTold = false;
  std::optional<Index> subnet = {};
  /// The identifier in the store, from a source that tells it.
  std::string id = {};
  /// The name in the DNS that an IPv6 address maps to.
  std::string dnsName = {};
  /// The identifier of that name's own row, from a source that tells it.
  std::string dnsId = {};
  /// The IPv4 address of the same interface that an IPv6 address maps to.
  std::optional<IpAddress> mappedV4 = {};
  std::optional<MonitoringModel> monitoring = {};
};

struct InterfaceModel : EntityModel {
  /// True if a reader made the name up: then it tells neither card nor port.
  bool isNameMade = false;
  std::string alias;
  std::string physicalAddress;
  std::optional<int> index;
  /// The number of the interface's type in the registry of MIB-II.
  std::optional<int> type;
  /// Bits per second.
  std::optional<int> speed;
  /// The numbers of IfAdminStatus and IfOperStatus.
  std::optional<int> adminState;
  std::optional<int> operState;
  /// One untagged VLAN and no others.
  bool isAccessPort = false;
  /// A link of another model ends here.
  bool isLinkedElsewhere = false;
  std::set<Index> vlans;
  /// The first of a kind is the one by which the library finds the interface for a path.
  std::vector<AddressModel> addresses;
  std::vector<PropertyModel> properties;
};

/// What a node speaks, beyond what its interfaces and addresses tell; as bits.
enum NodeFeature : unsigned {
  SpeaksOspf = 1,
  SpeaksBgp = 2,
  SpeaksCdp = 4,
  SpeaksStp = 8,
  SpeaksSnmp = 16,
  IsMultiHomed = 32,
  IsWireless = 64
};

struct NodeModel : EntityModel {
  std::optional<IpAddress> managementAddress;
  bool isRouter = false;
  unsigned features = 0;
  /// The object identifier of the maker's model.
  std::string systemOid;
  std::string contact;
  std::string location;
  /// The number of SnmpState.
  std::optional<int> snmpState;
  std::optional<int> layer2Domain;
  std::vector<InterfaceModel> interfaces;
  std::vector<PropertyModel> properties;
};

struct SubnetModel : EntityModel {
  /// Nothing for a segment whose prefix is not known.
  std::optional<IpPrefix> prefix;
  bool isV6 = false;
  /// The identifier of the subnet's own address, from a source that tells it.
  std::string addressId;
};

struct VlanModel : EntityModel {
  int number = 0;
};

/// One end of a link.
struct EndPoint {
  Index node = 0;
  Index interface = 0;
  friend auto operator<=>(const EndPoint& left, const EndPoint& right) = default;
};

struct LinkModel {
  EndPoint left;
  EndPoint right;
};

/// Interfaces that hear each other through switches of which nothing else is known.
struct MeshModel : EntityModel {
  std::vector<EndPoint> members;
};

/// An interface that a member of an HSRP group watches, and what its loss takes off the priority.
struct HsrpTrackModel {
  EndPoint interface;
  int decrement = 10;
};

struct HsrpMemberModel {
  EndPoint interface;
  /// One of the interface's own.
  IpAddress address;
  /// The number of ZNHSRPAddressInfo::HSRPState.
  int state = 0;
  int priority = 100;
  /// From 0 to 100.
  int certainty = 100;
  std::vector<HsrpTrackModel> tracks;
};

struct HsrpGroupModel : EntityModel {
  int number = 0;
  std::vector<HsrpMemberModel> members;
};

struct ContainerMemberModel {
  EndPoint interface;
  /// How the interface belongs to the container: a number that applications agree on.
  int containment = 0;
  /// The place in an ordered container.
  int sequence = 0;
};

/// An interface container; what the numbers mean is a matter of the applications.
struct ContainerModel : EntityModel {
  int type = 0;
  int application = 0;
  bool isOrdered = false;
  std::vector<ContainerMemberModel> members;
};

/// A relation between two containers.
struct AssociationModel {
  Index left = 0;
  Index right = 0;
  int relation = 0;
  int state = 0;
  int stateChangeTime = 0;
  std::string description;
  std::string extraInfo;
};

/// One line of the audit trail: what discovery did to an object, which need not be there any
/// more. The numbers are those of ZNAuditAction and ZNAuditTrail.
struct AuditModel {
  std::string objectKey;
  int objectType = 0;
  int time = 0;
  int action = 0;
  int detail = 0;
  std::string info;
  /// The object's identifier, from a source that tells it; it counts more than the key.
  std::string objectId = {};
};

/// The whole.
class NetworkModel {
 public:
  std::vector<NodeModel> nodes;
  std::vector<SubnetModel> subnets;
  std::vector<VlanModel> vlans;
  std::vector<LinkModel> links;
  std::vector<MeshModel> meshes;
  std::vector<HsrpGroupModel> hsrpGroups;
  std::vector<ContainerModel> containers;
  std::vector<AssociationModel> associations;
  std::vector<AuditModel> audit;

  InterfaceModel& at(const EndPoint& end) { return nodes[end.node].interfaces[end.interface]; }
  const InterfaceModel& at(const EndPoint& end) const {
    return nodes[end.node].interfaces[end.interface];
  }

  /// An identifier that two objects or addresses bring; empty if each has its own.
  std::string doubledIdentifier() const;

  /// Adds a layer-2 link; false if the two ends were linked already, whichever way round.
  bool addLink(const EndPoint& left, const EndPoint& right);
  /// The subnet of a prefix, made at first sight; a scope keeps equal prefixes apart.
  Index subnetOf(const IpPrefix& prefix, const std::string& scope = "");
  /// The subnet of a key, made at first sight.
  Index subnetOfKey(const std::string& key, const std::string& name, bool isV6);
  Index vlanOf(const std::string& key, const std::string& name, int number);

  /// Gives each address that can have one its subnet. To be called when all links are there.
  ///
  /// An address with a prefix length goes to the subnet of its prefix. Link-local addresses
  /// share a subnet with the other end of their wire alone, IPv6's loopback address has one for
  /// each node, and a lone IPv6 address of unknown length one of its own, since the library
  /// needs one for each IPv6 address. IPv4 host prefixes and loopback addresses have none.
  void assignSubnets();

 private:
  void assignSubnet(const EndPoint& end, AddressModel& address, const std::string& wire);

  std::set<std::pair<EndPoint, EndPoint>> linked_;
  std::map<std::string, Index> subnetsByKey_;
  std::map<std::string, Index> vlansByKey_;
};

}  // namespace zntopo::tools
