#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <set>

#include "tests/support/CliSupport.h"
#include "tests/support/Places.h"

/// @file
/// Topology filters from the command line: with documents of the tests' own, and the default ones.

namespace zntopo::test {
namespace {

using Json = nlohmann::json;
using Call = std::vector<std::string>;
using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;
using testing::UnorderedElementsAreArray;

const std::string kSpace = "http://corvane.example/marlo/NetworkTopology/TopologyFilter";

std::string document(const std::string& filters) {
  return "<filters xmlns=\"" + kSpace + "\">\n" + filters + "\n</filters>\n";
}

std::string test(const std::string& column, const std::string& value) {
  return "<attribute><" + column + "><string>" + value + "</string></" + column + "></attribute>";
}

std::string assertion(const std::string& kind, const std::string& name, const std::string& tests) {
  return "<" + kind + "Assertion name=\"" + name + "\"><operator oper=\"NOOP\">" + tests +
         "</operator></" + kind + "Assertion>\n";
}

std::string reference(const std::string& name, const std::string& to) {
  return "<nodeFilter name=\"" + name + "\"><operator oper=\"NOOP\"><reference>" + to +
         "</reference></operator></nodeFilter>\n";
}

const std::string kFilters = document(
    "<nodeAssertion name=\"cores\" description=\"The two cores\"><operator oper=\"NOOP\">" +
    test("name", "core-?") + "</operator></nodeAssertion>\n" + reference("backbone", "cores") +
    assertion("interface", "uplinks", test("ifName", "Te1/0/1")) +
    assertion("address", "printer",
              "<attribute><IPAddress><IPv4><address>10.20.8.17</address></IPv4></IPAddress>"
              "</attribute>") +
    assertion("node", "nobody", test("name", "nobody's")));

class CliFiltersTest : public CliSampleTest {
 protected:
  void SetUp() override {
    CliSampleTest::SetUp();
    if (IsSkipped() || HasFatalFailure()) return;
    file_ = write("site.xml", kFilters);
  }

  Json run(const std::string& name) const {
    return answerOf({"filter", "run", name, "--file", file_});
  }

