#include <gmock/gmock.h>

#include <fstream>
#include <regex>
#include <sstream>

#include "tests/support/CliSupport.h"
#include "tests/support/Places.h"

namespace zntopo::test {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

std::size_t countOf(const std::string& text, const std::string& what) {
  std::size_t count = 0;
  for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1)) {
    ++count;
  }
  return count;
}

/// The identifiers of nodes in a graph or a picture, whichever way Graphviz writes a hyphen.
std::set<std::string> idsIn(const std::string& source) {
  const std::string text = std::regex_replace(source, std::regex("&#45;"), "-");
  static const std::regex id("\\bid=\"([0-9a-f]{8}-[0-9a-f-]{27})\"");
  std::set<std::string> ids;
  for (std::sregex_iterator at(text.begin(), text.end(), id), end; at != end; ++at) {
    ids.insert((*at)[1]);
  }
  return ids;
}

class CliMapTest : public CliSampleTest {
 protected:
  std::string place(const std::string& name) const { return scratch_.path(name); }
  std::string content(const std::string& name) const { return scratch_.read(name); }

 private:
  Scratch scratch_;
};

TEST_P(CliMapTest, TheEndingOfTheFileTellsTheFormat) {
  const CliResult result = zntopoRun({"map", "--output", place("all.svg")});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(result.out, "Drew " + place("all.svg") + ": 24 nodes, 30 links\n");
  EXPECT_THAT(content("all.svg"), AllOf(HasSubstr("<svg"), HasSubstr(">critical<")));
  ASSERT_EQ(zntopoRun({"map", "--output", place("all.PNG")}).status, 0);
  EXPECT_THAT(content("all.PNG"), StartsWith("\x89PNG\r\n"));
  ASSERT_EQ(zntopoRun({"map", "--output", place("all.dot")}).status, 0);
  EXPECT_THAT(content("all.dot"), StartsWith("graph zntopo {"));
  EXPECT_EQ(idsIn(content("all.dot")).size(), 24u);
  EXPECT_EQ(idsIn(content("all.svg")), idsIn(content("all.dot")));
  const CliResult unknown = zntopoRun({"map", "--output", place("all.txt")});
  EXPECT_EQ(unknown.status, 1);
  EXPECT_THAT(unknown.err, HasSubstr("name it .svg, .png or .dot"));
}

TEST_P(CliMapTest, APathIsBoldAmongAllNodesOrAlone) {
  const std::vector<std::string> path = {
      "map", "--from", "crane-4-plc", "--to", "customs-printer", "--format", "dot"};
  const std::string all = zntopoRun(path).out;
  EXPECT_EQ(countOf(all, "penwidth=5"), 6u + 5u);
  EXPECT_EQ(idsIn(all).size(), 24u);
  std::vector<std::string> alone = path;
  alone.emplace_back("--path-only");
  EXPECT_EQ(idsIn(zntopoRun(alone).out).size(), 6u);
}

TEST_P(CliMapTest, ALimitedPictureSaysSoAndKeepsThePath) {
  const CliResult result = zntopoRun({"map", "--max-nodes", "4", "--format", "dot"});
  const std::string note = "Limited: the 4 nodes with the most links, of 24 in all.";
  EXPECT_THAT(result.out, HasSubstr(note));
  EXPECT_THAT(result.err, HasSubstr(note));
  EXPECT_EQ(idsIn(result.out).size(), 4u);
  const auto json = answerOf({"map", "--max-nodes", "4", "--from", "crane-4-plc", "--to",
                              "customs-printer", "--format", "dot"});
  EXPECT_EQ(json["limited"], true);
  EXPECT_THAT(std::string(json["document"]), HasSubstr("crane-4-plc"));
  const CliResult near =
      zntopoRun({"map", "--node", "core-1", "--hops", "3", "--max-nodes", "3", "--format", "dot"});
  EXPECT_THAT(near.err, HasSubstr("Limited: the first "));
  EXPECT_THAT(near.out, HasSubstr("Limited: the first "));
  EXPECT_THAT(zntopoRun({"map", "--format", "dot"}).err, IsEmpty());
}

