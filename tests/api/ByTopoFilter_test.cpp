// Identifiers and objects by XML filters.

#include <thread>

#include "tests/support/ApiFixture.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/FilterConfiguration.h"
#include "tests/support/ObjectTexts.h"

namespace zntopo::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;
using testing::UnorderedElementsAre;

std::vector<std::string> textsOf(const ZNTopoAPI::OwnedIDList& ids) {
  return {ids->begin(), ids->end()};
}

/// Two nodes, each with an interface that has an address.
class ByTopoFilterTest : public ApiTest {
 protected:
  void SetUp() override {
    ApiTest::SetUp();
    if (!store) return;
    for (const int number : {1, 2}) {
      store->addNode(uuid(number), "node-" + std::to_string(number));
      store->addInterface(uuid(number, 'b'), uuid(number), "eth", {{"hasAddress", 1}});
      store->addAddress(uuid(number, 'c'), uuid(number, 'b'), uuid(number),
                        "10.0.0." + std::to_string(number));
    }
  }

  static std::string document(const std::string& type, const std::string& condition) {
    return filterDocument(conditionElement("f", type, condition));
  }
  /// Loads a filter "f".
  void load(const std::string& type, const std::string& condition) {
    ASSERT_EQ(impl.ParseXmlString(document(type, condition), status), ZN_API_SUCCESS)
        << status.getAuxMsg();
  }
  bool isStatementFailure() const {
    return status.getStatus() == ZN_API_SQL_BIND_STATEMENT_ERROR ||
           status.getStatus() == ZN_API_SQL_EXEC_ERROR;
  }

  const FilterConfiguration configuration;
  ZNTopoAPI api;
};
ZNTOPO_ON_ENGINES(ByTopoFilterTest, kEngines);

constexpr char kFirstNode[] = " NODE.entityname = 'node-1' ";
constexpr char kFirstInterface[] = " NODE.entityname = 'node-1' and IF.ifname = 'eth' ";
constexpr char kFirstAddress[] = " ADDR.v4address = '10.0.0.1' ";
constexpr char kNothing[] = " NODE.entityname = 'nobody' ";

// ---- documents --------------------------------------------------------------------------------

TEST_P(ByTopoFilterTest, ADocumentsFiltersAreKnownByTheirNames) {
  const std::string text = filterDocument(conditionElement("a", "Node", " 1 = 1 ") +
                                          conditionElement("b", "Address", " 1 = 1 "));
  EXPECT_EQ(impl.ParseXmlString(text, status), ZN_API_SUCCESS);
  EXPECT_EQ(status.getAuxMsg(), "of before\n") << "only a failure touches the status";
  const auto names = impl.getDefaultFileFilterName(status);
  ASSERT_THAT(names, SizeIs(2));
  for (const char* name : {"a", "b"}) {
    EXPECT_EQ(names.at(name), std::pair(E_Node, std::string())) << name;
  }
}

TEST_P(ByTopoFilterTest, AFailedDocumentIsToldByItsNumberAndItsMessages) {
  const CapturedLog log(MC_CRITICAL);
  status.reset();
  EXPECT_EQ(impl.ParseXmlString("<nothing/>", status), ZN_API_XML_FILTER_VALIDATION_ERROR);
  EXPECT_EQ(status.getStatus(), ZN_API_XML_FILTER_VALIDATION_ERROR);
  EXPECT_THAT(status.getAuxMsg(),
              StartsWith("XML being validated:\n<nothing/>\nXML filter validation error.\n"));
  EXPECT_THAT(log.text(), HasSubstr("XML being validated:\n<nothing/>\n"));
  status.reset();
  EXPECT_EQ(impl.ParseXmlFile("/nonexistent/filters.xml", status),
            ZN_API_XML_FILTER_VALIDATION_ERROR);
  EXPECT_THAT(status.getAuxMsg(), StartsWith("XML file being validated:\n"
                                             "/nonexistent/filters.xml\n"
                                             "XML filter validation Error.\n"));
}

