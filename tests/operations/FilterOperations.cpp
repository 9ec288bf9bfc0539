#include "tests/operations/Costs.h"
#include "tests/support/AttributeFilters.h"
#include "zntopo/filter/FilterNamespace.h"

namespace zntopo::test {
namespace {

using IDQuery = ZNTopoAPI::OwnedIDList (ZNTopoAPI_Impl::*)(const ZNTopoFilter&, ZNTopoAPIStatus&);

Answer idsBy(const Desk& desk, IDQuery query, const ZNTopoFilter& filter) {
  ZNTopoAPIStatus status;
  const auto ids = (desk.impl.*query)(filter, status);
  return sorted(status, {ids->begin(), ids->end()});
}

/// The leaves, the hub's interfaces towards them and the addresses of these.
std::string documentOfFilters() {
  const std::string addresses =
      "<operator oper=\"NOOP\"><attribute><IPAddress><IPv4><address>10.1.0.*</address></IPv4>"
      "</IPAddress></attribute></operator>";
  return std::string("<filters xmlns=\"") + kTopologyFilterNamespace +
         "\"><nodeAssertion name=\"leaves\"><operator oper=\"NOOP\"><attribute><name>"
         "<string>leaf*</string></name></attribute></operator></nodeAssertion>"
         "<interfaceAssertion name=\"interfaces\">" +
         addresses + "</interfaceAssertion><addressAssertion name=\"addresses\">" + addresses +
         "</addressAssertion></filters>";
}

/// A facade that knows the filters: threads may share it, for nobody parses with it any more.
ZNTopoAPI& filtered() {
  static auto* const api = [] {
    auto* const made = new ZNTopoAPI;
    ZNTopoAPIStatus status;
    EXPECT_EQ(made->ParseXmlString(documentOfFilters(), status), ZN_API_SUCCESS)
        << status.getAuxMsg();
    return made;
  }();
  return *api;
}

Answer idsOf(const char* filter,
             ZNTopoAPI::OwnedIDList (ZNTopoAPI::*query)(const std::string&, ZNTopoAPIStatus&)) {
  ZNTopoAPIStatus status;
  const auto ids = (filtered().*query)(filter, status);
  return sorted(status, {ids->begin(), ids->end()});
}

/// Asks for the objects of a filter in the document, on a facade that does not know it yet.
template <typename Found>
auto parsedAndAsked(const char* filter,
                    Found (ZNTopoAPI::*query)(const std::string&, const std::string&,
                                              ZNTopoAPIStatus&)) {
  return [=](ZNTopoAPIStatus& status) {
    return (ZNTopoAPI().*query)(documentOfFilters(), filter, status);
  };
}

constexpr Cost leaves(const Size& size) {
  return kStatement + leafNodes(size) * batches(size.leaves);
}
constexpr Cost interfaces(const Size& size) {
  return kStatement + (kStatement + kAddresses) * batches(size.leaves);
}
// The filter, and the objects.
constexpr Cost kTwo = kStatement * 2;

constexpr Operation kOperations[] = {
    {"getNodeIDsByFilter",
     [](const Desk& desk) {
       return idsBy(desk, &ZNTopoAPI_Impl::getNodeIDsByFilter, named("leaf%"));
     },
     kLeaves, Growth::None, kStateAndOneStatement, kOneStatement, kOneStatement},
    {"getNodeIDsByFilter by an address",
     [](const Desk& desk) {
       return idsBy(desk, &ZNTopoAPI_Impl::getNodeIDsByFilter, withAddress(hubAddress(1)));
     },
     kOne, Growth::None, kStateAndOneStatement, kOneStatement, kOneStatement},
    {"getNodesByFilter",
     [](const Desk& desk) {
       return many([&](ZNTopoAPIStatus& status) {
         return desk.api.getNodesByFilter(named("hub%"), status);
       });
     },
     kOne, Growth::None, [](const Size&) { return kState + kStatement + kNodes; }, kOneStatement,
     [](const Size&) { return kStatement + kNodes; }},
    {"getSubnetIDsByFilter",
     [](const Desk& desk) { return idsBy(desk, &ZNTopoAPI_Impl::getSubnetIDsByFilter, {}); },
     kLeaves, Growth::None, kOneStatement, kOneStatement, kOneStatement},
    {"getEntityIDsByFilter",
     [](const Desk& desk) {
       return idsBy(desk, &ZNTopoAPI_Impl::getEntityIDsByFilter, ofKind(E_Vlan));
     },
     kLeaves, Growth::None, kOneStatement, kOneStatement, kOneStatement},
    {"getAddressIDsByFilter",
     [](const Desk& desk) {
       return idsBy(desk, &ZNTopoAPI_Impl::getAddressIDsByFilter, withAddress("10.1.0.%"));
     },
     kLeaves, Growth::None, kStateAndOneStatement, kOneStatement, kOneStatement},
    {"getNodeIDsByTopoFilter",
     [](const Desk&) { return idsOf("leaves", &ZNTopoAPI::getNodeIDsByTopoFilter); }, kLeaves,
     Growth::None, kOneStatement, kOneStatement, kOneStatement},
    {"getInterfaceIDsByTopoFilter",
     [](const Desk&) { return idsOf("interfaces", &ZNTopoAPI::getInterfaceIDsByTopoFilter); },
     kLeaves, Growth::None, kOneStatement, kOneStatement, kOneStatement},
    {"getAddresseIDsByTopoFilter",
     [](const Desk&) { return idsOf("addresses", &ZNTopoAPI::getAddresseIDsByTopoFilter); },
     kLeaves, Growth::None, kOneStatement, kOneStatement, kOneStatement},
    {"getObjIDsByTopoFilter",
     [](const Desk&) { return idsOf("leaves", &ZNTopoAPI::getObjIDsByTopoFilter); }, kLeaves,
     Growth::None, kOneStatement, kOneStatement, kOneStatement},
    {"getNodesByTopoFilter",
     [](const Desk&) {
       return many([](ZNTopoAPIStatus& status) {
         return filtered().getNodesByTopoFilter("leaves", status);
       });
     },
     kLeaves, Growth::Batches, [](const Size& size) { return kState + leaves(size); },
     kOneStatement, leaves, Whole::Part},
    {"getInterfacesByTopoFilter",
     [](const Desk&) {
       return many([](ZNTopoAPIStatus& status) {
         return filtered().getInterfacesByTopoFilter("interfaces", status);
       });
     },
     kLeaves, Growth::Batches, [](const Size& size) { return kState + interfaces(size); },
     kOneStatement, interfaces},
    // Addresses are asked for by the identifiers of their owners, and none is found.
    {"getAddressesByTopoFilter",
     [](const Desk&) {
       return manyAddresses([](ZNTopoAPIStatus& status) {
         return filtered().getAddressesByTopoFilter("addresses", status);
       });
     },
     kNone, Growth::None, [](const Size&) { return kState + kTwo; },
     [](const Size&) { return kTwo; }, [](const Size&) { return kTwo; }},
    {"getAddressIDsOfTopoFilter",
     [](const Desk&) { return idsOf("addresses", &ZNTopoAPI::getAddressIDsOfTopoFilter); }, kLeaves,
     Growth::None, kStateAndOneStatement, kOneStatement, kOneStatement},
    {"getAddressesOfTopoFilter",
     [](const Desk&) {
       return manyAddresses([](ZNTopoAPIStatus& status) {
         return filtered().getAddressesOfTopoFilter("addresses", status);
       });
     },
     kLeaves, Growth::None, [](const Size&) { return kState + kTwo; }, kOneStatement,
     [](const Size&) { return kTwo; }},
    // Parsing asks no store. Each thread parses with a facade of its own.
    {"ParseAndGetNodesByTopoFilter",
     [](const Desk&) {
       return many(parsedAndAsked("leaves", &ZNTopoAPI::ParseAndGetNodesByTopoFilter));
     },
     kLeaves, Growth::Batches, [](const Size& size) { return kState + leaves(size); },
     kOneStatement, leaves, Whole::Part},
    {"ParseAndGetInterfacesByTopoFilter",
     [](const Desk&) {
       return many(parsedAndAsked("interfaces", &ZNTopoAPI::ParseAndGetInterfacesByTopoFilter));
     },
     kLeaves, Growth::Batches, [](const Size& size) { return kState + interfaces(size); },
     kOneStatement, interfaces},
    {"ParseAndGetAddressesByTopoFilter",
     [](const Desk&) {
       return manyAddresses(
           parsedAndAsked("addresses", &ZNTopoAPI::ParseAndGetAddressesByTopoFilter));
     },
     kNone, Growth::None, [](const Size&) { return kState + kTwo; },
     [](const Size&) { return kTwo; }, [](const Size&) { return kTwo; }},
    {"getNodesByRXName",
     [](const Desk&) {
       ZNTopoAPI api;
       return many(
           [&](ZNTopoAPIStatus& status) { return api.getNodesByRXName("leaf*", status, -1); });
     },
     kLeaves, Growth::Batches, [](const Size& size) { return kState + leaves(size); },
     kOneStatement, leaves, Whole::Part},
};

}  // namespace

std::span<const Operation> filterOperations() { return kOperations; }

}  // namespace zntopo::test
