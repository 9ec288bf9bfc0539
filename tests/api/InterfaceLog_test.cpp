// The log lines of the interface and address queries.

#include "tests/support/ApiFixture.h"
#include "tests/support/CapturedLog.h"

namespace zntopo::test {
namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::IsSupersetOf;
using testing::Not;

class InterfaceLogTest : public ApiTest {
 protected:
  /// The lines that an operation writes at a level and above.
  template <typename Operation>
  std::vector<std::string> linesOf(MCDebugLevel level, const Operation& operation) {
    const CapturedLog log(level);
    operation();
    return log.lines();
  }
};

TEST_P(InterfaceLogTest, ListsTellTheirHitsAndWhatTheyMiss) {
  store->addInterface("a", "n1", "a", {{"QRMObjId", "11"}, {"hasAddress", 1}});
  store->addInterface("b", "n1", "b", {{"EntityType", 3}});
  store->addInterface("c", "n1", "", {{"QRMObjId", "13"}});
  EXPECT_THAT(linesOf(MC_INFO, [&] { impl.getInterfaceByObjID("a", status); }),
              IsSupersetOf({"+getInterfaceByObjID\n", "Creating Interface Entity\n",
                            "The NotFoundID list size = 0\n", "-getInterfaceByObjID\n"}));
  EXPECT_THAT(
      linesOf(MC_INFO,
              [&] {
                impl.getInterfacesByObjIDList({"a", "b", "x"}, notFound, status, false, false);
              }),
      testing::AllOf(
          IsSupersetOf({"FOUND IF = a IN CACHE! \n", "The NotFoundID list size = 2\n"}),
          Contains(HasSubstr("getInterfacesByWhereQuery - EntityType != E_Interface ! "))));
  EXPECT_THAT(
      linesOf(MC_INFO,
              [&] { impl.getInterfacesByObjIDList({ObjID(11)}, notFound, status, true, false); }),
      IsSupersetOf({"FOUND IF = 11 IN QRM ID CACHE! \n", "Found all Interface in cache ! \n"}));
  EXPECT_THAT(
      linesOf(MC_INFO, [&] { impl.getInterfaceByObjID("c", status); }),
      IsSupersetOf({"Received NULL values for critical data\n", "Unable to create Interface!\n"}));
  EXPECT_THAT(
      linesOf(MC_INFO, [&] { impl.getInterfacesByObjIDList({}, notFound, status, false, true); }),
      Contains("Retrieve all connected interface .. \n"));
  EXPECT_THAT(linesOf(MC_INFO, [&] { impl.getInterfacesByNodeObjIDList({"n1"}, status); }),
              Not(Contains("Get all addresses using Node Id\n")));
  store->execute("delete from nwinterface where ObjId <> 'a'");
  EXPECT_THAT(linesOf(MC_INFO, [&] { impl.getInterfacesByNodeObjIDList({"n1"}, status); }),
              Contains("Get all addresses using Node Id\n"));
}

TEST_P(InterfaceLogTest, EmptyRequestsTellAtTheirOwnLevels) {
  EXPECT_THAT(
      linesOf(MC_CRITICAL,
              [&] { impl.getInterfacesByObjIDList_Int({}, notFound, status, false, false); }),
      Contains("getInterfacesByObjIDLIst() - empty list ! \n"));
  const auto byNode = [&] { impl.getInterfacesByNodeObjIDList({}, status); };
  const char* const line = "getInterfacesByNodesObjIDLIst() has empty Node ID list \n";
  EXPECT_THAT(linesOf(MC_TRACE_L2, byNode), Contains(line));
  EXPECT_THAT(linesOf(MC_INFO, byNode), Not(Contains(line)));
}

TEST_P(InterfaceLogTest, LookUpsTellWhatWasWrong) {
  EXPECT_THAT(linesOf(MC_INFO, [&] { impl.getInterfaceByIPV4("", status, -1); }),
              Contains("Error: Null IP Address\n"));
  EXPECT_THAT(linesOf(MC_INFO, [&] { impl.getInterfaceByIPV4("10.0.0.1", status, -1); }),
              IsSupersetOf({"SQL is select objID from address where PubV4Address = '10.0.0.1' \n",
                            "Error: No Interface found \n"}));
  EXPECT_THAT(linesOf(MC_INFO, [&] { impl.getInterfaceByIfName("", "", status); }),
              Contains("Error: Null IfName or NodeName input\n"));
  EXPECT_THAT(linesOf(MC_INFO, [&] { impl.getAddressByIP("", status, -1); }),
              Contains("Error: input IP is empty\n"));
}

TEST_P(InterfaceLogTest, MeshesTellTheirWay) {
  EXPECT_THAT(linesOf(MC_TRACE_L2, [&] { impl.getMeshID("a", status); }),
              IsSupersetOf({"Entering getMeshID() \n", "getMeshID():theID is NULL\n",
                            "Exiting getMeshID() \n"}));
  store->insert("containment",
                {{"ContainerObjID", "mesh"}, {"ContainedObjID", "a"}, {"ContainerType", 10}});
  EXPECT_THAT(linesOf(MC_TRACE_L2, [&] { impl.getMeshID("a", status); }),
              Contains("getMeshID():theID is mesh \n"));
  EXPECT_THAT(linesOf(MC_TRACE_L2, [&] { impl.getMeshInterfaces("mesh", status); }),
              IsSupersetOf({"Entering getMeshInterfaces() \n", "Entering getInterfacesByObjID() \n",
                            "Error in getInterfacesByObjIDList() \n"}));
  StatementSpy spy;
  spy.fail(StatementSpy::Exec, "from containment");
  EXPECT_THAT(linesOf(MC_CRITICAL, [&] { impl.getMeshInterfaces("mesh", status); }),
              Contains("Error in getInterfacesByObjID(() \n"));
}

TEST_P(InterfaceLogTest, InterfaceIdentifiersTellEachRow) {
  store->addInterface("a", "n1", "a");
  EXPECT_THAT(linesOf(MC_INFO, [&] { impl.getInterfaceIDsByNodeObjIDList({"n1"}, status); }),
              IsSupersetOf({"Executing SQL: select NodeObjID, ObjID   from nwinterface  where  "
                            "NodeObjId in  ( 'n1')\n",
                            "Execution done \n", "Fetch Node : n1, IF: a \n"}));
}

TEST_P(InterfaceLogTest, AFailedConnectionIsCritical) {
  breakConnections();
  EXPECT_THAT(linesOf(MC_CRITICAL, [&] { working.getAddressesByWhereClause("", "", status); }),
              Contains("Fail to get a connection \n"));
}

TEST_P(InterfaceLogTest, AddressesTellTheirKinds) {
  store->insert(
      "address",
      {{"AddressId", "v4"}, {"AddressType", 1}, {"V4Address", "10.0.0.1"}, {"PrefixLength", 24}});
  store->insert("address", {{"AddressId", "no4"}, {"AddressType", 1}});
  store->insert("address", {{"AddressId", "v6"}, {"AddressType", 2}});
  store->insert("address", {{"AddressId", "dns"}, {"AddressType", 16}});
  store->insert("address", {{"AddressId", "odd"}, {"AddressType", 77}});
  store->insert("address", {{"AddressId", ""}, {"AddressType", 77}});
  const auto read = [&] { impl.getAddressesByWhereClause("", "", status); };
  std::string all;
  for (const std::string& line : linesOf(MC_VERBOSE, read)) all += line;
  for (const char* text :
       {"Found V4 Address\n ", "InetAddressIPvV4 with prefix len[24] mask[255.255.255.0]\n",
        "Invalid V4 Address no4 :  Has null V4 Address value\n ", "Found V6 Address \n",
        "MonitoredIPv6 Address with V6 and status info \n", "Found DNS Address\n ",
        "Retrieved address from Address Table\n", "with unknown Address Type for Addr odd \n",
        "with unknown Address Type/n"}) {
    EXPECT_THAT(all, HasSubstr(text));
  }
  EXPECT_THAT(linesOf(MC_INFO, read), Contains(HasSubstr("FOUND ADDRESS IN CACHE! \n")));
}

ZNTOPO_ON_ENGINES(InterfaceLogTest, kSqlite);

}  // namespace
}  // namespace zntopo::test