  std::string file_;
};
ZNTOPO_ON_ENGINES(CliFiltersTest, kMainEngines);

TEST_P(CliFiltersTest, ListTellsNamesTypesAndDescriptions) {
  const Json json = answerOf({"filter", "list", "--file", file_});
  EXPECT_EQ(json["file"], file_);
  EXPECT_THAT(each(json["filters"], "name"),
              ElementsAre("backbone", "cores", "nobody", "printer", "uplinks"));
  EXPECT_THAT(each(json["filters"], "type"),
              ElementsAre("node", "node", "node", "address", "interface"));
  EXPECT_EQ(json["filters"][1]["description"], "The two cores");
  EXPECT_EQ(json["filters"][0]["description"], nullptr);
  EXPECT_THAT(zntopoRun({"filter", "list", "--file", file_}).out, EndsWith("5 filters\n"));
}

TEST_P(CliFiltersTest, ListNeedsNoStore) {
  const CliResult result =
      zntopoRun({"filter", "list", "--json"}, {"TV_TOPO_STORE=/nonexistent/x.db"});
  EXPECT_EQ(result.status, 0);
  EXPECT_THAT(each(result.json()["filters"], "name"), Contains("Routers"));
}

TEST_P(CliFiltersTest, AListThatARowCutsShortIsAFailureWithWhatWasRead) {
  const auto expectCut = [](const Call& call, const std::string& list, const std::string& id) {
    Call json = call;
    json.emplace_back("--json");
    const CliResult result = zntopoRun(json);
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.err, HasSubstr("The list is not complete"));
    EXPECT_THAT(result.err, HasSubstr("\n  " + id + "\n"));
    EXPECT_EQ(result.json()["status"]["name"], "ZN_API_SQL_FETCH_ERROR");
    // What stands before the row is there.
    EXPECT_THAT(each(result.json()[list], "id"), Not(Contains(id)));
  };
  const std::string node = run("cores")["nodes"][0]["id"];
  executeOn(store(), "update nwnode set IPLevel = null where ObjId = '" + node + "'");
  expectCut({"filter", "run", "cores", "--file", file_}, "nodes", node);
  executeOn(store(), "update nwnode set IPLevel = 1 where ObjId = '" + node + "'");
  const std::string interface = run("uplinks")["interfaces"][0]["id"];
  executeOn(store(), "update nwinterface set IPLevel = null where ObjId = '" + interface + "'");
  for (const Call& call : {Call{"filter", "run", "uplinks", "--file", file_},
                           Call{"interfaces", "--filter", "uplinks", "--file", file_}}) {
    expectCut(call, "interfaces", interface);
  }
}

TEST_P(CliFiltersTest, EachDefaultFilterRunsAndGivesWhatTheListsOfItsKindGive) {
  const Json filters = answerOf({"filter", "list"})["filters"];
  EXPECT_GE(filters.size(), 20u);
  std::size_t found = 0;
  for (const Json& filter : filters) {
    const std::string name = filter["name"];
    const std::string type = filter["type"];
    const std::string list = type + (type == "address" ? "es" : "s");
    Json answer = answerOf({"filter", "run", name});
    EXPECT_EQ(answer["type"], type);
    EXPECT_EQ(answer[list], answerOf({list, "--filter", name})[list]) << name;
    std::set<std::string> ids;
    for (const auto& row : select(answerOf({"filter", "explain", name})["sql"], 1)) {
      ids.insert(row.front());
    }
    EXPECT_THAT(each(answer[list], "id"), UnorderedElementsAreArray(ids)) << name;
    found += answer[list].size();
    for (const char* one : {"nodes", "interfaces", "addresses"}) {
      EXPECT_TRUE(one == list || answer[one].empty()) << name;
    }
  }
  EXPECT_GT(found, 20u);
}

TEST_P(CliFiltersTest, RunListsNodesInterfacesAndAddressesAsTheirCommandsDo) {
  Json nodes = answerOf({"nodes"})["nodes"];
  std::erase_if(nodes.get_ref<Json::array_t&>(), [](const Json& node) {
    return !node["name"].get<std::string>().starts_with("core-");
  });
  EXPECT_EQ(run("cores")["nodes"], nodes);
  EXPECT_EQ(run("backbone")["nodes"], nodes);
  EXPECT_THAT(
      each(run("uplinks")["interfaces"], "id"),
      UnorderedElementsAreArray(stored("select ObjId from nwinterface where IfName = 'Te1/0/1'")));
  Json addresses = answerOf({"addresses", "customs-printer"})["addresses"];
  addresses.erase(1);
  EXPECT_EQ(run("printer")["addresses"], addresses);
  EXPECT_EQ(answerOf({"addresses", "--filter", "printer", "--file", file_})["addresses"],
            addresses);
}

TEST_P(CliFiltersTest, InterfacesOfAFilterTellTheirNode) {
  const Json list = answerOf({"interfaces", "--filter", "uplinks", "--file", file_});
  EXPECT_EQ(list["node"], nullptr);
  std::vector<std::vector<std::string>> ends;
  for (const Json& one : list["interfaces"]) {
    ends.push_back({one["node"], one["node_id"], one["id"], one["if_name"]});
  }
  const auto expected = select(
      "select n.EntityName, n.ObjId, i.ObjId, i.IfName from nwinterface i, nwnode n "
      "where i.NodeObjID = n.ObjId and i.IfName = 'Te1/0/1'",
      4);
  EXPECT_GT(expected.size(), 1u);
  EXPECT_THAT(ends, UnorderedElementsAreArray(expected));
  const CliResult text = zntopoRun({"interfaces", "--filter", "uplinks", "--file", file_});
  EXPECT_THAT(text.out, StartsWith("NODE "));
  EXPECT_THAT(zntopoRun({"interfaces", "core-1"}).out, StartsWith("INTERFACE "));
}

TEST_P(CliFiltersTest, AFilterHoldsTogetherWithOtherConditions) {
  const Json cores = answerOf({"nodes", "--filter", "cores", "--file", file_, "--name", "*-2"});
  EXPECT_THAT(each(cores["nodes"], "name"), ElementsAre("core-2"));
  EXPECT_THAT(
      answerOf({"addresses", "core-1", "--filter", "printer", "--file", file_})["addresses"],
      IsEmpty());
}

TEST_P(CliFiltersTest, NothingSelectedIsAnEmptyListAndNoFailure) {
  for (const Call& call : {Call{"filter", "run", "nobody"}, Call{"nodes", "--filter", "nobody"}}) {
    Call with = call;
    with.insert(with.end(), {"--file", file_});
    const CliResult result = zntopoRun(with);
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.out, EndsWith("0 nodes\n"));
    EXPECT_EQ(result.err, "");
  }
}

