#include "zntopo/filter/XMLUtil.h"

#include <sys/inotify.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <functional>
#include <sstream>
#include <thread>
#include <vector>
#include <xalanc/XSLT/XSLTInputSource.hpp>
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/sax/InputSource.hpp>
#include <xercesc/sax/SAXException.hpp>
#include <xercesc/util/BinInputStream.hpp>
#include <xercesc/util/RuntimeException.hpp>

#include "tests/filter/FilterFixture.h"
#include "tests/support/CapturedLog.h"
#include "zntopo/platform/tvxpl/TvXplStr.h"

namespace zntopo::test {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

/// Whose protected operation a test may call.
struct OpenUtil : XMLUtil {
  using XMLUtil::escape;
};

constexpr const char* kEmptyStylesheet =
    "<xsl:stylesheet version='1.0' xmlns:xsl='http://www.w3.org/1999/XSL/Transform'>"
    "<xsl:output method='text'/><xsl:template match='/'/></xsl:stylesheet>";

class XMLUtilTest : public FilterTest {
 protected:
  bool isValid(const std::string& text, bool withEmbedded = true) {
    return util.xml.validate(text, location.c_str(), error, withEmbedded);
  }
  bool isValidFile(const std::string& path) {
    return util.xml.validate(path.c_str(), location.c_str(), error, true);
  }
  std::string stylesheet() { return configuration.path("Filter2IFilter.xsl"); }

  const std::string location = schemaLocation();
  StartedUtil util;
  const std::string good = filterDocument(conditionElement("a", "Node", " NODE.x = 1 "));
};

// ---- life -------------------------------------------------------------------------------------

TEST_F(XMLUtilTest, InstancesAreCounted) {
  EXPECT_TRUE(util.isStarted);
  EXPECT_EQ(util.startError, "");
  EXPECT_EQ(XMLUtil::getRefCount(), 1);
  {
    const StartedUtil other;
    EXPECT_TRUE(other.isStarted);
    EXPECT_EQ(XMLUtil::getRefCount(), 2);
  }
  EXPECT_EQ(XMLUtil::getRefCount(), 1);
}

TEST(XMLUtilLifeTest, TheLibrariesAreStoppedWithTheLastInstanceAndStartAnew) {
  const FilterConfiguration configuration;
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(XMLUtil::getRefCount(), 0);
    StartedUtil util;
    std::string error;
    EXPECT_TRUE(util.isStarted);
    const std::string location = util.xml.getTopologyXMLNamespace() + " " +
                                 util.xml.getTopologyXMLConfigURI() + "TopoFilter.xsd";
    EXPECT_TRUE(util.xml.validate(filterDocument(""), location.c_str(), error, true)) << error;
  }
  EXPECT_EQ(XMLUtil::getRefCount(), 0);
}

TEST(XMLUtilLifeTest, SeveralThreadsStartUseAndStopTheLibrariesAtOnce) {
  const FilterConfiguration configuration;
  const auto work = [&configuration] {
    for (int i = 0; i < 20; ++i) {
      OpenHandler handler;
      TvXplMsg::MessageList_t list;
      EXPECT_EQ(handler.ParseXmlFile(list, configuration.path("TopoFilters.xml")), 0)
          << textOf(list);
      EXPECT_EQ(handler.finalOf("up"), " NODE.status = 1 ");
    }
  };
  std::array<std::thread, 4> threads;
  for (std::thread& thread : threads) thread = std::thread(work);
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(XMLUtil::getRefCount(), 0);
}

// ---- the configuration ------------------------------------------------------------------------

TEST_F(XMLUtilTest, KnowsTheNamespaceAndTheDirectory) {
  EXPECT_EQ(util.xml.getTopologyXMLNamespace(),
            "http://corvane.example/marlo/NetworkTopology/TopologyFilter");
  EXPECT_EQ(util.xml.getTopologyXMLConfigPath(), configuration.folder().string() + "/");
  EXPECT_EQ(util.xml.getTopologyXMLConfigURI(), util.xml.getTopologyXMLConfigPath());
}

