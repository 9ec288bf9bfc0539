#include "tools/export/GraphmlWriter.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <sstream>

#include "tests/tools/export/ReadStored.h"
#include "tools/export/XmlText.h"
#include "tools/import/GraphmlReader.h"

namespace zntopo::tools {
namespace {

std::string textOf(const StoredNetwork& network) {
  std::ostringstream out;
  writeGraphml(network, out);
  return out.str();
}

NetworkModel readBack(const std::string& text) {
  NetworkReport report;
  return readGraphml({"file", "file", text}, report);
}

TEST(XmlTextTest, WhatHasAMeaningIsEscapedAndWhatXmlHasNoRoomForIsReplaced) {
  EXPECT_EQ(xmlText("<a b=\"c\">&amp;]]>"), "&lt;a b=&quot;c&quot;&gt;&amp;amp;]]&gt;");
  EXPECT_EQ(xmlText("a\x01\n\tb"), "a   b");
  EXPECT_EQ(xmlText("\xff|\xef\xbf\xbf"), "\xef\xbf\xbd|\xef\xbf\xbd");
}

class GraphmlWriterTest : public test::StoredNetworkTest {
 protected:
  using Link = std::set<std::string>;
  static std::multiset<Link> linksOf(const NetworkModel& model) {
    std::multiset<Link> links;
    for (const LinkModel& link : model.links) {
      const auto end = [&](const EndPoint& at) {
        return model.nodes[at.node].name + "|" + model.at(at).name;
      };
      links.insert({end(link.left), end(link.right)});
    }
    return links;
  }
};

TEST_P(GraphmlWriterTest, NamesInterfacesLinksAndDescriptionsAreReadBack) {
  write(test::networkOf(test::samplePath()));
  const NetworkModel before = read().model;
  const NetworkModel after = readBack(textOf(read()));
  ASSERT_EQ(after.nodes.size(), before.nodes.size());
  for (Index i = 0; i < before.nodes.size(); ++i) {
    EXPECT_EQ(after.nodes[i].name, before.nodes[i].name);
    EXPECT_EQ(after.nodes[i].description, before.nodes[i].description);
    ASSERT_EQ(after.nodes[i].interfaces.size(), before.nodes[i].interfaces.size());
    for (Index j = 0; j < before.nodes[i].interfaces.size(); ++j) {
      EXPECT_EQ(after.nodes[i].interfaces[j].name, before.nodes[i].interfaces[j].name);
    }
  }
  EXPECT_EQ(linksOf(after), linksOf(before));
  EXPECT_EQ(before.links.size(), 30u);
}

TEST_P(GraphmlWriterTest, AGraphIsReadBackWithTheDescriptionsOfItsEdges) {
  write(test::networkOf(test::samplePath("skerry-ring.graphml")));
  const NetworkModel before = read().model;
  const NetworkModel after = readBack(textOf(read()));
  EXPECT_EQ(linksOf(after), linksOf(before));
  const auto described = [](const NetworkModel& model) {
    std::multiset<std::string> texts;
    for (const LinkModel& link : model.links) texts.insert(model.at(link.left).description);
    return texts;
  };
  EXPECT_EQ(described(after), described(before));
}

ZNTOPO_ON_ENGINES(GraphmlWriterTest, test::kMainEngines);

TEST(GraphmlWriterTest, HostileNamesAreReadBackWithoutWhatNamesMayNotHave) {
  const StoredNetwork network = test::hostileNetwork();
  const NetworkModel after = readBack(textOf(network));
  ASSERT_EQ(after.nodes.size(), network.model.nodes.size());
  EXPECT_EQ(after.links.size(), network.model.links.size());
  for (const NodeModel& node : after.nodes) EXPECT_EQ(nameFault(node.name), "");
  EXPECT_EQ(after.nodes[0].name, network.model.nodes[0].name);
  EXPECT_EQ(after.nodes[2].name, "<b>bold</b>");
}

}  // namespace
}  // namespace zntopo::tools
