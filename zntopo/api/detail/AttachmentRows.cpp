#include "zntopo/api/detail/AttachmentRows.h"

#include "zntopo/api/detail/Grouping.h"
#include "zntopo/core/MCLog.h"
#include "zntopo/core/ObjIDLookup.h"

namespace zntopo::detail {

namespace {

VarValue shortValue(const Row& row) { return static_cast<short>(row.integer(U_IntVal)); }
VarValue longValue(const Row& row) { return static_cast<long>(row.integer(U_IntVal)); }
VarValue longLongValue(const Row& row) { return static_cast<long long>(row.integer(U_IntVal)); }
VarValue textValue(const Row& row) { return row.text(U_StrVal); }
VarValue floatValue(const Row& row) { return row.real(U_FloatVal); }
// Made of an int, a boolean reads back as a long.
VarValue boolValue(const Row& row) { return row.integer(U_IntVal); }

struct UserVarType {
  VarValue::ValType type;
  /// The column that must be there. For a float that is the whole number beside it.
  UserVarColumn required;
  VarValue (*make)(const Row&);
};

constexpr UserVarType kUserVarTypes[] = {
    {VarValue::VT_Short, U_IntVal, shortValue},       {VarValue::VT_Long, U_IntVal, longValue},
    {VarValue::VT_LongLong, U_IntVal, longLongValue}, {VarValue::VT_Str, U_StrVal, textValue},
    {VarValue::VT_Float, U_IntVal, floatValue},       {VarValue::VT_Bool, U_IntVal, boolValue},
};

}  // namespace

void addUserVar(const Row& row, std::vector<UserDefVar>& vars) {
  for (const UserVarType& entry : kUserVarTypes) {
    if (entry.type != row.integer(U_VarValType)) continue;
    if (row.isPresent(U_VarName) && row.isPresent(entry.required)) {
      vars.emplace_back(row.text(U_VarName), entry.make(row));
    }
    return;
  }
  MCLog::log(MC_INFO, "Unknown user defined variable type/n");
}

void addConnData(const Row& row, ConnDataMap& map) {
  for (int column = C_LeftIF; column <= C_RightNode; ++column) {
    if (row.isPresent(column)) continue;
    MCLog::log(MC_INFO, "One of RelatedTo table entries's row is empty \n");
    return;
  }
  const ObjID ids[] = {row.text(C_LeftIF), row.text(C_RightIF), row.text(C_LeftNode),
                       row.text(C_RightNode)};
  for (const ConnDataColumn owner : {C_LeftNode, C_RightNode}) {
    const auto found = findObjID(map, ids[owner]);
    if (found == map.end()) continue;
    found->second->push_back(new ZNConnData(ids[C_LeftIF], ids[C_RightIF], ids[C_LeftNode],
                                            ids[C_RightNode], owner == C_LeftNode));
  }
}

void addVlanInfo(const Row& row, bool useNodeAsKey, VlanInfoMap& map) {
  if (!row.isPresent(V_Port) || !row.isPresent(V_Card)) {
    MCLog::log(MC_INFO, "Card and Port number for this interface is not define \n");
    return;
  }
  const ObjID vlan(row.text(V_Container));
  const ObjID node(row.text(V_Node));
  std::list<ZNVlanInfo>* const infos = groupOf(map, useNodeAsKey ? node : vlan);
  if (!infos) return;
  const ZNVlanIFInfo member(row.text(V_Contained), row.text(V_Port), row.text(V_Card));
  for (ZNVlanInfo& info : *infos) {
    if (useNodeAsKey ? info.getVlanObjID() == vlan : info.getNodeObjID() == node) {
      info.addIFInfo(member);
      return;
    }
  }
  infos->emplace_back(vlan, node, row.text(V_NodeName), std::list<ZNVlanIFInfo>{member});
}

void addIfcInfo(const Row& row, bool useNodeAsKey, IfcInfoMap& map) {
  const ObjID container(row.text(I_Container));
  const ObjID node(row.text(I_Node));
  std::list<ZNIfcInfo>* const infos = groupOf(map, useNodeAsKey ? node : container);
  if (!infos) return;
  // The containment type goes in first: a member that was read shows it as its type.
  const ZNIfcIFInfo member(container, row.text(I_Interface), row.integer(I_ContainmentType),
                           row.integer(I_Type), row.integer(I_Sequence));
  const ObjID& other = useNodeAsKey ? container : node;
  for (ZNIfcInfo& info : *infos) {
    if (info.getIfcInfoObjID() == other) {
      info.addIfcIFInfo(member);
      return;
    }
  }
  infos->emplace_back(other, std::list<ZNIfcIFInfo>{member});
}

}  // namespace zntopo::detail
