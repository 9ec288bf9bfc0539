#include <algorithm>

#include "tools/export/StoreIndex.h"
#include "tools/export/TableReader.h"
#include "zntopo/api/ZNTopoFilter.h"
#include "zntopo/model/EntityType.h"
#include "zntopo/model/VarValue.h"

namespace zntopo::tools {

namespace {

/// The library's objects show a default for what a column does not hold, keep some numbers in 16
/// bits, and have nothing of properties, meshes, mapped addresses, the variables of containers
/// and the trail. A file from which the same store can be made needs all of it.
class Details {
 public:
  Details(ZNTopoAPI& api, TvDbil::DbConnection_t& connection, bool isWhole, NetworkModel& model,
          const StoreIndex& index)
      : api_(api), connection_(connection), isWhole_(isWhole), model_(model), index_(index) {
    for (const auto& [id, node] : index.nodes) nodes_.push_back(id);
    for (const auto& [id, end] : index.interfaces) interfaces_.push_back(id);
  }

  void add() {
    addMeshes();
    indexEntities();
    addEntities();
    addNodes();
    addInterfaces();
    addMappings();
    addProperties<NodeProperty>(nodes_, [&](const std::string& id) {
      const auto at = index_.nodes.find(id);
      return at == index_.nodes.end() ? nullptr : &model_.nodes[at->second].properties;
    });
    addProperties<InterfaceProperty>(interfaces_, [&](const std::string& id) {
      const auto at = index_.interfaces.find(id);
      return at == index_.interfaces.end() ? nullptr : &model_.at(at->second).properties;
    });
    addVariables();
    if (isWhole_) addAudit();
  }

 private:
  /// What a statement asks for: some identifiers, or everything.
  const std::vector<std::string>* part(const std::vector<std::string>& ids) const {
    return isWhole_ ? nullptr : &ids;
  }

  void addMeshes() {
    std::map<std::string, std::vector<EndPoint>> members;
    if (isWhole_) {
      for (const ObjID& id : allMeshes()) members[id.toString()];
    }
    forEachRow<Containment>(connection_, "ContainedNodeObjId", part(nodes_),
                            [&](const ReadRow<Containment>& row) {
                              if (row.number("ContainerType") != static_cast<int>(E_Mesh)) return;
                              auto& mesh = members[row.text("ContainerObjID")];
                              const auto end = index_.interfaces.find(row.text("ContainedObjID"));
                              if (end != index_.interfaces.end()) mesh.push_back(end->second);
                            });
    for (auto& [id, ends] : members) {
      std::sort(ends.begin(), ends.end());
      MeshModel mesh;
      mesh.id = mesh.key = id;
      mesh.members = std::move(ends);
      model_.meshes.push_back(std::move(mesh));
    }
  }

  /// Those without members too.
  std::list<ObjID> allMeshes() {
    ZNTopoFilter filter;
    filter.setEntityType(E_Mesh);
    ZNTopoAPIStatus status;
    const auto ids = api_.getEntityIDsByFilter(filter, status);
    requireOk(status);
    return *ids;
  }

  template <typename Entity>
  void indexAll(std::vector<Entity>& entities) {
    for (Entity& one : entities) entities_.emplace(one.id, &one);
  }

  void indexEntities() {
    indexAll(model_.nodes);
    for (NodeModel& node : model_.nodes) indexAll(node.interfaces);
    indexAll(model_.subnets);
    indexAll(model_.vlans);
    indexAll(model_.meshes);
    indexAll(model_.hsrpGroups);
    indexAll(model_.containers);
    for (const auto& [id, entity] : entities_) entityIds_.push_back(id);
  }

  void addEntities() {
    forEachRow<NwEntity>(connection_, "ObjId", part(entityIds_), [&](const auto& row) {
      const auto found = entities_.find(row.text("ObjId"));
      if (found == entities_.end()) return;
      EntityModel& entity = *found->second;
      const std::string description = row.text("Description");
      entity.name = row.text("EntityName");
      entity.description = description == "-" ? "" : description;
      entity.legacyId = row.text("QRMObjId");
      entity.zone = row.text("ZoneNumber");
      entity.status.reset();
      const auto overall = row.number("Status"), v6 = row.number("V6CompoundStatus"),
                 time = row.number("StatusChangeTimeUTC");
      const StatusModel untold;
      if (!overall && !v6 && !time) return;
      entity.status = {overall.value_or(untold.overall), v6.value_or(untold.v6),
                       time.value_or(untold.changeTime)};
    });
  }