TEST_F(XMLUtilTest, TheDirectoryIsLogged) {
  const CapturedLog log(MC_INFO);
  const StartedUtil other;
  const std::string path = configuration.folder().string() + "/";
  EXPECT_THAT(log.lines(), testing::IsSupersetOf({"Config path is [" + path + "]\n",
                                                  "Config URI is [" + path + "]\n"}));
}

TEST_F(XMLUtilTest, OnlyBlanksAreEscaped) {
  EXPECT_EQ(OpenUtil::escape("/a b/c%20d\\e#  "), "/a%20b/c%20d\\e#%20%20");
  EXPECT_EQ(OpenUtil::escape(""), "");
}

/// Directories whose names mean something in a URL, or would.
class OddDirectoryTest : public testing::TestWithParam<const char*> {};

TEST_P(OddDirectoryTest, WorksFromValidationToExpansion) {
  const FilterConfiguration configuration(GetParam());
  configuration.write("hosts.xml", std::string("<hosts xmlns='") + kFilterNamespace +
                                       "'><host>core-1</host></hosts>");
  StartedUtil util;
  std::string path = configuration.folder().string() + "/";
  EXPECT_EQ(util.xml.getTopologyXMLConfigPath(), path);
  for (std::size_t at = 0; (at = path.find(' ', at)) != std::string::npos;) {
    path.replace(at, 1, "%20");
  }
  EXPECT_EQ(util.xml.getTopologyXMLConfigURI(), path);

  OpenHandler handler;
  TvXplMsg::MessageList_t list;
  EXPECT_EQ(handler.ParseDefaultFile(list), 0) << textOf(list);
  EXPECT_EQ(handler.finalOf("upAndNamed"), " (   NODE.status = 1   ) and NODE.name <> '' ");
  const std::string hosts =
      filterDocument("<hosts name='h'><HostIDFile>hosts.xml</HostIDFile></hosts>");
  EXPECT_EQ(handler.ParseXmlString(list, hosts), 0) << textOf(list);
  EXPECT_EQ(handler.finalOf("h"), " core-1");
  EXPECT_EQ(handler.ParseXmlFile(list, configuration.write("d.xml", hosts)), 0) << textOf(list);
}

INSTANTIATE_TEST_SUITE_P(Names, OddDirectoryTest,
                         testing::Values("with a blank", "50%", "a%20b", "100%25", "a#b", "a?b",
                                         "a;b&c=d", "\xC3\xA4\xE2\x82\xAC", "a\\b", "q'\"<>"));

// ---- validate ---------------------------------------------------------------------------------

TEST_F(XMLUtilTest, TheLanguageIsValidFromAFileATextAndASource) {
  EXPECT_TRUE(isValid(good)) << error;
  EXPECT_TRUE(isValidFile(configuration.path("TopoFilters.xml"))) << error;
  const xercesc::MemBufInputSource source(reinterpret_cast<const XMLByte*>(good.data()),
                                          good.size(), "named");
  EXPECT_TRUE(util.xml.validate(source, location.c_str(), error, true)) << error;
  EXPECT_EQ(error, "");
}

TEST_F(XMLUtilTest, WhatIsWrongIsToldWithFileLineAndColumn) {
  const std::string bad = filterDocument("\n<other/>\n<another/>");
  EXPECT_FALSE(isValid(bad));
  EXPECT_EQ(error,
            "XML validation failed. \n"
            "\nError at file filter, line 2, char 9\n"
            "  Message: no declaration found for element 'other'\n"
            "\nError at file filter, line 3, char 11\n"
            "  Message: no declaration found for element 'another'\n"
            "\nError at file filter, line 3, char 21\n"
            "  Message: element 'other' is not allowed for content model "
            "'(condition|nothing|hosts|raw)'\n");
  const std::string path = configuration.write("bad.xml", bad);
  EXPECT_FALSE(isValidFile(path));
  EXPECT_THAT(error, HasSubstr("\nError at file " + path + ", line 2, char 9\n"));
  const xercesc::MemBufInputSource source(reinterpret_cast<const XMLByte*>(bad.data()), bad.size(),
                                          "named");
  EXPECT_FALSE(util.xml.validate(source, location.c_str(), error, true));
  EXPECT_THAT(error, HasSubstr("\nError at file named, line 2, char 9\n"));
}

