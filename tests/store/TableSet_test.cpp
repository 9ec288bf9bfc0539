#include "zntopo/store/TableSet.h"

#include <gtest/gtest.h>

#include <string>

namespace zntopo::test {
namespace {

struct NamePair {
  std::string TableSet::*member;
  const char* active;
  const char* working;
};

constexpr NamePair kNames[] = {
    {&TableSet::nwentityTbl_, "nwentity", "nwentity_update"},
    {&TableSet::nwnodeTbl_, "nwnode", "nwnode_update"},
    {&TableSet::nwinterfaceTbl_, "nwinterface", "nwinterface_update"},
    {&TableSet::nwvlanTbl_, "nwvlan", "nwvlan_update"},
    {&TableSet::nwifcTbl_, "nwifc", "nwifc_update"},
    {&TableSet::nwifcctmTbl_, "nwifcctm", "nwifcctm_update"},
    {&TableSet::nwifcascTbl_, "nwifcasc", "nwifcasc_update"},
    {&TableSet::nwhsrpTbl_, "nwhsrp", "nwhsrp_update"},
    {&TableSet::nwinterfaceassociationTbl_, "NWInterfaceAsc", "NWInterfaceAsc_update"},
    {&TableSet::containmentTbl_, "containment", "containment_update"},
    {&TableSet::addressTbl_, "address", "address_update"},
    {&TableSet::interfacepropertyTbl_, "interfaceproperty", "interfaceproperty_update"},
    {&TableSet::nodepropertyTbl_, "nodeproperty", "nodeproperty_update"},
    {&TableSet::addressmappingTbl_, "addressmapping", "addressmapping_update"},
    {&TableSet::userdefvarTbl_, "userdefvar", "userdefvar_update"},
    {&TableSet::hsrpaddressTbl_, "hsrpaddress", "hsrpaddress_update"},
    {&TableSet::stateTbl_, "state", "state"},
    {&TableSet::nwtopoaudittrailTbl_, "nwtopoaudittrail", "nwtopoaudittrail"},
};

TEST(TableSetTest, TheActiveSetHasThePlainNames) {
  const TableSet tables(ActiveDB);
  for (const NamePair& name : kNames) EXPECT_EQ(tables.*name.member, name.active);
}

TEST(TableSetTest, TheWorkingSetHasTheTwinsButSharesStateAndAuditTrail) {
  const TableSet tables(WorkingDB);
  for (const NamePair& name : kNames) EXPECT_EQ(tables.*name.member, name.working);
}

TEST(TableSetTest, ADefaultAndAnUnknownTypeBehaveAsActive) {
  const TableSet byDefault;
  const TableSet unknown(static_cast<TopoDBType>(7));
  for (const NamePair& name : kNames) {
    EXPECT_EQ(byDefault.*name.member, name.active);
    EXPECT_EQ(unknown.*name.member, name.active);
  }
}

}  // namespace
}  // namespace zntopo::test
