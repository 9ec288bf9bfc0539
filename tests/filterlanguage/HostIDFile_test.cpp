#include "tests/filterlanguage/LanguageTest.h"
#include "tests/support/ApiFixture.h"

/// @file
/// Lists of hosts in files of their own.

namespace zntopo::test {
namespace {

class HostIDFileTest : public LanguageTest {
 protected:
  void SetUp() override {
    LanguageTest::SetUp();
    if (!store_) return;
    store_->addNode(uuid(1), "core-1");
    store_->addNode(uuid(2), "core-2", {{"PubV4ManagementAdd", "10.0.0.2"}});
    store_->addNode(uuid(3), "edge-1");
    store_->addNode(uuid(4), "edge-2");
    store_->addNode(uuid(5), "o'hara #1");
    store_->addInterface(uuid(1, 'b'), uuid(4), "eth0");
    store_->addAddress(uuid(1, 'c'), uuid(1, 'b'), uuid(4), "10.0.0.4");
    store_->addAddress(uuid(2, 'c'), uuid(1, 'b'), uuid(4), "",
                       {{"V4Address", nullptr},
                        {"PubV4Address", nullptr},
                        {"V6Address", "2001:db8::4"},
                        {"V6AddressBS", nullptr}});
  }

  static std::string fileOf(const std::string& hosts) {
    return std::string("<hosts xmlns=\"") + kFilterNamespace + "\">" + hosts + "</hosts>";
  }
  void writeHosts(const std::string& name, const std::string& hosts) {
    config_.write(name, fileOf(hosts));
  }
  Ids listed(const std::string& hosts) {
    writeHosts("hosts.xml", hosts);
    return nodes("<HostIDFile>hosts.xml</HostIDFile>");
  }
};

ZNTOPO_ON_ENGINES(HostIDFileTest, kMainEngines);

/// Of lists that never come near a store.
class RefusedHostIDFileTest : public HostIDFileTest {};

ZNTOPO_ON_ENGINES(RefusedHostIDFileTest, kSqlite);

TEST_P(HostIDFileTest, HostsAreNamesPatternsAddressesAndIdentifiers) {
  EXPECT_EQ(listed("<name>core-1</name><name>edge-2</name>"), (Ids{uuid(1), uuid(4)}));
  EXPECT_EQ(listed("<name>core-*</name>"), (Ids{uuid(1), uuid(2)}));
  EXPECT_EQ(listed("<name>o'hara #1</name><name>nobody</name>"), Ids{uuid(5)});
  EXPECT_EQ(listed("<objectID>" + uuid(3) + "</objectID>"), Ids{uuid(3)});
  EXPECT_EQ(listed("<address>10.0.0.2</address>"), Ids{uuid(2)});
  EXPECT_EQ(listed("<address>10.0.*</address>"), (Ids{uuid(2), uuid(4)}));
  EXPECT_EQ(listed("<address>2001:DB8::4</address>"), Ids{uuid(4)});
  EXPECT_EQ(listed("<name>core-1</name><name>*-1</name><address>10.0.0.4</address><objectID>" +
                   uuid(2) + "</objectID>"),
            (Ids{uuid(1), uuid(2), uuid(3), uuid(4)}));
}

TEST_P(HostIDFileTest, TheNameOfTheDirectoryMayHoldBlanksAndSigns) {
  for (const char* name : {"with a blank", "50%", "%20", "a#b", "a?b", "\u00e9"}) {
    const FilterConfiguration odd{name, languageFolder()};
    odd.write("hosts.xml", fileOf("<name>core-2</name><name>edge-*</name>"));
    EXPECT_EQ(nodes("<HostIDFile>hosts.xml</HostIDFile>"), (Ids{uuid(2), uuid(3), uuid(4)}))
        << name;
    odd.write("hosts.xml", fileOf("<wrong/>"));
    EXPECT_EQ(refusal(document(nodeFilter("<HostIDFile>hosts.xml</HostIDFile>"))),
              ZN_API_XML_FILTER_VALIDATION_ERROR)
        << name;
  }
}

TEST_P(HostIDFileTest, ManyHostsAreWithinWhatEnginesTake) {
  std::string hosts;
  for (int i = 0; i < 3000; ++i) {
    const std::string number = std::to_string(i);
    hosts += "<name>core-" + number + "</name>";
    if (i < 300)
      hosts += "<name>edge-" + number + "?</name><address>10.9.*." + number + "</address>";
  }
  EXPECT_EQ(listed(hosts), (Ids{uuid(1), uuid(2)}));
}

TEST_P(HostIDFileTest, AListIsATestLikeAnyOther) {
  writeHosts("hosts.xml", "<name>core-1</name>");
  EXPECT_EQ(selectedBy(document("<nodeAssertion name=\"f\"><operator oper=\"NOT\"><attribute>"
                                "<HostIDFile>hosts.xml</HostIDFile></attribute></operator>"
                                "</nodeAssertion>")),
            (Ids{uuid(2), uuid(3), uuid(4), uuid(5)}));
  writeHosts("more.xml", "<name>edge-2</name>");
  EXPECT_EQ(interfaces("<node><operator oper=\"OR\">"
                       "<attribute><HostIDFile>hosts.xml</HostIDFile></attribute>"
                       "<attribute><HostIDFile>more.xml</HostIDFile></attribute>"
                       "</operator></node>"),
            Ids{uuid(1, 'b')});
}

TEST_P(RefusedHostIDFileTest, AFileThatIsNoListOfHostsIsRefused) {
  const std::string xml = document(nodeFilter("<HostIDFile>hosts.xml</HostIDFile>"));
  EXPECT_EQ(refusal(xml), ZN_API_XML_FILTER_VALIDATION_ERROR);
  for (const std::string& hosts : std::vector<std::string>{
           "", "<host>core-1</host>", "<name>" + std::string(2001, 'a') + "</name>"}) {
    writeHosts("hosts.xml", hosts);
    EXPECT_EQ(refusal(xml), ZN_API_XML_FILTER_VALIDATION_ERROR) << hosts.substr(0, 100);
  }
  config_.write("hosts.xml", document(""));
  EXPECT_EQ(refusal(xml), ZN_API_XML_FILTER_VALIDATION_ERROR);
}

/// A document that names a file of hosts in an element with a prefix.
std::string prefixed(const std::string& name) {
  return "<f:filters xmlns:f=\"http://corvane.example/marlo/NetworkTopology/TopologyFilter\">"
         "<f:nodeAssertion name=\"f\"><f:operator oper=\"NOOP\"><f:attribute><f:HostIDFile>" +
         name + "</f:HostIDFile></f:attribute></f:operator></f:nodeAssertion></f:filters>";
}

TEST_P(HostIDFileTest, AFileMayBeNamedWithAPrefix) {
  writeHosts("hosts.xml",
             "<name>core-*</name><address>10.0.0.4</address><objectID>" + uuid(3) + "</objectID>");
  EXPECT_EQ(selectedBy(prefixed("hosts.xml")), (Ids{uuid(1), uuid(2), uuid(3), uuid(4)}));
}

TEST_P(RefusedHostIDFileTest, AFileThatIsNoListOfHostsIsRefusedBehindAPrefixToo) {
  EXPECT_EQ(refusal(prefixed("hosts.xml")), ZN_API_XML_FILTER_TRANSFORMATION_ERROR);
  for (const std::string& hosts : std::vector<std::string>{
           "", "<bogus/>", "<bogus>core-1</bogus>", "<name>core-1</name><bogus/>",
           "<name unknown=\"1\">core-1</name>", "<name>core-1</name>core-2",
           "<name>core-1<evil>x</evil></name>", "<address>10.0.0.1<name/></address>",
           "<x:name xmlns:x=\"http://other.example/\">core-1</x:name>", "<name xmlns=\"\">a</name>",
           "<objectID>" + std::string(2001, 'a') + "</objectID>"}) {
    writeHosts("hosts.xml", hosts);
    std::string told;
    EXPECT_EQ(refusal(prefixed("hosts.xml"), &told), ZN_API_XML_FILTER_TRANSFORMATION_ERROR)
        << hosts.substr(0, 100);
    EXPECT_THAT(told, testing::HasSubstr("XML validate failed for document hosts.xml\n"))
        << hosts.substr(0, 100);
  }
  config_.write("hosts.xml", document("<name>core-1</name>"));
  EXPECT_EQ(refusal(prefixed("hosts.xml")), ZN_API_XML_FILTER_TRANSFORMATION_ERROR);
}

TEST_P(RefusedHostIDFileTest, OnlyAPlainNameOfAFileIsTaken) {
  const auto plain = [](const std::string& name) {
    return document(nodeFilter("<HostIDFile>" + name + "</HostIDFile>"));
  };
  for (const char* file : {"hosts.xml", "../hosts.xml", ".hidden", " hosts.xml", "hosts.xml ",
                           "a/b", "a%2fb", "a%20b", "a:b", "a b", "a#b", "a?b", "a\\b"}) {
    writeHosts(file, "<name>core-1</name>");
  }
  for (const auto& xml : {plain("hosts.xml"), prefixed("hosts.xml")}) {
    EXPECT_EQ(refusal(xml), ZN_API_SUCCESS);
  }
  for (const char* name :
       {"", "/etc/passwd", "../hosts.xml", "./hosts.xml", "..", ".", ".hidden", " hosts.xml",
        "hosts.xml ", "a/b", "a%2fb", "a%20b", "a:b", "a b", "http://127.0.0.1/hosts.xml",
        "file:///etc/passwd", "a#b", "a?b", "a\\b"}) {
    for (const auto& xml : {plain(name), prefixed(name)}) {
      std::string told;
      EXPECT_EQ(refusal(xml, &told), ZN_API_XML_FILTER_VALIDATION_ERROR) << name;
      EXPECT_THAT(told, testing::HasSubstr("does not match regular expression")) << name;
    }
  }
}

TEST_P(RefusedHostIDFileTest, NoFileIsReadThatIsNotValidHoweverItsNameIsWritten) {
  // What a name that is cut short would name.
  writeHosts("ho", "<name>core-1</name>");
  for (const char* hosts :
       {"<name>core-1</name><bogus/>", "<name unknown=\"1\">core-1</name>",
        "<name>core-1</name>core-2", "<name>core-1<name>core-2</name></name>"}) {
    writeHosts("hosts.xml", hosts);
    for (const char* name :
         {"hosts.xml", "ho&#115;ts.xml", "ho<![CDATA[sts]]>.xml", "<![CDATA[ho]]>sts.xml"}) {
      const auto xml = document(nodeFilter(std::string("<HostIDFile>") + name + "</HostIDFile>"));
      EXPECT_NE(refusal(xml), ZN_API_SUCCESS) << name << " " << hosts;
    }
  }
}

TEST_P(RefusedHostIDFileTest, ANameThatIsCutInPiecesIsNoPlainName) {
  writeHosts("ho", "<name>core-1</name>");
  writeHosts("hosts.xml", "<name>core-1</name>");
  for (const char* name : {"ho<!-- cut -->sts.xml", "ho<?cut?>sts.xml"}) {
    std::string told;
    EXPECT_EQ(
        refusal(document(nodeFilter(std::string("<HostIDFile>") + name + "</HostIDFile>")), &told),
        ZN_API_XML_FILTER_TRANSFORMATION_ERROR)
        << name;
    EXPECT_THAT(told, testing::HasSubstr("HostIDFile takes the plain name of a file.")) << name;
  }
}

}  // namespace
}  // namespace zntopo::test
