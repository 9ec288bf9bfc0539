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

/// A facade that knows the filters. Joins are in no filter of the language that is installed.
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

/// A filter in the language that is installed, in a document of its own: what is of IPv4.
/// @param kind the beginning of the elements' names
std::string documentOfIPv4(const std::string& kind) {
  return filterDocument("<" + kind +
                        "Assertion name=\"IPv4\"><operator oper=\"NOOP\"><attribute><ipLevel>"
                        "<state>IPv4</state></ipLevel></attribute></operator></" +
                        kind + "Assertion>");
}

Question questionOf(const char* name, std::function<std::size_t(OpenImpl&, Status&)> ask,
                    Finds finds = Finds::Something) {
  return {.name = name,
          .ask = std::move(ask),
          .endings = kGated,
          .finds = finds,
          .hidesConnection = true};
}

/// A question of a filter that is known.
template <typename Found>
Question known(const char* name, const char* filter,
               Found (ZNTopoAPI_Impl::*query)(const std::string&, Status&),
               Finds finds = Finds::Something) {
  return questionOf(
      name, [=](OpenImpl&, Status& status) { return (filtered().*query)(filter, status)->size(); },
      finds);
}

/// A question of a filter that comes with it.
template <typename Found>
Question parsed(const char* name, const char* kind,
                Found (ZNTopoAPI_Impl::*query)(const std::string&, const std::string&, Status&),
                Finds finds = Finds::Something) {
  return questionOf(
      name,
      [=](OpenImpl& impl, Status& status) {
        return (impl.*query)(documentOfIPv4(kind), "IPv4", status)->size();
      },
      finds);
}

/// Nodes by a pattern, which becomes a filter that comes with the question.
Question patterned(const char* name, const char* pattern) {
  return questionOf(name, [=](OpenImpl& impl, Status& status) {
    return impl.getNodesByRXName(pattern, status, -1)->size();
  });
}

}  // namespace

// The statement of an XML filter does not tell of a connection that can't be had. It is the first
// one, but for getNodesByTopoFilter and the two that give addresses by their own identifiers: these
// ask for readiness before.
std::vector<Question> topoFilterQuestions() {
  using Impl = ZNTopoAPI_Impl;
  // Nobody parses in this configuration later.
  filtered();
  return {
      known("getNodeIDsByTopoFilter", "joined nodes", &Impl::getNodeIDsByTopoFilter),
      known("getInterfaceIDsByTopoFilter", "joined interfaces", &Impl::getInterfaceIDsByTopoFilter),
      known("getAddresseIDsByTopoFilter", "joined addresses", &Impl::getAddresseIDsByTopoFilter),
      known("getObjIDsByTopoFilter", "interfaces", &Impl::getObjIDsByTopoFilter),
      known("getNodesByTopoFilter", "nodes", &Impl::getNodesByTopoFilter),
      known("getInterfacesByTopoFilter", "interfaces", &Impl::getInterfacesByTopoFilter),
      known("getAddressesByTopoFilter", "addresses", &Impl::getAddressesByTopoFilter,
            Finds::Nothing),
      known("getAddressIDsOfTopoFilter", "addresses", &Impl::getAddressIDsOfTopoFilter),
      known("getAddressesOfTopoFilter", "addresses", &Impl::getAddressesOfTopoFilter),
      parsed("ParseAndGetNodesByTopoFilter", "node", &Impl::ParseAndGetNodesByTopoFilter),
      parsed("ParseAndGetInterfacesByTopoFilter", "interface",
             &Impl::ParseAndGetInterfacesByTopoFilter),
      parsed("ParseAndGetAddressesByTopoFilter", "address", &Impl::ParseAndGetAddressesByTopoFilter,
             Finds::Nothing),
      patterned("getNodesByRXName, pattern of names", "al*"),
      patterned("getNodesByRXName, pattern of addresses", "10.1.1.*"),
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
