// Every column that a query reads holds NULL, one column at a time: in every row, and in one alone.

#include <regex>

#include "tests/faults/LittleNetwork.h"
#include "tests/faults/Questions.h"
#include "tests/faults/Schema.h"

namespace zntopo::test {
namespace {

/// What a question answers when a column is NULL, where that is not what it answers else.
struct NullEnding {
  const char* table;
  const char* column;
  /// The beginning of the question's name.
  const char* question;
  ZNTopoStatus status;
};

constexpr NullEnding kEndings[] = {
    // Nothing has the identifier any more, and a row without it ends the reading.
    {"nwnode", "ObjId", "getNodeByObjID", ZN_API_INVALID_ID},
    {"nwnode", "ObjId", "getNodeByQRMObjID", ZN_API_INVALID_ID},
    {"nwnode", "ObjId", "getNodeByName", ZN_API_OBJ_NOT_EXIST},
    {"nwnode", "ObjId", "getNodeNeighbors", ZN_API_OBJ_NOT_EXIST},
    {"nwnode", "ObjId", "getConnectivity", ZN_API_INVALID_ID},
    {"nwnode", "ObjId", "getL2PathBetweenNodes", ZN_API_OBJ_NOT_EXIST},
    {"nwnode", "ObjId", "getL2Path", ZN_API_UNKNOWN_IP},
    // A row without a name or a level ends the reading.
    {"nwnode", "EntityName", "getNodeByObjID", ZN_API_INVALID_ID},
    {"nwnode", "EntityName", "getNodeByQRMObjID", ZN_API_INVALID_ID},
    {"nwnode", "EntityName", "getNodeByName", ZN_API_OBJ_NOT_EXIST},
    {"nwnode", "EntityName", "getNodeNeighbors", ZN_API_OBJ_NOT_EXIST},
    {"nwnode", "EntityName", "getConnectivity", ZN_API_INVALID_ID},
    {"nwnode", "EntityName", "getL2PathBetweenNodes", ZN_API_OBJ_NOT_EXIST},
    {"nwnode", "EntityName", "getL2Path", ZN_API_UNKNOWN_IP},
    {"nwnode", "IPLevel", "getNodeByObjID", ZN_API_INVALID_ID},
    {"nwnode", "IPLevel", "getNodeByQRMObjID", ZN_API_INVALID_ID},
    {"nwnode", "IPLevel", "getNodeByName", ZN_API_OBJ_NOT_EXIST},
    {"nwnode", "IPLevel", "getNodeNeighbors", ZN_API_OBJ_NOT_EXIST},
    {"nwnode", "IPLevel", "getConnectivity", ZN_API_INVALID_ID},
    {"nwnode", "IPLevel", "getL2PathBetweenNodes", ZN_API_OBJ_NOT_EXIST},
    {"nwnode", "IPLevel", "getL2Path", ZN_API_UNKNOWN_IP},
    {"nwnode", "QRMObjId", "getNodeByQRMObjID", ZN_API_INVALID_ID},
    {"nwnode", "ObjId", "getNSubnetConnectivity", ZN_API_INVALID_ID},
    {"nwnode", "EntityName", "getNSubnetConnectivity", ZN_API_INVALID_ID},
    {"nwnode", "IPLevel", "getNSubnetConnectivity", ZN_API_INVALID_ID},

    // No identifier, no kind that filters ask for.
    {"nwnode", "ObjId", "getNodesByFilter", ZN_API_EMPTY_OBJID_LIST},
    {"nwnode", "EntityType", "getNodesByFilter", ZN_API_EMPTY_OBJID_LIST},

    // Filters of levels select nothing.
    {"nwnode", "ObjId", "getNodesByTopoFilter", ZN_API_EMPTY_OBJID_LIST},
    {"nwnode", "IPLevel", "getNodesByTopoFilter", ZN_API_EMPTY_OBJID_LIST},
    {"nwinterface", "ObjId", "getInterfacesByTopoFilter", ZN_API_EMPTY_OBJID_LIST},
    {"nwinterface", "IPLevel", "getInterfacesByTopoFilter", ZN_API_EMPTY_OBJID_LIST},
    {"address", "ObjId", "getAddressesByTopoFilter", ZN_API_EMPTY_OBJID_LIST},
    {"address", "IPLevel", "getAddressesByTopoFilter", ZN_API_EMPTY_OBJID_LIST},
    {"nwnode", "ObjId", "ParseAndGetNodesByTopoFilter", ZN_API_EMPTY_OBJID_LIST},
    {"nwnode", "IPLevel", "ParseAndGetNodesByTopoFilter", ZN_API_EMPTY_OBJID_LIST},
    {"nwinterface", "ObjId", "ParseAndGetInterfacesByTopoFilter", ZN_API_EMPTY_OBJID_LIST},
    {"nwinterface", "IPLevel", "ParseAndGetInterfacesByTopoFilter", ZN_API_EMPTY_OBJID_LIST},
    {"address", "ObjId", "ParseAndGetAddressesByTopoFilter", ZN_API_EMPTY_OBJID_LIST},
    {"address", "IPLevel", "ParseAndGetAddressesByTopoFilter", ZN_API_EMPTY_OBJID_LIST},
    // What a pattern selects and can't be read does not exist.
    {"nwnode", "ObjId", "getNodesByRXName, pattern", ZN_API_EMPTY_OBJID_LIST},
    {"nwnode", "EntityName", "getNodesByRXName, pattern of names", ZN_API_EMPTY_OBJID_LIST},
    {"nwnode", "EntityName", "getNodesByRXName, pattern of addresses", ZN_API_OBJ_NOT_EXIST},
    {"nwnode", "IPLevel", "getNodesByRXName, pattern", ZN_API_OBJ_NOT_EXIST},
    {"address", "NodeObjId", "getNodesByRXName, pattern of addresses", ZN_API_EMPTY_OBJID_LIST},
    {"address", "PubV4Address", "getNodesByRXName, pattern of addresses", ZN_API_EMPTY_OBJID_LIST},

    {"nwinterface", "ObjId", "getInterfaceByObjID", ZN_API_INVALID_ID},
    {"nwinterface", "ObjId", "getInterfaceByIfName", ZN_API_OBJ_NOT_EXIST},
    {"nwinterface", "ObjId", "getInterfaceByIPV4", ZN_API_INVALID_ID},
    {"nwinterface", "ObjId", "getL2PathBetweenNodes", ZN_API_NO_PATH},
    {"nwinterface", "ObjId", "getL2Path", ZN_API_UNKNOWN_IP},
    {"nwinterface", "EntityName", "getInterfaceBy", ZN_API_INVALID_ID},
    {"nwinterface", "EntityName", "getL2PathBetweenNodes", ZN_API_NO_PATH},
    {"nwinterface", "EntityName", "getL2Path", ZN_API_UNKNOWN_IP},
    {"nwinterface", "IPLevel", "getInterfaceBy", ZN_API_INVALID_ID},
    {"nwinterface", "IPLevel", "getL2PathBetweenNodes", ZN_API_NO_PATH},
    {"nwinterface", "IPLevel", "getL2Path", ZN_API_UNKNOWN_IP},
    // A row of another kind is passed over.
    {"nwinterface", "EntityType", "getInterfaceBy", ZN_API_INVALID_ID},
    {"nwinterface", "EntityType", "getL2PathBetweenNodes", ZN_API_NO_PATH},
    {"nwinterface", "EntityType", "getL2Path", ZN_API_UNKNOWN_IP},
    // Addresses are asked for only where there are some, and by their identifiers.
    {"nwinterface", "hasAddress", "getL2PathBetweenNodes", ZN_API_SUCCESS},
    {"nwinterface", "hasAddress", "getL2Path", ZN_API_UNKNOWN_IP},
    {"address", "AddressId", "getL2PathBetweenNodes", ZN_API_SUCCESS},
    {"address", "AddressId", "getL2Path", ZN_API_UNKNOWN_IP},
    // The interfaces of a node are not found...
    {"nwinterface", "NodeObjID", "getL2PathBetweenNodes", ZN_API_SUCCESS},
    {"nwinterface", "NodeObjID", "getL2Path", ZN_API_UNKNOWN_IP},
    // ...or not by name.
    {"nwinterface", "nodeName", "getInterfaceByIfName", ZN_API_OBJ_NOT_EXIST},
    {"nwinterface", "IfName", "getInterfaceByIfName", ZN_API_OBJ_NOT_EXIST},

    {"address", "AddressId", "getAddressByObjID", ZN_API_INVALID_ID},
    {"address", "AddressId", "getMonitoredIPv6AddressByObjID", ZN_API_INVALID_ID},
    {"address", "ObjId", "getInterfaceByIPV4", ZN_API_OBJ_NOT_EXIST},
    {"address", "ObjId", "getL2PathBetweenNodes", ZN_API_SUCCESS},
    {"address", "ObjId", "getL2Path", ZN_API_UNKNOWN_IP},
    // An address of no type is none.
    {"address", "AddressType", "getAddressByIP", ZN_API_OBJ_NOT_EXIST},
    {"address", "AddressType", "getAddressBy", ZN_API_INVALID_ID},
    {"address", "AddressType", "getMonitoredIPv6AddressBy", ZN_API_INVALID_ID},
    {"address", "AddressType", "getL2PathBetweenNodes", ZN_API_SUCCESS},
    {"address", "AddressType", "getL2Path", ZN_API_UNKNOWN_IP},
    {"address", "V6Address", "getNodeByName, IPv6", ZN_API_OBJ_NOT_EXIST},
    {"address", "V6Address", "getAddressByIP, IPv6", ZN_API_OBJ_NOT_EXIST},
    {"address", "V4Address", "getAddressByIP, IPv4", ZN_API_OBJ_NOT_EXIST},
    {"address", "V4Address", "getL2PathBetweenNodes", ZN_API_SUCCESS},
    {"address", "V4Address", "getL2Path", ZN_API_UNKNOWN_IP},
    {"address", "PubV4Address", "getNodeByName, IPv4", ZN_API_OBJ_NOT_EXIST},
    {"address", "PubV4Address", "getInterfaceByIPV4", ZN_API_OBJ_NOT_EXIST},
    {"address", "PubV4Address", "getAddressByIP, IPv4", ZN_API_OBJ_NOT_EXIST},
    {"address", "PubV4Address", "getL2PathBetweenNodes", ZN_API_SUCCESS},
    {"address", "PubV4Address", "getL2Path", ZN_API_UNKNOWN_IP},
    {"address", "NodeObjId", "getNodeByName, IP", ZN_API_OBJ_NOT_EXIST},
    {"address", "NodeObjId", "getL2PathBetweenNodes", ZN_API_SUCCESS},
    {"address", "NodeObjId", "getL2Path", ZN_API_UNKNOWN_IP},
    {"address", "RouteDistinguisher", "getNodeByName, IPv6", ZN_API_OBJ_NOT_EXIST},
    {"address", "RouteDistinguisher", "getAddressByIP, IPv6", ZN_API_OBJ_NOT_EXIST},
    {"address", "AddressQRMId", "getAddressByQRMObjID", ZN_API_INVALID_ID},
    {"address", "AddressQRMId", "getMonitoredIPv6AddressByQRMObjID", ZN_API_INVALID_ID},

    {"nwentity", "ObjId", "getSubnetBy", ZN_API_INVALID_ID},
    {"nwentity", "ObjId", "getVlanByObjID", ZN_API_INVALID_ID},
    {"nwentity", "ObjId", "getEntityByObjID", ZN_API_INVALID_ID},
    {"nwentity", "EntityName", "getSubnetBy", ZN_API_INVALID_ID},
    {"nwentity", "EntityName", "getVlanByObjID", ZN_API_INVALID_ID},
    {"nwentity", "EntityName", "getEntityByObjID", ZN_API_INVALID_ID},
    {"nwentity", "IPLevel", "getSubnetBy", ZN_API_INVALID_ID},
    {"nwentity", "IPLevel", "getVlanByObjID", ZN_API_INVALID_ID},
    {"nwentity", "IPLevel", "getEntityByObjID", ZN_API_INVALID_ID},
    // An entity of another kind is none of this one.
    {"nwentity", "EntityType", "getSubnetBy", ZN_API_INVALID_ID},
    {"nwentity", "EntityType", "getVlanByObjID", ZN_API_INVALID_ID},
    {"nwentity", "EntityType", "getEntityByObjID", ZN_API_INVALID_ID},
    {"nwentity", "QRMObjId", "getSubnetByQRMObjID", ZN_API_INVALID_ID},
    {"nwifc", "ObjId", "getIfcByObjID", ZN_API_INVALID_ID},
    {"nwifc", "EntityName", "getIfcByObjID", ZN_API_INVALID_ID},

    // A link without one of its ends is none.
    {"NWInterfaceAsc", "", "getL2Path", ZN_API_NO_PATH},
};

bool begins(const std::string& text, const char* prefix) {
  return text.compare(0, std::string(prefix).size(), prefix) == 0;
}

ZNTopoStatus expectedOf(const std::string& table, const std::string& column,
                        const Question& question) {
  // Without one of its values the row of the state says nothing, and the store is not ready.
  if (table == "state" && column != "PrevDiscoEndTime") {
    if (begins(question.name, "getTopologyInfo")) return ZN_API_DB_NOT_READY;
    return question.endingOf("select TopologyReady", question.healthy);
  }
  for (const NullEnding& ending : kEndings) {
    if (table == ending.table && begins(column, ending.column) &&
        (column == ending.column || *ending.column == '\0') &&
        begins(question.name, ending.question)) {
      return ending.status;
    }
  }
  return question.healthy;
}

/// A node or an interface in the middle of a path is missing.
bool isBrokenPath(const Question& question, ZNTopoStatus status) {
  return begins(question.name, "getL2Path") &&
         (status == ZN_API_NO_PATH || status == ZN_API_PATH_PROCESSING_ERROR);
}

class NullColumnTest : public testing::TestWithParam<Engine> {
 protected:
  void SetUp() override {
    ZNTOPO_NEED_ENGINE(GetParam());
    store_.emplace(GetParam(), looseSeed());
    fillLittleNetwork(*store_);
    ZNTopoAPI::setTopoConfiguration(ZNTopoConfig());
    for (const TableOf& table : describedTables()) {
      store_->execute("create table saved_" + table.name + " as select * from " + table.name);
    }
    healthy_.learn();
  }

