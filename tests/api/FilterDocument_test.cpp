#include "zntopo/api/detail/FilterDocument.h"

#include <gtest/gtest.h>

namespace zntopo::detail {
namespace {

constexpr const char* kDocumentHead =
    "<filters xmlns=\"http://corvane.example/marlo/NetworkTopology/TopologyFilter\" "
    "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" "
    "xsi:schemaLocation=\"http://corvane.example/marlo/NetworkTopology/TopologyFilter "
    "TopoFilter.xsd\"> <nodeAssertion name=\"op1\"><operator oper=\"NOOP\"><attribute>";
constexpr const char* kDocumentTail = "</attribute></operator></nodeAssertion></filters>\n";

TEST(FilterDocumentTest, AFilterDocumentHoldsAPatternOfNamesOrOfAddresses) {
  EXPECT_EQ(nodeFilterDocument("edge*", 4),
            std::string(kDocumentHead) + "<name><string>edge*</string></name>" + kDocumentTail);
  EXPECT_EQ(nodeFilterDocument("10.1.*.*", 0),
            std::string(kDocumentHead) +
                "<IPAddress> <IPv4><address>10.1.*.*</address><OADId>0</OADId></IPv4> "
                "</IPAddress>" +
                kDocumentTail);
}

TEST(FilterDocumentTest, ANegativeRouteDistinguisherIsLeftOutOfAFilterDocument) {
  for (const int rd : {-1, -2}) {
    EXPECT_EQ(nodeFilterDocument("10.1.2.3", rd),
              std::string(kDocumentHead) +
                  "<IPAddress> <IPv4><address>10.1.2.3</address></IPv4> </IPAddress>" +
                  kDocumentTail);
  }
}

TEST(FilterDocumentTest, APatternGoesIntoADocumentAsItStands) {
  EXPECT_NE(nodeFilterDocument("<&>", -1).find("<address><&></address>"), std::string::npos);
}

}  // namespace
}  // namespace zntopo::detail