TEST_P(CliFiltersTest, AnUnknownFilterBringsOneOfANameLikeIt) {
  for (const Call& call : {Call{"filter", "run", "coers"}, Call{"filter", "explain", "coers"},
                           Call{"nodes", "--filter", "coers"}}) {
    Call with = call;
    with.insert(with.end(), {"--file", file_, "--json"});
    const CliResult result = zntopoRun(with);
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.json()["status"]["name"], "ZN_API_XML_FILTER_NAME_NOT_FOUND_ERROR");
    EXPECT_THAT(result.err, HasSubstr("There is no filter \"coers\" in " + file_ +
                                      ". Did you mean \"cores\"?"));
  }
  EXPECT_THAT(zntopoRun({"filter", "run", "x'; --"}).err,
              HasSubstr("\"zntopo filter list\" lists those that there are."));
}

TEST_P(CliFiltersTest, CommandsThatMessagesTellNameTheDocument) {
  std::filesystem::path other = file_;
  other.replace_filename("other site's.xml");
  std::filesystem::copy(file_, other);
  std::string word = other.string();
  word = "'" + word.replace(word.find('\''), 1, "'\\''") + "'";
  EXPECT_THAT(zntopoRun({"filter", "run", "x'; --", "--file", other}).err,
              HasSubstr("\"zntopo filter list --file " + word + "\" lists those"));
  EXPECT_THAT(zntopoRun({"nodes", "--filter", "printer", "--file", other}).err,
              HasSubstr("\"zntopo addresses --filter printer --file " + word + "\" lists them."));
}

TEST_P(CliFiltersTest, AFilterOfAddressesOfSubnetsHoldsTogetherWithOtherConditions) {
  const std::string file = write(
      "subnets.xml",
      document(assertion("address", "subs",
                         "<attribute><isSubnet><boolean>true</boolean></isSubnet></attribute>")));
  const auto idsOf = [&](Call options) {
    options.insert(options.begin(), {"addresses", "--filter", "subs", "--file", file});
    return each(answerOf(options)["addresses"], "id");
  };
  const std::string all = "select AddressId from address where isSubnet = 1";
  EXPECT_THAT(idsOf({}), UnorderedElementsAreArray(stored(all)));
  EXPECT_THAT(idsOf({"--ip-level", "4"}),
              UnorderedElementsAreArray(stored(all + " and IPLevel = 4")));
  EXPECT_THAT(idsOf({"--type", "ipv6"}),
              UnorderedElementsAreArray(stored(all + " and AddressType = 2")));
  EXPECT_THAT(idsOf({"--scope", "global"}),
              UnorderedElementsAreArray(stored(all + " and V6ScopeType = 3")));
  EXPECT_THAT(
      idsOf({"--prefix", "10.20.8.0/22"}),
      UnorderedElementsAreArray(stored(
          all + " and V4Address in ('10.20.8.0', '10.20.9.0', '10.20.10.0', '10.20.11.0')")));
  EXPECT_THAT(idsOf({"--address", "*.8.0"}),
              UnorderedElementsAreArray(stored(all + " and V4Address like '%.8.0'")));
  EXPECT_THAT(idsOf({"core-1"}), IsEmpty());
  for (const Json& one : answerOf({"addresses", "--filter", "subs", "--file", file})["addresses"]) {
    for (const char* owner : {"node", "node_id", "interface", "interface_id"}) {
      EXPECT_EQ(one[owner], nullptr) << one;
    }
    EXPECT_NE(one["subnet_id"], nullptr) << one;
  }
}