TEST_P(ByTopoFilterTest, AFailedDocumentsMessagesAreCutAtThreeThousandCharacters) {
  const std::string text = "<nothing>" + std::string(5000, 'x') + "</nothing>";
  status.reset();
  EXPECT_EQ(impl.ParseXmlString(text, status), ZN_API_XML_FILTER_VALIDATION_ERROR);
  EXPECT_EQ(status.getAuxMsg().size(), 3000U) << "2999 and the end of the line";
}

TEST_P(ByTopoFilterTest, TheDefaultFileLiesInTheConfigurationDirectory) {
  const std::string path = configuration.write("TopoFilters.xml", document("Node", kFirstNode));
  EXPECT_EQ(api.ParseDefaultFile(status), ZN_API_SUCCESS) << status.getAuxMsg();
  EXPECT_THAT(textsOf(api.getNodeIDsByTopoFilter("f", status)), ElementsAre(uuid(1)));
  ZNTopoAPI other;
  EXPECT_EQ(other.ParseXmlFile(path, status), ZN_API_SUCCESS);
  EXPECT_THAT(textsOf(other.getNodeIDsByTopoFilter("f", status)), ElementsAre(uuid(1)));
}

TEST_P(ByTopoFilterTest, EachFacadeKnowsItsOwnFilters) {
  load("Node", kFirstNode);
  OpenImpl other;
  EXPECT_THAT(*other.getObjIDsByTopoFilter("f", status), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_XML_FILTER_NAME_NOT_FOUND_ERROR);
}

// ---- identifiers ------------------------------------------------------------------------------

TEST_P(ByTopoFilterTest, TheFourRequestsForIdentifiersDoTheSame) {
  const struct {
    const char* kind;
    const char* condition;
    std::string id;
  } filters[] = {{"Node", kFirstNode, uuid(1)},
                 {"Interface", kFirstInterface, uuid(1, 'b')},
                 {"Address", kFirstAddress, uuid(1, 'b')}};
  for (const auto& filter : filters) {
    load(filter.kind, filter.condition);
    for (const auto request :
         {&ZNTopoAPI_Impl::getObjIDsByTopoFilter, &ZNTopoAPI_Impl::getNodeIDsByTopoFilter,
          &ZNTopoAPI_Impl::getInterfaceIDsByTopoFilter,
          &ZNTopoAPI_Impl::getAddresseIDsByTopoFilter}) {
      EXPECT_THAT(textsOf((impl.*request)("f", status)), ElementsAre(filter.id)) << filter.kind;
      EXPECT_TRUE(status.isOK());
      EXPECT_EQ(status.getAuxMsg(), "");
    }
  }
}

TEST_P(ByTopoFilterTest, InterfaceIdentifiersOfANodeFilterAreThoseOfNodes) {
  load("Node", kFirstNode);
  EXPECT_THAT(textsOf(impl.getInterfaceIDsByTopoFilter("f", status)), ElementsAre(uuid(1)));
  EXPECT_TRUE(status.isOK());
}

TEST_P(ByTopoFilterTest, ANameThatWasNeverLoadedJoinsTheMapAndIsToldEachTime) {
  for (int round = 0; round < 2; ++round) {
    EXPECT_THAT(*impl.getNodeIDsByTopoFilter("nobody's", status), IsEmpty());
    EXPECT_EQ(status.getStatus(), ZN_API_XML_FILTER_NAME_NOT_FOUND_ERROR);
    const std::string text = " Filter 'nobody's' was NOT found in the filter definition!\n";
    EXPECT_EQ(status.getAuxMsg(), text + text + "\n") << "the text and the list with it";
  }
  EXPECT_EQ(impl.getDefaultFileFilterName(status).count("nobody's"), 1U);
}

