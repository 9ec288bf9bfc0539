#include "tests/operations/SizedNetwork.h"

namespace zntopo::test {
namespace {

/// Writes the rows of one network.
class NetworkWriter {
 public:
  NetworkWriter(TestStore& store, const Size& size) : store_(store), size_(size) {}

  void write() {
    addNode(Part::Hub, 1, {{"QRMObjId", "1000"}});
    for (int i = 1; i <= size_.leaves; ++i) addLeaf(i);
    for (int i = 1; i <= size_.hops; ++i) {
      addNode(Part::Hop, i);
      i == 1 ? link(Part::Hop, i, nodeID(Part::Hub)) : link(Part::Hop, i, nodeID(Part::Hop, i - 1));
    }
    addAccess(Part::Hop, size_.hops, kFarAddress);
    addNode(Part::Isle, 1);
    addNode(Part::Isle, 2);
    link(Part::Isle, 2, nodeID(Part::Isle, 1));
    addNamedAddress();
    addV6();
  }

 private:
  void addNode(Part part, int number, const Values& more = {}) {
    store_.addNode(nodeID(part, number), nodeName(part, number), more);
  }

  void addInterface(const std::string& id, const std::string& node, Values more) {
    more.insert({{"NodeName", node}});
    store_.addInterface(id, node, id, more);
  }

  /// The link of a node with the one nearer to the hub.
  void link(Part part, int number, const std::string& to, Values up = {}, Values down = {}) {
    up.insert({{"isL2Connected", 1}});
    down.insert({{"isL2Connected", 1}});
    addInterface(upID(part, number), nodeID(part, number), up);
    addInterface(downID(part, number), to, down);
    store_.addLink(downID(part, number), upID(part, number), to, nodeID(part, number));
  }

  void addAddress(const std::string& id, const std::string& owner, const std::string& node,
                  const std::string& text) {
    store_.addAddress(id, owner, node, text, {{"RouteDistinguisher", 0}});
  }

  void addAccess(Part part, int number, const std::string& address) {
    const std::string id = accessID(part, number);
    addInterface(id, nodeID(part, number), {{"hasAddress", 1}});
    addAddress(uuid(static_cast<int>(part) + number, 'e'), id, nodeID(part, number), address);
  }

  void addLeaf(int number) {
    const std::string id = nodeID(Part::Leaf, number);
    const Values variables = {{"hasDynamicProperty", size_.variables ? 1 : 0}};
    addNode(Part::Leaf, number, variables);
    link(Part::Leaf, number, nodeID(Part::Hub), variables,
         {{"hasAddress", 1}, {"QRMObjId", std::to_string(2000 + number)}});
    addAddress(hubAddressID(number), downID(Part::Leaf, number), nodeID(Part::Hub),
               hubAddress(number));
    addAccess(Part::Leaf, number, leafAddress(number));
    addMemberships(id, upID(Part::Leaf, number));
    addGroups(number);
    if (!size_.variables) return;
    addVariable(id);
    addVariable(upID(Part::Leaf, number));
  }

  void addVariable(const std::string& owner) {
    store_.insert("userdefvar",
                  {{"ObjID", owner}, {"VarName", "site"}, {"VarValType", 3}, {"StrVal", "x"}});
  }

  void addMemberships(const std::string& node, const std::string& interface) {
    store_.insert("containment", {{"ContainerObjID", uuid(1)},
                                  {"ContainedObjID", interface},
                                  {"ContainedNodeObjId", node},
                                  {"ContainerType", 4},
                                  {"ContainedType", 2}});
    store_.insert("nwifcctm", {{"ContainerObjId", uuid(1)},
                               {"InterfaceObjId", interface},
                               {"NodeObjId", node},
                               {"ContainmentType", 30},
                               {"IFCType", 5},
                               {"SequenceNumber", 1}});
  }

  /// With an address of its own, which nobody but filters asks for.
  void addSubnet(int number) {
    store_.addEntity(subnetID(number), "subnet", 7, {{"QRMObjId", std::to_string(3000 + number)}});
    store_.insert("address", {{"AddressId", uuid(9800 + number, 'f')},
                              {"AddressType", 2},
                              {"ObjId", subnetID(number)},
                              {"isSubnet", 1},
                              {"SubnetObjId", subnetID(number)},
                              {"V6ScopeType", 3}});
  }

  void addGroups(int number) {
    addSubnet(number);
    store_.addEntity(vlanID(number), "vlan", 4);
    store_.addEntity(hsrpID(number), "group", 11);
    store_.insert("hsrpaddress", {{"ObjID", hsrpID(number)},
                                  {"AddressID", uuid(1000 + number, 'e')},
                                  {"AddressIfObjID", accessID(Part::Leaf, number)},
                                  {"state", 6}});
    store_.insert("nwtopoaudittrail", {{"ActionTimeUTC", number},
                                       {"ActionType", 2},
                                       {"ObjID", nodeID(Part::Leaf, number)},
                                       {"ActionDetail", 0},
                                       {"ObjectType", 1},
                                       {"ActionInfo", "new"}});
    store_.insert("nwifc",
                  {{"ObjId", containerID(number)}, {"EntityName", "container"}, {"IFCType", 5}});
  }

  void addV6Node(int number) {
    addNode(Part::Host, number, {{"IPLevel", 6}});
    addInterface(accessID(Part::Host, number), nodeID(Part::Host, number), {{"hasAddress", 1}});
  }

  void addV6Address(const std::string& id, const std::string& owner, const std::string& node,
                    const std::string& subnet, const std::string& text, const Values& more = {}) {
    Values row = {{"AddressId", id},   {"AddressType", 2}, {"ObjId", owner},
                  {"NodeObjId", node}, {"isSubnet", 0},    {"SubnetObjId", subnet},
                  {"V6Address", text}, {"V6ScopeType", 3}, {"PrefixLength", 64}};
    row.insert(more.begin(), more.end());
    store_.insert("address", row);
  }

  void addV6() {
    addV6Node(0);
    for (int i = 1; i <= size_.leaves; ++i) {
      addV6Node(i);
      const std::string net = "2001:db8:" + std::to_string(i) + "::";
      addV6Address(uuid(9000 + i, 'e'), accessID(Part::Host, 0), gateID(), subnetID(i), net + "1");
      addV6Address(uuid(9500 + i, 'e'), accessID(Part::Host, i), nodeID(Part::Host, i), subnetID(i),
                   net + "2");
    }
  }

  void addNamedAddress() {
    const std::string owner = uuid(2, 'f');
    const std::string name = uuid(3, 'f');
    addInterface(owner, nodeID(Part::Leaf, 2), {{"hasAddress", 1}});
    addV6Address(v6AddressID(), owner, nodeID(Part::Leaf, 2), uuid(4, 'f'), kV6Address,
                 {{"AddressQRMId", "5001"}});
    store_.insert("address", {{"AddressId", name},
                              {"AddressType", 16},
                              {"ObjId", owner},
                              {"isSubnet", 0},
                              {"DNSName", "www.example.net"}});
    store_.insert(
        "addressmapping",
        {{"LeftAddressId", v6AddressID()}, {"RightAddressId", name}, {"AddressMappingType", 1}});
  }

  TestStore& store_;
  const Size& size_;
};

}  // namespace

void fillNetwork(TestStore& store, const Size& size) {
  store.execute("begin");
  NetworkWriter(store, size).write();
  store.execute("commit");
}

}  // namespace zntopo::test
