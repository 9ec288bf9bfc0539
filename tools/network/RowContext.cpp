#include "tools/network/RowContext.h"

#include <algorithm>
#include <limits>

#include "tools/network/NameUuid.h"
#include "zntopo/model/VarValue.h"

namespace zntopo::tools {

namespace {

constexpr std::size_t kDescriptionWidth = 2000;

/// The columns' share of a value of each type, in the order of the variant. A float needs the
/// whole number too, or the library does not read it.
struct VariableCells {
  RowOf<UserDefVar>& row;

  void number(VarValue::ValType type, long long value) {
    row["VarValType"] = static_cast<int>(type);
    row["IntVal"] = static_cast<int>(std::clamp<long long>(value, std::numeric_limits<int>::min(),
                                                           std::numeric_limits<int>::max()));
  }
  void operator()(short value) { number(VarValue::VT_Short, value); }
  void operator()(int value) { number(VarValue::VT_Long, value); }
  void operator()(long long value) { number(VarValue::VT_LongLong, value); }
  void operator()(bool value) { number(VarValue::VT_Bool, value ? 1 : 0); }
  void operator()(float value) {
    number(VarValue::VT_Float, 0);
    row["FloatVal"] = value;
  }
  void operator()(const std::string& value) {
    row["VarValType"] = static_cast<int>(VarValue::VT_Str);
    row["StrVal"] = value;
  }
};

}  // namespace

RowContext::RowContext(const NetworkModel& model, const std::string& zone, RowSink& rows,
                       NetworkReport& report)
    : model_(model), zone_(zone), rows_(rows), report_(report) {
  for (const NodeModel& node : model.nodes) {
    nodeIds_.push_back(id(node));
    auto& interfaces = interfaceIds_.emplace_back();
    for (const InterfaceModel& one : node.interfaces) interfaces.push_back(id(one));
  }
  for (const VlanModel& vlan : model.vlans) vlanIds_.push_back(id(vlan));
  for (const SubnetModel& subnet : model.subnets) subnetIds_.push_back(id(subnet));
}

std::string RowContext::id(const std::string& objectKey) const {
  return nameUuid(zone_ + "\n" + objectKey);
}

std::string RowContext::id(const std::string& ownId, const std::string& objectKey) const {
  if (ownId.empty()) return id(objectKey);
  return zone_.empty() ? ownId : id("identifier\n" + ownId);
}

std::string RowContext::addressId(const EndPoint& end, const AddressModel& address) const {
  return id(address.id, addressKey(model_.at(end).key, address.address));
}

std::string RowContext::addressId(const EndPoint& end, const IpAddress& address) const {
  const std::vector<AddressModel>& all = model_.at(end).addresses;
  const auto found = std::find_if(all.begin(), all.end(),
                                  [&](const AddressModel& one) { return one.address == address; });
  if (found != all.end()) return addressId(end, *found);
  return id(addressKey(model_.at(end).key, address));
}

std::string RowContext::describe(const EntityModel& entity) {
  std::string cut = cutText(entity.description, kDescriptionWidth);
  if (cut.size() < entity.description.size()) {
    report_.add("description of more than 2000 bytes (cut)", entity.name);
  }
  return orDash(cut);
}

RowOf<NwEntity> RowContext::putEntity(const EntityModel& entity, const std::string& entityId,
                                      EntityType type, int ipLevel, bool hasAddress) {
  RowOf<NwEntity> row;
  row["ObjId"] = entityId;
  row["EntityName"] = entity.name;
  row["IPLevel"] = ipLevel;
  row["QRMObjId"] = textCell(entity.legacyId);
  row["Description"] = describe(entity);
  row["EntityType"] = static_cast<int>(type);
  row["ZoneNumber"] = textCell(zone_.empty() ? entity.zone : zone_);
  row["hasDynamicProperty"] = entity.variables.empty() ? 0 : 1;
  row["hasAddress"] = hasAddress ? 1 : 0;
  row["RouteDistinguisher"] = 0;
  if (entity.status) {
    row["Status"] = entity.status->overall;
    row["V6CompoundStatus"] = row["V6GlobalStatus"] = row["V6SiteStatus"] = entity.status->v6;
    row["StatusChangeTimeUTC"] = entity.status->changeTime;
  }
  put(row);
  for (const UserVariableModel& variable : entity.variables) putVariable(entityId, variable);
  return row;
}

void RowContext::putVariable(const std::string& objectId, const UserVariableModel& variable) {
  RowOf<UserDefVar> row;
  row["ObjID"] = objectId;
  row["VarName"] = variable.name;
  std::visit(VariableCells{row}, variable.value);
  put(std::move(row));
}

void RowContext::putContainment(const std::string& container, EntityType type,
                                const EndPoint& member) {
  RowOf<Containment> row;
  row["ContainerObjID"] = container;
  row["ContainedObjID"] = interfaceId(member);
  row["ContainerType"] = static_cast<int>(type);
  row["ContainedType"] = static_cast<int>(E_Interface);
  row["ContainedNodeObjId"] = nodeId(member.node);
  put(std::move(row));
}

}  // namespace zntopo::tools