TEST_P(ByTopoFilterTest, AnEmptySelectionOfIdentifiersIsNoFailure) {
  load("Node", kNothing);
  EXPECT_THAT(*impl.getNodeIDsByTopoFilter("f", status), IsEmpty());
  EXPECT_TRUE(status.isOK());
}

TEST_P(ByTopoFilterTest, AFailedStepIsToldWithTheMessagesOfThePlatform) {
  load("Node", kFirstNode);
  StatementSpy spy;
  spy.fail(StatementSpy::Exec, "nwnode");
  EXPECT_THAT(*impl.getObjIDsByTopoFilter("f", status), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_SQL_EXEC_ERROR);
  EXPECT_THAT(status.getAuxMsg(), StartsWith("Problem Executing SQL Command\n"));
  EXPECT_THAT(status.getAuxMsg(), HasSubstr(StatementSpy::kMessage));
}

TEST_P(ByTopoFilterTest, WithoutAConnectionAnInternalErrorIsTold) {
  load("Node", kFirstNode);
  breakConnections();
  EXPECT_THAT(*impl.getObjIDsByTopoFilter("f", status), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_INTERNAL_ERROR);
  EXPECT_THAT(status.getAuxMsg(), HasSubstr("  Failed to get a connection.\n"));
}

TEST_P(ByTopoFilterTest, IdentifiersAreThoseOfTheActiveTablesWhateverTheFacadesAre) {
  store->addNode(uuid(9), "node-1", {}, WorkingDB);
  ASSERT_EQ(working.ParseXmlString(document("Node", kFirstNode), status), ZN_API_SUCCESS);
  EXPECT_THAT(textsOf(working.getNodeIDsByTopoFilter("f", status)), ElementsAre(uuid(1)));
  EXPECT_THAT(*working.getNodesByTopoFilter("f", status), IsEmpty())
      << "the objects are those of the working tables";
}

// ---- objects ----------------------------------------------------------------------------------

TEST_P(ByTopoFilterTest, AFilterOfNodesGivesNodes) {
  load("Node", " NODE.entityname like 'node-%' ");
  EXPECT_THAT(idsOf(*impl.getNodesByTopoFilter("f", status)),
              UnorderedElementsAre(uuid(1), uuid(2)));
  EXPECT_TRUE(status.isOK());
  EXPECT_EQ(status.getAuxMsg(), "");
}

TEST_P(ByTopoFilterTest, AFilterOfInterfacesGivesInterfaces) {
  load("Interface", kFirstInterface);
  EXPECT_THAT(idsOf(*impl.getInterfacesByTopoFilter("f", status)), ElementsAre(uuid(1, 'b')));
  EXPECT_TRUE(status.isOK());
}

// The owners' identifiers are taken for those of addresses.
TEST_P(ByTopoFilterTest, AFilterOfAddressesFindsNoneAndSaysNothing) {
  load("Address", kFirstAddress);
  EXPECT_THAT(*impl.getAddressesByTopoFilter("f", status), IsEmpty());
  EXPECT_TRUE(status.isOK());
  EXPECT_EQ(status.getAuxMsg(), "");
  EXPECT_THAT(
      *impl.ParseAndGetAddressesByTopoFilter(document("Address", kFirstAddress), "f", status),
      IsEmpty());
  EXPECT_TRUE(status.isOK());
}

TEST_P(ByTopoFilterTest, AnAddressWhoseOwnerHasItsIdentifierIsFound) {
  store->addAddress(uuid(7), uuid(7), uuid(1), "10.0.0.7");
  load("Address", " ADDR.v4address = '10.0.0.7' ");
  const auto found = impl.getAddressesByTopoFilter("f", status);
  ASSERT_THAT(*found, SizeIs(1));
  EXPECT_EQ(found->front()->getAddressID(), ObjID(uuid(7)));
}

