// The engine refuses a text that the narrowest reader of its column could not hold, and counts
// bytes, not characters.
#include <gtest/gtest.h>

#include <string>

#include "tests/schema/SchemaTest.h"

namespace zntopo::test {
namespace {

class SchemaWidthTest : public StoreTest {};

struct Width {
  const char* table;
  const char* column;
  int bytes;
};

// Buffers of the statements, less one. The entity comes first: VLANs and HSRP groups need theirs.
constexpr Width kWidths[] = {
    {"nwentity", "ObjId", 36},
    {"nwentity", "EntityName", 255},
    {"nwentity", "QRMObjId", 65},
    {"nwentity", "Description", 2000},
    {"nwentity", "ZoneNumber", 64},
    {"nwentity", "EntityOID", 64},
    {"nwnode", "ObjId", 36},
    {"nwnode", "EntityName", 255},
    {"nwnode", "QRMObjId", 36},
    {"nwnode", "Description", 2000},
    {"nwnode", "ZoneNumber", 64},
    {"nwnode", "SysOID", 64},
    {"nwnode", "V4ManagementAddress", 15},
    {"nwnode", "PubV4ManagementAdd", 15},
    {"nwnode", "sysContact", 128},
    {"nwnode", "sysLocation", 128},
    {"nwinterface", "ObjId", 36},
    {"nwinterface", "EntityName", 255},
    {"nwinterface", "QRMObjId", 36},
    {"nwinterface", "Description", 2000},
    {"nwinterface", "ZoneNumber", 64},
    {"nwinterface", "NodeObjID", 36},
    {"nwinterface", "PhysicalAddress", 256},
    {"nwinterface", "VendorCard", 3},
    {"nwinterface", "VendorPort", 3},
    {"nwinterface", "IfName", 255},
    {"nwinterface", "IfAlias", 255},
    {"nwinterface", "nodeName", 255},
    {"nwinterface", "Port", 3},
    {"nwvlan", "ObjId", 36},
    {"nwhsrp", "ObjId", 36},
    {"nwifc", "ObjId", 36},
    {"nwifc", "EntityName", 129},
    {"nwifc", "Description", 259},
    {"nwifc", "ZoneNumber", 64},
    {"nwifcctm", "ContainerObjId", 36},
    {"nwifcctm", "InterfaceObjId", 36},
    {"nwifcctm", "NodeObjId", 36},
    {"nwifcasc", "LeftIFContainerObjID", 36},
    {"nwifcasc", "RightIFContainerObjID", 36},
    {"nwifcasc", "Description", 259},
    {"nwifcasc", "ExtraInfo", 259},
    {"NWInterfaceAsc", "leftobjid", 36},
    {"NWInterfaceAsc", "rightobjid", 36},
    {"NWInterfaceAsc", "leftifnodeobjid", 36},
    {"NWInterfaceAsc", "rightifnodeobjid", 36},
    {"containment", "ContainerObjID", 36},
    {"containment", "ContainedObjID", 36},
    {"containment", "ContainedNodeObjId", 36},
    {"address", "AddressId", 36},
    {"address", "ObjId", 36},
    {"address", "SubnetObjId", 36},
    {"address", "V6Address", 41},
    {"address", "V6AddressBS", 129},
    {"address", "V4Address", 16},
    {"address", "NodeObjId", 36},
    {"address", "DNSName", 256},
    {"address", "AddressQRMId", 65},
    {"address", "PubV4Address", 16},
    {"addressmapping", "LeftAddressId", 36},
    {"addressmapping", "RightAddressId", 36},
    {"userdefvar", "VarName", 128},
    {"userdefvar", "StrVal", 2000},
    {"userdefvar", "ObjID", 36},
    {"hsrpaddress", "AddressID", 36},
    {"hsrpaddress", "AddressIfObjID", 36},
    {"hsrpaddress", "ObjID", 36},
    {"hsrpaddress", "TrackInterfaceList", 1999},
    {"nwtopoaudittrail", "ObjID", 36},
    {"nwtopoaudittrail", "ActionInfo", 254},
};

/// A row that the table takes, but for the column in question.
Values keyOf(const std::string& table, const std::string& suffix) {
  const std::string key = "key" + suffix;
  if (table == "nwifcctm") return {{"ContainerObjId", key}, {"InterfaceObjId", key}};
  if (table == "nwifcasc") {
    return {{"LeftIFContainerObjID", key}, {"RightIFContainerObjID", key}, {"RelType", 1}};
  }
  if (table == "NWInterfaceAsc") return {{"leftobjid", key}, {"rightobjid", key}, {"reltype", 1}};
  if (table == "containment") return {{"ContainerObjID", key}, {"ContainedObjID", key}};
  if (table == "address") return {{"AddressId", key}};
  if (table == "addressmapping") {
    return {{"LeftAddressId", key}, {"RightAddressId", key}, {"AddressMappingType", 1}};
  }
  if (table == "userdefvar") return {{"ObjID", key}, {"VarName", key}};
  if (table == "hsrpaddress") return {{"ObjID", key}, {"AddressID", key}};
  if (table == "nwtopoaudittrail") return {};
  return {{"ObjId", key}};
}

/// A text of two-byte characters, filled up with one of one byte.
std::string textOf(int bytes) {
  std::string text;
  for (int i = 0; i < bytes / 2; ++i) text += "\xC3\xA9";
  return bytes % 2 == 0 ? text : text + "x";
}

TEST_P(SchemaWidthTest, ATextFitsUpToItsWidthInBytesAndNotBeyond) {
  int row = 0;
  for (const Width& width : kWidths) {
    inBothSets(width.table, [&](const std::string& table) {
      SCOPED_TRACE(table + "." + width.column);
      Values values = keyOf(width.table, std::to_string(++row));
      values.insert_or_assign(width.column, textOf(width.bytes + 1));
      EXPECT_THROW(store_->insert(table, values), std::runtime_error);
      values.insert_or_assign(width.column, textOf(width.bytes));
      EXPECT_NO_THROW(store_->insert(table, values));
      EXPECT_EQ(store_->value("select max(" + std::string(width.column) + ") from " + table),
                textOf(width.bytes));
    });
  }
}

TEST_P(SchemaWidthTest, AnUpdateIsCheckedToo) {
  store_->addNode("n", "name");
  EXPECT_FALSE(store_->accepts("update nwnode set sysContact = '" + std::string(129, 'x') + "'"));
  EXPECT_TRUE(store_->accepts("update nwnode set sysContact = '" + std::string(128, 'x') + "'"));
}

ZNTOPO_ON_ENGINES(SchemaWidthTest, kMainEngines);

}  // namespace
}  // namespace zntopo::test