TEST_F(XMLUtilTest, WhatIsNotWellFormedIsAFatalError) {
  EXPECT_FALSE(isValid("<filters>"));
  EXPECT_THAT(error, StartsWith("XML validation failed. \n\nFatal Error at file filter, line 1, "));
}

TEST_F(XMLUtilTest, AFileThatIsNotThereIsNotValid) {
  const std::string path = configuration.path("no.xml");
  EXPECT_FALSE(isValidFile(path));
  EXPECT_EQ(error,
            "XML validation failed. \n"
            "\nFatal Error at file " +
                path +
                ", line 0, char 0\n"
                "  Message: The file can't be read: No such file or directory.\n");
  EXPECT_FALSE(util.xml.validate(static_cast<const char*>(nullptr), location.c_str(), error, true));
}

TEST_F(XMLUtilTest, TheRootIsOfTheSchemasNamespace) {
  EXPECT_FALSE(isValid("<filters/>"));
  EXPECT_FALSE(isValid("<filters xmlns='urn:other'/>"));
  EXPECT_THAT(error, StartsWith("XML validation failed. \n"));
}

TEST_F(XMLUtilTest, ASchemaThatIsNotThereMakesNothingValid) {
  const std::string none = schemaLocation("None.xsd");
  EXPECT_FALSE(util.xml.validate(good, none.c_str(), error, true));
  EXPECT_THAT(error, AllOf(HasSubstr("None.xsd, line 0"), HasSubstr("No such file")));
  for (const char* nowhere : {static_cast<const char*>(nullptr), "", " ", "urn:x", "urn:x "}) {
    error.clear();
    EXPECT_FALSE(util.xml.validate(good, nowhere, error, true)) << (nowhere ? nowhere : "null");
    EXPECT_THAT(error, StartsWith("XML validation failed. \n"));
  }
}

TEST_F(XMLUtilTest, ASchemaThatIsNoneMakesNothingValid) {
  for (const char* none : {"", "text", "<a/>", "<a xmlns='urn:x'><b/></a>"}) {
    configuration.write("TopoFilter.xsd", none);
    EXPECT_FALSE(isValid(good)) << none;
    EXPECT_THAT(error, StartsWith("XML validation failed. \n"));
  }
}

TEST_F(XMLUtilTest, ASchemaOfAnotherNamespaceMakesNothingValid) {
  configuration.write("TopoFilter.xsd",
                      "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema' "
                      "targetNamespace='urn:x'><xs:element name='filters'/></xs:schema>");
  EXPECT_FALSE(isValid(good));
}

TEST_F(XMLUtilTest, ASourcesEncodingIsTaken) {
  const std::string latin = filterDocument(conditionElement("\xE4", "Node", "x"));
  xercesc::MemBufInputSource source(reinterpret_cast<const XMLByte*>(latin.data()), latin.size(),
                                    "named");
  EXPECT_FALSE(util.xml.validate(source, location.c_str(), error, true));
  source.setEncoding(u"ISO-8859-1");
  EXPECT_TRUE(util.xml.validate(source, location.c_str(), error, true)) << error;
}

/// A source that throws when it is opened, or when it is read.
class ThrowingSource : public xercesc::InputSource {
 public:
  ThrowingSource(const std::function<void()>& thrown, bool whenRead)
      : thrown_(thrown), whenRead_(whenRead) {}

  /// The caller deletes what it gets.
  xercesc::BinInputStream* makeStream() const override {
    if (!whenRead_) thrown_();
    return new Stream(thrown_);
  }

 private:
  struct Stream : xercesc::BinInputStream {
    explicit Stream(const std::function<void()>& thrower) : thrown(thrower) {}
    XMLFilePos curPos() const override { return 0; }
    XMLSize_t readBytes(XMLByte* const, const XMLSize_t) override {
      thrown();
      return 0;
    }
    const XMLCh* getContentType() const override { return nullptr; }

    const std::function<void()>& thrown;
  };

  const std::function<void()>& thrown_;
  bool whenRead_;
};