TEST_P(ByTopoFilterTest, AnEmptySelectionEndsEachRequestForObjectsInAnEmptyList) {
  load("Node", kNothing);
  EXPECT_THAT(*impl.getNodesByTopoFilter("f", status), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_EMPTY_OBJID_LIST);
  EXPECT_THAT(*impl.ParseAndGetNodesByTopoFilter(document("Node", kNothing), "f", status),
              IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_EMPTY_OBJID_LIST);
  EXPECT_THAT(*impl.ParseAndGetInterfacesByTopoFilter(document("Interface", kNothing), "f", status),
              IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_EMPTY_OBJID_LIST);
  EXPECT_THAT(*impl.getInterfacesByTopoFilter("f", status), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_EMPTY_OBJID_LIST);
  load("Address", kNothing);
  EXPECT_THAT(*impl.getAddressesByTopoFilter("f", status), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_EMPTY_OBJID_LIST);
}

TEST_P(ByTopoFilterTest, AFilterOfAnotherKindIsToldAfterItRan) {
  const auto expectMismatch = [this](const auto& found, const std::string& text,
                                     const StatementSpy& spy) {
    EXPECT_THAT(*found, IsEmpty());
    EXPECT_EQ(status.getStatus(), ZN_API_XML_FILTER_OBJECT_TYPE_MISMATCH_ERROR);
    EXPECT_EQ(status.getAuxMsg(), "The filter definition has object type: " + text + " \n");
    EXPECT_THAT(spy.statements(), SizeIs(1)) << "the filter's own";
  };
  load("Interface", kFirstInterface);
  {
    const StatementSpy spy;
    expectMismatch(impl.getNodesByTopoFilter("f", status), "Interface vs expected type : Node",
                   spy);
  }
  {
    const StatementSpy spy;
    expectMismatch(impl.getAddressesByTopoFilter("f", status),
                   "Interface vs expected type : Address", spy);
  }
  load("Node", kFirstNode);
  {
    const StatementSpy spy;
    expectMismatch(impl.getInterfacesByTopoFilter("f", status), "Node vs expected type : Interface",
                   spy);
  }
  load("Address", kFirstAddress);
  const StatementSpy spy;
  expectMismatch(impl.getNodesByTopoFilter("f", status), "InvalidType vs expected type : Node",
                 spy);
}

TEST_P(ByTopoFilterTest, AFilterThatFailsIsNotLookedAtForItsKind) {
  load("Interface", " NODE.nothing = 1 ");
  EXPECT_THAT(*impl.getNodesByTopoFilter("f", status), IsEmpty());
  EXPECT_TRUE(isStatementFailure()) << status.getStatus();
  load("Unheard", kFirstNode);
  EXPECT_THAT(*impl.getNodesByTopoFilter("f", status), IsEmpty());
  EXPECT_TRUE(isStatementFailure()) << status.getStatus();
}

TEST_P(ByTopoFilterTest, OnlyTheRequestForNodesAsksForReadinessFirst) {
  load("Node", kFirstNode);
  store->execute("update state set TopologyReady = 0");
  {
    const StatementSpy spy;
    EXPECT_THAT(*impl.getNodesByTopoFilter("f", status), IsEmpty());
    EXPECT_EQ(status.getStatus(), ZN_API_DB_NOT_READY);
    EXPECT_THAT(spy.statements(), IsEmpty());
  }
  EXPECT_THAT(*impl.getNodeIDsByTopoFilter("f", status), SizeIs(1));
  EXPECT_TRUE(status.isOK());
  load("Interface", kFirstInterface);
  const StatementSpy spy;
  EXPECT_THAT(*impl.getInterfacesByTopoFilter("f", status), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_DB_NOT_READY);
  EXPECT_THAT(spy.statements(), SizeIs(1)) << "the filter's own";
}

TEST_P(ByTopoFilterTest, CachedNodesAreLostAmongOthers) {
  load("Node", " NODE.entityname like 'node-%' ");
  ASSERT_FALSE(impl.getNodeByObjID(ObjID(uuid(1)), status).isNull());
  EXPECT_THAT(idsOf(*impl.getNodesByTopoFilter("f", status)), ElementsAre(uuid(2)));
  EXPECT_THAT(idsOf(*impl.getNodesByTopoFilter("f", status)),
              UnorderedElementsAre(uuid(1), uuid(2)))
      << "all of them are cached now";
}

