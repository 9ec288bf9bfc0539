#include <map>

#include "tests/filterlanguage/GeneratedNetwork.h"
#include "tests/filterlanguage/LanguageTest.h"
#include "tests/filterlanguage/MarkdownPage.h"
#include "tests/filterlanguage/XmlTree.h"
#include "tests/support/Places.h"

/// @file
/// Holds the examples of docs/filters.md to what they say.

namespace zntopo::test {
namespace {

class GuideTest : public LanguageTest {
 protected:
  void SetUp() override {
    ZNTOPO_NEED_ENGINE(GetParam());
    store_.emplace(GetParam(), generatedNetwork());
    // What the examples ask for and no generated network has.
    store_->execute(
        "update nwinterface set IfAlias = 'What is this?' where ObjId = (select min(ObjId) from "
        "nwinterface)");
    store_->execute(
        "update nwnode set isBGP = 1, CreateTimeUTC = 1767225600, ChangeTimeUTC = 5000 where "
        "EntityName = 'site01-core-2'");
    store_->execute("update nwnode set isSTP = null where EntityName like 'site01-acc%'");
  }

  /// Reads all examples, and tells the names of their filters.
  std::vector<std::string> readGuide() {
    std::string filters;
    for (const std::string& example : page_.fences("xml")) {
      if (example.rfind("<hosts", 0) == 0) {
        config_.write("night-watch.xml", example);
      } else if (example.rfind("<?xml", 0) == 0) {
        parse(example);
      } else {
        filters += example;
      }
    }
    parse(document(filters));
    std::vector<std::string> names;
    for (const auto& [name, description] : filters_.getFilterNameDesc()) names.push_back(name);
    return names;
  }