  void addNodes() {
    forEachRow<NwNode>(connection_, "ObjId", part(nodes_), [&](const auto& row) {
      const auto found = index_.nodes.find(row.text("ObjId"));
      if (found == index_.nodes.end()) return;
      NodeModel& node = model_.nodes[found->second];
      node.snmpState = row.number("SNMPState");
      node.layer2Domain = row.number("L2DomainId");
    });
  }

  void addInterfaces() {
    forEachRow<NwInterface>(connection_, "NodeObjID", part(nodes_), [&](const auto& row) {
      const auto found = index_.interfaces.find(row.text("ObjId"));
      if (found == index_.interfaces.end()) return;
      InterfaceModel& interface = model_.at(found->second);
      interface.index = row.number("IfIndex");
      interface.type = row.number("IfType");
      interface.speed = row.number("IfSpeed");
      interface.adminState = row.number("IfAdminState");
      interface.operState = row.number("IfOperStatus");
    });
  }

  AddressModel* addressOf(const std::string& id) {
    const auto found = index_.addresses.find(id);
    if (found == index_.addresses.end()) return nullptr;
    return &model_.at(found->second.interface).addresses[found->second.address];
  }

  void addMappings() {
    std::vector<std::string> ids;
    for (const auto& [id, at] : index_.addresses) {
      if (model_.at(at.interface).addresses[at.address].address.isV6()) ids.push_back(id);
    }
    forEachRow<AddressMapping>(connection_, "LeftAddressId", part(ids), [&](const auto& row) {
      AddressModel* const address = addressOf(row.text("LeftAddressId"));
      if (address == nullptr || !address->address.isV6()) return;
      const std::string right = row.text("RightAddressId");
      const auto name = index_.dnsNames.find(right);
      if (name != index_.dnsNames.end()) {
        address->dnsName = name->second;
        address->dnsId = right;
      } else if (const AddressModel* const other = addressOf(right)) {
        address->mappedV4 = other->address;
      }
    });
  }

  template <Table table, typename Find>
  void addProperties(const std::vector<std::string>& ids, const Find& find) {
    forEachRow<table>(connection_, "ObjID", part(ids), [&](const ReadRow<table>& row) {
      if (std::vector<PropertyModel>* const properties = find(row.text("ObjID"))) {
        properties->push_back({row.text("PropertyName"), row.text("PropertyValue")});
      }
    });
  }

  /// The library loads no variables of containers, and shows those of some types as numbers.
  void addVariables() {
    for (const auto& [id, entity] : entities_) entity->variables.clear();
    forEachRow<UserDefVar>(connection_, "ObjID", part(entityIds_), [&](const auto& row) {
      const std::string id = row.text("ObjID"), name = row.text("VarName");
      const auto owner = entities_.find(id);
      // A VLAN's number is a variable that the writing of the VLAN makes.
      const bool isNumber = name == "VlanId" && index_.vlans.contains(id);
      if (owner == entities_.end() || isNumber) return;
      owner->second->variables.push_back({name, valueOf(row)});
    });
  }

  static decltype(UserVariableModel::value) valueOf(const ReadRow<UserDefVar>& row) {
    const int number = row.number("IntVal").value_or(0);
    const float* const real = std::get_if<float>(&row["FloatVal"]);
    switch (row.number("VarValType").value_or(VarValue::VT_Str)) {
      case VarValue::VT_Short:
        return static_cast<short>(number);
      case VarValue::VT_Long:
        return number;
      case VarValue::VT_LongLong:
        return static_cast<long long>(number);
      case VarValue::VT_Bool:
        return number != 0;
      case VarValue::VT_Float:
        return real == nullptr ? 0.0F : *real;
      default:
        return row.text("StrVal");
    }
  }

  void addAudit() {
    forEachRow<NwTopoAuditTrail>(connection_, "ObjID", nullptr, [&](const auto& row) {
      AuditModel one;
      one.objectKey = one.objectId = row.text("ObjID");
      one.objectType = row.number("ObjectType").value_or(0);
      one.time = row.number("ActionTimeUTC").value_or(0);
      one.action = row.number("ActionType").value_or(0);
      one.detail = row.number("ActionDetail").value_or(0);
      one.info = row.text("ActionInfo");
      model_.audit.push_back(std::move(one));
    });
  }

  ZNTopoAPI& api_;
  TvDbil::DbConnection_t& connection_;
  const bool isWhole_;
  NetworkModel& model_;
  const StoreIndex& index_;
  std::vector<std::string> nodes_, interfaces_, entityIds_;
  std::map<std::string, EntityModel*> entities_;
};

}  // namespace

void addDetails(ZNTopoAPI& api, TvDbil::DbConnection_t& connection, bool isWhole,
                NetworkModel& model, const StoreIndex& index) {
  Details(api, connection, isWhole, model, index).add();
}

}  // namespace zntopo::tools