TEST_P(CliFiltersTest, AFilterOfAnotherKindNamesTheListThatFits) {
  const CliResult result = zntopoRun({"nodes", "--filter", "uplinks", "--file", file_, "--json"});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.json()["status"]["name"], "ZN_API_XML_FILTER_OBJECT_TYPE_MISMATCH_ERROR");
  EXPECT_THAT(result.err,
              HasSubstr("\"zntopo interfaces --filter uplinks --file " + file_ + "\" lists"));
}

TEST_P(CliFiltersTest, ExplainShowsTheFormTheStatementAndThePlan) {
  const Json json = answerOf({"filter", "explain", "backbone", "--file", file_});
  EXPECT_THAT(std::string(json["intermediate"]), HasSubstr("#cores#"));
  const std::string sql = json["sql"];
  EXPECT_THAT(sql, StartsWith("select NODE.objid from nwnode NODE where "));
  EXPECT_THAT(sql, Not(HasSubstr("#")));
  EXPECT_THAT(stored(sql), UnorderedElementsAreArray(
                               stored("select ObjId from nwnode where EntityName like 'core-_'")));
  EXPECT_THAT(json["plan"], Not(IsEmpty()));
  EXPECT_THAT(json["plan"].dump(), HasSubstr(GetParam() == Engine::Postgres ? "cost=" : "NODE"));
  EXPECT_THAT(zntopoRun({"filter", "explain", "backbone", "--file", file_}).out,
              HasSubstr(GetParam() == Engine::Postgres ? "\nPlan of PostgreSQL:\n"
                                                       : "\nPlan of SQLite:\n"));
}

TEST_P(CliFiltersTest, ALongLineOfAPlanEndsWhereItWasCut) {
  std::string tests;
  for (int i = 0; i < 300; ++i) tests += test("name", "a rather long name " + std::to_string(i));
  const std::string file = write("long.xml", document("<nodeAssertion name=\"long\"><operator "
                                                      "oper=\"OR\">" +
                                                      tests + "</operator></nodeAssertion>"));
  const Json plan = answerOf({"filter", "explain", "long", "--file", file})["plan"];
  ASSERT_THAT(plan, Not(IsEmpty()));
  std::size_t cut = 0;
  for (const Json& line : plan) {
    const std::string text = line;
    EXPECT_EQ(text.size() > 4000, text.ends_with("...")) << text;
    if (text.ends_with("...")) ++cut;
  }
  // SQLite tells no conditions.
  EXPECT_EQ(cut > 0, GetParam() == Engine::Postgres) << plan;
}

TEST_P(CliFiltersTest, ExplainShowsTheStatementThatRunsForAddresses) {
  const std::string sql = answerOf({"filter", "explain", "printer", "--file", file_})["sql"];
  EXPECT_THAT(stored(sql), ElementsAre(run("printer")["addresses"][0]["id"].get<std::string>()));
}

TEST_P(CliFiltersTest, ExplainWithoutAStoreStillShowsTheStatement) {
  const CliResult result = zntopoRun(
      {"filter", "explain", "cores", "--file", file_, "--json", "--store", "/nonexistent/x.db"});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.json()["status"]["name"], "ZN_API_DB_CONNECTION_FAILURE");
  EXPECT_THAT(std::string(result.json()["sql"]), StartsWith("select NODE.objid"));
  EXPECT_THAT(result.json()["plan"], IsEmpty());
}

TEST_P(CliFiltersTest, CheckOfAGoodDocumentAsksTheEngineForEachFilter) {
  const CliResult result = zntopoRun({"filter", "check", file_, "--json"});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(result.json()["filters"], 5);
  EXPECT_THAT(result.json()["errors"], IsEmpty());
  EXPECT_EQ(zntopoRun({"filter", "check", file_}).out, file_ + ": 5 filters, no error\n");
  EXPECT_EQ(zntopoRun({"filter", "check", file_, "--store", "/nonexistent/x.db"}).status, 1);
}

