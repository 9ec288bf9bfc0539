// Attribute filters and XML filters.

#include "tests/faults/QuestionRows.h"
#include "tests/support/AttributeFilters.h"
#include "tests/support/FilterConfiguration.h"

namespace zntopo::test {
namespace {

// A request for no node follows the filter's failure.
const std::vector<Ending> kNodeObjects = {{"select TopologyReady", ZN_API_DB_NOT_READY},
                                          {"select nwnode.objid", ZN_API_EMPTY_OBJID_LIST}};

constexpr char kJoined[] = " NODE.iplevel = 4 and IF.iplevel = 4 and ADDR.iplevel = 4 ";

std::string documentOfFilters() {
  return filterDocument(conditionElement("nodes", "Node", " NODE.iplevel = 4 ") +
                        conditionElement("interfaces", "Interface", " IF.iplevel = 4 ") +
                        conditionElement("addresses", "Address", " ADDR.iplevel = 4 ") +
                        conditionElement("joined nodes", "Node", kJoined) +
                        conditionElement("joined interfaces", "Interface", kJoined) +
                        conditionElement("joined addresses", "Address", kJoined));
}

/// A facade that knows the filters. Parsing takes longer than all that is asked here, so it is done
/// once.
OpenImpl& filtered() {
  static auto* const impl = [] {
    const FilterConfiguration configuration;
    auto* const made = new OpenImpl;
    Status status;
    EXPECT_EQ(made->ParseXmlString(documentOfFilters(), status), ZN_API_SUCCESS)
        << status.getAuxMsg();
    return made;
  }();
  return *impl;
}

}  // namespace

// Of the questions of XML filters those which do not ask for readiness first have no other
// statement in front that would tell of a connection.
std::vector<Question> topoFilterQuestions() {
  return {
      {.name = "getNodeIDsByTopoFilter",
       .ask =
           [](OpenImpl&, Status& status) {
             return filtered().getNodeIDsByTopoFilter("joined nodes", status)->size();
           },
       .hidesConnection = true},
      {.name = "getInterfaceIDsByTopoFilter",
       .ask =
           [](OpenImpl&, Status& status) {
             return filtered().getInterfaceIDsByTopoFilter("joined interfaces", status)->size();
           },
       .hidesConnection = true},
      {.name = "getAddresseIDsByTopoFilter",
       .ask =
           [](OpenImpl&, Status& status) {
             return filtered().getAddresseIDsByTopoFilter("joined addresses", status)->size();
           },
       .hidesConnection = true},
      {.name = "getNodesByTopoFilter",
       .ask =
           [](OpenImpl&, Status& status) {
             return filtered().getNodesByTopoFilter("nodes", status)->size();
           },
       .endings = kGated,
       .hidesConnection = true},
      {.name = "getInterfacesByTopoFilter",
       .ask =
           [](OpenImpl&, Status& status) {
             return filtered().getInterfacesByTopoFilter("interfaces", status)->size();
           },
       .endings = kGated,
       .hidesConnection = true},
      {.name = "getAddressesByTopoFilter",
       .ask =
           [](OpenImpl&, Status& status) {
             return filtered().getAddressesByTopoFilter("addresses", status)->size();
           },
       .endings = kGated,
       .finds = Finds::Nothing,
       .hidesConnection = true},
      {.name = "getAddressesOfTopoFilter",
       .ask =
           [](OpenImpl&, Status& status) {
             return filtered().getAddressesOfTopoFilter("addresses", status)->size();
           },
       .endings = kGated,
       .hidesConnection = true},
  };
}

std::vector<Question> filterQuestions() {
  return {
      {"getNodeIDsByFilter",
       [](OpenImpl& impl, Status& status) { return impl.getNodeIDsByFilter({}, status)->size(); },
       kGated},
      {"getNodeIDsByFilter, by an address",
       [](OpenImpl& impl, Status& status) {
         return impl.getNodeIDsByFilter(withAddress("10.1.1.2"), status)->size();
       },
       kGated},
      {"getNodesByFilter",
       [](OpenImpl& impl, Status& status) { return impl.getNodesByFilter({}, status)->size(); },
       kNodeObjects},
      {"getSubnetIDsByFilter",
       [](OpenImpl& impl, Status& status) {
         return impl.getSubnetIDsByFilter({}, status)->size();
       }},
      {"getEntityIDsByFilter",
       [](OpenImpl& impl, Status& status) {
         return impl.getEntityIDsByFilter(named("vlan%"), status)->size();
       }},
      {"getAddressIDsByFilter",
       [](OpenImpl& impl, Status& status) {
         return impl.getAddressIDsByFilter({}, status)->size();
       },
       kGated},
  };
}

}  // namespace zntopo::test
