// Subnets, VLANs, containers and HSRP groups.

#include "tests/faults/QuestionRows.h"

namespace zntopo::test {
namespace {

// The kinds that are tried before: what can't be read is not of the kind.
const std::vector<Ending> kAnyKind = {{"select TopologyReady", ZN_API_DB_NOT_READY},
                                      {"NODE.ObjId", ZN_API_SUCCESS},
                                      {"a.VendorCard, a.VendorPort", ZN_API_SUCCESS}};

std::size_t subnetsOf(OpenImpl& impl, Status& status, const std::set<ObjID>& ids, bool isQRMID,
                      bool all) {
  return impl.getSubnetsByObjIDList(ids, status, isQRMID, all, ZNEntity::AllProtocol, -1)->size();
}

std::size_t subnetsAt(OpenImpl& impl, Status& status, ZNEntity::IPLevel level, int rd) {
  return impl.getSubnetsByObjIDList({}, status, false, true, level, rd)->size();
}

std::size_t vlansOf(OpenImpl& impl, Status& status, const std::set<ObjID>& ids, int rd = -1) {
  std::set<ObjID> notFound;
  return impl.getVlansByObjIDList(ids, notFound, status, ids.empty(), rd)->size();
}

std::size_t containersOf(OpenImpl& impl, Status& status, const std::set<ObjID>& ids, int rd = -1) {
  std::set<ObjID> notFound;
  return impl.getIfcsByObjIDList(ids, notFound, status, ids.empty(), rd)->size();
}

std::size_t groupsOf(OpenImpl& impl, Status& status, const std::set<ObjID>& ids, int rd = -1) {
  std::set<ObjID> notFound;
  return impl.getHSRPsByObjIDList(ids, notFound, status, ids.empty(), rd)->size();
}

std::size_t groupsOfMember(OpenImpl& impl, Status& status, const std::string& id,
                           ZNTopoAPI::GetHSRPObjIDsByIFAddressObjID_ObjType type) {
  return impl.getHSRPObjIDsByIFAddressObjID(id, type, status)->size();
}

std::vector<Question> subnetQuestions() {
  return {
      {"getSubnetByObjID",
       [](OpenImpl& impl, Status& status) { return one(impl.getSubnetByObjID(kSubnet, status)); },
       kGated},
      {"getSubnetByQRMObjID",
       [](OpenImpl& impl, Status& status) { return one(impl.getSubnetByQRMObjID("903", status)); },
       kGated},
      {"getSubnetsByObjIDList",
       [](OpenImpl& impl, Status& status) {
         return subnetsOf(impl, status, {ObjID(kSubnet)}, false, false);
       },
       kGated},
      {"getSubnetsByObjIDList by QRM ID",
       [](OpenImpl& impl, Status& status) { return subnetsOf(impl, status, {"903"}, true, false); },
       kGated},
      {"getSubnetsByObjIDList, all",
       [](OpenImpl& impl, Status& status) {
         return subnetsAt(impl, status, ZNEntity::AllProtocol, -1);
       },
       kGated},
      {"getSubnetsByObjIDList, all of IPv4 and a route distinguisher",
       [](OpenImpl& impl, Status& status) { return subnetsAt(impl, status, ZNEntity::IPv4, 0); },
       kGated},
      {"getSubnetEndPoints",
       [](OpenImpl& impl, Status& status) {
         ZNEntity subnet;
         subnet.setObjID(ObjID(kSubnet));
         return impl.getSubnetEndPoints(subnet, status).size();
       }},
      {"getSubnetEndPointsByObjIDList",
       [](OpenImpl& impl, Status& status) {
         return impl.getSubnetEndPointsByObjIDList({ObjID(kSubnet)}, status)->size();
       }},
      {"getEntityByObjID of a VLAN",
       [](OpenImpl&, Status& status) {
         return one(ZNTopoAPI().getEntityByObjID(ObjID(kVlan), status));
       },
       kAnyKind, ZN_API_SUCCESS, Connects::Later, Finds::Something, Tells::Last},
  };
}

std::vector<Question> vlanQuestions() {
  return {
      {"getVlanByObjID",
       [](OpenImpl& impl, Status& status) { return one(impl.getVlanByObjID(kVlan, status)); },
       kGated},
      {"getVlansByObjIDList",
       [](OpenImpl& impl, Status& status) { return vlansOf(impl, status, {ObjID(kVlan)}); },
       kGated},
      {"getVlansByObjIDList, all",
       [](OpenImpl& impl, Status& status) { return vlansOf(impl, status, {}); }, kGated},
      {"getVlansByObjIDList, all of a route distinguisher",
       [](OpenImpl& impl, Status& status) { return vlansOf(impl, status, {}, 0); }, kGated},
  };
}

std::vector<Question> containerQuestions() {
  return {
      {"getIfcByObjID",
       [](OpenImpl& impl, Status& status) { return one(impl.getIfcByObjID(kContainer, status)); },
       kGated},
      {"getIfcsByObjIDList",
       [](OpenImpl& impl, Status& status) {
         return containersOf(impl, status, {ObjID(kContainer)});
       },
       kGated},
      {"getIfcsByObjIDList, all",
       [](OpenImpl& impl, Status& status) { return containersOf(impl, status, {}); }, kGated},
      {"getIfcsByObjIDList, all of a route distinguisher",
       [](OpenImpl& impl, Status& status) { return containersOf(impl, status, {}, 0); }, kGated},
      {"getIfcsByType",
       [](OpenImpl& impl, Status& status) { return impl.getIfcsByType(2, status, -1)->size(); },
       kGated},
      {"getIfcsByType of a route distinguisher",
       [](OpenImpl& impl, Status& status) { return impl.getIfcsByType(2, status, 0)->size(); },
       kGated},
      {"getIfcDataByObjID",
       [](OpenImpl& impl, Status& status) -> std::size_t {
         int type = 0;
         int appsID = 0;
         bool isOrdered = false;
         bool cleanUp = false;
         status = impl.getIfcDataByObjID(kContainer, type, appsID, isOrdered, cleanUp);
         return type == 2;
       }},
      {"getIfcAssocInfosByObjID",
       [](OpenImpl& impl, Status& status) {
         std::list<ZNRefPtr<ZNIfcAssocInfo>> associations;
         status = impl.getIfcAssocInfosByObjID(kContainer, associations);
         return associations.size();
       }},
  };
}

std::vector<Question> hsrpQuestions() {
  return {
      {"getHSRPsByObjIDList",
       [](OpenImpl& impl, Status& status) { return groupsOf(impl, status, {ObjID(kGroup)}); },
       kGated},
      {"getHSRPsByObjIDList, all",
       [](OpenImpl& impl, Status& status) { return groupsOf(impl, status, {}); }, kGated},
      {"getHSRPsByObjIDList, all of a route distinguisher",
       [](OpenImpl& impl, Status& status) { return groupsOf(impl, status, {}, 0); }, kGated},
      {"getHSRPInfosByObjIDList",
       [](OpenImpl& impl, Status& status) {
         return impl.getHSRPInfosByObjIDList({ObjID(kGroup)}, status, false)->size();
       }},
      {"getHSRPInfosByObjIDList, all",
       [](OpenImpl& impl, Status& status) {
         return impl.getHSRPInfosByObjIDList({}, status, true)->size();
       }},
      {"getHSRPObjIDsByIFAddressObjID, address",
       [](OpenImpl& impl, Status& status) {
         return groupsOfMember(impl, status, addressID(1, 2), ZNTopoAPI::HSRP_Address);
       }},
      {"getHSRPObjIDsByIFAddressObjID, interface",
       [](OpenImpl& impl, Status& status) {
         return groupsOfMember(impl, status, interfaceID(1, 2), ZNTopoAPI::HSRP_Interface);
       }},
  };
}

}  // namespace

std::vector<Question> groupQuestions() {
  std::vector<Question> all;
  for (const auto& part :
       {subnetQuestions(), vlanQuestions(), containerQuestions(), hsrpQuestions()}) {
    all.insert(all.end(), part.begin(), part.end());
  }
  return all;
}

}  // namespace zntopo::test