/// Lays a configuration whose stylesheet makes of each filter a condition that no engine takes, and
/// gives the environment for it.
std::vector<std::string> badConfiguration(const Scratch& scratch) {
  const auto folder = scratch.folder() / "conf/qrmrz/topology/filter";
  std::filesystem::create_directories(folder);
  std::filesystem::copy(inSourceTree("data/filter/TopoFilter.xsd"), folder);
  std::ofstream(folder / "Filter2IFilter.xsl")
      << "<xsl:stylesheet version=\"1.0\" xmlns:xsl=\"http://www.w3.org/1999/XSL/Transform\""
         " xmlns:f=\""
      << kSpace << "\"><xsl:template match=\"/\"><iFilters><xsl:for-each select=\"f:filters/*\">"
      << "<iAssertion objectType=\"Node\" name=\"{@name}\"><whereQueryStr> NODE.nonsense = 1"
      << "</whereQueryStr></iAssertion></xsl:for-each></iFilters></xsl:template></xsl:stylesheet>";
  return {"TV_ETC_PATH=" + scratch.folder().string()};
}

TEST_P(CliFiltersTest, TheFolderOfTheConfigurationMayHaveAnyName) {
  const Scratch scratch;
  const std::string file = scratch.path("filters.xml");
  std::ofstream(file) << document(
      "<nodeAssertion name=\"watched\"><operator oper=\"NOOP\"><attribute>"
      "<HostIDFile>watched.xml</HostIDFile></attribute></operator></nodeAssertion>");
  for (const char* name : {"with a blank", "50%", "%20", "a#b"}) {
    SCOPED_TRACE(name);
    const std::string folder = scratch.path(name);
    const std::string place = folder + "/conf/qrmrz/topology/filter";
    std::filesystem::create_directories(place);
    std::filesystem::copy(inSourceTree("data/filter"), place);
    std::ofstream(place + "/watched.xml")
        << "<hosts xmlns=\"" << kSpace << "\"><name>core-1</name></hosts>";
    const std::vector<std::string> environment = {"TV_ETC_PATH=" + folder};
    const CliResult run =
        zntopoRun({"filter", "run", "watched", "--file", file, "--json"}, environment);
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_THAT(run.out, HasSubstr("core-1"));
    EXPECT_THAT(zntopoRun({"filter", "list"}, environment).out, HasSubstr("Routers"));
  }
}

TEST_P(CliFiltersTest, CheckTellsEachFilterThatTheEngineRefusesAtItsPlace) {
  const Scratch scratch;
  const auto environment = badConfiguration(scratch);
  const CliResult result = zntopoRun({"filter", "check", file_, "--json"}, environment);
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.json()["status"]["name"], "ZN_API_SQL_BIND_STATEMENT_ERROR");
  const Json errors = result.json()["errors"];
  ASSERT_EQ(errors.size(), 5u) << errors;
  EXPECT_THAT(each(errors, "message"), testing::Each(HasSubstr("nonsense")));
  EXPECT_THAT(std::string(errors[1]["message"]), StartsWith("Filter cores: "));
  EXPECT_EQ(errors[1]["line"], 2);
  // The same document is good where no engine is asked.
  EXPECT_EQ(zntopoRun({"filter", "check", file_}, {environment[0], "TV_TOPO_STORE="}).status, 0);
}

TEST_P(CliFiltersTest, WhatTheEngineRefusesIsExplainedUpToThePlan) {
  const Scratch scratch;
  const auto environment = badConfiguration(scratch);
  const CliResult result =
      zntopoRun({"filter", "explain", "cores", "--file", file_, "--json"}, environment);
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.json()["sql"], "select NODE.objid from nwnode NODE where  NODE.nonsense = 1");
  EXPECT_THAT(result.json()["plan"], IsEmpty());
  const CliResult run = zntopoRun({"filter", "run", "cores", "--file", file_}, environment);
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.err, HasSubstr("nonsense"));
}

TEST_P(CliFiltersTest, AStoreThatIsNotReadyIsSaidToBeSo) {
  TestEngine other(GetParam());
  const std::string empty =
      other.isPostgres() ? other.store() : (other.folder() / "empty.db").string();
  ASSERT_EQ(zntopoRun({"init", "--store", empty}).status, 0);
  for (const Call& call :
       {Call{"filter", "run", "cores"}, Call{"filter", "run", "printer"},
        Call{"nodes", "--filter", "nobody"}, Call{"interfaces", "--filter", "uplinks"}}) {
    Call with = call;
    with.insert(with.end(), {"--file", file_, "--store", empty});
    EXPECT_EQ(failureOf(with), "ZN_API_DB_NOT_READY") << testing::PrintToString(call);
  }
}