  bool reads(std::size_t question, const std::string& table) const {
    const std::regex name("\\b" + table + "\\b", std::regex::icase);
    for (const std::string& sql : healthy_.statements(question)) {
      if (std::regex_search(sql, name)) return true;
    }
    return false;
  }

  /// @param rows a condition for the rows that lose their value; empty for all of them.
  std::vector<Answered> askWithNull(const std::string& table, const std::string& column,
                                    const std::string& rows,
                                    const std::vector<std::size_t>& asked) {
    store_->execute("update " + table + " set " + column + " = null" + rows);
    std::vector<Answered> answers;
    answers.reserve(asked.size());
    for (const std::size_t question : asked) answers.push_back(askCold(questions()[question]));
    restore(table);
    return answers;
  }

  /// One row, another one for each column.
  std::string oneRow(const std::string& table, std::size_t column) {
    const int rows = store_->count(table);
    const std::string id = store_->isPostgres() ? "ctid" : "rowid";
    return " where " + id + " = (select " + id + " from " + table + " order by " + id +
           " limit 1 offset " + std::to_string(column % std::max(rows, 1)) + ")";
  }

  /// Holds every question that reads the table; gives their number.
  int askWithoutColumn(const TableOf& table, std::size_t column) {
    const std::string& name = table.columns[column].name;
    std::vector<std::size_t> asked;
    for (std::size_t i = 0; i < questions().size(); ++i) {
      if (reads(i, table.name)) asked.push_back(i);
    }
    const auto all = askWithNull(table.name, name, "", asked);
    const auto one = askWithNull(table.name, name, oneRow(table.name, column), asked);
    for (std::size_t i = 0; i < asked.size(); ++i) {
      const Question& question = questions()[asked[i]];
      const Answered& healthy = healthy_.answer(asked[i]);
      const std::string what =
          std::string(question.name) + " with NULL in " + table.name + "." + name;
      const ZNTopoStatus expected = expectedOf(table.name, name, question);
      EXPECT_EQ(all[i].status, expected) << what << ": " << all[i];
      // What no row needs one row does not need, and one row spoils no more than all do.
      if (all[i] == healthy) {
        EXPECT_EQ(one[i], healthy) << what << " of one row";
      }
      EXPECT_TRUE(one[i].status == expected || one[i].status == question.healthy ||
                  isBrokenPath(question, one[i].status))
          << what << " of one row: " << one[i];
      if (one[i].count < healthy.count && one[i].count > all[i].count) ++partial_;
    }
    return static_cast<int>(asked.size());
  }

  void restore(const std::string& table) {
    store_->execute("delete from " + table);
    store_->execute("insert into " + table + " select * from saved_" + table);
  }

  std::optional<TestStore> store_;
  Healthy healthy_;
  /// How often one row left some of an answer, and all rows less.
  int partial_ = 0;
};

TEST_P(NullColumnTest, EachQueryEndsAsItSays) {
  int asked = 0;
  for (const TableOf& table : describedTables()) {
    for (std::size_t column = 0; column < table.columns.size(); ++column) {
      asked += askWithoutColumn(table, column);
      ASSERT_EQ(ZNDBTestAccess::connectionCount(), static_cast<int>(ZNDBTestAccess::idleCount()))
          << table.name << " " << column;
    }
  }
  EXPECT_GT(asked, 1000);
  EXPECT_GT(partial_, 50) << "one row spoils some answers in part";
  healthy_.expectAll("without a NULL");
}

ZNTOPO_ON_ENGINES(NullColumnTest, kMainEngines);

}  // namespace
}  // namespace zntopo::test