// ---- parse and get ----------------------------------------------------------------------------

TEST_P(ByTopoFilterTest, ADocumentIsParsedAndItsFilterRunAtOnce) {
  EXPECT_THAT(idsOf(*impl.ParseAndGetNodesByTopoFilter(document("Node", kFirstNode), "f", status)),
              ElementsAre(uuid(1)));
  EXPECT_TRUE(status.isOK());
  EXPECT_THAT(idsOf(*impl.ParseAndGetInterfacesByTopoFilter(document("Interface", kFirstInterface),
                                                            "f", status)),
              ElementsAre(uuid(1, 'b')));
  EXPECT_TRUE(status.isOK());
}

TEST_P(ByTopoFilterTest, AParsedDocumentStays) {
  impl.ParseAndGetNodesByTopoFilter(document("Node", kFirstNode), "f", status);
  EXPECT_THAT(textsOf(impl.getNodeIDsByTopoFilter("f", status)), ElementsAre(uuid(1)));
}

TEST_P(ByTopoFilterTest, ParseAndGetLooksAtNoKind) {
  const CapturedLog log(MC_CRITICAL);
  EXPECT_THAT(
      *impl.ParseAndGetNodesByTopoFilter(document("Interface", kFirstInterface), "f", status),
      IsEmpty());
  EXPECT_TRUE(status.isOK()) << "an interface's identifier is that of no node";
  EXPECT_THAT(log.text(), Not(HasSubstr("vs expected type")));
}

TEST_P(ByTopoFilterTest, ParseAndGetOfAFailedDocumentRunsNothing) {
  load("Node", kFirstNode);
  const StatementSpy spy;
  EXPECT_THAT(*impl.ParseAndGetNodesByTopoFilter("<nothing/>", "f", status), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_XML_FILTER_VALIDATION_ERROR);
  EXPECT_THAT(status.getAuxMsg(), StartsWith("XML being validated:\n<nothing/>\n"));
  EXPECT_THAT(*impl.ParseAndGetInterfacesByTopoFilter("<nothing/>", "f", status), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_XML_FILTER_VALIDATION_ERROR);
  EXPECT_THAT(*impl.ParseAndGetAddressesByTopoFilter("<nothing/>", "f", status), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_XML_FILTER_VALIDATION_ERROR);
  EXPECT_THAT(spy.allStatements(), IsEmpty());
}

TEST_P(ByTopoFilterTest, ParseAndGetOfAnotherNameIsTold) {
  EXPECT_THAT(*impl.ParseAndGetNodesByTopoFilter(document("Node", kFirstNode), "g", status),
              IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_XML_FILTER_NAME_NOT_FOUND_ERROR);
}

TEST_P(ByTopoFilterTest, ParseAndGetRunsTheFilterBeforeItAsksForReadiness) {
  store->execute("update state set TopologyReady = 0");
  const StatementSpy spy;
  EXPECT_THAT(*impl.ParseAndGetNodesByTopoFilter(document("Node", kFirstNode), "f", status),
              IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_DB_NOT_READY);
  EXPECT_THAT(spy.statements(), SizeIs(1));
}

// ---- addresses by their own identifiers -------------------------------------------------------

