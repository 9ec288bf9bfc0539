#include "tools/export/DotWriter.h"

#include <gmock/gmock.h>

#include <sstream>

#include "tests/tools/export/ReadStored.h"

namespace zntopo::tools {
namespace {

using testing::HasSubstr;
using testing::Not;

std::string textOf(const StoredNetwork& network, const DotStyle& style = {}) {
  std::ostringstream out;
  writeDot(network, style, out);
  return out.str();
}

StoredNetwork twoNodes() {
  StoredNetwork network;
  for (const char* name : {"one", "two"}) {
    NodeModel node;
    node.id = node.key = node.name = name;
    node.interfaces.emplace_back().name = std::string("port of ") + name;
    network.model.nodes.push_back(node);
    network.traits.emplace_back();
  }
  network.model.addLink({0, 0}, {1, 0});
  return network;
}

TEST(DotTextTest, EscapesEntitiesAndLinesAreDrawnAsTheyStand) {
  EXPECT_EQ(dotText(R"(a "b" \N)"), R"(a \"b\" \\N)");
  EXPECT_EQ(dotText("&lt;<b>"), "&amp;lt;<b>");
  EXPECT_EQ(dotText("a\nb\x1b\xff"), "a?b??");
}

TEST(DotWriterTest, ShapesTellTheKindAndColoursAndWordsTheState) {
  StoredNetwork network = twoNodes();
  network.traits[0].isRouter = true;
  network.model.nodes[0].status = {.overall = 6};
  network.model.nodes[1].status = {.overall = 1};
  const std::string text = textOf(network);
  EXPECT_THAT(text, HasSubstr("n1 [label=\"one\\ncritical\", id=\"one\", shape=ellipse, "
                              "fillcolor=\"#D55E00\", fontcolor=white, penwidth=4"));
  EXPECT_THAT(text, HasSubstr("n2 [label=\"two\", id=\"two\", shape=note, fillcolor=\"#009E73\""));
}

TEST(DotWriterTest, AStateThatNobodyToldIsNotCalledNormal) {
  EXPECT_THAT(textOf(twoNodes()), Not(HasSubstr("#009E73")));
}

TEST(DotWriterTest, InterfacesAreNamedOnRequestAndAPathIsBold) {
  const StoredNetwork network = twoNodes();
  EXPECT_THAT(textOf(network), Not(HasSubstr("label=\"port of one")));
  const std::string text = textOf(network, {.hasInterfaces = true, .path = {{0, 0}, {1, 0}}});
  EXPECT_THAT(text,
              HasSubstr("label=\"port of one\\nport of two\", color=\"#0072B2\", penwidth=5"));
}

TEST(DotWriterTest, HostileNamesStayWithinTheirQuotes) {
  const std::string text = textOf(test::hostileNetwork(), {.hasInterfaces = true});
  for (const std::string& line : test::linesOf(text)) {
    if (line.find(" [") == std::string::npos) continue;
    // Behind what is quoted nothing is left but attributes.
    std::string rest;
    bool isQuoted = false;
    for (std::size_t i = 0; i < line.size(); ++i) {
      if (isQuoted && line[i] == '\\') {
        ++i;
      } else if (line[i] == '"') {
        isQuoted = !isQuoted;
      } else if (!isQuoted) {
        rest += line[i];
      }
    }
    EXPECT_FALSE(isQuoted) << line;
    EXPECT_EQ(rest.find_first_of("<>&{}\\"), std::string::npos) << line;
    EXPECT_EQ(std::count(rest.begin(), rest.end(), '['), 1) << line;
  }
}

}  // namespace
}  // namespace zntopo::tools
