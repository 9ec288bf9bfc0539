#include "tests/operations/Operations.h"

#include <ostream>

namespace zntopo::test {
namespace {

constexpr Exception kExceptions[] = {
    {"getUserDefVarsByObjIDList",
     "the loader of user variables cuts its request into batches and asks for the whole of it in "
     "each, so that its texts grow with the square of the objects that have variables"},
    {"getNodesByObjIDList of all nodes", "it loads user variables, in one request for all"},
    {"getInterfacesByObjIDList of all connected interfaces",
     "it loads user variables, in one request for all"},
    {"getInterfacesByNodeObjIDList", "it loads user variables, in one request for all"},
    {"ZNNode::getInterfaceByAddressValue of an address of another node",
     "it asks each interface of the node for its addresses, which without a cache is a statement "
     "each"},
    {"getL2PathBetweenNodes without a path",
     "each pair of connected interfaces is tried with a search of its own, which without a cache "
     "reads the network anew"},
    {"getIfcsByObjIDList", "the data and the associations of a container are two statements each"},
    {"getIfcsByObjIDList of all containers", "two statements for each container, too"},
    {"getIfcsByType", "two statements for each container, too"},
    {"getNSubnetConnectivity",
     "each node, the interfaces of each and each subnet on the way are looked up on their own"},
    {"getNSubnetConnectivity of two hops",
     "and the cache keeps no subnet, so that each is read again on each later hop"},
    {"preLoadTopoCache", "it loads user variables, in one request for all nodes and interfaces"},
};

}  // namespace

void PrintTo(const Answer& answer, std::ostream* stream) {
  *stream << "status " << answer.status << ", " << answer.items.size() << " items";
  for (std::size_t i = 0; i < std::min<std::size_t>(answer.items.size(), 12); ++i) {
    *stream << ' ' << answer.items[i];
  }
}

void PrintTo(const Cost& cost, std::ostream* stream) {
  *stream << cost.statements << " statements, " << cost.transactions << " transactions";
}

std::vector<Operation> allOperations() {
  std::vector<Operation> all;
  for (const auto family :
       {nodeOperations(), interfaceOperations(), addressOperations(), groupOperations(),
        filterOperations(), objectOperations(), connectivityOperations(), updateOperations(),
        setterOperations(), infoOperations()}) {
    all.insert(all.end(), family.begin(), family.end());
  }
  return all;
}

std::span<const Exception> exceptions() { return kExceptions; }

}  // namespace zntopo::test
