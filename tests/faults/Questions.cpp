#include "tests/faults/Questions.h"

#include <ostream>
#include <regex>

namespace zntopo::test {
namespace {

// ---- the network ----

const std::string kAlpha = uuid(1);
const std::string kBeta = uuid(2);
const std::string kGamma = uuid(3);
const std::string kVlan = uuid(1, 'd');
const std::string kGroup = uuid(2, 'd');
const std::string kContainer = uuid(3, 'd');
const std::string kMesh = uuid(4, 'd');
const std::string kV6Address = uuid(1, 'f');
const std::string kDnsAddress = uuid(2, 'f');

/// The interface of a node towards another.
std::string interfaceID(int from, int to) { return uuid(1000 * from + to, 'b'); }

void addVariable(TestStore& store, const std::string& owner) {
  store.insert("userdefvar", {{"ObjID", owner},
                              {"VarName", "owner"},
                              {"VarValType", 3},
                              {"StrVal", "network"},
                              {"IntVal", 1},
                              {"FloatVal", 1.5}});
}

void addAlikeNode(TestStore& store, int number, const std::string& name) {
  const std::string address =
      "10.0." + std::to_string(number / 200) + "." + std::to_string(number % 200 + 1);
  store.addNode(uuid(number), name,
                {{"QRMObjId", std::to_string(number)},
                 {"Description", std::string(600, 'd')},
                 {"V4ManagementAddress", address},
                 {"PubV4ManagementAdd", address},
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
                      {"hasDynamicProperty", 1},
                      {"hasAddress", 1}});
  store.addAddress(uuid(1000 * from + to, 'c'), id, uuid(from),
                   "10.1." + std::to_string(from % 200) + "." + std::to_string(to % 200),
                   {{"isSubnet", 0}, {"AddressQRMId", std::to_string(number)}});
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
                           {"SubnetObjId", uuid(9, 'd')},
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

void addContainers(TestStore& store) {
  store.addEntity(kVlan, "vlan-7", 4);
  store.insert("nwvlan", {{"ObjId", kVlan}});
  addVariable(store, kVlan);
  store.addEntity(kGroup, "group-1", 11);
  store.insert("nwhsrp", {{"ObjId", kGroup}});
  addVariable(store, kGroup);
  store.insert("nwifc", {{"ObjId", kContainer}, {"EntityName", "bundle-1"}, {"IFCType", 2}});
  addVariable(store, kContainer);
  store.insert("containment", {{"ContainerObjID", kMesh},
                               {"ContainedObjID", interfaceID(1, 2)},
                               {"ContainerType", 10},
                               {"ContainedType", 2},
                               {"ContainedNodeObjId", kAlpha}});
}

// ---- the questions ----

using Status = ZNTopoAPIStatus;

template <typename Object>
std::size_t one(const ZNRefPtr<Object>& found) {
  return found.isNull() ? 0 : 1;
}

const std::vector<Ending> kGated = {{"select TopologyReady", ZN_API_DB_NOT_READY}};
const std::vector<Ending> kInvalidID = {{"", ZN_API_INVALID_ID}};
const std::vector<Ending> kGatedInvalidID = {{"select TopologyReady", ZN_API_DB_NOT_READY},
                                             {"", ZN_API_INVALID_ID}};
// The search by text tells of itself; then one interface is asked for by its identifier.
const std::vector<Ending> kInterfaceSearch = {{"select objID from", std::nullopt},
                                              {"", ZN_API_INVALID_ID}};
const std::vector<Ending> kNotThere = {{"", ZN_API_OBJ_NOT_EXIST}};
const std::vector<Ending> kPathOfAddresses = {{"select TopologyReady", ZN_API_DB_NOT_READY},
                                              {"", ZN_API_UNKNOWN_IP}};
// A node that can't be read is no node; an interface of it that can't be read is no interface.
const std::vector<Ending> kPathOfNodes = {{"a.VendorCard, a.VendorPort", ZN_API_NO_PATH},
                                          {"select a.AddressId", ZN_API_NO_PATH},
                                          {"", ZN_API_OBJ_NOT_EXIST}};

std::list<ObjID> nodeIDs() { return {ObjID(kAlpha), ObjID(kBeta), ObjID(kGamma)}; }
std::list<ObjID> interfaceIDs() {
  return {ObjID(interfaceID(1, 2)), ObjID(interfaceID(2, 1)), ObjID(interfaceID(3, 2))};
}
std::set<ObjID> setOf(const std::list<ObjID>& ids) { return {ids.begin(), ids.end()}; }

std::size_t nodesOf(OpenImpl& impl, Status& status, const std::set<ObjID>& ids, bool isQRMID,
                    bool all) {
  std::set<ObjID> notFound;
  return impl
      .getNodesByObjIDList(ids, notFound, status, false, isQRMID, all, ZNEntity::AllProtocol, -1)
      ->size();
}

std::size_t interfacesOf(OpenImpl& impl, Status& status, const std::set<ObjID>& ids, bool isQRMID,
                         bool all) {
  std::set<ObjID> notFound;
  return impl.getInterfacesByObjIDList(ids, notFound, status, isQRMID, all)->size();
}

std::size_t variablesOf(OpenImpl& impl, Status& status, EntityType type) {
  return impl.getUserDefVarsByObjIDList_Int(nodeIDs(), status, type)->size();
}

std::size_t mapSize(const ZNTopoAPI_Impl::OwnedConnDataMap& map) {
  std::size_t size = 0;
  for (const auto& [id, links] : *map) size += links->size();
  return size;
}

std::vector<Question> stateQuestions() {
  return {
      {"getTopologyState",
       [](OpenImpl& impl, Status& status) -> std::size_t {
         return impl.getTopologyState(status).getTopoState() == ZNTopologyState::READY;
       }},
  };
}

std::vector<Question> nodeQuestions() {
  return {
      {"getNodeByObjID",
       [](OpenImpl& impl, Status& status) { return one(impl.getNodeByObjID(kAlpha, status)); },
       kInvalidID},
      {"getNodeByQRMObjID",
       [](OpenImpl& impl, Status& status) { return one(impl.getNodeByQRMObjID("1", status)); },
       kInvalidID},
      {"getNodesByObjIDList",
       [](OpenImpl& impl, Status& status) {
         return nodesOf(impl, status, setOf(nodeIDs()), false, false);
       },
       kGated},
      {"getNodesByObjIDList by QRM ID",
       [](OpenImpl& impl, Status& status) {
         return nodesOf(impl, status, {"1", "2", "3"}, true, false);
       },
       kGated},
      {"getNodesByObjIDList, all",
       [](OpenImpl& impl, Status& status) { return nodesOf(impl, status, {}, false, true); },
       kGated},
      {"getNodesByObjIDList, all of IPv4 and a route distinguisher",
       [](OpenImpl& impl, Status& status) {
         std::set<ObjID> notFound;
         return impl
             .getNodesByObjIDList({}, notFound, status, false, false, true, ZNEntity::IPv4, 0)
             ->size();
       },
       kGated},
      {"getNodeByName, whole",
       [](OpenImpl& impl, Status& status) {
         return one(impl.getNodeByName("alpha.net", status, -1));
       },
       kGated},
      {"getNodeByName, partial",
       [](OpenImpl& impl, Status& status) { return one(impl.getNodeByName("bet", status, -1)); },
       kGated},
      {"getNodeByName, IPv4",
       [](OpenImpl& impl, Status& status) {
         return one(impl.getNodeByName("10.1.1.2", status, -1));
       },
       kGated},
      {"getNodeByName, IPv6",
       [](OpenImpl& impl, Status& status) {
         return one(impl.getNodeByName("2001:db8::1", status, 0));
       },
       kGated},
      {"getNodeByName, UUID",
       [](OpenImpl& impl, Status& status) { return one(impl.getNodeByName(kGamma, status, -1)); },
       kGated},
      {"getNodesByRXName, UUID",
       [](OpenImpl& impl, Status& status) {
         return impl.getNodesByRXName(kGamma, status, -1)->size();
       },
       kGated},
      {"getObjIDListFromSQL",
       [](OpenImpl& impl, Status& status) {
         return impl.getObjIDListFromSQL("select ObjId from nwnode", status)->size();
       }},
  };
}

std::vector<Question> loaderQuestions() {
  return {
      {"getUserDefVarsByObjIDList",
       [](OpenImpl& impl, Status& status) {
         return impl.getUserDefVarsByObjIDList(nodeIDs(), status)->size();
       },
       kGated},
      {"getUserDefVarsByObjIDList_Int, VLANs",
       [](OpenImpl& impl, Status& status) { return variablesOf(impl, status, E_Vlan); }},
      {"getUserDefVarsByObjIDList_Int, nodes",
       [](OpenImpl& impl, Status& status) { return variablesOf(impl, status, E_Node); }},
      {"getUserDefVarsByObjIDList_Int, interfaces",
       [](OpenImpl& impl, Status& status) { return variablesOf(impl, status, E_Interface); }},
      {"getUserDefVarsByObjIDList_Int, HSRP groups",
       [](OpenImpl& impl, Status& status) { return variablesOf(impl, status, E_HSRP); }},
      {"getUserDefVarsByObjIDList_Int, containers",
       [](OpenImpl& impl, Status& status) { return variablesOf(impl, status, E_IfC); }},
      {"getConnDatasByNodeObjIDList",
       [](OpenImpl& impl, Status& status) {
         return mapSize(impl.getConnDatasByNodeObjIDList(nodeIDs(), status, false));
       }},
      {"getConnDatasByNodeObjIDList, all",
       [](OpenImpl& impl, Status& status) {
         return mapSize(impl.getConnDatasByNodeObjIDList(nodeIDs(), status, true));
       }},
      {"getVlanInfosByObjIDList, by node",
       [](OpenImpl& impl, Status& status) {
         return impl.getVlanInfosByObjIDList(nodeIDs(), status, true, false)->size();
       }},
      {"getVlanInfosByObjIDList, by VLAN",
       [](OpenImpl& impl, Status& status) {
         return impl.getVlanInfosByObjIDList({ObjID(kVlan)}, status, false, false)->size();
       }},
      {"getVlanInfosByObjIDList, all",
       [](OpenImpl& impl, Status& status) {
         return impl.getVlanInfosByObjIDList({}, status, true, true)->size();
       }},
      {"getIfcInfosByObjIDList, by node",
       [](OpenImpl& impl, Status& status) {
         return impl.getIfcInfosByObjIDList(setOf(nodeIDs()), status, true, false, 0)->size();
       }},
      {"getIfcInfosByObjIDList, by container and type",
       [](OpenImpl& impl, Status& status) {
         return impl.getIfcInfosByObjIDList({ObjID(kContainer)}, status, false, false, 2)->size();
       }},
      {"getIfcInfosByObjIDList, all",
       [](OpenImpl& impl, Status& status) {
         return impl.getIfcInfosByObjIDList({}, status, true, true, 0)->size();
       }},
  };
}

std::vector<Question> interfaceQuestions() {
  return {
      {"getInterfaceByObjID",
       [](OpenImpl& impl, Status& status) {
         return one(impl.getInterfaceByObjID(interfaceID(1, 2), status));
       },
       kInvalidID},
      {"getInterfacesByObjIDList",
       [](OpenImpl& impl, Status& status) {
         return interfacesOf(impl, status, setOf(interfaceIDs()), false, false);
       },
       kGated},
      {"getInterfacesByObjIDList by QRM ID",
       [](OpenImpl& impl, Status& status) {
         return interfacesOf(impl, status, {"2", "2001"}, true, false);
       },
       kGated},
      {"getInterfacesByObjIDList, all connected",
       [](OpenImpl& impl, Status& status) { return interfacesOf(impl, status, {}, false, true); },
       kGated},
      {"getInterfacesByNodeObjIDList",
       [](OpenImpl& impl, Status& status) {
         return impl.getInterfacesByNodeObjIDList(nodeIDs(), status)->size();
       },
       kGated},
      {"getInterfaceIDsByNodeObjIDList",
       [](OpenImpl& impl, Status& status) {
         return impl.getInterfaceIDsByNodeObjIDList(nodeIDs(), status)->size();
       }},
      {"getInterfaceByIfName",
       [](OpenImpl& impl, Status& status) {
         return one(impl.getInterfaceByIfName("Gi0/2", "alpha.net", status));
       },
       kInterfaceSearch},
      {"getInterfaceByIPV4",
       [](OpenImpl& impl, Status& status) {
         return one(impl.getInterfaceByIPV4("10.1.1.2", status, -1));
       },
       kInterfaceSearch},
      {"getMeshID",
       [](OpenImpl& impl, Status& status) -> std::size_t {
         return !impl.getMeshID(interfaceID(1, 2), status).isNull();
       }},
      {"getInterfacesByObjID",
       [](OpenImpl& impl, Status& status) {
         return impl.getInterfacesByObjID(kMesh, status).size();
       },
       kGated, ZN_API_SUCCESS, true},
      {"getMeshInterfaces",
       [](OpenImpl& impl, Status& status) { return impl.getMeshInterfaces(kMesh, status).size(); },
       kGated, ZN_API_EMPTY_OBJID_LIST, true},
  };
}

std::vector<Question> addressQuestions() {
  return {
      {"getAddressByObjID",
       [](OpenImpl& impl, Status& status) {
         return one(impl.getAddressByObjID(kV6Address, status));
       },
       kGated},
      {"getAddrsByObjIDs",
       [](OpenImpl& impl, Status& status) {
         return impl
             .getAddrsByObjIDs({ObjID(kV6Address), ObjID(kDnsAddress)}, status, false,
                               ZNAddress::IPv4)
             ->size();
       },
       kGated},
      {"getAddrsByObjIDs, all of IPv4",
       [](OpenImpl& impl, Status& status) {
         return impl.getAddrsByObjIDs({}, status, true, ZNAddress::IPv4)->size();
       },
       kGated},
      {"getAddrsByAssociatedObjIDList, by interface",
       [](OpenImpl& impl, Status& status) {
         return impl.getAddrsByAssociatedObjIDList(interfaceIDs(), status, 0)->size();
       },
       kGated},
      {"getAddrsByAssociatedObjIDList, by node",
       [](OpenImpl& impl, Status& status) {
         return impl.getAddrsByAssociatedObjIDList(nodeIDs(), status, 1)->size();
       },
       kGated},
      {"getAddressByQRMObjID",
       [](OpenImpl& impl, Status& status) { return one(impl.getAddressByQRMObjID("777", status)); },
       kGatedInvalidID},
      {"getMonitoredIPv6AddressByObjID",
       [](OpenImpl& impl, Status& status) {
         return one(impl.getMonitoredIPv6AddressByObjID(kV6Address, status));
       },
       kGated},
      {"getMonitoredIPv6AddressByQRMObjID",
       [](OpenImpl& impl, Status& status) {
         return one(impl.getMonitoredIPv6AddressByQRMObjID("777", status));
       },
       kGatedInvalidID},
      {"getInetAddressIPv6IDsFromDNSExpression",
       [](OpenImpl& impl, Status& status) {
         return impl.getInetAddressIPv6IDsFromDNSExpression("www%", status)->size();
       },
       kGated},
      {"resolveIPv6ToDNS",
       [](OpenImpl& impl, Status& status) {
         return impl.resolveIPv6ToDNS(kV6Address, status)->size();
       },
       kGated},
      {"getAddressByIP, IPv4",
       [](OpenImpl& impl, Status& status) {
         return one(impl.getAddressByIP("10.1.1.2", status, -1));
       },
       kNotThere},
      {"getAddressByIP, IPv6 and a route distinguisher",
       [](OpenImpl& impl, Status& status) {
         return one(impl.getAddressByIP("2001:db8::1", status, 0));
       },
       kNotThere},
  };
}

std::vector<Question> walkQuestions() {
  return {
      {"getNodeNeighbors",
       [](OpenImpl& impl, Status& status) {
         return impl.getNodeNeighbors("beta", status, 2, 100000)->size();
       },
       kGated},
      {"getL2Path",
       [](OpenImpl& impl, Status& status) {
         return impl.getL2Path("10.1.1.2", "10.1.3.2", 9, status, ZNAddress::IPv4, true)->size();
       },
       kPathOfAddresses},
      {"getL2PathBetweenNodes",
       [](OpenImpl& impl, Status& status) {
         return impl.getL2PathBetweenNodes("gamma", "alpha.net", 9, status, ZNAddress::IPv4, true)
             ->size();
       },
       kPathOfNodes},
  };
}

}  // namespace

void fillLittleNetwork(TestStore& store, int more) {
  store.setReady();
  addAlikeNode(store, 1, "alpha.net");
  addAlikeNode(store, 2, "beta");
  addAlikeNode(store, 3, "gamma");
  link(store, 1, "alpha.net", 2, "beta");
  link(store, 2, "beta", 3, "gamma");
  addContainers(store);
  addV6Address(store);
  addDnsName(store, kDnsAddress, "www.alpha.net");
  for (int i = 0; i < more; ++i) {
    const int number = 10 + i;
    const std::string name = "more-" + std::to_string(number) + ".net";
    addAlikeNode(store, number, name);
    link(store, 1, "alpha.net", number, name);
    addDnsName(store, uuid(number, 'f'), "www.more-" + std::to_string(number));
  }
}

ZNTopoStatus Question::endingOf(const std::string& statement, ZNTopoStatus own) const {
  for (const Ending& ending : endings) {
    if (statement.find(ending.statement) != std::string::npos) return ending.status.value_or(own);
  }
  return own;
}

const std::vector<Question>& questions() {
  static const auto* const all = [] {
    auto* const result = new std::vector<Question>;
    for (const auto& part : {stateQuestions(), nodeQuestions(), loaderQuestions(),
                             interfaceQuestions(), addressQuestions(), walkQuestions()}) {
      result->insert(result->end(), part.begin(), part.end());
    }
    return result;
  }();
  return *all;
}

std::ostream& operator<<(std::ostream& stream, const Answered& answered) {
  return stream << "status " << answered.status << ", " << answered.count << " found; "
                << answered.aux;
}

Answered askCold(const Question& question) {
  ZNTopoAPI_Impl::cache()->clear(true);
  OpenImpl impl;
  ZNTopoAPIStatus status;
  const std::size_t count = question.ask(impl, status);
  return {status.getStatus(), count, status.getAuxMsg()};
}

void Healthy::learn() {
  StatementSpy spy;
  for (const Question& question : questions()) {
    spy.clear();
    answers_.push_back(askCold(question));
    statements_.push_back(spy.allStatements());
    EXPECT_EQ(answers_.back().status, question.healthy) << question.name << answers_.back();
  }
}

void Healthy::expectAll(const std::string& when) const {
  for (std::size_t i = 0; i < questions().size(); ++i) {
    EXPECT_EQ(askCold(questions()[i]), answers_[i]) << questions()[i].name << " " << when;
  }
}

std::string shapeOf(const std::string& statement) {
  static const std::regex texts("'[^']*'(,'[^']*')*");
  return std::regex_replace(statement, texts, "?");
}

bool isStatementFailure(ZNTopoStatus status) {
  return status == ZN_API_SQL_BIND_STATEMENT_ERROR || status == ZN_API_SQL_EXEC_ERROR;
}

}  // namespace zntopo::test
