// Documents, schemas and stylesheets that mean harm: what they name is not read, and what they cost
// is bounded.

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "tests/filter/FilterFixture.h"

namespace zntopo::test {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

constexpr const char* kSecret = "a-word-that-no-document-may-learn";

class HostileXmlTest : public FilterTest {
 protected:
  HostileXmlTest() {
    secret = configuration.write("../secret.txt", kSecret);
    secretXml =
        configuration.write("../secret.xml", std::string("<secret>") + kSecret + "</secret>");
  }

  bool isValid(const std::string& text) {
    return util.xml.validate(text, location.c_str(), error, true);
  }
  /// Refused from a text and from a file, with a text that tells why and not the secret.
  void expectRefused(const std::string& text, const std::string& why) {
    for (const bool isFile : {false, true}) {
      TvXplMsg::MessageList_t messages;
      const int status = isFile
                             ? handler.ParseXmlFile(messages, configuration.write("bad.xml", text))
                             : handler.ParseXmlString(messages, text);
      EXPECT_EQ(status, ZN_API_XML_FILTER_VALIDATION_ERROR) << text.substr(0, 300);
      EXPECT_THAT(textOf(messages), AllOf(HasSubstr(why), Not(HasSubstr(kSecret))));
    }
    EXPECT_TRUE(handler.m_FiltMap.empty());
  }
  /// A stylesheet with one template for the whole document.
  int apply(const std::string& body, const std::string& top = "") {
    configuration.write("Filter2IFilter.xsl",
                        "<xsl:stylesheet version='1.0' "
                        "xmlns:xsl='http://www.w3.org/1999/XSL/Transform'>" +
                            top + "<xsl:template match='/'>" + body +
                            "</xsl:template></xsl:stylesheet>");
    return util.xml.transform(filterDocument(""), configuration.path("Filter2IFilter.xsl").c_str(),
                              result, error);
  }

