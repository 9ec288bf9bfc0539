// The loading of XML filters by way of the facade.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/CapturedLog.h"
#include "tests/support/FilterConfiguration.h"
#include "zntopo/api/ZNTopoAPI.h"

namespace zntopo::test {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Key;
using testing::UnorderedElementsAre;

class TopoFilterDefinitionsTest : public testing::Test {
 protected:
  void expectFailure(int number, ZNTopoStatus expected, const std::string& text) {
    EXPECT_EQ(number, expected);
    EXPECT_EQ(status.getStatus(), expected);
    EXPECT_THAT(status.getAuxMsg(), HasSubstr(text));
    status.reset();
  }

  FilterConfiguration configuration;
  ZNTopoAPI api;
  ZNTopoAPIStatus status;
};

TEST_F(TopoFilterDefinitionsTest, EachWayLoadsIntoTheSameInstance) {
  EXPECT_EQ(api.ParseDefaultFile(status), ZN_API_SUCCESS) << status.getAuxMsg();
  EXPECT_EQ(api.ParseXmlString(filterDocument(conditionElement("text", "Node", "x")), status), 0);
  const std::string path =
      configuration.write("own.xml", filterDocument(conditionElement("file", "Address", "#up#")));
  EXPECT_EQ(api.ParseXmlFile(path, status), 0);
  EXPECT_TRUE(status.isOK());
  EXPECT_EQ(status.getAuxMsg(), "");
  const auto names = api.getDefaultFileFilterName(status);
  EXPECT_THAT(names, UnorderedElementsAre(Key("up"), Key("upAndNamed"), Key("text"), Key("file")));
  for (const auto& [name, value] : names)
    EXPECT_EQ(value, std::pair(E_Node, std::string())) << name;
}

TEST_F(TopoFilterDefinitionsTest, FiltersBelongToTheirInstance) {
  EXPECT_EQ(api.ParseDefaultFile(status), 0);
  ZNTopoAPI other;
  EXPECT_THAT(other.getDefaultFileFilterName(status), IsEmpty());
}

TEST_F(TopoFilterDefinitionsTest, AskingForTheNamesResetsTheStatus) {
  status = ZNTopoAPIStatus(ZN_API_NO_PATH, "of before\n");
  EXPECT_THAT(api.getDefaultFileFilterName(status), IsEmpty());
  EXPECT_TRUE(status.isOK());
  EXPECT_EQ(status.getAuxMsg(), "");
}

TEST_F(TopoFilterDefinitionsTest, AFailureGivesItsNumberAndItsText) {
  expectFailure(api.ParseXmlString("<x/>", status), ZN_API_XML_FILTER_VALIDATION_ERROR,
                "XML being validated:\n<x/>\nXML filter validation error.\n");
  expectFailure(api.ParseXmlFile("/no/such.xml", status), ZN_API_XML_FILTER_VALIDATION_ERROR,
                "XML file being validated:\n/no/such.xml\nXML filter validation Error.\n");
  expectFailure(api.ParseXmlString(filterDocument("<raw/>"), status), ZN_API_XML_PARSE_ERROR,
                "TvXplMsg exception when parsing xml [\n");
  expectFailure(api.ParseXmlString(filterDocument(conditionElement("a", "Node", "#b#")), status),
                ZN_API_XML_FILTER_KEY_NOT_FOUND_ERROR,
                "Filter key [b] not found in filter string substitution.\n");
  expectFailure(
      ZNTopoAPI().ParseXmlString(filterDocument(conditionElement("a", "Node", "#")), status),
      ZN_API_XML_FILTER_FILE_UNBALANCED_DELIMITERS,
      "Unbalanced delimiters found in filterstring substitution for [a].\n");
  expectFailure(
      ZNTopoAPI().ParseXmlString(filterDocument(conditionElement("a", "Node", "#a#")), status),
      ZN_API_XML_FILTER_FILE_CIRCULAR_REF_ERROR,
      "Circular reference found in filter string substitution.\n");
  const std::string large = conditionElement("b", "Node", std::string(600'000, 'x'));
  expectFailure(ZNTopoAPI().ParseXmlString(
                    filterDocument(conditionElement("a", "Node", "#b##b#") + large), status),
                ZN_API_XML_FILTER_SUBSTITUTION_ERROR,
                "The condition of filter [a] has more than 1000000 bytes");
  configuration.remove("Filter2IFilter.xsl");
  expectFailure(api.ParseDefaultFile(status), ZN_API_XML_FILTER_TRANSFORMATION_ERROR,
                "XML filter transformation error.\n");
}

TEST_F(TopoFilterDefinitionsTest, TheTextOfAFailureIsCutAndLogged) {
  const CapturedLog log(MC_CRITICAL);
  const std::string document = "<x>" + std::string(5000, 'y') + "</x>";
  EXPECT_EQ(api.ParseXmlString(document, status), ZN_API_XML_FILTER_VALIDATION_ERROR);
  const std::string text = ("XML being validated:\n" + document).substr(0, 2999);
  EXPECT_EQ(status.getAuxMsg(), text + "\n");
  EXPECT_THAT(log.text(), HasSubstr(text + "\n"));
}

TEST_F(TopoFilterDefinitionsTest, ASuccessLeavesTheStatusAlone) {
  status = ZNTopoAPIStatus(ZN_API_NO_PATH, "of before\n");
  EXPECT_EQ(api.ParseDefaultFile(status), 0);
  EXPECT_EQ(status.getStatus(), ZN_API_NO_PATH);
  EXPECT_EQ(status.getAuxMsg(), "of before\n");
}

}  // namespace
}  // namespace zntopo::test
