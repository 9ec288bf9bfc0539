#include "tools/export/DotWriter.h"

#include <gmock/gmock.h>

#include <sstream>

#include "tests/tools/export/ReadStored.h"

namespace zntopo::tools {
namespace {

using testing::AllOf;
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
                              "fillcolor=\"#D55E00\", penwidth=4"));
  EXPECT_THAT(text, HasSubstr("n2 [label=\"two\", id=\"two\", shape=note, fillcolor=\"#009E73\""));
}

TEST(DotWriterTest, AStateThatNobodyToldIsNotCalledNormal) {
  EXPECT_THAT(textOf(twoNodes()), Not(HasSubstr("#009E73")));
}

TEST(DotWriterTest, InterfacesAreNamedOnRequestAndAPathIsBold) {
  StoredNetwork network = twoNodes();
  EXPECT_THAT(textOf(network), Not(HasSubstr("label=\"   port of one")));
  const std::string bold = ", color=\"#0072B2\", penwidth=5";
  const DotStyle style{.hasInterfaces = true, .path = {{0, 0}, {1, 0}}, .layout = "dot"};
  // A path alone goes from left to right.
  EXPECT_THAT(
      textOf(network, style),
      AllOf(HasSubstr("rankdir=LR"), HasSubstr("label=\"port of one - port of two\\n \"" + bold)));
  network.model.nodes.push_back(network.model.nodes.front());
  network.traits.emplace_back();
  EXPECT_THAT(textOf(network, style),
              AllOf(HasSubstr("rankdir=TB"),
                    HasSubstr("label=\"   port of one   \\n   port of two   \"" + bold)));
}

TEST(DotWriterTest, WhatRoutesIsDrawnAboveWhatDoesNot) {
  StoredNetwork network = twoNodes();
  EXPECT_THAT(textOf(network), HasSubstr("n1 -- n2"));
  network.traits[1].isRouter = true;
  EXPECT_THAT(textOf(network), HasSubstr("n2 -- n1"));
}

TEST(DotWriterTest, SubnetsVlansAndALegendComeOnRequest) {
  StoredNetwork network = twoNodes();
  network.model.vlans.emplace_back().name = "office";
  network.model.vlans.back().number = 7;
  network.model.nodes[0].interfaces[0].vlans = {0};
  AddressModel address{*IpAddress::parse("10.0.0.1"), 24};
  address.subnet = network.model.subnetOf({*IpAddress::parse("10.0.0.0"), 24});
  network.model.nodes[1].interfaces[0].addresses.push_back(address);
  const std::string bare = textOf(network);
  EXPECT_THAT(bare, AllOf(Not(HasSubstr("VLAN 7")), Not(HasSubstr("10.0.0.0/24")),
                          Not(HasSubstr("legend"))));
  const std::string text =
      textOf(network, {.hasSubnets = true, .hasVlans = true, .hasLegend = true, .note = "Limited"});
  EXPECT_THAT(text,
              AllOf(HasSubstr("v1 [label=\"VLAN 7\\noffice\""), HasSubstr("n1 -- v1"),
                    HasSubstr("s1 [label=\"10.0.0.0/24\""), HasSubstr("n2 -- s1"),
                    HasSubstr("<TD>sheet: host</TD>"), HasSubstr("<TD>dashed box: subnet</TD>"),
                    HasSubstr("<TD>dashed tab: VLAN</TD>"), Not(HasSubstr("path</FONT>")),
                    HasSubstr("label=\"Limited\"")));
  EXPECT_THAT(textOf(network, {.hasLegend = true, .path = {{0, 0}, {1, 0}}}),
              AllOf(HasSubstr(">thick blue line: path</FONT></TD>"), Not(HasSubstr("dashed"))));
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