TEST_P(ByTopoFilterTest, TheAddressesOfAFilterAreFoundByTheirOwnIdentifiers) {
  load("Address", " ADDR.v4address like '10.%' and NODE.entityname = 'node-2' ");
  EXPECT_THAT(textsOf(impl.getAddressIDsOfTopoFilter("f", status)), ElementsAre(uuid(2, 'c')));
  const auto found = impl.getAddressesOfTopoFilter("f", status);
  ASSERT_THAT(*found, SizeIs(1));
  EXPECT_EQ(found->front()->getAddressID(), ObjID(uuid(2, 'c')));
  EXPECT_TRUE(status.isOK());
  // Through the facade, and from the cache.
  ASSERT_EQ(api.ParseXmlString(document("Address", kFirstAddress), status), ZN_API_SUCCESS);
  for (int round = 0; round < 2; ++round) {
    EXPECT_THAT(textsOf(api.getAddressIDsOfTopoFilter("f", status)), ElementsAre(uuid(1, 'c')));
    EXPECT_THAT(*api.getAddressesOfTopoFilter("f", status), SizeIs(1));
  }
}

TEST_P(ByTopoFilterTest, EachAddressComesOnceAndInOrder) {
  load("Address", " ADDR.v4address like '10.%' and ( NODE.entityname = 'node-1' or 1 = 1 ) ");
  store->addNode(uuid(3), "node-3");
  EXPECT_THAT(textsOf(impl.getAddressIDsOfTopoFilter("f", status)),
              ElementsAre(uuid(1, 'c'), uuid(2, 'c')));
  // A condition that breaks the join out of its parentheses repeats rows.
  load("Address", " 1 = 0 or NODE.entityname like 'node-%' and ADDR.v4address like '10.%' ");
  EXPECT_THAT(textsOf(impl.getAddresseIDsByTopoFilter("f", status)), SizeIs(6));
  EXPECT_THAT(textsOf(impl.getAddressIDsOfTopoFilter("f", status)),
              ElementsAre(uuid(1, 'c'), uuid(2, 'c')));
  EXPECT_THAT(*impl.getAddressesOfTopoFilter("f", status), SizeIs(2));
}

TEST_P(ByTopoFilterTest, AddressesThatAreNotThereAreNoFailure) {
  load("Address", " ADDR.v4address = '10.9.9.9' ");
  EXPECT_THAT(*impl.getAddressesOfTopoFilter("f", status), IsEmpty());
  EXPECT_TRUE(status.isOK());
  EXPECT_EQ(status.getAuxMsg(), "");
}

TEST_P(ByTopoFilterTest, AddressesOfAFilterOfAnotherKindAreRefusedBeforeItRuns) {
  load("Node", kFirstNode);
  const StatementSpy spy;
  EXPECT_THAT(*impl.getAddressesOfTopoFilter("f", status), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_XML_FILTER_OBJECT_TYPE_MISMATCH_ERROR);
  EXPECT_EQ(status.getAuxMsg(),
            "The filter definition has object type: Node vs expected type : Address \n");
  EXPECT_THAT(spy.statements(), IsEmpty());
}

TEST_P(ByTopoFilterTest, AddressesOfAFilterThatFailsAreToldWithTheReason) {
  EXPECT_THAT(*impl.getAddressesOfTopoFilter("none", status), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_XML_FILTER_NAME_NOT_FOUND_ERROR);
  load("Address", " ADDR.nothing = 1 ");
  EXPECT_THAT(*impl.getAddressesOfTopoFilter("f", status), IsEmpty());
  EXPECT_TRUE(isStatementFailure());
  store->execute("update state set TopologyReady = 0");
  ZNTopoAPI_Impl::cache()->clear(true);
  EXPECT_THAT(*impl.getAddressIDsOfTopoFilter("f", status), IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_DB_NOT_READY);
}

// ---- threads ----------------------------------------------------------------------------------

TEST_P(ByTopoFilterTest, ThreadsMayShareAFacadeThatNobodyParsesWith) {
  load("Node", kFirstNode);
  std::vector<std::thread> threads;
  for (int number = 0; number < 4; ++number) {
    threads.emplace_back([this] {
      for (int round = 0; round < 5; ++round) {
        ZNTopoAPIStatus own;
        EXPECT_THAT(*impl.getNodesByTopoFilter("f", own), SizeIs(1)) << own.getAuxMsg();
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
}

}  // namespace
}  // namespace zntopo::test
