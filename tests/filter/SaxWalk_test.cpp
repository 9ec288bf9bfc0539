// How the intermediate form is read, element by element.

#include "tests/filter/FilterFixture.h"
#include "zntopo/platform/tvxpl/TvXplIo.h"
#include "zntopo/platform/tvxpl/TvXplXml.h"

namespace zntopo::test {
namespace {

using testing::IsEmpty;
using testing::Key;
using testing::UnorderedElementsAre;

class SaxWalkTest : public testing::Test {
 protected:
  /// Reads a text as loading does, without what comes before and after.
  void read(const std::string& intermediate) {
    handler.m_StateStack.push(handler.m_Context);
    TvXplXml::SAXParser_t parser;
    parser.SetContentHandler(&handler);
    TvXplIo::CharArrayInputStream_t stream(intermediate.data(), intermediate.size());
    parser.Parse(TvXplXml::SAX::InputSource_t(stream));
  }
  std::string whereOf(const std::string& name) {
    return handler.m_FiltMap.at(name).getWhereQueryString();
  }

  OpenHandler handler;
};

TEST_F(SaxWalkTest, FiltersAndAssertionsAreReadAlike) {
  read(
      "<iFilters>"
      "<iFilter objectType='Node' name='n'><whereQueryStr> NODE.x = 1 </whereQueryStr></iFilter>"
      "<iAssertion objectType='Address' name='a'><whereQueryStr> ADDR.x = 1 </whereQueryStr>"
      "</iAssertion></iFilters>");
  EXPECT_THAT(handler.m_FiltMap, UnorderedElementsAre(Key("n"), Key("a")));
  EXPECT_EQ(whereOf("n"), " NODE.x = 1 ");
  EXPECT_EQ(handler.finalOf("n"), " NODE.x = 1 ");
  EXPECT_EQ(handler.m_FiltMap.at("a").getObjType(), E_Address);
}

TEST_F(SaxWalkTest, ADocumentMayWrapTheFilters) {
  read("<Document><iFilters><iFilter name='n'/></iFilters></Document>");
  EXPECT_THAT(handler.m_FiltMap, UnorderedElementsAre(Key("n")));
}

TEST_F(SaxWalkTest, OtherElementsAndPlacesAreSteppedOver) {
  read("<iFilter name='b'/>");
  read("<Document><iFilter name='c'/></Document>");
  read("<iFilters><whereQueryStr>text</whereQueryStr><Document/><iFilters/></iFilters>");
  EXPECT_THAT(handler.m_FiltMap, IsEmpty());
}

TEST_F(SaxWalkTest, AnUnknownElementAroundThemChangesNothing) {
  read("<other><iFilters><iFilter name='a'/></iFilters></other>");
  EXPECT_THAT(handler.m_FiltMap, UnorderedElementsAre(Key("a")));
}

TEST_F(SaxWalkTest, AnElementInAFilterLeavesItsPlaceAsItIs) {
  read(
      "<iFilters><iFilter name='a'><more><whereQueryStr>w</whereQueryStr></more></iFilter>"
      "</iFilters>");
  EXPECT_EQ(whereOf("a"), "w") << "the element in between changes nothing";
}

TEST_F(SaxWalkTest, NamesAreComparedWithTheirPrefix) {
  read("<x:iFilters xmlns:x='urn:x'><iFilter name='a'/></x:iFilters>");
  EXPECT_THAT(handler.m_FiltMap, IsEmpty());
}

TEST_F(SaxWalkTest, AFilterWithoutAConditionStaysEmpty) {
  read("<iFilters><iFilter objectType='Interface' name='a'/></iFilters>");
  EXPECT_EQ(whereOf("a"), "");
  EXPECT_EQ(handler.finalOf("a"), "");
  EXPECT_EQ(handler.m_FiltMap.at("a").getObjType(), E_Interface);
}

TEST_F(SaxWalkTest, AnObjectTypeThatIsNoneLoadsAsUnknown) {
  read(
      "<iFilters><iFilter objectType='Vlan' name='a'><whereQueryStr>w</whereQueryStr></iFilter>"
      "</iFilters>");
  EXPECT_EQ(handler.m_FiltMap.at("a").getObjType(), E_Unknown);
  EXPECT_EQ(whereOf("a"), "w");
}

TEST_F(SaxWalkTest, AttributesThatAreNotThereAreEmpty) {
  read("<iFilters><iFilter><whereQueryStr>w</whereQueryStr></iFilter></iFilters>");
  EXPECT_EQ(whereOf(""), "w");
  EXPECT_EQ(handler.m_FiltMap.at("").getObjType(), E_Unknown);
}

TEST_F(SaxWalkTest, ALaterFilterOfTheNameReplacesTheEarlierOne) {
  read(
      "<iFilters><iFilter objectType='Node' name='a'><whereQueryStr>w</whereQueryStr></iFilter>"
      "</iFilters>");
  read("<iFilters><iFilter objectType='Address' name='a'/></iFilters>");
  EXPECT_EQ(handler.m_FiltMap.at("a").getObjType(), E_Address);
  EXPECT_EQ(whereOf("a"), "");
}

TEST_F(SaxWalkTest, TextComesWholeHoweverTheReaderCutsIt) {
  const std::string large(100'000, 'y');
  read("<iFilters><iFilter name='a'><whereQueryStr>x &lt; 1 &amp; <![CDATA[<z>]]> '\xC3\xA4" +
       large + "'</whereQueryStr></iFilter></iFilters>");
  EXPECT_EQ(whereOf("a"), "x < 1 & <z> '\xC3\xA4" + large + "'");
}

TEST_F(SaxWalkTest, ACharacterOfTwoUnitsIsNotCutInALongText) {
  for (const std::size_t front : {(1U << 20) - 2, (1U << 20) - 1}) {
    std::string text = "'" + std::string(front - 1, 'y');
    for (int i = 0; i < 100; ++i) text += "\xF0\x9F\x98\x80";
    text += "'";
    read("<iFilters><iFilter name='a'><whereQueryStr>" + text +
         "</whereQueryStr></iFilter>"
         "</iFilters>");
    EXPECT_TRUE(whereOf("a") == text) << front;
  }
}

TEST_F(SaxWalkTest, WhitespaceIsTrimmedOutsideQuotes) {
  read(
      "<iFilters><iFilter name='a'><whereQueryStr> x\t=\n   'a  b' </whereQueryStr></iFilter>"
      "</iFilters>");
  EXPECT_EQ(whereOf("a"), " x= 'a  b' ");
}

TEST_F(SaxWalkTest, TheStackGrowsByOneEntryAReading) {
  for (std::size_t i = 1; i <= 3; ++i) {
    read("<iFilters><iFilter name='a'/></iFilters>");
    EXPECT_EQ(handler.m_StateStack.size(), i);
    EXPECT_EQ(handler.m_Context, TopoFiltHandler::Unset);
  }
}

TEST_F(SaxWalkTest, AfterABrokenDocumentTheHandlerStaysWhereItStopped) {
  EXPECT_THROW(read("<iFilters><iFilter name='a'><whereQueryStr>w"), TvXplMsg::Exception_t);
  EXPECT_EQ(whereOf("a"), "") << "its end was never met";
  read("<iFilters><iFilter name='b'/></iFilters>");
  EXPECT_EQ(handler.m_FiltMap.count("b"), 0U);
  EXPECT_EQ(whereOf("a"), "w") << "the ends of the later document's elements are taken for its own";
}

TEST_F(SaxWalkTest, AnEndWithoutABeginningIsHarmless) {
  handler.EndElement(u"", u"", u"iFilters");
  EXPECT_EQ(handler.m_Context, TopoFiltHandler::Unset);
  read("<iFilters><iFilter name='a'/></iFilters>");
  EXPECT_THAT(handler.m_FiltMap, UnorderedElementsAre(Key("a")));
}

TEST_F(SaxWalkTest, EveryNameIsToldWithTheSameValue) {
  read(
      "<iFilters><iFilter objectType='Address' name='a'><whereQueryStr>w</whereQueryStr>"
      "</iFilter><iFilter objectType='Node' name='b'/></iFilters>");
  const auto names = handler.getFilterNameDesc();
  EXPECT_THAT(names, UnorderedElementsAre(Key("a"), Key("b")));
  for (const auto& [name, value] : names)
    EXPECT_EQ(value, std::pair(E_Node, std::string())) << name;
}

TEST_F(SaxWalkTest, TheTypeIsToldOfAFilterThatIsThere) {
  read("<iFilters><iFilter objectType='Address' name='a'/></iFilters>");
  EntityType type = E_Subnet;
  EXPECT_EQ(handler.getFilterObjType("b", type), 1);
  EXPECT_EQ(type, E_Subnet);
  EXPECT_EQ(handler.getFilterObjType("a", type), 0);
  EXPECT_EQ(type, E_Address);
  EXPECT_EQ(handler.m_FiltMap.count("b"), 0U) << "asking makes no filter";
}

}  // namespace
}  // namespace zntopo::test
