#include "tools/import/GraphmlReader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "tests/tools/import/ReadNetwork.h"

namespace zntopo::tools {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

constexpr const char* kKeys =
    R"(<key id="d1" for="node" attr.name="label"/><key id="d2" for="edge" attr.name="LinkLabel"/>)";

std::string document(const std::string& graph, const std::string& keys = kKeys) {
  return R"(<graphml xmlns="http://graphml.graphdrawing.org/xmlns">)" + keys +
         R"(<graph edgedefault="undirected">)" + graph + "</graph></graphml>";
}

std::string node(const std::string& id, const std::string& label = "",
                 const std::string& more = "") {
  return "<node id=\"" + id + "\">" +
         (label.empty() ? "" : "<data key=\"d1\">" + label + "</data>") + more + "</node>";
}

std::string edge(const std::string& source, const std::string& target,
                 const std::string& attributes = "") {
  return "<edge source=\"" + source + "\" target=\"" + target + "\" " + attributes + "/>";
}

struct Read : test::ReadNetwork {
  explicit Read(const std::string& content, const std::string& stem = "net") {
    model = readGraphml({"f.graphml", stem, content}, report);
  }

  std::vector<std::string> interfaceNames(std::size_t node) const {
    std::vector<std::string> names;
    for (const auto& one : model.nodes[node].interfaces) names.push_back(one.name);
    return names;
  }
  /// "node interface - node interface" for each link.
  std::vector<std::string> links() const {
    std::vector<std::string> result;
    for (const auto& link : model.links) {
      result.push_back(end(link.left) + " - " + end(link.right));
    }
    return result;
  }
  std::string end(const EndPoint& end) const {
    return model.nodes[end.node].name + ": " + model.at(end).name;
  }
  std::set<std::string> keys() const {
    std::set<std::string> result;
    for (const auto& one : model.nodes) {
      result.insert(one.key);
      for (const auto& interface : one.interfaces) result.insert(interface.key);
    }
    return result;
  }
};

/// The complaint about a content, without the file's name.
std::string complaint(const std::string& content) {
  try {
    Read read(content);
    return "";
  } catch (const ImportError& error) {
    return std::string(error.what()).substr(std::string("f.graphml:").size());
  }
}

// Names of nodes.

TEST(GraphmlReaderTest, ANodeIsNamedByItsLabel) {
  const Read read(document(node("0", "Lerwick") + node("1", "Vaila")));
  EXPECT_THAT(read.nodeNames(), ElementsAre("Lerwick", "Vaila"));
  EXPECT_THAT(read.report.notes(), IsEmpty());
}

TEST(GraphmlReaderTest, ALabelThatIsNotUniqueGetsTheIdBehindIt) {
  const Read read(document(node("0", "A") + node("1", "B") + node("2", "A")));
  EXPECT_THAT(read.nodeNames(), ElementsAre("A-0", "B", "A-2"));
}

TEST(GraphmlReaderTest, ANodeWithoutALabelIsNamedByItsId) {
  const Read read(document(node("0") + node("1", " \n ") + "<node id='n 2'/>"));
  EXPECT_THAT(read.nodeNames(), ElementsAre("0", "1", "n 2"));
}

TEST(GraphmlReaderTest, ANameThatIsTakenAllTheSameIsCounted) {
  const Read read(document(node("1", "A") + node("2", "A") + node("3", "A-1") + node("A-2")));
  EXPECT_THAT(read.nodeNames(), ElementsAre("A-1", "A-2", "A-1", "A-2"));
  EXPECT_EQ(read.counted("name that another node has too (its identifier tells them apart)"), 2);
  EXPECT_EQ(read.keys().size(), 4u);
}

TEST(GraphmlReaderTest, BlanksAndControlCharactersInALabelBecomeOneBlank) {
  EXPECT_THAT(Read(document(node("0", "\n  Quay\n\t1 "))).nodeNames(), ElementsAre("Quay 1"));
  EXPECT_THAT(Read("<?xml version='1.1'?>" + document(node("0", "a&#x1b;[2J"))).nodeNames(),
              ElementsAre("a [2J"));
}

TEST(GraphmlReaderTest, LabelsAreFoundUnderTheNamesThatExportersGive) {
  for (const std::string key :
       {R"(<key id="d1" for="node" attr.name="Label" attr.type="string"/>)",
        R"(<key id="d1" for="all" attr.name="label"/>)", R"(<key id="d1" attr.name="name"/>)",
        R"(<key id="d1" for="node" attr.name="NAME"/>)"}) {
    EXPECT_THAT(Read(document(node("0", "x"), key)).nodeNames(), ElementsAre("x")) << key;
  }
  // A key without a name is known by its id, a key that nobody declared too.
  const std::string data = "<node id='0'><data key='label'>x</data></node>";
  EXPECT_THAT(Read(document(data, "<key id='label' for='node'/>")).nodeNames(), ElementsAre("x"));
  const Read undeclared(document(data, ""));
  EXPECT_THAT(undeclared.nodeNames(), ElementsAre("x"));
  EXPECT_EQ(undeclared.counted("node data of a key that is not declared"), 1);
}

TEST(GraphmlReaderTest, TheLabelGoesBeforeTheName) {
  const std::string keys =
      R"(<key id="n" for="node" attr.name="name"/><key id="d1" for="node" attr.name="label"/>)";
  const std::string name = "<data key='n'>name</data>";
  EXPECT_THAT(Read(document(node("0", "label", name) + node("1", "", name), keys)).nodeNames(),
              ElementsAre("label", "name"));
}

TEST(GraphmlReaderTest, AKeyOfEdgesTellsNothingOfNodes) {
  const Read read(document(node("0", "x"), R"(<key id="d1" for="edge" attr.name="label"/>)"));
  EXPECT_EQ(read.counted("node data of a key that is not declared"), 1);
  EXPECT_THAT(read.nodeNames(), ElementsAre("0"));
}

TEST(GraphmlReaderTest, DefaultsOfKeysFillWhatANodeDoesNotTell) {
  const std::string keys =
      R"(<key id="d1" for="node" attr.name="label"><default>spare</default></key>)"
      R"(<key id="d2" for="node" attr.name="description"><desc>x</desc><default>dark</default></key>)";
  const Read read(document(node("0", "x") + node("1") + node("2"), keys));
  EXPECT_THAT(read.nodeNames(), ElementsAre("x", "spare-1", "spare-2"));
  EXPECT_EQ(read.model.nodes[0].description, "dark");
}

TEST(GraphmlReaderTest, TheLabelOfADrawingIsALabel) {
  const std::string keys = R"(<key id="d6" for="node" yfiles.type="nodegraphics"/>)"
                           R"(<key id="d9" for="edge" yfiles.type="edgegraphics"/>)";
  const auto drawn = [](const std::string& id, const std::string& labels) {
    return "<node id='" + id +
           "'><data key='d6'><y:ShapeNode xmlns:y='http://www.yworks.com/xml/graphml'>"
           "<y:Geometry height='30.0'/>" +
           labels + "<y:Shape type='rectangle'/></y:ShapeNode></data></node>";
  };
  const Read read(
      document(drawn("n0",
                     "<y:NodeLabel/><y:NodeLabel>Mast <y:LabelModel>model</y:LabelModel>\n"
                     "</y:NodeLabel><y:NodeLabel>second</y:NodeLabel>") +
                   drawn("n1", "") +
                   "<edge source='n0' target='n1'><data key='d9'>"
                   "<y:PolyLineEdge xmlns:y='http://www.yworks.com/xml/graphml'>"
                   "<y:EdgeLabel>fibre 7</y:EdgeLabel></y:PolyLineEdge></data></edge>",
               keys));
  EXPECT_THAT(read.nodeNames(), ElementsAre("Mast", "n1"));
  EXPECT_EQ(read.model.nodes[0].interfaces[0].description, "fibre 7");
  EXPECT_THAT(read.report.notes(), IsEmpty());
}

// Descriptions and what is left out.

TEST(GraphmlReaderTest, ANodeIsDescribedByItsTextOrItsPlace) {
  const std::string keys =
      R"(<key id="c" for="node" attr.name="Country"/><key id="y" for="node" attr.name="Latitude"/>)"
      R"(<key id="x" for="node" attr.name="Longitude"/>)";
  const std::string country = "<data key='c'>Faroe Islands</data>";
  const std::string place = "<data key='y'>62.0</data><data key='x'>-6.8</data>";
  const Read read(document(node("0", "", country + place) + node("1", "", country) +
                               node("2", "", place) +
                               node("3", "", country + "<desc>the\nmast</desc>"),
                           keys));
  EXPECT_EQ(read.model.nodes[0].description, "Faroe Islands (62.0, -6.8)");
  EXPECT_EQ(read.model.nodes[1].description, "Faroe Islands");
  EXPECT_EQ(read.model.nodes[2].description, "(62.0, -6.8)");
  EXPECT_EQ(read.model.nodes[3].description, "the mast");
  EXPECT_THAT(read.report.notes(), IsEmpty());
}

TEST(GraphmlReaderTest, AttributesThatNobodyReadsAreCountedByTheirNames) {
  const std::string keys =
      R"(<key id="d0" for="node" attr.name="Internal"/><key id="d1" for="edge" attr.name="speed"/>)"
      R"(<key id="g" for="graph" attr.name="Network"/>)";
  const Read read(
      document("<data key='g'>x</data><node id='0'><data key='d0'>1</data></node>"
               "<node id='1'><data key='d0'>1</data></node><node id='2'>"
               "<data key='d0'/></node><edge source='0' target='1'>"
               "<data key='d1'>1000</data></edge>",
               keys));
  EXPECT_EQ(read.counted("node attribute \"Internal\""), 2);
  EXPECT_EQ(read.counted("edge attribute \"speed\""), 1);
  EXPECT_EQ(read.report.notes().size(), 2u);
  EXPECT_THAT(read.report.notes()[0].firstWhere, HasSubstr("f.graphml:1:"));
}

TEST(GraphmlReaderTest, HyperedgesLocatorsAndUnknownElementsAreCountedAndPassedOver) {
  const Read read(document(node("0") + node("1") + node("2") +
                           "<hyperedge><desc>d</desc><endpoint node='0'/><endpoint node='1'/>"
                           "<endpoint node='nobody'/></hyperedge>"
                           "<locator href='http://127.0.0.1:9/other.graphml'/>"
                           "<novelty><node id='0'/></novelty>"));
  EXPECT_EQ(read.model.nodes.size(), 3u);
  EXPECT_THAT(read.model.links, IsEmpty());
  EXPECT_EQ(read.counted("hyperedge (a link has two ends)"), 1);
  EXPECT_EQ(read.counted("locator (the file that it points to is not read)"), 1);
  EXPECT_EQ(read.counted("element \"novelty\""), 1);
  EXPECT_EQ(read.report.notes().size(), 3u);
}

// Edges.

TEST(GraphmlReaderTest, AnEdgeMakesAnInterfaceOnEitherNodeNamedByTheOther) {
  const Read read(document(node("0", "A") + node("1", "B") + edge("0", "1")));
  EXPECT_THAT(read.links(), ElementsAre("A: to B - B: to A"));
}

TEST(GraphmlReaderTest, EdgesMayStandBeforeTheirNodes) {
  const Read read(document(edge("0", "1") + node("0", "A") + node("1", "B")));
  EXPECT_THAT(read.links(), ElementsAre("A: to B - B: to A"));
}

TEST(GraphmlReaderTest, ParallelEdgesStayParallelLinks) {
  const Read read(document(node("0", "A") + node("1", "B") + edge("0", "1") + edge("1", "0") +
                           edge("0", "1", "id='e2'")));
  EXPECT_THAT(read.links(), ElementsAre("A: to B - B: to A", "B: to A (2) - A: to B (2)",
                                        "A: to B (3) - B: to A (3)"));
  EXPECT_EQ(read.keys().size(), 8u);
}

TEST(GraphmlReaderTest, InterfacesTowardsNodesOfOneNameAreToldApart) {
  const Read read(document(node("0", "A") + node("1", "B") + node("2", "B (2)") + edge("0", "1") +
                           edge("0", "2") + edge("0", "1")));
  EXPECT_THAT(read.interfaceNames(0), ElementsAre("to B", "to B (2)", "to B (3)"));
}

TEST(GraphmlReaderTest, AnEdgesLabelDescribesItsInterfaces) {
  const Read read(document(node("0") + node("1") +
                           "<edge source='0' target='1'><data key='d2'>OC-48</data></edge>"));
  EXPECT_EQ(read.model.nodes[0].interfaces[0].description, "OC-48");
  EXPECT_EQ(read.model.nodes[1].interfaces[0].description, "OC-48");
}

TEST(GraphmlReaderTest, AMadeUpNameTellsNoPort) {
  const Read read(document(node("0", "", "<port name='Gi0/7'/>") + node("1", "NY54") +
                           edge("0", "1") + edge("0", "1", "sourceport='Gi0/7'")));
  EXPECT_FALSE(read.model.nodes[0].interfaces[0].isNameMade);
  EXPECT_TRUE(read.model.nodes[0].interfaces[1].isNameMade);
}

TEST(GraphmlReaderTest, AnEdgeFromANodeToItselfIsCountedAndLeftOut) {
  const Read read(document(node("0", "A") + edge("0", "0")));
  EXPECT_THAT(read.model.links, IsEmpty());
  EXPECT_THAT(read.interfaceNames(0), IsEmpty());
  EXPECT_EQ(read.counted("edge from a node to itself"), 1);
}

TEST(GraphmlReaderTest, DirectedEdgesThereAndBackAreOneLink) {
  const std::string directed = "directed='true'";
  const Read read(document(node("0", "A") + node("1", "B") + edge("0", "1", directed) +
                           edge("1", "0", directed) + edge("1", "0", directed) +
                           edge("0", "1", directed) + edge("0", "1", directed)));
  EXPECT_EQ(read.model.links.size(), 3u);
  EXPECT_EQ(read.counted("directed edge (links have no direction)"), 5);
  EXPECT_EQ(read.counted("directed edge back (one link with the edge there)"), 2);
}

TEST(GraphmlReaderTest, AGraphSaysWhetherItsEdgesAreDirected) {
  const std::string edges = node("0") + node("1") + edge("0", "1") + edge("1", "0");
  const auto linksOf = [&](const std::string& graph, const std::string& more = "") {
    return Read("<graphml><graph " + graph + ">" + edges + more + "</graph></graphml>")
        .model.links.size();
  };
  EXPECT_EQ(linksOf("edgedefault='directed'"), 1u);
  EXPECT_EQ(linksOf("edgedefault='undirected'"), 2u);
  EXPECT_EQ(linksOf(""), 2u);
  EXPECT_EQ(linksOf("edgedefault='directed'", edge("1", "0", "directed='false'")), 2u);
}

// Ports.

TEST(GraphmlReaderTest, APortIsAnInterfaceWithOrWithoutAnEdge) {
  const Read read(document(
      node("0", "A", "<port name='p1'/><port name='p2'><port name='p3'/></port>") +
      node("1", "B", "<port name='q'/>") + edge("0", "1", "sourceport='p2' targetport='q'")));
  EXPECT_THAT(read.interfaceNames(0), ElementsAre("p1", "p2", "p3"));
  EXPECT_THAT(read.links(), ElementsAre("A: p2 - B: q"));
}

TEST(GraphmlReaderTest, SeveralEdgesAtOnePortStayParallelLinks) {
  const std::string ports = "sourceport='p' targetport='p'";
  const Read read(document(node("0", "A", "<port name='p'/>") + node("1", "B", "<port name='p'/>") +
                           edge("0", "1", ports) + edge("0", "1", ports)));
  EXPECT_THAT(read.links(), ElementsAre("A: p - B: p", "A: p (2) - B: p (2)"));
}

TEST(GraphmlReaderTest, APortThatItsNodeDoesNotDeclareNamesTheInterface) {
  const Read read(document(node("0", "A") + node("1", "B") + edge("0", "1", "sourceport='Gi0/1'")));
  EXPECT_THAT(read.links(), ElementsAre("A: Gi0/1 - B: to A"));
}

// Graphs in nodes.

TEST(GraphmlReaderTest, NodesOfNestedGraphsAreNodesAndAMereGroupIsNone) {
  const std::string inner = "<graph edgedefault='directed'>" + node("n0::0", "in") +
                            node("n0::1", "side") + edge("n0::0", "n0::1") + "</graph>";
  const std::string outer = node("n0", "group", inner) + node("n1", "out");
  const Read apart(document(outer + edge("n0::0", "n1")));
  EXPECT_THAT(apart.nodeNames(), ElementsAre("in", "side", "out"));
  EXPECT_THAT(apart.links(),
              UnorderedElementsAre("in: to side - side: to in", "in: to out - out: to in"));
  EXPECT_EQ(apart.counted("node around other nodes, without an edge of its own"), 1);
  const Read linked(document(outer + edge("n0", "n1")));
  EXPECT_THAT(linked.nodeNames(), ElementsAre("group", "in", "side", "out"));
  EXPECT_THAT(Read(document(node("0", "empty", "<graph edgedefault='directed'/>"))).nodeNames(),
              ElementsAre("empty"));
}

TEST(GraphmlReaderTest, ALabelIsToldFromThoseOfKeptNodesAlone) {
  const Read read(document(node("g", "A", "<graph>" + node("0", "A") + "</graph>")));
  EXPECT_THAT(read.nodeNames(), ElementsAre("A"));
}

TEST(GraphmlReaderTest, ANestedGraphDoesNotDisturbTheElementAroundIt) {
  const Read read(document("<node id='0'><graph>" + node("1", "in") +
                           "</graph><data key='d1'>late</data></node>" + node("2") +
                           "<edge source='0' target='2'><graph>" + node("3", "x") +
                           "</graph><data key='d2'>wire</data></edge>"));
  EXPECT_THAT(read.nodeNames(), ElementsAre("late", "in", "2", "x"));
  EXPECT_EQ(read.model.nodes[0].interfaces[0].description, "wire");
}

TEST(GraphmlReaderTest, SeveralGraphsOfAFileAreOneNetwork) {
  const Read read("<graphml><graph>" + node("0") + "</graph><graph>" + node("1") + edge("1", "0") +
                  "</graph></graphml>");
  EXPECT_EQ(read.model.nodes.size(), 2u);
  EXPECT_EQ(read.model.links.size(), 1u);
}

// Keys.

TEST(GraphmlReaderTest, KeysStayTheSameAndDifferFromFileToFile) {
  const std::string content =
      document(node("0", "A", "<port name='p'/>") + node("1") + edge("0", "1") + edge("1", "0"));
  EXPECT_EQ(Read(content).keys(), Read(content).keys());
  std::set<std::string> both = Read(content, "one").keys();
  both.merge(Read(content, "two").keys());
  EXPECT_EQ(both.size(), 14u);
}

TEST(GraphmlReaderTest, MoreEdgesElsewhereLeaveTheKeysOfOthers) {
  const std::string nodes = node("0") + node("1") + node("2");
  const std::set<std::string> before = Read(document(nodes + edge("0", "1"))).keys();
  const std::set<std::string> after =
      Read(document(nodes + edge("2", "0") + edge("1", "0") + edge("1", "2"))).keys();
  EXPECT_TRUE(std::includes(after.begin(), after.end(), before.begin(), before.end()));
}

// Other namespaces and documents.

TEST(GraphmlReaderTest, FilesWithOldAndWithoutNamespacesAreRead) {
  for (const char* space : {"", "xmlns='http://graphml.graphdrawing.org/xmlns/graphml'",
                            "xmlns='http://graphml.graphdrawing.org/xmlns/1.0rc'"}) {
    const Read read("<graphml " + std::string(space) + "><graph><node id='0'/></graph></graphml>");
    EXPECT_THAT(read.nodeNames(), ElementsAre("0")) << space;
  }
}

TEST(GraphmlReaderTest, AnotherDocumentIsRefused) {
  EXPECT_EQ(complaint("<html/>"), "1:8: is no GraphML: the root element is \"html\"");
  EXPECT_EQ(complaint("<graphml xmlns='urn:x'/>"),
            "1:25: is no GraphML: the root element is \"graphml\" of another namespace");
  EXPECT_EQ(complaint("<graphml/>"), "");
}

TEST(GraphmlReaderTest, ElementsOfAnotherNamespaceAreNoNodes) {
  const Read read(document("<x:node xmlns:x='urn:x' id='0'/>"));
  EXPECT_THAT(read.model.nodes, IsEmpty());
  EXPECT_EQ(read.counted("element \"node\""), 1);
}

// Errors and their places.

TEST(GraphmlReaderTest, AnEdgeToAnUnknownNodeIsRefusedWithItsLine) {
  EXPECT_EQ(complaint("<graphml><graph>\n<node id='0'/>\n<edge source='0' target='9'/>"
                      "</graph></graphml>"),
            "3:30: has an edge to the node \"9\", which is not there");
}

TEST(GraphmlReaderTest, AnIdThatIsTakenIsRefusedWithBothLines) {
  EXPECT_EQ(complaint("<graphml><graph>\n<node id='0'/>\n<node id='0'/></graph></graphml>"),
            "3:15: has the node \"0\" a second time, first at line 2");
  EXPECT_EQ(complaint("<graphml><graph>\n<node id='0'><graph>\n<node id='0'/>"
                      "</graph></node></graph></graphml>"),
            "3:15: has the node \"0\" a second time, first at line 2");
  EXPECT_EQ(complaint("<graphml><key id='a' for='node'/>\n<key id='a' for='node'/></graphml>"),
            "2:25: has the key \"a\" a second time");
  EXPECT_EQ(complaint("<graphml><key id='a' for='node'/><key id='a' for='edge'/></graphml>"), "");
  EXPECT_THAT(complaint(document(node("0", "", "<port name='p'/><port name='p'/>"))),
              HasSubstr("has the port \"p\" of a node a second time"));
}

TEST(GraphmlReaderTest, IdsOfEdgesMayStandSeveralTimes) {
  EXPECT_EQ(complaint(document(node("0") + node("1") + node("2") + edge("0", "1", "id='0'") +
                               edge("1", "2", "id='0'"))),
            "");
}

TEST(GraphmlReaderTest, MissingAndUnfitIdsAreRefused) {
  const auto graph = [](const std::string& inside) { return complaint(document(inside, "")); };
  EXPECT_THAT(graph("<node/>"), HasSubstr("has an element \"node\" without the attribute id"));
  EXPECT_THAT(graph("<node id=''/>"), HasSubstr("node id: is empty"));
  EXPECT_THAT(graph("<node id='a&#10;b'/>"), HasSubstr("node id: has a control character in it"));
  EXPECT_THAT(graph("<node id='" + std::string(256, 'x') + "'/>"),
              HasSubstr("node id: is longer than 255 bytes"));
  EXPECT_THAT(graph("<node id='0'/><edge target='0'/>"),
              HasSubstr("has an element \"edge\" without the attribute source"));
  EXPECT_THAT(graph("<node id='0'/><edge source='0'/>"), HasSubstr("without the attribute target"));
  EXPECT_THAT(graph("<node id='0'><port/></node>"), HasSubstr("without the attribute name"));
  EXPECT_THAT(graph("<node id='0'><data>x</data></node>"), HasSubstr("without the attribute key"));
  EXPECT_THAT(complaint("<graphml><key for='node'/></graphml>"), HasSubstr("a key without an id"));
  EXPECT_THAT(graph("<node id='0'/><node id='1'/>" + edge("0", "1", "directed='maybe'")),
              HasSubstr("neither true nor false"));
  EXPECT_THAT(complaint("<graphml><graph edgedefault='up'/></graphml>"),
              HasSubstr("neither directed nor undirected"));
}

TEST(GraphmlReaderTest, ANameThatIsTooLongIsRefusedAndAMadeUpOneIsCut) {
  const std::string longest(255, 'x');
  EXPECT_EQ(complaint(document(node("0", longest) + node("1") + edge("0", "1") + edge("0", "1"))),
            "");
  const Read read(document(node("0", longest) + node("1") + edge("0", "1") + edge("0", "1")));
  for (const std::string& name : read.interfaceNames(1)) EXPECT_LE(name.size(), 255u);
  EXPECT_THAT(complaint(document(node("0", longest + "x"))), HasSubstr("is longer than 255 bytes"));
  EXPECT_THAT(complaint(document(node("0", longest) + node("1", longest))),
              HasSubstr("name of the node \"0\": is longer than 255 bytes"));
}

}  // namespace
}  // namespace zntopo::tools