  std::string secret;
  std::string secretXml;
  const std::string location = schemaLocation();
  StartedUtil util;
};

// ---- declarations -----------------------------------------------------------------------------

TEST_F(HostileXmlTest, ADocumentTypeIsRefusedBeforeAnythingOfItIsRead) {
  const std::string body = filterDocument(conditionElement("a", "Node", "&x;"));
  const std::string why = "A document type declaration is refused: remove \"<!DOCTYPE\".";
  expectRefused("<!DOCTYPE filters [<!ENTITY x SYSTEM \"file://" + secret + "\">]>" + body, why);
  expectRefused("<!DOCTYPE filters [<!ENTITY % x SYSTEM \"file://" + secret + "\">%x;]>" + body,
                why);
  expectRefused("<!DOCTYPE filters SYSTEM \"file://" + secret + "\">" + body, why);
  expectRefused("<!DOCTYPE filters PUBLIC \"p\" \"http://127.0.0.1:9/x.dtd\">" + body, why);
  expectRefused("<!DOCTYPE filters [<!ENTITY x \"harmless\">]>" + body, why);
  expectRefused("<!DOCTYPE filters [<!ATTLIST condition name CDATA \"d\">]>" + body, why);
}

TEST_F(HostileXmlTest, ADocumentOfADeclarationAloneIsRefused) {
  expectRefused("<!DOCTYPE filters [<!ELEMENT filters EMPTY>]>", "document type declaration");
  expectRefused("<!DOCTYPE filters [<!ELEMENT filters EMPTY>]><filters/>",
                "document type declaration");
}

TEST_F(HostileXmlTest, EntitiesThatMultiplyAreNotExpanded) {
  std::string declarations = "<!ENTITY e0 \"ha\">";
  for (int i = 1; i < 100; ++i) {
    const std::string before = "&e" + std::to_string(i - 1) + ";";
    declarations += "<!ENTITY e" + std::to_string(i) + " \"" + before + before + "\">";
  }
  expectRefused("<!DOCTYPE filters [" + declarations + "]>" +
                    filterDocument(conditionElement("a", "Node", "&e99;")),
                "document type declaration");
}

TEST_F(HostileXmlTest, AStylesheetsDeclarationIsRefusedToo) {
  const std::string sheet = "<!DOCTYPE x [<!ENTITY x SYSTEM \"file://" + secret +
                            "\">]><xsl:stylesheet version='1.0' "
                            "xmlns:xsl='http://www.w3.org/1999/XSL/Transform'>"
                            "<xsl:template match='/'>&x;</xsl:template></xsl:stylesheet>";
  EXPECT_NE(util.xml.transform(filterDocument(""), sheet, result, error), 0);
  EXPECT_THAT(error, HasSubstr("A document type declaration is refused"));
  EXPECT_EQ(result, "");
}

// ---- what is named ----------------------------------------------------------------------------

TEST_F(HostileXmlTest, HintsOfADocumentAtSchemasAreNotFollowed) {
  // A schema that would make the document valid.
  const std::string lax = configuration.write(
      "lax.xsd", std::string("<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema' "
                             "targetNamespace='urn:lax'><xs:element name='lax'/></xs:schema>"));
  const std::string xsi = " xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' ";
  expectRefused("<lax xmlns='urn:lax'" + xsi + "xsi:schemaLocation='urn:lax " + lax + "'/>",
                "no declaration found for element 'lax'");
  expectRefused("<lax" + xsi + "xsi:noNamespaceSchemaLocation='" + lax + "'/>",
                "no declaration found for element 'lax'");
  const std::string laxer = configuration.write(
      "laxer.xsd",
      std::string("<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema' targetNamespace='") +
          kFilterNamespace + "'><xs:element name='anything'/></xs:schema>");
  expectRefused("<anything xmlns='" + std::string(kFilterNamespace) + "'" + xsi +
                    "xsi:schemaLocation='" + kFilterNamespace + " " + laxer + "'/>",
                "no declaration found for element 'anything'");
}

TEST_F(HostileXmlTest, ASchemaCanNotBringInAnother) {
  const std::string schema = contentOf(configuration.path("TopoFilter.xsd"));
  const std::size_t at = schema.find("<xs:element name=\"filters\"");
  configuration.write("more.xsd",
                      std::string("<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema' "
                                  "targetNamespace='") +
                          kFilterNamespace + "'><xs:element name='more'/></xs:schema>");
  configuration.write(
      "TopoFilter.xsd",
      schema.substr(0, at) + "<xs:include schemaLocation='more.xsd'/>" + schema.substr(at));
  EXPECT_FALSE(isValid("<more xmlns='" + std::string(kFilterNamespace) + "'/>"));
}

TEST_F(HostileXmlTest, DocumentsOutsideTheDirectoryAreNotRead) {
  for (const std::string& name :
       {secretXml, "file://" + secretXml, std::string("../secret.xml"),
        std::string("http://127.0.0.1:9/secret.xml"), std::string("ftp://127.0.0.1:9/x"),
        std::string("file://localhost/etc/hosts"), std::string("/dev/zero"),
        std::string("%2e%2e/secret.xml")}) {
    error.clear();
    EXPECT_NE(apply("<xsl:value-of select=\"document('" + name + "')\"/>"), 0) << name;
    EXPECT_THAT(error, Not(HasSubstr(kSecret)));
    EXPECT_EQ(result, "");
  }
  std::filesystem::create_symlink(secretXml, configuration.path("link.xml"));
  EXPECT_NE(apply("<xsl:value-of select=\"document('link.xml')\"/>"), 0);
  EXPECT_THAT(error, HasSubstr("link.xml, line 0, char 0\n  Message: It does not lie in "));
}

TEST_F(HostileXmlTest, DocumentsInsideTheDirectoryAreRead) {
  configuration.write("inside.xml", "<a>within</a>");
  for (const std::string& name : {std::string("inside.xml"), configuration.path("inside.xml"),
                                  "file://" + configuration.path("inside.xml")}) {
    EXPECT_EQ(apply("<xsl:value-of select=\"document('" + name + "')\"/>"), 0) << error;
    EXPECT_THAT(result, HasSubstr("within"));
  }
}

TEST_F(HostileXmlTest, AStylesheetCanNotIncludeWhatLiesOutside) {
  const std::string outside = configuration.write(
      "../outside.xsl",
      std::string("<xsl:stylesheet version='1.0' "
                  "xmlns:xsl='http://www.w3.org/1999/XSL/Transform'><xsl:template name='t'>") +
          kSecret + "</xsl:template></xsl:stylesheet>");
  for (const std::string& name : {outside, "file://" + outside, std::string("../outside.xsl"),
                                  std::string("http://127.0.0.1:9/x.xsl")}) {
    for (const std::string how : {"include", "import"}) {
      error.clear();
      result.clear();
      EXPECT_NE(apply("<xsl:call-template name='t'/>", "<xsl:" + how + " href='" + name + "'/>"), 0)
          << how << " " << name;
      EXPECT_THAT(error, testing::AnyOf(HasSubstr("It does not lie in "),
                                        HasSubstr("is no file, and is not read.")))
          << name;
      EXPECT_EQ(result, "");
    }
  }
}

std::string namingHosts(const std::string& element) {
  return filterDocument("<hosts name='h'>" + element + "</hosts>");
}

TEST_F(HostileXmlTest, AFileOfHostsIsValidatedHoweverItsNameIsWritten) {
  const std::string root = std::string("<hosts xmlns='") + kFilterNamespace + "'>";
  const std::string prefixed =
      std::string("<f:HostIDFile xmlns:f='") + kFilterNamespace + "'>hosts.xml</f:HostIDFile>";
  configuration.write("ho", root + "<host>other</host></hosts>");
  // The other two ways to write the element, and the name.
  for (const std::string& element :
       {std::string("<HostIDFile>ho&#115;ts.xml</HostIDFile>"), prefixed}) {
    TvXplMsg::MessageList_t messages;
    configuration.write("hosts.xml", root + "<host>a</host></hosts>");
    EXPECT_EQ(handler.ParseXmlString(messages, namingHosts(element)), 0) << textOf(messages);
    EXPECT_EQ(handler.finalOf("h"), " a");
    configuration.write("hosts.xml", root + "<host>a</host><wrong/></hosts>");
    EXPECT_EQ(handler.ParseXmlString(messages, namingHosts(element)),
              ZN_API_XML_FILTER_TRANSFORMATION_ERROR)
        << element;
    EXPECT_THAT(textOf(messages), HasSubstr("XML validate failed for document hosts.xml\n"
                                            "XML validation failed. \n"));
    EXPECT_THAT(textOf(messages), HasSubstr("no declaration found for element 'wrong'"));
  }
}

TEST_F(HostileXmlTest, AFileOfHostsWithoutASchemaIsNotRead) {
  configuration.write(
      "hosts.xml", std::string("<hosts xmlns='") + kFilterNamespace + "'><host>a</host></hosts>");
  EXPECT_EQ(apply("<xsl:value-of select=\"document('hosts.xml')\"/>"), 0) << error;
  EXPECT_THAT(result, HasSubstr("a"));
  configuration.remove("HostIDFile.xsd");
  EXPECT_NE(apply("<xsl:value-of select=\"document('hosts.xml')\"/>"), 0);
  EXPECT_THAT(error, HasSubstr("HostIDFile.xsd, line 0, char 0"));
}

// ---- what it costs ----------------------------------------------------------------------------

TEST_F(HostileXmlTest, ALargeDocumentIsRefusedUnread) {
  const std::string large = filterDocument("<!--" + std::string(100'000'000, 'x') + "-->");
  EXPECT_FALSE(isValid(large));
  EXPECT_EQ(error,
            "XML validation failed. \n\nFatal Error at file filter, line 0, char 0\n"
            "  Message: It has more than 10000000 bytes.\n");
  const std::string path = configuration.write("large.xml", large);
  EXPECT_FALSE(util.xml.validate(path.c_str(), location.c_str(), error, true));
  EXPECT_THAT(error, HasSubstr("It has more than 10000000 bytes."));
  EXPECT_NE(util.xml.transform(path.c_str(), configuration.path("Filter2IFilter.xsl").c_str(),
                               result, error),
            0);
  TvXplMsg::MessageList_t messages;
  EXPECT_EQ(handler.ParseXmlFile(messages, path), ZN_API_XML_FILTER_VALIDATION_ERROR);
  EXPECT_EQ(handler.ParseXmlString(list, large), ZN_API_XML_FILTER_VALIDATION_ERROR);
}

TEST_F(HostileXmlTest, ADocumentOfTheLargestSizeIsRead) {
  const std::string head = filterDocument("<!---->");
  const std::string filled =
      filterDocument("<!--" + std::string(XMLUtil::kLargestDocument - head.size(), 'x') + "-->");
  EXPECT_EQ(filled.size(), XMLUtil::kLargestDocument);
  EXPECT_TRUE(isValid(filled)) << error;
  EXPECT_FALSE(isValid(filled + "\n"));
}

TEST_F(HostileXmlTest, WhatIsNoRegularFileIsRefusedAndNothingWaits) {
  const std::string pipe = configuration.path("pipe");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  for (const std::string& path :
       {pipe, std::string("/dev/zero"), std::string("/dev/tty"), configuration.folder().string()}) {
    EXPECT_FALSE(util.xml.validate(path.c_str(), location.c_str(), error, true)) << path;
    EXPECT_THAT(error, testing::AnyOf(HasSubstr("It is not a regular file."),
                                      HasSubstr("The file can't be read")))
        << path;
  }
}

TEST_F(HostileXmlTest, DeepNestingIsRefused) {
  for (const int depth : {101, 100'000}) {
    std::string deep;
    for (int i = 0; i < depth; ++i) deep += "<a>";
    for (int i = 0; i < depth; ++i) deep += "</a>";
    expectRefused(deep, "Elements are nested deeper than 100 levels.");
  }
  std::string wide;
  for (int i = 0; i < 1000; ++i) wide += conditionElement("a", "Node", "x") + "<nothing/>";
  EXPECT_TRUE(isValid(filterDocument(wide))) << error.substr(0, 300);
}

/// Declarations of as many namespaces of their own.
std::string declarations(int count) {
  std::string text;
  for (int i = 0; i < count; ++i) text += " xmlns:a" + std::to_string(i) + "='u'";
  return text;
}

std::string declaring(int count, const std::string& content) {
  std::string document = filterDocument(content);
  return document.insert(document.find("<filters") + 8, declarations(count));
}

TEST_F(HostileXmlTest, NamespacesBeyondMeasureAreRefused) {
  std::string children;
  for (int i = 0; i < 50'000; ++i) children += "<nothing/>";
  expectRefused(declaring(50'000, children),
                "More than 1000 namespace declarations are in force at one place.");
  // One is the document's own.
  expectRefused(declaring(1000, ""), "1000 namespace declarations");
  EXPECT_TRUE(isValid(declaring(999, "<nothing/>"))) << error;
}

TEST_F(HostileXmlTest, NamespacesOfElementsInARowDoNotAddUp) {
  std::string children;
  for (int i = 0; i < 10; ++i) children += "<nothing" + declarations(900) + "/>";
  EXPECT_TRUE(isValid(filterDocument(children))) << error;
  EXPECT_TRUE(isValid(declaring(99, children))) << error;
  expectRefused(declaring(100, children), "1000 namespace declarations");
}

TEST_F(HostileXmlTest, ErrorsBeyondMeasureAreNotAllTold) {
  std::string wrong;
  for (int i = 0; i < 100'000; ++i) wrong += "<b/>";
  EXPECT_FALSE(isValid(filterDocument(wrong)));
  EXPECT_THAT(error, HasSubstr("There are too many errors: what follows is not told."));
  EXPECT_LT(error.size(), 200'000U);
  const std::string longName(1'000'000, 'b');
  std::string rows;
  for (int i = 0; i < 4; ++i) rows += "<" + longName + "/>";
  EXPECT_FALSE(isValid(filterDocument(rows)));
  EXPECT_LT(error.size(), 6'000'000U);
}

TEST_F(HostileXmlTest, AttributesBeyondMeasureAreRefused) {
  std::string attributes;
  for (int i = 0; i < 300'000; ++i) attributes += " a" + std::to_string(i) + "='v'";
  std::string xml = filterDocument("");
  xml.insert(xml.find("<filters") + 8, attributes);
  expectRefused(xml, "There are too many errors: what follows is not told.");
}

TEST_F(HostileXmlTest, AResultBeyondTheLimitFails) {
  // A hundred thousand characters for each of a thousand elements.
  const std::string text(100'000, 'x');
  const int code = apply("<xsl:for-each select='//n'>" + text + "</xsl:for-each>");
  EXPECT_EQ(code, 0) << error;
  std::string many;
  for (int i = 0; i < 1000; ++i) many += "<n/>";
  EXPECT_NE(util.xml.transform("<d>" + many + "</d>",
                               configuration.path("Filter2IFilter.xsl").c_str(), result, error),
            0);
  EXPECT_EQ(error, "The transformation gives more than 50000000 bytes.");
}

TEST_F(HostileXmlTest, ATextLongerThanAnyScratchSpaceGoesThrough) {
  const std::string text = " NODE.name = '" + std::string(1'000'000, 'x') + "' ";
  EXPECT_EQ(handler.ParseXmlString(list, filterDocument(conditionElement("a", "Node", text))), 0)
      << textOf(list).substr(0, 300);
  EXPECT_EQ(handler.finalOf("a"), text);
}

TEST_F(HostileXmlTest, NamesWithQuotesAndMarkupComeThroughToTheLetter) {
  EXPECT_EQ(handler.ParseXmlString(
                list, filterDocument(conditionElement("a'b&quot;c&lt;d&gt;&amp;;--", "Node", "x"))),
            0)
      << textOf(list);
  EXPECT_EQ(handler.finalOf("a'b\"c<d>&;--"), "x");
}

TEST_F(HostileXmlTest, BytesThatAreNoTextAreRefused) {
  expectRefused(filterDocument(conditionElement("a", "Node", "\xFF\xFE\x80")), "invalid");
  expectRefused(std::string("\0\0\0\0", 4), "");
  expectRefused(filterDocument(conditionElement("a", "Node", std::string("\0", 1))), "");
}

// ---- what it says -----------------------------------------------------------------------------

TEST_F(HostileXmlTest, NothingGoesToStandardError) {
  const std::string said = configuration.path("said");
  std::fflush(stderr);
  const int kept = dup(STDERR_FILENO);
  const int file = open(said.c_str(), O_CREAT | O_WRONLY | O_TRUNC, 0600);
  dup2(file, STDERR_FILENO);
  isValid("<a");
  isValid(filterDocument("<b/>"));
  isValid("<!DOCTYPE a><a/>");
  apply("<xsl:message>said</xsl:message>");
  apply("<xsl:message terminate='yes'>said</xsl:message>");
  apply("<xsl:value-of select=\"document('none.xml')\"/>");
  apply("<xsl:value-of select='nonsense('/>");
  apply("<xsl:nonsense/>", "<xsl:include href='none.xsl'/>");
  apply("<xsl:value-of select='unknown()'/>", "<xsl:import href='Filter2IFilter.xsl'/>");
  configuration.write("TopoFilter.xsd", "<a/>");
  isValid(filterDocument(""));
  std::fflush(stderr);
  dup2(kept, STDERR_FILENO);
  close(kept);
  close(file);
  EXPECT_EQ(contentOf(said), "");
}

}  // namespace
}  // namespace zntopo::test