TEST_F(XMLUtilTest, WhatIsThrownWhileASourceIsReadIsTold) {
  using xercesc::RuntimeException;
  // Gone before the library is: it keeps its text in the library's memory.
  const RuntimeException exception(__FILE__, __LINE__, xercesc::XMLExcepts::Gen_ParseInProgress);
  const std::string ownText = TvXplStr::narrowed(exception.getMessage());
  EXPECT_NE(ownText, "");
  struct Case {
    std::function<void()> thrown;
    std::string text;
  };
  for (const Case& each :
       {Case{[] { throw xercesc::SAXException(u"broken off"); },
             "SAX exception when parsing xml: broken off\n"},
        Case{[&] { throw RuntimeException(exception); }, ownText},
        Case{[] { throw 42; }, "Unexpected exception when parsing xml.\n"},
        Case{[] { throw std::bad_alloc(); }, "Unexpected exception when parsing xml.\n"}}) {
    for (const bool whenRead : {false, true}) {
      error.clear();
      EXPECT_FALSE(
          util.xml.validate(ThrowingSource(each.thrown, whenRead), location.c_str(), error, true));
      EXPECT_EQ(error, each.text);
    }
  }
}

// ---- embedded files ---------------------------------------------------------------------------

/// Counts how often a file is opened.
class OpenWatch {
 public:
  explicit OpenWatch(const std::string& path) : watch_(inotify_init1(IN_NONBLOCK)) {
    EXPECT_GE(inotify_add_watch(watch_, path.c_str(), IN_OPEN), 0);
  }
  ~OpenWatch() { close(watch_); }
  OpenWatch(const OpenWatch&) = delete;
  OpenWatch& operator=(const OpenWatch&) = delete;

  /// Since it was asked last; at most 8.
  int opened() const {
    inotify_event events[8];
    const ssize_t size = ::read(watch_, events, sizeof events);
    return size < 0 ? 0 : static_cast<int>(size / static_cast<ssize_t>(sizeof events[0]));
  }

 private:
  int watch_;
};

class EmbeddedTest : public XMLUtilTest {
 protected:
  static std::string hosts(const std::string& files) {
    return filterDocument("<hosts name='h'>" + files + "</hosts>");
  }
  static std::string file(const std::string& name) {
    return "<HostIDFile>" + name + "</HostIDFile>";
  }
  std::string writeHosts(const std::string& name, const std::string& content = "<host>a</host>") {
    return configuration.write(
        name, std::string("<hosts xmlns='") + kFilterNamespace + "'>" + content + "</hosts>");
  }
};

TEST_F(EmbeddedTest, AFileOfTheDirectoryIsValidated) {
  writeHosts("hosts.xml");
  EXPECT_TRUE(isValid(hosts(file("hosts.xml")))) << error;
}

TEST_F(EmbeddedTest, AFailureNamesTheFileAsTheDocumentDoes) {
  writeHosts("bad.xml", "<other/>");
  EXPECT_FALSE(isValid(hosts(file("bad.xml"))));
  EXPECT_THAT(error,
              StartsWith("XML validate failed for document bad.xml\nXML validation failed. \n"));
  EXPECT_THAT(error, HasSubstr("no declaration found for element 'other'"));
  EXPECT_FALSE(isValid(hosts(file("none.xml"))));
  EXPECT_THAT(error, StartsWith("XML validate failed for document none.xml\n"));
}

TEST_F(EmbeddedTest, WithoutAskingNoFurtherFileIsRead) {
  EXPECT_TRUE(isValid(hosts(file("none.xml")), false)) << error;
  const OpenWatch watch(writeHosts("hosts.xml"));
  EXPECT_TRUE(isValid(hosts(file("hosts.xml")), false)) << error;
  EXPECT_EQ(watch.opened(), 0);
}

TEST_F(EmbeddedTest, ADocumentThatNamesNoFileReadsNone) {
  const OpenWatch watch(writeHosts("hosts.xml"));
  EXPECT_TRUE(isValid(good)) << error;
  EXPECT_EQ(watch.opened(), 0);
}

