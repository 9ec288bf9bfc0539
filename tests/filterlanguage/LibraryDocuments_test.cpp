#include "tests/filterlanguage/LanguageTest.h"
#include "tests/support/ApiFixture.h"
#include "zntopo/api/detail/FilterDocument.h"

/// @file
/// The documents that the library itself writes are of the language.

namespace zntopo::test {
namespace {

class LibraryDocumentsTest : public LanguageTest {
 protected:
  void SetUp() override {
    LanguageTest::SetUp();
    if (!store_) return;
    store_->addNode(uuid(1), "edge-1.net");
    store_->addNode(uuid(2), "edge-2.net", {{"PubV4ManagementAdd", "10.1.0.2"}});
    store_->addInterface(uuid(1, 'b'), uuid(1), "eth0");
    store_->addAddress(uuid(1, 'c'), uuid(1, 'b'), uuid(1), "10.1.0.1",
                       {{"RouteDistinguisher", 4}});
  }

  Ids found(const std::string& pattern, int rd = -1) {
    parse(detail::nodeFilterDocument(pattern, rd));
    return HasFatalFailure() ? Ids() : selected("op1");
  }
};

ZNTOPO_ON_ENGINES(LibraryDocumentsTest, kMainEngines);

TEST_P(LibraryDocumentsTest, FindNodesByPatternsOfNames) {
  EXPECT_EQ(found("edge-*"), (Ids{uuid(1), uuid(2)}));
  EXPECT_EQ(found("edge-?.net", 4), (Ids{uuid(1), uuid(2)}));
  EXPECT_EQ(found("edge-2.net"), Ids{uuid(2)});
  EXPECT_EQ(found("edge"), Ids{});
}

TEST_P(LibraryDocumentsTest, FindNodesByPatternsOfAddresses) {
  EXPECT_EQ(found("10.1.*.*"), (Ids{uuid(1), uuid(2)}));
  EXPECT_EQ(found("10.1.0.2"), Ids{uuid(2)});
  EXPECT_EQ(found("10.1.*", 4), Ids{uuid(1)});
  EXPECT_EQ(found("10.1.*", 5), Ids{});
}

TEST_P(LibraryDocumentsTest, TakeAnyTextWithoutLettersAsAnAddress) {
  for (const char* text : {"1", "1 2", "2001:1::1", "'; 1 --", "#", "##", "\"", "10.1.0.1/8"}) {
    EXPECT_EQ(found(text, 0), Ids{}) << text;
  }
  EXPECT_EQ(found("*"), (Ids{uuid(1), uuid(2)}));
}

}  // namespace
}  // namespace zntopo::test