/// Documents that no store is asked about.
class CliFilterCheckTest : public testing::Test {
 protected:
  void SetUp() override { unsetenv("TV_TOPO_STORE"); }

  std::string write(const std::string& text) const { return scratch_.write("broken.xml", text); }
  /// What is wrong with a document, as JSON; it must be something.
  Json errorsOf(const std::string& text, const std::string& status) const {
    const CliResult result = zntopoRun({"filter", "check", write(text), "--json"});
    EXPECT_EQ(result.status, 1) << text;
    EXPECT_EQ(result.json()["status"]["name"], status) << result.out;
    EXPECT_THAT(result.json()["errors"], Not(IsEmpty()));
    return result.json()["errors"];
  }

  Scratch scratch_;
};

TEST_F(CliFilterCheckTest, EachErrorOfAValidationHasItsPlace) {
  const std::string text =
      document("<nodeAssertion name=\"a b\"><operator oper=\"XOR\">" + test("name", "x") +
               "</operator></nodeAssertion>\n" + "<nodeThing/>");
  const std::string file = write(text);
  const Json errors = errorsOf(text, "ZN_API_XML_FILTER_VALIDATION_ERROR");
  ASSERT_GE(errors.size(), 3u) << errors;
  std::set<int> lines;
  for (const Json& error : errors) {
    EXPECT_EQ(error["file"], file);
    EXPECT_GT(error["column"], 0);
    EXPECT_NE(error["message"], "");
    lines.insert(error["line"].get<int>());
  }
  EXPECT_THAT(lines, testing::IsSupersetOf({2, 3}));
  EXPECT_THAT(errors.dump(), HasSubstr("XOR"));
  const CliResult text1 = zntopoRun({"filter", "check", file});
  EXPECT_THAT(text1.out, StartsWith(file + ":2:"));
  EXPECT_THAT(text1.out, EndsWith(file + ": " + std::to_string(errors.size()) + " errors\n"));
  EXPECT_EQ(std::count(text1.out.begin(), text1.out.end(), '\n'),
            static_cast<std::ptrdiff_t>(errors.size() + 1));
}

TEST_F(CliFilterCheckTest, ErrorsNameTheFileAsTheCallDoes) {
  write("<filters>\n <oops");
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::create_directory(scratch_.folder() / "sub");
  std::filesystem::current_path(scratch_.folder());
  for (const char* const name :
       {"broken.xml", "./broken.xml", "sub/../broken.xml", ".//broken.xml"}) {
    const std::string file = name;
    const CliResult result = zntopoRun({"filter", "check", file, "--json"});
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(each(result.json()["errors"], "file"), testing::Each(file));
    EXPECT_THAT(zntopoRun({"filter", "check", file}).out, StartsWith(file + ":2:"));
  }
  std::filesystem::current_path(before);
}

TEST_F(CliFilterCheckTest, WhatIsNoXmlIsToldWithItsPlace) {
  const Json errors = errorsOf("<filters>\n <oops", "ZN_API_XML_FILTER_VALIDATION_ERROR");
  EXPECT_EQ(errors[0]["line"], 2);
}

TEST_F(CliFilterCheckTest, AFileThatIsNotThereIsToldToBeSo) {
  const CliResult result = zntopoRun({"filter", "check", "/nonexistent/x.xml", "--json"});
  EXPECT_EQ(result.status, 1);
  ASSERT_EQ(result.json()["errors"].size(), 1u);
  EXPECT_EQ(result.json()["errors"][0]["file"], "/nonexistent/x.xml");
  EXPECT_EQ(result.json()["errors"][0]["line"], nullptr);
}

