// The state of the topology, nodes, and what hangs on objects.

#include "tests/faults/QuestionRows.h"

namespace zntopo::test {
namespace {

const std::vector<Ending> kInvalidID = {{"", ZN_API_INVALID_ID}};

std::size_t nodesOf(OpenImpl& impl, Status& status, const std::set<ObjID>& ids, bool isQRMID,
                    bool all) {
  std::set<ObjID> notFound;
  return impl
      .getNodesByObjIDList(ids, notFound, status, false, isQRMID, all, ZNEntity::AllProtocol, -1)
      ->size();
}

std::size_t variablesOf(OpenImpl& impl, Status& status, EntityType type) {
  return impl.getUserDefVarsByObjIDList_Int(nodeIDs(), status, type)->size();
}

std::size_t mapSize(const ZNTopoAPI_Impl::OwnedConnDataMap& map) {
  std::size_t size = 0;
  for (const auto& [id, links] : *map) size += links->size();
  return size;
}

}  // namespace

std::vector<Question> nodeQuestions() {
  return {
      {"getTopologyState",
       [](OpenImpl& impl, Status& status) -> std::size_t {
         return impl.getTopologyState(status).getTopoState() == ZNTopologyState::READY;
       }},
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

}  // namespace zntopo::test
