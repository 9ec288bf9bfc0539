#include "zntopo/store/TableSet.h"

namespace zntopo {

namespace {

struct TableName {
  std::string TableSet::*member;
  const char* name;
  bool standsTwice = true;
};

constexpr TableName kTableNames[] = {
    {&TableSet::nwentityTbl_, "nwentity"},
    {&TableSet::nwnodeTbl_, "nwnode"},
    {&TableSet::nwinterfaceTbl_, "nwinterface"},
    {&TableSet::nwvlanTbl_, "nwvlan"},
    {&TableSet::nwifcTbl_, "nwifc"},
    {&TableSet::nwifcctmTbl_, "nwifcctm"},
    {&TableSet::nwifcascTbl_, "nwifcasc"},
    {&TableSet::nwhsrpTbl_, "nwhsrp"},
    {&TableSet::nwinterfaceassociationTbl_, "NWInterfaceAsc"},
    {&TableSet::containmentTbl_, "containment"},
    {&TableSet::addressTbl_, "address"},
    {&TableSet::interfacepropertyTbl_, "interfaceproperty"},
    {&TableSet::nodepropertyTbl_, "nodeproperty"},
    {&TableSet::addressmappingTbl_, "addressmapping"},
    {&TableSet::userdefvarTbl_, "userdefvar"},
    {&TableSet::hsrpaddressTbl_, "hsrpaddress"},
    {&TableSet::stateTbl_, "state", false},
    {&TableSet::nwtopoaudittrailTbl_, "nwtopoaudittrail", false},
};

}  // namespace

TableSet::TableSet(TopoDBType type) {
  for (const TableName& table : kTableNames) {
    this->*table.member = table.name;
    if (type == WorkingDB && table.standsTwice) this->*table.member += "_update";
  }
}

}  // namespace zntopo