  const MarkdownPage page_{inSourceTree("docs/filters.md")};
};

ZNTOPO_ON_ENGINES(GuideTest, kMainEngines);

const std::string kNodes = "select n.ObjId from nwnode n where ";
const std::string kPorts = "select i.ObjId from nwinterface i where ";
const std::string kOnPort =
    "select distinct i.NodeObjID from nwinterface i, address a where a.ObjId = i.ObjId and ";

/// Statements that select what the examples say.
const std::map<std::string, std::string>& expectations() {
  static const auto* const all = new std::map<std::string, std::string>{
      {"CoreSwitches", kNodes + "n.EntityName in ('site01-core-1', 'site01-core-2', "
                                "'site02-core-1', 'site02-core-2')"},
      {"FirstOfTwo", kNodes + "n.EntityName in ('site01-core-1', 'site02-core-1')"},
      {"MarkedPorts", "select min(ObjId) from nwinterface"},
      {"NotOnCores", kPorts + "i.NodeObjID not in (select n.ObjId from nwnode n where "
                              "n.EntityName like '%core%')"},
      {"FastPorts", kPorts + "i.IfSpeed > 999999999"},
      {"KnownSinceTheNewYear", kNodes + "n.CreateTimeUTC >= 1767225600"},
      {"ChangedLately", kNodes + "n.ChangeTimeUTC > 1900"},
      {"BGPSpeakers", kNodes + "n.isBGP = 1"},
      {"BrokenPorts", kPorts + "i.IfOperStatus in (2, 6, 7)"},
      {"DownThoughUp", kPorts + "i.IfAdminState = 1 and i.IfOperStatus = 2"},
      {"SwitchesWithoutSpanningTree", kNodes + "n.isLanSwitch = 1 and coalesce(n.isSTP, 0) = 0"},
      {"InTheLoopbackRange",
       kNodes + "n.PubV4ManagementAdd in ('192.168.0.0', '192.168.0.1', '192.168.0.2', "
                "'192.168.0.3', '192.168.0.4', '192.168.0.5', '192.168.0.6', '192.168.0.7') union "
                "select a.NodeObjId from address a where substr(a.PubV4Address, 1, 10) = "
                "'192.168.0.' and length(a.PubV4Address) = 11 and substr(a.PubV4Address, 11) <= "
                "'7'"},
      {"Documentation",
       "select AddressId from address where substr(V6Address, 1, 9) = '2001:db8:'"},
      {"Gateways",
       "select NodeObjId from address where PubV4Address like '10.%' and PubV4Address "
       "like '%.2' union select ObjId from nwnode where PubV4ManagementAdd like '10.%' "
       "and PubV4ManagementAdd like '%.2'"},
      {"InSpaceZero", kOnPort + "a.V4Address = '192.168.0.1' and a.RouteDistinguisher = 0 union " +
                          kNodes +
                          "n.PubV4ManagementAdd = '192.168.0.1' and "
                          "n.V4ManagementAddressRD = 0"},
      {"VoicePorts",
       "select distinct c.ContainedObjID from containment c, nwentity v where c.ContainerType = 4 "
       "and v.ObjId = c.ContainerObjID and v.EntityName like '%voice%'"},
      {"ActiveGateways",
       "select distinct i.NodeObjID from hsrpaddress h, nwinterface i where h.HSRPNumber = 10 and "
       "h.state = 6 and i.ObjId = h.AddressIfObjID"},
      {"AroundACore",
       "select l.rightifnodeobjid from NWInterfaceAsc l, nwnode n where n.ObjId = "
       "l.leftifnodeobjid and n.EntityName = 'site02-core-1' union select l.leftifnodeobjid from "
       "NWInterfaceAsc l, nwnode n where n.ObjId = l.rightifnodeobjid and n.EntityName = "
       "'site02-core-1'"},
      {"HighInTheRack",
       "select n.ObjId from nwnode n, userdefvar u where u.ObjID = n.ObjId and "
       "u.VarName = 'rackUnit' and u.IntVal > 20"},
      {"NodesWithBrokenUplinks",
       "select distinct i.NodeObjID from nwinterface i where "
       "i.isL2Connected = 1 and i.IfOperStatus = 2"},
      {"RouterPorts",
       "select i.ObjId from nwinterface i, nwnode n where n.ObjId = i.NodeObjID and "
       "n.isIPV4Router = 1"},
      {"CoresThatSpeakBGP", kNodes + "n.EntityName like '%-core-%' and n.isBGP = 1"},
      {"CoresInTrouble", kNodes + "n.EntityName like '%-core-%' and coalesce(n.isBGP, 0) = 0 and "
                                  "n.Status > 4 and n.Status < 7"},
      {"NightWatch", kNodes + "n.EntityName in ('backbone-1', 'site01-edge-1', 'site01-edge-2') or "
                              "n.PubV4ManagementAdd = '192.168.0.1' or n.ObjId in (select "
                              "a.NodeObjId from address a where a.PubV4Address = '192.168.0.1')"},
      {"SomewhereElse",
       kNodes + "length(n.sysLocation) > 0 and n.sysLocation not like '%floor 0%'"},
      {"NowhereAtAll", kNodes + "n.sysLocation is null or n.sysLocation = ''"},
  };
  return *all;
}

TEST_P(GuideTest, EachExampleSelectsWhatThePageSays) {
  const std::vector<std::string> names = readGuide();
  EXPECT_EQ(names.size(), expectations().size());
  for (const std::string& name : names) {
    SCOPED_TRACE(name);
    const auto expected = expectations().find(name);
    ASSERT_NE(expected, expectations().end()) << "nothing says what it selects";
    const Ids ids = rows(expected->second);
    EXPECT_EQ(selected(name), ids);
    EXPECT_FALSE(ids.empty()) << "the network has nothing to select";
  }
}

TEST(Guide, ListsTheStatesOfTheSchemaWithTheirNumbers) {
  const XmlTree schema = readXml(contentOf(languageFile("TopoFilter.xsd")));
  const MarkdownPage page(inSourceTree("docs/filters.md"));
  std::map<std::string, std::string> types;
  schema.walk([&](const XmlTree& each, const std::vector<const XmlTree*>&) {
    if (each.name == "element") types[each.attribute("name")] = each.attribute("type");
  });
  std::size_t lists = 0;
  for (const std::vector<std::string>& row : page.table("### States")) {
    std::string element = row[0].substr(0, row[0].find(','));
    std::erase(element, '`');
    const std::string type = types.at(element);
    const std::string states = type.substr(2, type.size() - 6);
    std::string listed;
    for (const XmlTree& each : schema.children) {
      if (each.name != "simpleType" || each.attribute("name") != states) continue;
      for (const XmlTree& state : each.child("restriction").children) {
        const std::string text = state.child("annotation").child("documentation").text;
        const std::size_t begin = text.find_first_not_of(" \n");
        const std::string number = text.substr(begin, text.find(':') - begin);
        listed += (listed.empty() ? "`" : ", `") + state.attribute("value") + "` " + number;
      }
    }
    EXPECT_EQ(row[1], listed) << element;
    ++lists;
  }
  EXPECT_EQ(lists, 12U);
}

/// The words of a cell of a table.
std::vector<std::string> wordsOf(const std::string& cell) {
  std::vector<std::string> words(1);
  for (const char c : cell) {
    if (std::isalnum(static_cast<unsigned char>(c)) != 0) {
      words.back() += c;
    } else if (!words.back().empty()) {
      words.emplace_back();
    }
  }
  if (words.back().empty()) words.pop_back();
  return words;
}

/// The kinds of objects that have a state, as definitions begin.
std::vector<std::string> kindsWith(const MarkdownPage& page, const std::string& state) {
  std::vector<std::string> kinds;
  for (const auto& [heading, kind] : {std::pair{"### Nodes", "node"},
                                      {"### Interfaces", "interface"},
                                      {"### Addresses", "address"}}) {
    for (const std::vector<std::string>& row : page.table(heading)) {
      if (row[0] == state && row[1] == "state") kinds.emplace_back(kind);
    }
  }
  return kinds;
}

TEST(Guide, EachStateBecomesTheNumberThatThePageLists) {
  const MarkdownPage page(inSourceTree("docs/filters.md"));
  std::string filters;
  std::map<std::string, std::string> numbers;
  for (const std::vector<std::string>& row : page.table("### States")) {
    const std::vector<std::string> states = wordsOf(row[1]);
    for (const std::string& element : wordsOf(row[0])) {
      const bool isOfHsrp = element == "hsrpState";
      const auto kinds = isOfHsrp ? std::vector<std::string>{"node"} : kindsWith(page, element);
      EXPECT_FALSE(kinds.empty()) << element;
      for (std::size_t i = 0; i + 1 < states.size(); i += 2) {
        for (const std::string& kind : kinds) {
          const std::string name = kind + "." + element + "." + states[i];
          std::string test = "<" + element + "><state>" + states[i] + "</state></" + element + ">";
          if (isOfHsrp) test = "<HSRP>" + test + "</HSRP>";
          filters += "<" + kind + "Assertion name=\"" + name +
                     "\"><operator oper=\"NOOP\"><attribute>" + test + "</attribute></operator></" +
                     kind + "Assertion>";
          numbers[name] = states[i + 1];
        }
      }
    }
  }
  const FilterConfiguration config{"etc", languageFolder()};
  OpenFilters open;
  TvXplMsg::MessageList_t messages;
  ASSERT_EQ(open.ParseXmlString(messages, document(filters)), ZN_API_SUCCESS)
      << messages.Format(TvXplMsg::fRecurse_k);
  EXPECT_GT(numbers.size(), 150U);
  for (const auto& [name, number] : numbers) {
    EXPECT_THAT(open.condition(name), testing::HasSubstr(" in ( " + number + " ) ")) << name;
  }
}

}  // namespace
}  // namespace zntopo::test