TEST_F(EmbeddedTest, TheFirstFileThatFailsEndsTheWalkInTheOrderOfNames) {
  writeHosts("b.xml");
  EXPECT_FALSE(isValid(hosts(file("z.xml") + file("b.xml") + file("c.xml"))));
  EXPECT_THAT(error, StartsWith("XML validate failed for document c.xml\n"));
}

TEST_F(EmbeddedTest, EqualNamesAreOneFileThatIsReadOnce) {
  const std::string path = writeHosts("hosts.xml");
  const OpenWatch watch(path);
  EXPECT_TRUE(isValid(hosts(file("hosts.xml") + file("hosts.xml")))) << error;
  EXPECT_EQ(watch.opened(), 1);
}

TEST_F(EmbeddedTest, EmbeddingIsOneLevelDeep) {
  writeHosts("hosts.xml", "<host>a</host>");
  configuration.write("HostIDFile.xsd",
                      std::string("<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema' "
                                  "targetNamespace='") +
                          kFilterNamespace +
                          "'><xs:element name='HostIDFile' type='xs:string'/></xs:schema>");
  configuration.write("deeper.xml", std::string("<f:HostIDFile xmlns:f='") + kFilterNamespace +
                                        "'>none.xml</f:HostIDFile>");
  EXPECT_TRUE(isValid(hosts(file("deeper.xml")))) << error;
}

TEST_F(EmbeddedTest, AFileOutsideTheDirectoryIsRefused) {
  const std::string outside = writeHosts("../outside.xml");
  std::filesystem::create_symlink(outside, configuration.path("link.xml"));
  for (const std::string name : {"../outside.xml", "link.xml", "../filter/../outside.xml", ".", "",
                                 "sub/../../outside.xml"}) {
    error.clear();
    EXPECT_FALSE(isValid(hosts(file(name) + file("x.xml")))) << name;
  }
  EXPECT_FALSE(isValid(hosts(file("link.xml"))));
  EXPECT_EQ(error,
            "XML validate failed for document link.xml\nXML validation failed. \n"
            "\nFatal Error at file " +
                configuration.path("link.xml") +
                ", line 0, char 0\n  Message: It does not lie in " +
                configuration.folder().string() + "/.\n");
}

TEST_F(EmbeddedTest, WhatWasValidatedIsWhatIsTransformed) {
  const std::string document = hosts(file("hosts.xml"));
  for (const std::string before : {"one", "two"}) {
    writeHosts("hosts.xml", "<host>" + before + "</host>");
    EXPECT_TRUE(isValid(document)) << error;
    writeHosts("hosts.xml", "<other/>");
    EXPECT_EQ(util.xml.transform(document, stylesheet().c_str(), result, error), 0) << error;
    EXPECT_THAT(result, HasSubstr("<whereQueryStr> " + before + "</whereQueryStr>"));
  }
}

TEST_F(EmbeddedTest, ALinkWithinTheDirectoryIsFollowed) {
  std::filesystem::create_symlink(writeHosts("hosts.xml"), configuration.path("link.xml"));
  EXPECT_TRUE(isValid(hosts(file("link.xml")))) << error;
}

// ---- transform --------------------------------------------------------------------------------

TEST_F(XMLUtilTest, EachFormOfTheInputsGivesTheSame) {
  const std::string path = configuration.write("good.xml", good);
  const std::string sheet = contentOf(stylesheet());
  const std::string expected =
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?><iFilters><iFilter name=\"a\" "
      "objectType=\"Node\"><whereQueryStr> NODE.x = 1 </whereQueryStr></iFilter></iFilters>";
  EXPECT_EQ(util.xml.transform(path.c_str(), stylesheet().c_str(), result, error), 0) << error;
  EXPECT_EQ(std::exchange(result, ""), expected);
  EXPECT_EQ(util.xml.transform(good, sheet, result, error), 0) << error;
  EXPECT_EQ(std::exchange(result, ""), expected);
  EXPECT_EQ(util.xml.transform(good, stylesheet().c_str(), result, error), 0) << error;
  EXPECT_EQ(std::exchange(result, ""), expected);
  EXPECT_EQ(util.xml.transform(path.c_str(), sheet, result, error), 0) << error;
  EXPECT_EQ(std::exchange(result, ""), expected);
  std::istringstream xml(good);
  std::istringstream xslt(sheet);
  xalanc::XSLTInputSource xmlIn(xml);
  xalanc::XSLTInputSource xsltIn(xslt);
  EXPECT_EQ(util.xml.transform(xmlIn, xsltIn, result, error), 0) << error;
  EXPECT_EQ(result, expected);
  EXPECT_EQ(error, "");
}

