#include "zntopo/bridge/detail/PathDocument.h"

#include <gmock/gmock.h>

#include "tests/support/ApiFixture.h"
#include "tests/support/StoredNetwork.h"

namespace zntopo::test {
namespace {

using namespace zntopo::bridge;
using testing::HasSubstr;
using testing::Not;

using Path = std::list<ZNRefPtr<ZNInterface>>;

class PathDocumentTest : public ApiTest {
 protected:
  StoredNetwork network() { return StoredNetwork(*store); }
};

TEST_P(PathDocumentTest, AnEmptyPathHasNothingBetweenItsLines) {
  const Path path;
  EXPECT_EQ(pathDocument("GETL2PATH", "a", "b", {}, &path),
            "\n<GETL2PATH begin = \"a\" end = \"b\">\n</GETL2PATH>\n");
  EXPECT_EQ(pathDocument("GETL2PATH", "a", "b", {}, nullptr),
            "\n<GETL2PATH begin = \"a\" end = \"b\">\n</GETL2PATH>\n");
}

TEST_P(PathDocumentTest, ANodeThatCantBeReadIsNoRouterAndHasEmptyTexts) {
  EXPECT_EQ(ConvertInterfaceListToXML({madeInterface("i1", "gone")}),
            "<NODE>\n"
            "<QRM_OBJECT_ID>NULL</QRM_OBJECT_ID>\n"
            "<RZ_OBJECT_ID>i1</RZ_OBJECT_ID>\n"
            "<PARENT_OBJECT_ID>gone</PARENT_OBJECT_ID>\n"
            "<OSI_LEVEL>2</OSI_LEVEL>\n"
            "<NAME></NAME>\n"
            "<DESCRIPTION></DESCRIPTION>\n"
            "<IP_ADDRESS></IP_ADDRESS>\n"
            "<IS_ATM>0</IS_ATM>\n"
            "<IS_FRAMERELAY>0</IS_FRAMERELAY>\n"
            "<BOARD_NUMBER></BOARD_NUMBER>\n"
            "<PORT_NUMBER></PORT_NUMBER>\n"
            "<INTERFACE_NAME>-</INTERFACE_NAME>\n"
            "</NODE>\n");
}

TEST_P(PathDocumentTest, ARoutersInterfaceWithoutAnAddressHasNoElementForOne) {
  network().router("r1");
  EXPECT_EQ(ConvertInterfaceListToXML({madeInterface("i1", "r1")}),
            "<NODE>\n"
            "<QRM_OBJECT_ID>NULL</QRM_OBJECT_ID>\n"
            "<RZ_OBJECT_ID>i1</RZ_OBJECT_ID>\n"
            "<PARENT_OBJECT_ID>r1</PARENT_OBJECT_ID>\n"
            "<OSI_LEVEL>3</OSI_LEVEL>\n"
            "<NAME>r1.net</NAME>\n"
            "<DESCRIPTION></DESCRIPTION>\n"
            "<IS_OSPF>0</IS_OSPF>\n"
            "<IS_BGP>0</IS_BGP>\n"
            "<IS_IPV6>0</IS_IPV6>\n"
            "<IS_HSRP>0</IS_HSRP>\n"
            "<IS_MPLS>0</IS_MPLS>\n"
            "</NODE>\n");
}

TEST_P(PathDocumentTest, ARoutersInterfaceShowsItsFirstAddress) {
  network().router("r1");
  network().address("r1", "10.0.0.1");
  ZNTopoAPI api;
  const auto interface = api.getInterfaceByIPV4("10.0.0.1", status, -1);
  ASSERT_TRUE(status.isOK()) << status.getAuxMsg();
  EXPECT_THAT(ConvertInterfaceListToXML({interface}),
              HasSubstr("</DESCRIPTION>\n<IP_ADDRESS>10.0.0.1</IP_ADDRESS>\n<IS_OSPF>"));
}

TEST_P(PathDocumentTest, APathOfAnyLengthIsWrittenWhole) {
  const Path path(1000, madeInterface("i1", "gone"));
  const std::string one = ConvertInterfaceListToXML({madeInterface("i1", "gone")});
  EXPECT_GT(1000 * one.size(), 10U * 32768U);
  std::string all;
  for (int i = 0; i < 1000; ++i) all += one;
  EXPECT_EQ(ConvertInterfaceListToXML(path), all);
}

TEST_P(PathDocumentTest, NothingIsEscapedAndAnElementThatIsNullIsLeftOut) {
  const Path path{ZNRefPtr<ZNInterface>(), madeInterface("<&>", "gone")};
  const std::string document = pathDocument("GETL2PATH", "<", "%s", {}, &path);
  EXPECT_THAT(document, HasSubstr("begin = \"<\" end = \"%s\""));
  EXPECT_THAT(document, HasSubstr("<RZ_OBJECT_ID><&></RZ_OBJECT_ID>"));
  EXPECT_EQ(document.find("<NODE>"), document.rfind("<NODE>"));
}

TEST_P(PathDocumentTest, AFailureHasItsNumberAndItsTextAndNoPath) {
  const Path path{madeInterface("i1", "gone")};
  const std::string document = pathDocument("GETL2PATH", "a", "b", {ZN_API_NO_PATH, "more"}, &path);
  EXPECT_THAT(document, HasSubstr("\n<ERROR_CODE>19</ERROR_CODE>\n<ERROR_MSG>"));
  EXPECT_THAT(document, Not(HasSubstr("<NODE>")));
  EXPECT_THAT(document, Not(HasSubstr("more")));
}

ZNTOPO_ON_ENGINES(PathDocumentTest, kSqlite);

}  // namespace
}  // namespace zntopo::test
