// The loading of definitions: each status of a failure, and what it says.

#include "zntopo/filter/TopoFiltHandler.h"

#include "tests/filter/FilterFixture.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/FreshProcess.h"

namespace zntopo::test {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Key;
using testing::StartsWith;

class TopoFiltHandlerTest : public FilterTest {
 protected:
  /// A document whose intermediate form is a text.
  static std::string raw(const std::string& intermediate) {
    return filterDocument("<raw><![CDATA[" + intermediate + "]]></raw>");
  }
  int parse(const std::string& document) { return handler.ParseXmlString(list, document); }
  std::string message(int index) const { return list.GetMessage(index).GetText(); }
  void expectOneMessage(const std::string& text) {
    ASSERT_EQ(list.GetMessageCount(), 1) << textOf(list);
    EXPECT_EQ(message(0), text);
    EXPECT_EQ(list.GetMessage(0).GetSeverity(), TvXplMsg::kError);
  }
};

TEST_F(TopoFiltHandlerTest, TheDefaultFileIsLoaded) {
  EXPECT_EQ(handler.ParseDefaultFile(list), ZN_API_SUCCESS) << textOf(list);
  EXPECT_THAT(handler.m_FiltMap, ElementsAre(Key("up"), Key("upAndNamed")));
  EXPECT_EQ(handler.m_FiltMap.at("upAndNamed").getWhereQueryString(),
            " ( #up# ) and NODE.name <> '' ");
  EXPECT_EQ(handler.finalOf("upAndNamed"), " (   NODE.status = 1   ) and NODE.name <> '' ");
  EXPECT_EQ(list.GetMessageCount(), 0);
}

TEST_F(TopoFiltHandlerTest, AFileAndATextLoadTheSame) {
  const std::string document = filterDocument(conditionElement("a", "Address", " ADDR.x = 1 "));
  EXPECT_EQ(handler.ParseXmlFile(list, configuration.write("own.xml", document)), 0)
      << textOf(list);
  OpenHandler other;
  EXPECT_EQ(other.ParseXmlString(list, document), 0) << textOf(list);
  EXPECT_EQ(handler.finalOf("a"), " ADDR.x = 1 ");
  EXPECT_EQ(other.finalOf("a"), " ADDR.x = 1 ");
  EXPECT_EQ(other.m_FiltMap.at("a").getObjType(), E_Address);
}

TEST_F(TopoFiltHandlerTest, AFileMayLieAnywhereAndBeNamedRelatively) {
  const Scratch elsewhere;
  elsewhere.write("own file.xml", filterDocument(conditionElement("a", "Node", "x")));
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path(elsewhere.folder());
  EXPECT_EQ(handler.ParseXmlFile(list, "own file.xml"), 0) << textOf(list);
  std::filesystem::current_path(before);
  EXPECT_EQ(handler.finalOf("a"), "x");
}

TEST_F(TopoFiltHandlerTest, DefinitionsAddUpAndTheLaterOneWins) {
  EXPECT_EQ(parse(filterDocument(conditionElement("a", "Node", "old") +
                                 conditionElement("b", "Node", "<![CDATA[#a#]]>"))),
            0);
  EXPECT_EQ(parse(filterDocument(conditionElement("a", "Interface", "new") +
                                 conditionElement("c", "Node", "#a#"))),
            0);
  EXPECT_EQ(handler.finalOf("a"), "new");
  EXPECT_EQ(handler.m_FiltMap.at("a").getObjType(), E_Interface);
  EXPECT_EQ(handler.finalOf("b"), " old ") << "what was expanded earlier keeps the old text";
  EXPECT_EQ(handler.finalOf("c"), " new ");
}

TEST_F(TopoFiltHandlerTest, ADocumentWithoutFiltersIsASuccess) {
  EXPECT_EQ(parse(filterDocument("")), 0);
  EXPECT_THAT(handler.m_FiltMap, IsEmpty());
}

TEST_F(TopoFiltHandlerTest, AFilterWithoutAConditionStaysWithEmptyTexts) {
  EXPECT_EQ(parse(filterDocument("<nothing name='a' objectType='Vlan'/>")), 0);
  EXPECT_EQ(handler.finalOf("a"), "");
  EXPECT_EQ(handler.m_FiltMap.at("a").getObjType(), E_Unknown);
}

// ---- validation: 36 ---------------------------------------------------------------------------

TEST_F(TopoFiltHandlerTest, ATextThatIsNotValidIsToldWithTheText) {
  const std::string document = filterDocument("<other/>");
  EXPECT_EQ(parse(document), ZN_API_XML_FILTER_VALIDATION_ERROR);
  expectOneMessage("XML being validated:\n" + document +
                   "\nXML filter validation error.\n"
                   "XML validation failed. \n"
                   "\nError at file filter, line 1, char 86\n"
                   "  Message: no declaration found for element 'other'\n"
                   "\nError at file filter, line 1, char 96\n"
                   "  Message: element 'other' is not allowed for content model "
                   "'(condition|nothing|hosts|raw)'\n");
  EXPECT_THAT(handler.m_FiltMap, IsEmpty());
  EXPECT_TRUE(handler.m_StateStack.empty());
}

TEST_F(TopoFiltHandlerTest, AFileThatIsNotValidIsToldWithItsName) {
  const std::string path = configuration.write("bad.xml", filterDocument("<other/>"));
  EXPECT_EQ(handler.ParseXmlFile(list, path), ZN_API_XML_FILTER_VALIDATION_ERROR);
  EXPECT_THAT(message(0), StartsWith("XML file being validated:\n" + path +
                                     "\nXML filter validation Error.\nXML validation failed. \n"
                                     "\nError at file " +
                                     path + ", line 1, char 86\n"));
}

TEST_F(TopoFiltHandlerTest, AFileThatIsNotThereIsAFailedValidation) {
  EXPECT_EQ(handler.ParseXmlFile(list, "/no/such.xml"), ZN_API_XML_FILTER_VALIDATION_ERROR);
  EXPECT_THAT(message(0), StartsWith("XML file being validated:\n/no/such.xml\n"
                                     "XML filter validation Error.\n"));
  configuration.remove("TopoFilters.xml");
  EXPECT_EQ(handler.ParseDefaultFile(list), ZN_API_XML_FILTER_VALIDATION_ERROR);
  EXPECT_THAT(message(1), StartsWith("XML file being validated:\n" +
                                     configuration.path("TopoFilters.xml") + "\n"));
}

TEST_F(TopoFiltHandlerTest, AFolderInThePlaceOfAFileIsAFailedValidation) {
  const std::string path = configuration.path("TopoFilters.xml");
  configuration.remove("TopoFilters.xml");
  std::filesystem::create_directory(path);
  EXPECT_EQ(handler.ParseXmlFile(list, path), ZN_API_XML_FILTER_VALIDATION_ERROR);
  EXPECT_EQ(handler.ParseDefaultFile(list), ZN_API_XML_FILTER_VALIDATION_ERROR);
  ASSERT_EQ(list.GetMessageCount(), 2);
  for (const int i : {0, 1}) {
    EXPECT_EQ(message(i), "XML file being validated:\n" + path +
                              "\nXML filter validation Error.\nXML validation failed. \n"
                              "\nFatal Error at file " +
                              path + ", line 0, char 0\n  Message: It is not a regular file.\n");
  }
}

TEST_F(TopoFiltHandlerTest, WithoutASchemaNothingIsValid) {
  configuration.remove("TopoFilter.xsd");
  EXPECT_EQ(handler.ParseDefaultFile(list), ZN_API_XML_FILTER_VALIDATION_ERROR);
  EXPECT_THAT(message(0), HasSubstr("TopoFilter.xsd, line 0, char 0\n  Message: The file can't be "
                                    "read"));
}

// ---- transformation: 37 -----------------------------------------------------------------------

TEST_F(TopoFiltHandlerTest, AStylesheetThatIsNotThereFailsTheTransformation) {
  configuration.remove("Filter2IFilter.xsl");
  EXPECT_EQ(parse(filterDocument("")), ZN_API_XML_FILTER_TRANSFORMATION_ERROR);
  const std::string path = configuration.path("Filter2IFilter.xsl");
  expectOneMessage("XML being transformed:\n" + filterDocument("") +
                   "\nXML filter transformation error.\n"
                   "\nFatal Error at file " +
                   path +
                   ", line 0, char 0\n"
                   "  Message: The file can't be read: No such file or directory.\n");
}

TEST_F(TopoFiltHandlerTest, AStylesheetThatFailsIsToldWithTheFilesName) {
  configuration.write("Filter2IFilter.xsl",
                      "<xsl:stylesheet version='1.0' "
                      "xmlns:xsl='http://www.w3.org/1999/XSL/Transform'><xsl:template match='/'>"
                      "<xsl:message terminate='yes'>enough</xsl:message></xsl:template>"
                      "</xsl:stylesheet>");
  EXPECT_EQ(handler.ParseDefaultFile(list), ZN_API_XML_FILTER_TRANSFORMATION_ERROR);
  EXPECT_THAT(message(0), AllOf(StartsWith("XML file being transformed:\n" +
                                           configuration.path("TopoFilters.xml") +
                                           "\nXML filter transformation error.\n"),
                                HasSubstr("enough")));
  EXPECT_THAT(handler.m_FiltMap, IsEmpty());
}

TEST_F(TopoFiltHandlerTest, AStylesheetThatIsNoneFailsTheTransformation) {
  configuration.write("Filter2IFilter.xsl", "<a/>");
  EXPECT_EQ(parse(filterDocument("")), ZN_API_XML_FILTER_TRANSFORMATION_ERROR);
  EXPECT_THAT(message(0), HasSubstr("It is no stylesheet."));
}

// ---- reading: 56 ------------------------------------------------------------------------------

TEST_F(TopoFiltHandlerTest, AnIntermediateFormThatIsBrokenGivesTwoMessages) {
  EXPECT_EQ(parse(raw("<iFilters><iFilter name='a'>")), ZN_API_XML_PARSE_ERROR);
  ASSERT_EQ(list.GetMessageCount(), 2) << textOf(list);
  EXPECT_EQ(message(0),
            "line 1, char 67: input ended before all started tags were ended; last tag started is "
            "'iFilter'");
  EXPECT_EQ(message(1),
            "TvXplMsg exception when parsing xml [\n"
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?><iFilters><iFilter name='a'>\n]");
  EXPECT_THAT(handler.m_FiltMap, ElementsAre(Key("a"))) << "what was read stays";
}

TEST_F(TopoFiltHandlerTest, AnEmptyResultIsAParseError) {
  configuration.write("Filter2IFilter.xsl",
                      "<xsl:stylesheet version='1.0' "
                      "xmlns:xsl='http://www.w3.org/1999/XSL/Transform'>"
                      "<xsl:output method='text'/><xsl:template match='/'/></xsl:stylesheet>");
  EXPECT_EQ(parse(filterDocument("")), ZN_API_XML_PARSE_ERROR);
  ASSERT_EQ(list.GetMessageCount(), 2) << textOf(list);
  EXPECT_EQ(message(1), "TvXplMsg exception when parsing xml [\n\n]");
}

TEST_F(TopoFiltHandlerTest, AResultOfADeclarationAloneIsAParseError) {
  EXPECT_EQ(parse(filterDocument("<raw></raw>")), ZN_API_XML_PARSE_ERROR);
  EXPECT_EQ(message(1),
            "TvXplMsg exception when parsing xml [\n"
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n]");
}

TEST_F(TopoFiltHandlerTest, AnIntermediateFormThatDeclaresATypeIsAParseError) {
  EXPECT_EQ(parse(raw("<!DOCTYPE iFilters SYSTEM 'file:///etc/hosts'><iFilters/>")),
            ZN_API_XML_PARSE_ERROR);
  EXPECT_THAT(message(0), HasSubstr("document type declaration"));
}

/// A handler that meets what no reader throws.
class ThrowingHandler : public OpenHandler {
 public:
  void StartDocument() override { throw 42; }
};

TEST_F(TopoFiltHandlerTest, AnythingElseThatIsThrownGivesOneMessage) {
  ThrowingHandler throwing;
  EXPECT_EQ(throwing.ParseXmlString(list, raw("<iFilters/>")), ZN_API_XML_PARSE_ERROR);
  expectOneMessage(
      "Unknown exception when parsing xml [\n"
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?><iFilters/>\n]");
}

TEST_F(TopoFiltHandlerTest, AfterABrokenFormALaterDocumentsElementsMatchNothing) {
  EXPECT_EQ(parse(raw("<iFilters><iFilter name='a'>")), ZN_API_XML_PARSE_ERROR);
  EXPECT_EQ(parse(filterDocument(conditionElement("b", "Node", "x"))), 0);
  EXPECT_THAT(handler.m_FiltMap, ElementsAre(Key("a")));
  OpenHandler other;
  EXPECT_EQ(other.ParseXmlString(list, filterDocument(conditionElement("b", "Node", "x"))), 0);
}

// ---- substitution: 53, 41, 54, 38 -------------------------------------------------------------

TEST_F(TopoFiltHandlerTest, ALoneDelimiterFailsThisParseAndEveryLaterOne) {
  EXPECT_EQ(parse(filterDocument(conditionElement("a", "Node", " x # y "))),
            ZN_API_XML_FILTER_FILE_UNBALANCED_DELIMITERS);
  expectOneMessage("Unbalanced delimiters found in filterstring substitution for [a].");
  EXPECT_EQ(parse(filterDocument(conditionElement("b", "Node", "fine"))),
            ZN_API_XML_FILTER_FILE_UNBALANCED_DELIMITERS);
  EXPECT_EQ(handler.finalOf("b"), "fine") << "and yet it is there";
}

TEST_F(TopoFiltHandlerTest, ACircleIsToldAndItsFiltersStay) {
  EXPECT_EQ(parse(filterDocument(conditionElement("a", "Node", "#b#") +
                                 conditionElement("b", "Node", "#a#"))),
            ZN_API_XML_FILTER_FILE_CIRCULAR_REF_ERROR);
  expectOneMessage("Circular reference found in filter string substitution.");
  EXPECT_THAT(handler.m_FiltMap, ElementsAre(Key("a"), Key("b")));
}

TEST_F(TopoFiltHandlerTest, AnUnknownNameIsToldAndLeavesAnEmptyFilter) {
  EXPECT_EQ(parse(filterDocument(conditionElement("a", "Node", "#nobody#"))),
            ZN_API_XML_FILTER_KEY_NOT_FOUND_ERROR);
  expectOneMessage("Filter key [nobody] not found in filter string substitution.");
  EXPECT_EQ(handler.getFilterNameDesc().count("nobody"), 1U);
  ZNTopoAPIStatus status;
  EXPECT_THAT(*handler.ExecFilter(list, "nobody", status), testing::IsEmpty());
  EXPECT_EQ(status.getStatus(), ZN_API_XML_FILTER_NAME_NOT_FOUND_ERROR);
}

TEST_F(TopoFiltHandlerTest, AConditionThatGrowsTooLargeIsNamed) {
  EXPECT_EQ(parse(filterDocument(conditionElement("a", "Node", "#b##b#") +
                                 conditionElement("b", "Node", std::string(600'000, 'x')))),
            ZN_API_XML_FILTER_SUBSTITUTION_ERROR);
  expectOneMessage(
      "The condition of filter [a] has more than 1000000 bytes with its references expanded.");
}

// ---- what is logged ---------------------------------------------------------------------------

TEST(TopoFiltHandlerLogTest, FailuresOfReadingAndExpandingGoToThePlatformsLog) {
  inFreshProcess([] {
    const FilterConfiguration configuration;
    const Scratch scratch;
    setEnv("TV_LOG", scratch.path("log"));
    OpenHandler handler;
    TvXplMsg::MessageList_t list;
    EXPECT_EQ(handler.ParseXmlString(list, filterDocument(conditionElement("a", "Node", "#"))),
              ZN_API_XML_FILTER_FILE_UNBALANCED_DELIMITERS);
    EXPECT_THAT(scratch.read("log"), HasSubstr("Unbalanced delimiters found"));
    EXPECT_EQ(handler.ParseXmlString(list, filterDocument("<raw></raw>")), ZN_API_XML_PARSE_ERROR);
    EXPECT_THAT(scratch.read("log"), HasSubstr("invalid document structure"));
  });
}

TEST(TopoFiltHandlerLogTest, TheStepsAreTraced) {
  inFreshProcess([] {
    const FilterConfiguration configuration;
    const Scratch scratch;
    setEnv("TV_TRACE", scratch.path("trace"));
    {
      OpenHandler handler;
      TvXplMsg::MessageList_t list;
      EXPECT_EQ(handler.ParseDefaultFile(list), 0) << textOf(list);
      EXPECT_EQ(handler.ParseXmlString(list, "<x/>"), ZN_API_XML_FILTER_VALIDATION_ERROR);
      EXPECT_EQ(handler.ParseXmlString(list, filterDocument("<raw></raw>")),
                ZN_API_XML_PARSE_ERROR);
      for (const char* condition : {"#", "#a#", "#b#"}) {
        OpenHandler().ParseXmlString(list,
                                     filterDocument(conditionElement("a", "Node", condition)));
      }
    }
    const auto lines = linesOf(scratch.read("trace"));
    const std::pair<int, std::string> steps[] = {
        {9, "Parsing file " + configuration.path("TopoFilters.xml")},
        {9, "Parsing: <x/>"},
        {9, "About to transform"},
        {9, "Intermediate XML form:<?xml version=\"1.0\" encoding=\"UTF-8\"?><iFilters>"},
        {9, "Adding FiltMap[up].Where = ' NODE.status = 1 '"},
        {4, "XML being validated:\\n<x/>\\nXML filter validation error.\\n"},
        {4, "invalid document structure"},
        {4, "Unbalanced delimiters found in filterstring substitution for [a]."},
        {4, "Circular reference found in filter string substitution."},
        {4, "Filter key [b] not found in filter string substitution."},
        {25, "StartElement iFilter name=\"up\" objectType=\"Node\""},
        {25, "Characters  NODE.status = 1 "},
        {25, "TrimUnneededWhiteSpace trimmed [ NODE.status = 1 ]"},
    };
    for (const auto& [level, text] : steps) {
      EXPECT_THAT(
          lines, Contains(AllOf(HasSubstr(" " + std::to_string(level) + " ../"), HasSubstr(text))));
    }
    for (const char* scope : {"enter TopoFiltHandler::cleanup", "leave TopoFiltHandler::cleanup"}) {
      EXPECT_THAT(lines, Contains(HasSubstr(scope)));
    }
  });
}

}  // namespace
}  // namespace zntopo::test
