#include "tools/generate/PartBuilder.h"

#include <cmath>
#include <cstdio>
#include <limits>

#include "zntopo/model/EntityType.h"

namespace zntopo::tools {

namespace {

constexpr long long kMillion = 1'000'000;
constexpr int kLegacyInterfaces = 100'000'000;
constexpr int kLegacyMonitored = 700'000'000;
constexpr int kLegacyOthers = 1'500'000'000;
constexpr int kLegacyOthersOfPart = 30'000;
constexpr int kDay = 86'400;
/// Wires between routers: from 172.16.0.0 on, and behind the sites' prefixes in 2001:db8::/32.
constexpr std::uint32_t kFirstWireV4 = 0xac100000;
constexpr std::uint64_t kFirstWireV6 = 0x20010db8f0000000;
/// The store's numbers have 32 bits: faster interfaces than this have this speed.
constexpr int kFastest = std::numeric_limits<int>::max();

struct RoleText {
  const char* description;
  const char* systemOid;
  unsigned features;
  bool isRouter;
  bool isInfrastructure;
};
/// In the order of the enumeration.
constexpr RoleText kRoles[] = {
    {"Backbone router", "1.3.6.1.4.1.32473.1.1", SpeaksOspf | SpeaksBgp | SpeaksSnmp, true, true},
    {"Edge router", "1.3.6.1.4.1.32473.1.2", SpeaksOspf | SpeaksBgp | SpeaksCdp | SpeaksSnmp, true,
     true},
    {"Core switch", "1.3.6.1.4.1.32473.1.3", SpeaksOspf | SpeaksStp | SpeaksCdp | SpeaksSnmp, true,
     true},
    {"Distribution switch", "1.3.6.1.4.1.32473.1.4", SpeaksStp | SpeaksCdp | SpeaksSnmp, false,
     true},
    {"Access switch", "1.3.6.1.4.1.32473.1.5", SpeaksStp | SpeaksCdp | SpeaksSnmp, false, true},
    {"Host", "", 0, false, false},
};
static_assert(std::size(kRoles) == static_cast<std::size_t>(NodeRole::Count));

struct PortText {
  int type;
  int speed;
  bool isPhysical;
};
/// In the order of the enumeration; the types are ethernetCsmacd, l3ipvlan and softwareLoopback.
constexpr PortText kPorts[] = {{6, kFastest, true},         {6, kFastest, true},
                               {6, 1'000'000'000, true},    {6, 1'000'000'000, true},
                               {136, 1'000'000'000, false}, {24, 0, false}};
static_assert(std::size(kPorts) == static_cast<std::size_t>(PortRole::Count));

std::string hardwareAddress(int number) {
  char text[18];
  const auto bits = static_cast<unsigned>(number);
  std::snprintf(text, sizeof text, "02:00:%02x:%02x:%02x:%02x", bits >> 24, bits >> 16 & 255,
                bits >> 8 & 255, bits & 255);
  return text;
}

}  // namespace

std::string numbered(const std::string& before, int number, int count) {
  std::string digits = std::to_string(number);
  const std::size_t width = std::to_string(count).size();
  if (digits.size() < width) digits.insert(0, width - digits.size(), '0');
  return before + digits;
}

IpPrefix wirePrefixV4(int wire) {
  return {IpAddress::v4(kFirstWireV4 + 4 * static_cast<std::uint32_t>(wire)), 30};
}

IpPrefix wirePrefixV6(int wire) {
  return {IpAddress::v6(kFirstWireV6 + static_cast<std::uint64_t>(wire), 0), 64};
}

PartBuilder::PartBuilder(const CampusPlan& plan, int part, int firstNode, int firstInterface)
    : plan_(plan),
      part_(part),
      random_(plan.seed, static_cast<std::uint64_t>(part)),
      variableShare_(std::llround(plan.userVariableShare * kMillion)),
      nextNode_(firstNode),
      nextInterface_(firstInterface) {}

NetworkModel PartBuilder::take() {
  model_.assignSubnets();
  for (SubnetModel& subnet : model_.subnets) {
    subnet.legacyId = nextLegacyId();
    if (subnet.description.empty()) subnet.description = "Subnet " + subnet.name;
  }
  return std::move(model_);
}

Index PartBuilder::addNode(NodeRole role, const std::string& name, int site) {
  const RoleText& text = kRoles[static_cast<int>(role)];
  const Index index = model_.nodes.size();
  NodeModel& node = model_.nodes.emplace_back();
  const int number = nextNode_++;
  node.key = node.name = name;
  node.description = text.description;
  node.legacyId = std::to_string(number + 1);
  node.status = status();
  node.isRouter = text.isRouter;
  node.features = text.features;
  node.systemOid = text.systemOid;
  if (site >= 0) node.layer2Domain = site + 1;
  if (text.isInfrastructure) {
    node.contact = "noc@campus.example";
    node.location = site < 0 ? "Exchange " + std::to_string(number % 4 + 1)
                             : "Site " + std::to_string(site + 1) + ", building " +
                                   std::to_string(random_.below(5) + 1);
    node.snmpState = random_.inThousand(20) ? 1 : 0;
    node.properties = {{"serialNumber", "SN" + std::to_string(7'000'000 + number)},
                       {"softwareVersion", "17." + std::to_string(random_.below(9) + 1)}};
  }
  addNodeVariables(node, number);
  addAudit(node.key, E_Node, 2, 0, "Discovered " + name);
  return index;
}

EndPoint PartBuilder::addPort(Index node, PortRole role, const std::string& name) {
  const PortText& text = kPorts[static_cast<int>(role)];
  NodeModel& owner = model_.nodes[node];
  const EndPoint end{node, owner.interfaces.size()};
  InterfaceModel& port = owner.interfaces.emplace_back();
  const int number = nextInterface_++;
  port.key = owner.key + "/" + name;
  port.name = name;
  port.legacyId = std::to_string(kLegacyInterfaces + number);
  port.status = status();
  port.index = static_cast<int>(end.interface) + 1;
  port.type = text.type;
  port.speed = text.speed;
  port.adminState = port.operState = 1;
  if (text.isPhysical) port.physicalAddress = hardwareAddress(number);
  if (role == PortRole::Uplink) port.properties = {{"duplex", "full"}, {"mtu", "9216"}};
  if (isChosen(number)) addPortVariables(port);
  return end;
}

EndPoint PartBuilder::addElsewhere(const std::string& nodeName, const std::string& portName) {
  const EndPoint end{model_.nodes.size(), 0};
  NodeModel& node = model_.nodes.emplace_back();
  node.key = node.name = nodeName;
  node.isElsewhere = true;
  InterfaceModel& port = node.interfaces.emplace_back();
  port.key = nodeName + "/" + portName;
  port.name = portName;
  return end;
}

void PartBuilder::describe(const EndPoint& end, const EndPoint& other) {
  at(end).description = "to " + model_.nodes[other.node].name + " " + at(other).name;
}

void PartBuilder::link(const EndPoint& left, const EndPoint& right) {
  model_.addLink(left, right);
  describe(left, right);
  describe(right, left);
}

AddressModel& PartBuilder::addAddress(const EndPoint& end, const IpAddress& address, int length) {
  AddressModel& result = at(end).addresses.emplace_back();
  result.address = address;
  result.prefixLength = length;
  result.isLengthTold = true;
  return result;
}

void PartBuilder::addWireAddresses(const EndPoint& end, int wire, int side) {
  const auto number = static_cast<std::uint32_t>(1 + side);
  addAddress(end, IpAddress::v4(kFirstWireV4 + 4 * static_cast<std::uint32_t>(wire) + number), 30);
  addAddress(end, IpAddress::v6(kFirstWireV6 + static_cast<std::uint64_t>(wire), number), 64);
}

void PartBuilder::setManagement(const EndPoint& end) {
  model_.nodes[end.node].managementAddress = at(end).addresses.front().address;
}

void PartBuilder::addDetails(const EndPoint& end, AddressModel& v6) {
  v6.dnsName = model_.nodes[end.node].name + ".campus.example";
  const AddressModel& first = at(end).addresses.front();
  if (!first.address.isV6()) v6.mappedV4 = first.address;
  if (random_.inThousand(500)) return;
  MonitoringModel& monitoring = v6.monitoring.emplace();
  monitoring.legacyId = std::to_string(kLegacyMonitored + std::stoi(at(end).legacyId));
  monitoring.status = random_.inThousand(950) ? 1 : 6;
  monitoring.netToMedia = random_.below(6) + 1;
  monitoring.preference = random_.inThousand(950) ? 1 : 2;
  monitoring.origin = random_.below(2) + 1;
  monitoring.lastTime = recently();
}

std::string PartBuilder::nextLegacyId() {
  return std::to_string(kLegacyOthers + part_ * kLegacyOthersOfPart + nextLegacyId_++);
}

StatusModel PartBuilder::status() {
  constexpr int kNormal = 1, kWarning = 3, kCritical = 6;
  const int chance = random_.below(1000);
  const int overall = chance < 970 ? kNormal : chance < 990 ? kWarning : kCritical;
  return {overall, overall, recently()};
}

int PartBuilder::recently() { return plan_.time - random_.below(30 * kDay); }

void PartBuilder::addAudit(const std::string& key, int type, int action, int detail,
                           const std::string& info) {
  model_.audit.push_back({key, type, recently(), action, detail, info});
}

/// Spreads the share evenly over all numbers.
bool PartBuilder::isChosen(int number) const {
  return (number + 1) * variableShare_ / kMillion > number * variableShare_ / kMillion;
}

/// One variable of each type; a network with any has them on its first node at the latest.
void PartBuilder::addNodeVariables(NodeModel& node, int number) {
  if (variableShare_ == 0 || !(isChosen(number) || number == 0)) return;
  node.variables = {{"rackUnit", static_cast<short>(random_.below(42) + 1)},
                    {"assetNumber", 100'000 + number},
                    {"serviceContract", static_cast<long long>(random_.below(1'000'000))},
                    {"owner", std::string("team-") + std::to_string(random_.below(12) + 1)},
                    {"powerKilowatts", static_cast<float>(random_.below(64)) / 16},
                    {"isLeased", random_.inThousand(300)}};
}

void PartBuilder::addPortVariables(InterfaceModel& port) {
  port.variables = {
      {"patchPanel", "P" + std::to_string(random_.below(90) + 10)},
      {"cableMetres", static_cast<float>(random_.below(400)) / 4},
      {"isProtected", random_.inThousand(500)},
  };
}

}  // namespace zntopo::tools
