#include "zntopo/filter/XMLParseHandler.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/parsers/SAXParser.hpp>
#include <xercesc/sax/SAXParseException.hpp>

#include "zntopo/platform/tvxpl/XmlLibrary.h"

namespace zntopo {
namespace {

using testing::ElementsAre;

class XMLParseHandlerTest : public testing::Test {
 protected:
  void read(const std::string& text) {
    xercesc::SAXParser parser;
    parser.setDocumentHandler(&handler);
    parser.setErrorHandler(&handler);
    parser.parse(xercesc::MemBufInputSource(reinterpret_cast<const XMLByte*>(text.data()),
                                            text.size(), "text"));
  }
  std::string diagnostics() const {
    std::string text = "of before";
    handler.retreiveErrorString(text);
    return text;
  }

  TvXplXml::XmlLibraryUse library;
  XMLParseHandler handler;
};

TEST_F(XMLParseHandlerTest, WhatIsSeenIsCounted) {
  read("<a x='1' y='2'>four<b z='3'/></a>");
  EXPECT_EQ(handler.getElementCount(), 2U);
  EXPECT_EQ(handler.getAttributeCount(), 3U);
  EXPECT_EQ(handler.getCharacterCount(), 4U);
  EXPECT_EQ(handler.getErrorCount(), 0U);
  EXPECT_EQ(handler.getWarningCount(), 0U);
  EXPECT_FALSE(handler.hasEmbeddedURIs());
  EXPECT_EQ(diagnostics(), "");
  read("<a/>");
  EXPECT_EQ(handler.getElementCount(), 3U) << "counts add up over documents";
  handler.resetStatistics();
  EXPECT_EQ(handler.getElementCount() + handler.getAttributeCount() + handler.getCharacterCount(),
            0U);
}

TEST_F(XMLParseHandlerTest, EmbeddedFilesAreASetOfNames) {
  read(
      "<a><HostIDFile>b.xml</HostIDFile><HostIDFile>a.xml</HostIDFile>"
      "<HostIDFile>b.xml</HostIDFile><other>c.xml</other></a>");
  EXPECT_TRUE(handler.hasEmbeddedURIs());
  EXPECT_THAT(handler.getEmbeddedURIs(), ElementsAre("a.xml", "b.xml"));
}

TEST_F(XMLParseHandlerTest, OfATextInPiecesTheFirstIsTaken) {
  read("<a><HostIDFile>one&amp;two</HostIDFile></a>");
  EXPECT_THAT(handler.getEmbeddedURIs(), ElementsAre("one"));
}

TEST_F(XMLParseHandlerTest, AnEmptyElementTakesTheNextTextThereIs) {
  read("<a><HostIDFile/>behind<b>later</b></a>");
  EXPECT_THAT(handler.getEmbeddedURIs(), ElementsAre("behind"));
}

TEST_F(XMLParseHandlerTest, ThePrefixBelongsToTheName) {
  read("<a xmlns:f='urn:f'><f:HostIDFile>a.xml</f:HostIDFile></a>");
  EXPECT_FALSE(handler.hasEmbeddedURIs());
}

TEST_F(XMLParseHandlerTest, DiagnosticsHaveThreeHeadings) {
  const xercesc::SAXParseException exception(u"told \u00E4", u"", u"file.xml", 3, 7);
  handler.warning(exception);
  handler.error(exception);
  handler.fatalError(exception);
  const std::string rest = "file.xml, line 3, char 7\n  Message: told \xC3\xA4\n";
  EXPECT_EQ(diagnostics(), "\nWarning at file " + rest + "\nError at file " + rest +
                               "\nFatal Error at file " + rest);
  EXPECT_EQ(handler.getErrorCount(), 2U);
  EXPECT_EQ(handler.getWarningCount(), 1U);
  handler.resetStatistics();
  EXPECT_EQ(handler.getErrorCount() + handler.getWarningCount(), 0U);
  EXPECT_NE(diagnostics(), "") << "only the counts go back";
}

TEST_F(XMLParseHandlerTest, TheParsersErrorsArrive) {
  read("<a>\n<b></a>");
  EXPECT_EQ(handler.getErrorCount(), 1U);
  EXPECT_EQ(diagnostics(),
            "\nFatal Error at file text, line 2, char 6\n"
            "  Message: expected end of tag 'b'\n");
}

}  // namespace
}  // namespace zntopo
