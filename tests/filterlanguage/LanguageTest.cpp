#include "tests/filterlanguage/LanguageTest.h"

#include <algorithm>

#include "tests/filterlanguage/XmlTree.h"
#include "tests/support/Places.h"
#include "tools/network/StoreStatement.h"
#include "zntopo/filter/XMLUtil.h"

namespace zntopo::test {

namespace {

std::string assertion(const std::string& kind, const std::string& name, const std::string& test) {
  return "<" + kind + "Assertion name=\"" + name + "\"><operator oper=\"NOOP\"><attribute>" + test +
         "</attribute></operator></" + kind + "Assertion>";
}

}  // namespace

std::string languageFile(const std::string& name) { return languageFolder() + "/" + name; }

std::string document(const std::string& filters) { return filterDocument(filters); }

std::string nodeFilter(const std::string& test, const std::string& name) {
  return assertion("node", name, test);
}
std::string interfaceFilter(const std::string& test, const std::string& name) {
  return assertion("interface", name, test);
}
std::string addressFilter(const std::string& test, const std::string& name) {
  return assertion("address", name, test);
}

std::string escaped(const std::string& text) {
  std::string result;
  for (const char c : text) {
    switch (c) {
      case '<':
        result += "&lt;";
        break;
      case '>':
        result += "&gt;";
        break;
      case '&':
        result += "&amp;";
        break;
      case '\r':
        result += "&#13;";
        break;
      default:
        result += c;
    }
  }
  return result;
}

std::string intermediate(const std::string& xml) {
  bool isStarted = false;
  std::string error;
  std::string result;
  XMLUtil util(isStarted, error);
  EXPECT_TRUE(isStarted) << error;
  const std::string stylesheet = util.getTopologyXMLConfigPath() + "Filter2IFilter.xsl";
  EXPECT_EQ(util.transform(xml, stylesheet.c_str(), result, error), 0) << error;
  EXPECT_NO_THROW(readXml(result, languageFile("IntermediateTopoFilter.xsd"))) << result;
  return result;
}

void LanguageTest::SetUp() {
  StoreTest::SetUp();
  if (store_) store_->setReady();
}

void LanguageTest::parse(const std::string& xml) {
  TvXplMsg::MessageList_t messages;
  ASSERT_EQ(filters_.ParseXmlString(messages, xml), ZN_API_SUCCESS)
      << messages.Format(TvXplMsg::fRecurse_k).substr(0, 4000);
  intermediate(xml);
}

int LanguageTest::refusal(const std::string& xml, std::string* told) {
  TvXplMsg::MessageList_t messages;
  OpenFilters filters;
  const int status = filters.ParseXmlString(messages, xml);
  if (told) *told = messages.Format(TvXplMsg::fRecurse_k);
  return status;
}

Ids LanguageTest::selected(const std::string& name) {
  TvXplMsg::MessageList_t messages;
  ZNTopoAPIStatus status;
  EntityType type = E_Unknown;
  EXPECT_EQ(filters_.getFilterObjType(name, type), 0) << name;
  const auto found = type == E_Address ? filters_.ExecAddressFilter(messages, name, status)
                                       : filters_.ExecFilter(messages, name, status);
  EXPECT_TRUE(status.isOK()) << name << ": " << messages.Format(TvXplMsg::fRecurse_k) << "\n"
                             << filters_.condition(name);
  Ids ids;
  for (const ObjID& id : *found) ids.push_back(id.getStrValue());
  std::sort(ids.begin(), ids.end());
  EXPECT_EQ(std::adjacent_find(ids.begin(), ids.end()), ids.end()) << name << " gives one twice";
  return ids;
}

Ids LanguageTest::selectedBy(const std::string& xml) {
  parse(xml);
  return HasFatalFailure() ? Ids() : selected("f");
}

Ids LanguageTest::rows(const std::string& sql) {
  TvXplMsg::MessageList_t messages;
  const TvDbil::DbSource_t source(messages, store_->engine().store());
  TvDbil::DbConnection_t connection(messages, &source);
  Ids ids;
  for (const tools::TextRow& row : tools::selectTexts(connection, sql, 1, {})) {
    ids.push_back(row[0]);
  }
  std::sort(ids.begin(), ids.end());
  return ids;
}

}  // namespace zntopo::test
