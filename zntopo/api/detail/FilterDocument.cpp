#include "zntopo/api/detail/FilterDocument.h"

#include <algorithm>
#include <cctype>

#include "zntopo/core/ltos.h"
#include "zntopo/filter/FilterNamespace.h"

namespace zntopo::detail {

namespace {

constexpr const char* kSchemaInstance = "http://www.w3.org/2001/XMLSchema-instance";

}  // namespace

std::string nodeFilterDocument(const std::string& pattern, int rd) {
  const auto isLetter = [](unsigned char c) { return std::isalpha(c) != 0; };
  std::string document = std::string("<filters xmlns=\"") + kTopologyFilterNamespace +
                         "\" xmlns:xsi=\"" + kSchemaInstance + "\" xsi:schemaLocation=\"" +
                         kTopologyFilterNamespace +
                         " TopoFilter.xsd\">"
                         " <nodeAssertion name=\"op1\">"
                         "<operator oper=\"NOOP\">"
                         "<attribute>";
  if (std::any_of(pattern.begin(), pattern.end(), isLetter)) {
    document += "<name><string>" + pattern + "</string></name>";
  } else {
    document += "<IPAddress> <IPv4><address>" + pattern + "</address>";
    if (rd > -1) document += "<OADId>" + ltos(rd) + "</OADId>";
    document += "</IPv4> </IPAddress>";
  }
  return document + "</attribute></operator></nodeAssertion></filters>\n";
}

}  // namespace zntopo::detail