TEST_F(CliFilterCheckTest, AMissingFileOfTheConfigurationIsNamedWithItsVariable) {
  const std::string file = write(kFilters);
  const std::string folder = scratch_.path("etc");
  const std::string place = folder + "/conf/qrmrz/topology/filter/";
  const std::vector<std::string> environment = {"TV_ETC_PATH=" + folder};
  const auto missing = [&](const Call& call) { return zntopoRun(call, environment).err; };
  const std::string advice =
      ": The file is missing. TV_ETC_PATH names the folder in which it has to be: "
      "docs/filter-configuration.md tells more.";
  EXPECT_THAT(missing({"filter", "list"}), HasSubstr(place + "TopoFilters.xml" + advice));
  std::filesystem::create_directories(place);
  std::filesystem::copy(file, place + "TopoFilters.xml");
  EXPECT_THAT(missing({"filter", "list"}), HasSubstr(place + "TopoFilter.xsd" + advice));
  EXPECT_THAT(missing({"filter", "list", "--file", file}),
              HasSubstr(place + "TopoFilter.xsd" + advice));
  std::filesystem::copy(inSourceTree("data/filter/TopoFilter.xsd"), place);
  EXPECT_THAT(missing({"filter", "list"}), HasSubstr(place + "Filter2IFilter.xsl" + advice));
  std::filesystem::copy(inSourceTree("data/filter/Filter2IFilter.xsl"), place);
  EXPECT_EQ(zntopoRun({"filter", "list"}, environment).status, 0);
}

TEST_F(CliFilterCheckTest, WhatTheStylesheetRefusesIsToldAtItsFilter) {
  const Json errors =
      errorsOf(document(assertion("node", "good", test("name", "x")) +
                        assertion("node", "two", test("name", "x") + test("name", "y"))),
               "ZN_API_XML_FILTER_TRANSFORMATION_ERROR");
  ASSERT_EQ(errors.size(), 1u);
  EXPECT_EQ(errors[0]["message"], "Filter two: the operator NOOP takes exactly one test.");
  EXPECT_EQ(errors[0]["line"], 3);
}

TEST_F(CliFilterCheckTest, AReferenceToNothingIsToldAtTheFilterThatHasIt) {
  const Json errors = errorsOf(document(reference("good", "one") + reference("one", "nothing")),
                               "ZN_API_XML_FILTER_KEY_NOT_FOUND_ERROR");
  ASSERT_EQ(errors.size(), 1u);
  EXPECT_THAT(std::string(errors[0]["message"]), HasSubstr("nothing"));
  EXPECT_EQ(errors[0]["line"], 3);
}

TEST_F(CliFilterCheckTest, FiltersThatReferToEachOtherAreCircular) {
  const Json errors = errorsOf(document(assertion("node", "apart", test("name", "x")) +
                                        reference("one", "two") + reference("two", "one")),
                               "ZN_API_XML_FILTER_FILE_CIRCULAR_REF_ERROR");
  EXPECT_THAT(std::string(errors[0]["message"]), HasSubstr("Circular reference"));
  EXPECT_EQ(errors[0]["line"], 3);
}

TEST_F(CliFilterCheckTest, AFailedReadingShowsTheFirstErrorsAndWhereTheOthersAre) {
  std::string filters;
  for (int i = 0; i < 30; ++i) filters += "<nodeAssertion/>\n";
  const std::string file = write(document(filters));
  const CliResult result = zntopoRun({"filter", "list", "--file", file});
  EXPECT_EQ(result.status, 1);
  EXPECT_THAT(result.err, HasSubstr("36 ZN_API_XML_FILTER_VALIDATION_ERROR"));
  EXPECT_THAT(result.err, HasSubstr(file + ":2:"));
  EXPECT_THAT(result.err, HasSubstr(" more, which \"zntopo filter check " + file + "\" lists"));
}

TEST_F(CliFilterCheckTest, HostileDocumentsEndInErrorsAndDisturbNoTerminal) {
  for (const std::string& text :
       {std::string("<!DOCTYPE filters [<!ENTITY a \"aaaa\">]>" + document("&a;")),
        std::string("<!DOCTYPE f SYSTEM \"file:///etc/passwd\"><f/>"),
        document("<nodeAssertion name=\"\xe2\x80\xae x&#x9b;31m\"/>"), std::string()}) {
    const CliResult result = zntopoRun({"filter", "check", write(text)});
    EXPECT_EQ(result.status, 1) << text;
    EXPECT_THAT(result.out, HasSubstr("broken.xml"));
    EXPECT_THAT(result.out, Not(HasSubstr("root:")));
    EXPECT_THAT(result.out, Not(HasSubstr("\xe2\x80\xae")));
    EXPECT_THAT(result.out, Not(HasSubstr("\xc2\x9b")));
  }
}

}  // namespace
}  // namespace zntopo::test