TEST_P(CliMapTest, ANeighbourhoodShowsWhatIsAskedFor) {
  const std::vector<std::string> call = {"map", "--node", "access-1", "--format", "dot"};
  const std::string bare = zntopoRun(call).out;
  EXPECT_EQ(idsIn(bare).size(), 5u);
  EXPECT_THAT(bare, AllOf(Not(HasSubstr("VLAN")), HasSubstr("legend")));
  std::vector<std::string> more = call;
  more.insert(more.end(), {"--vlans", "--subnets", "--interfaces", "--no-legend"});
  EXPECT_THAT(zntopoRun(more).out, AllOf(HasSubstr("label=\"VLAN "), HasSubstr("label=\"10.20."),
                                         HasSubstr("   Gi1/0/7   "), Not(HasSubstr("legend"))));
}

TEST_P(CliMapTest, WithoutGraphvizItSaysWhatToDo) {
  const CliResult result = zntopoRun({"map"}, {"PATH=/nonexistent"});
  EXPECT_EQ(result.status, 1);
  EXPECT_THAT(result.err, HasSubstr("install it (Debian: apt-get install graphviz)"));
  EXPECT_EQ(result.out, "");
  EXPECT_EQ(zntopoRun({"map", "--format", "dot"}, {"PATH=/nonexistent"}).status, 0);
}

TEST_P(CliMapTest, WrongCallsAreRefused) {
  EXPECT_EQ(zntopoRun({"map", "--path-only"}).status, 2);
  EXPECT_EQ(zntopoRun({"map", "--layout", "spiral"}).status, 2);
  EXPECT_EQ(failureOf({"map", "--node", "nobody"}), "ZN_API_OBJ_NOT_EXIST");
  EXPECT_EQ(failureOf({"map", "--format", "png"}), "ZN_API_ILLEGAL_INPUT");
}

ZNTOPO_ON_ENGINES(CliMapTest, kMainEngines);

using CliMapNamesTest = CliTest;

TEST_P(CliMapNamesTest, HostileNamesAreDrawnAsTheyStand) {
  nlohmann::json network = {{"network-id", "n"}};
  for (const char* name : {"a \"b\" \\N", "<b>x</b>", "&amp; &lt;", "];{}//#"}) {
    network["node"].push_back({{"node-id", name}});
  }
  nlohmann::json document;
  document["ietf-network:networks"]["network"] = {network};
  ASSERT_EQ(zntopoRun({"init"}).status, 0);
  ASSERT_EQ(zntopoRun({"import", write("hostile.json", document.dump())}).status, 0);
  const CliResult result = zntopoRun({"map", "--no-legend"});
  EXPECT_EQ(result.status, 0) << result.err;
  for (const char* drawn :
       {">a &quot;b&quot; \\N<", ">&lt;b&gt;x&lt;/b&gt;<", ">&amp;amp; &amp;lt;<", ">];{}//#<"}) {
    EXPECT_THAT(result.out, HasSubstr(drawn));
  }
}

ZNTOPO_ON_ENGINES(CliMapNamesTest, kSqlite);

/// docs/pictures is what scripts/pictures draws: to the letter as far as the graphs go, while the
/// coordinates are a matter of Graphviz.
using CliPicturesTest = CliSampleTest;

TEST_P(CliPicturesTest, ThePicturesOfTheDocumentationAreThoseOfTheTool) {
  const std::string folder = inSourceTree("docs/pictures/");
  std::ifstream list(folder + "pictures.txt");
  std::string line;
  int count = 0;
  while (std::getline(list, line)) {
    if (line.empty() || line.front() == '#') continue;
    std::istringstream words(line);
    std::string name;
    words >> name;
    std::vector<std::string> call = {"map", "--format", "dot"};
    call.insert(call.end(), std::istream_iterator<std::string>(words), {});
    const std::string graph = zntopoRun(call).out;
    EXPECT_EQ(graph, contentOf(folder + name + ".dot")) << "scripts/pictures draws " << name;
    const std::string picture = contentOf(folder + name + ".svg");
    EXPECT_EQ(idsIn(picture), idsIn(graph)) << name;
    EXPECT_EQ(countOf(picture, "class=\"edge\""), countOf(graph, " -- ")) << name;
    ++count;
  }
  EXPECT_EQ(count, 3);
}

ZNTOPO_ON_ENGINES(CliPicturesTest, kSqlite);

}  // namespace
}  // namespace zntopo::test