TEST_F(XMLUtilTest, TheResultIsLogged) {
  const CapturedLog log(MC_VERBOSE);
  util.xml.transform(good, stylesheet().c_str(), result, error);
  EXPECT_THAT(log.text(), HasSubstr("Transformed XML [\n" + result + "\n]\n"));
}

TEST_F(XMLUtilTest, AnEmptyResultIsASuccessThatSaysSo) {
  result = "of before";
  EXPECT_EQ(util.xml.transform(good, std::string(kEmptyStylesheet), result, error), 0);
  EXPECT_EQ(result, "");
  EXPECT_EQ(error, "There was no data resulting from the transformation.");
}

TEST_F(XMLUtilTest, AStylesheetThatFailsLeavesTheResultAlone) {
  const std::string terminating =
      "<xsl:stylesheet version='1.0' xmlns:xsl='http://www.w3.org/1999/XSL/Transform'>"
      "<xsl:template match='/'><xsl:message terminate='yes'>enough</xsl:message></xsl:template>"
      "</xsl:stylesheet>";
  result = "of before";
  EXPECT_NE(util.xml.transform(good, terminating, result, error), 0);
  EXPECT_THAT(error, HasSubstr("enough"));
  EXPECT_EQ(result, "of before");
}

TEST_F(XMLUtilTest, AnythingThrownWhileASourceIsTransformedIsTold) {
  struct Thrower : std::streambuf {
    int_type underflow() override { throw 42; }
  } thrower;
  std::istream broken(&thrower);
  // Otherwise the stream keeps it to itself.
  broken.exceptions(std::ios::badbit);
  std::istringstream whole(good);
  xalanc::XSLTInputSource brokenIn(broken);
  xalanc::XSLTInputSource wholeIn(whole);
  result = "of before";
  EXPECT_NE(util.xml.transform(brokenIn, wholeIn, result, error), 0);
  EXPECT_EQ(std::exchange(error, ""), "Unknown exception when attempting transformation.");
  broken.clear();
  EXPECT_NE(util.xml.transform(wholeIn, brokenIn, result, error), 0);
  EXPECT_EQ(error, "Unknown exception when attempting transformation.");
  EXPECT_EQ(result, "of before");
}

TEST_F(XMLUtilTest, AStylesheetThatIsNoneFails) {
  const std::string unknownElement =
      "<xsl:stylesheet version='1.0' xmlns:xsl='http://www.w3.org/1999/XSL/Transform'>"
      "<xsl:nothing/></xsl:stylesheet>";
  for (const std::string& none : {std::string(), std::string("text"), std::string("<a/>"),
                                  std::string("<xsl:stylesheet/>"), unknownElement}) {
    error.clear();
    EXPECT_NE(util.xml.transform(good, none, result, error), 0) << none;
    EXPECT_NE(error, "") << none;
    EXPECT_NE(
        util.xml.transform(good, configuration.write("none.xsl", none).c_str(), result, error), 0)
        << none;
  }
  EXPECT_NE(util.xml.transform(good, configuration.path("no.xsl").c_str(), result, error), 0);
  EXPECT_THAT(error, HasSubstr("no.xsl, line 0, char 0\n  Message: The file can't be read"));
}

TEST_F(XMLUtilTest, ADocumentThatCanNotBeReadFailsATransformationToo) {
  EXPECT_NE(
      util.xml.transform(configuration.path("no.xml").c_str(), stylesheet().c_str(), result, error),
      0);
  EXPECT_THAT(error, HasSubstr("no.xml, line 0, char 0\n  Message: The file can't be read"));
}

}  // namespace
}  // namespace zntopo::test
