#include "tests/faults/LittleNetwork.h"

namespace zntopo::test {
namespace {

void addVariable(TestStore& store, const std::string& owner) {
  store.insert("userdefvar", {{"ObjID", owner},
                              {"VarName", "owner"},
                              {"VarValType", 3},
                              {"StrVal", "network"},
                              {"IntVal", 1},
                              {"FloatVal", 1.5}});
}

/// The first one is of IPv6, so that a walk over subnets may begin there.
void addAlikeNode(TestStore& store, int number, const std::string& name) {
  const std::string address =
      "10.0." + std::to_string(number / 200) + "." + std::to_string(number % 200 + 1);
  store.addNode(uuid(number), name,
                {{"QRMObjId", std::to_string(number)},
                 {"IPLevel", number == 1 ? 6 : 4},
                 {"Description", std::string(600, 'd')},
                 {"V4ManagementAddress", address},
                 {"PubV4ManagementAdd", address},
                 {"V4ManagementAddressRD", 0},
                 {"hasDynamicProperty", 1},
                 {"isLanSwitch", 1},
                 {"hasAddress", 1}});
  addVariable(store, uuid(number));
}

void addAlikeInterface(TestStore& store, int from, int to, const std::string& nodeName) {
  const std::string id = interfaceID(from, to);
  const int number = from == 1 ? to : 1000 * from + to;
  store.addInterface(id, uuid(from), "Gi0/" + std::to_string(to),
                     {{"QRMObjId", std::to_string(number)},
                      {"Description", std::string(600, 'i')},
                      {"nodeName", nodeName},
                      {"isL2Connected", 1},
                      {"isHSRP", 1},
                      {"hasDynamicProperty", 1},
                      {"hasAddress", 1}});
  store.addAddress(
      addressID(from, to), id, uuid(from),
      "10.1." + std::to_string(from % 200) + "." + std::to_string(to % 200),
      {{"isSubnet", 0}, {"SubnetObjId", kSubnet}, {"AddressQRMId", std::to_string(number)}});
  addVariable(store, id);
  store.insert("containment", {{"ContainerObjID", kVlan},
                               {"ContainedObjID", id},
                               {"ContainerType", 4},
                               {"ContainedType", 2},
                               {"ContainedNodeObjId", uuid(from)}});
  store.insert("nwifcctm", {{"ContainerObjId", kContainer},
                            {"InterfaceObjId", id},
                            {"NodeObjId", uuid(from)},
                            {"ContainmentType", 1},
                            {"IFCType", 2},
                            {"SequenceNumber", to}});
  store.insert("hsrpaddress", {{"ObjID", kGroup},
                               {"AddressID", addressID(from, to)},
                               {"AddressIfObjID", id},
                               {"state", 5},
                               {"HSRPPriority", 100},
                               {"HSRPNumber", 1},
                               {"TrackInterfaceList", "GigabitEthernet0/1:10"},
                               {"HSRPStateCertainty", 1}});
}

void link(TestStore& store, int from, const std::string& fromName, int to,
          const std::string& toName) {
  addAlikeInterface(store, from, to, fromName);
  addAlikeInterface(store, to, from, toName);
  store.addLink(interfaceID(from, to), interfaceID(to, from), uuid(from), uuid(to));
}

void addV6Address(TestStore& store) {
  store.insert("address", {{"AddressId", kV6Address},
                           {"ObjId", interfaceID(1, 2)},
                           {"AddressType", 2},
                           {"IPLevel", 6},
                           {"isSubnet", 0},
                           {"SubnetObjId", kSubnet},
                           {"V6Address", "2001:db8::1"},
                           {"V6ScopeType", 1},
                           {"PrefixLength", 64},
                           {"NodeObjId", kAlpha},
                           {"RouteDistinguisher", 0},
                           {"AddressQRMId", "777"}});
}

void addDnsName(TestStore& store, const std::string& id, const std::string& name) {
  store.insert("address", {{"AddressId", id},
                           {"ObjId", interfaceID(1, 2)},
                           {"AddressType", 16},
                           {"isSubnet", 0},
                           {"DNSName", name}});
  store.insert("addressmapping",
               {{"LeftAddressId", kV6Address}, {"RightAddressId", id}, {"AddressMappingType", 1}});
}

/// An entity with a variable and an address, so that it comes with both.
void addGroup(TestStore& store, const std::string& id, const std::string& name, EntityType type,
              int number) {
  store.addEntity(id, name, type,
                  {{"QRMObjId", std::to_string(number)},
                   {"RouteDistinguisher", 0},
                   {"hasDynamicProperty", 1},
                   {"hasAddress", 1}});
  addVariable(store, id);
  store.insert("address", {{"AddressId", uuid(number, 'e')},
                           {"ObjId", id},
                           {"AddressType", 1},
                           {"isSubnet", type == E_Subnet ? 1 : 0},
                           {"SubnetObjId", id},
                           {"V4Address", "10.9.0." + std::to_string(number - 900)},
                           {"PrefixLength", 24}});
}

void addContainer(TestStore& store) {
  store.insert("nwifc", {{"ObjId", kContainer},
                         {"EntityName", "bundle-1"},
                         {"IFCType", 2},
                         {"RouteDistinguisher", 0}});
  addVariable(store, kContainer);
  store.insert("nwifcasc", {{"LeftIFContainerObjID", kContainer},
                            {"RightIFContainerObjID", uuid(9, 'd')},
                            {"RelType", 1},
                            {"LeftIfcType", 2},
                            {"RightIfcType", 2},
                            {"State", 1}});
}

void addGroups(TestStore& store) {
  addGroup(store, kVlan, "vlan-7", E_Vlan, 901);
  store.insert("nwvlan", {{"ObjId", kVlan}});
  addGroup(store, kGroup, "group-1", E_HSRP, 902);
  store.insert("nwhsrp", {{"ObjId", kGroup}});
  addGroup(store, kSubnet, "10.1.0.0", E_Subnet, 903);
  addContainer(store);
  store.insert("containment", {{"ContainerObjID", kMesh},
                               {"ContainedObjID", interfaceID(1, 2)},
                               {"ContainerType", 10},
                               {"ContainedType", 2},
                               {"ContainedNodeObjId", kAlpha}});
}

void addAuditRows(TestStore& store, int more) {
  for (int i = 0; i < 4 + more; ++i) {
    store.insert("nwtopoaudittrail", {{"ActionTimeUTC", 1 + i % 9},
                                      {"ActionType", 2},
                                      {"ObjID", i % 2 == 0 ? kAlpha : uuid(10 + i)},
                                      {"ActionDetail", 0},
                                      {"ObjectType", 1},
                                      {"ActionInfo", std::string(200, 'a')}});
  }
}

}  // namespace

void fillLittleNetwork(TestStore& store, int more) {
  store.setReady();
  addAlikeNode(store, 1, "alpha.net");
  addAlikeNode(store, 2, "beta");
  addAlikeNode(store, 3, "gamma");
  link(store, 1, "alpha.net", 2, "beta");
  link(store, 2, "beta", 3, "gamma");
  addGroups(store);
  addV6Address(store);
  addDnsName(store, kDnsAddress, "www.alpha.net");
  addAuditRows(store, more);
  for (int i = 0; i < more; ++i) {
    const int number = 10 + i;
    const std::string name = "more-" + std::to_string(number) + ".net";
    addAlikeNode(store, number, name);
    link(store, 1, "alpha.net", number, name);
    addDnsName(store, uuid(number, 'f'), "www.more-" + std::to_string(number));
  }
}

}  // namespace zntopo::test
