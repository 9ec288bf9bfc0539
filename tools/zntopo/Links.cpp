#include "tools/zntopo/Links.h"

#include <utility>
#include <vector>

#include "tools/zntopo/Names.h"

namespace zntopo::tools {

namespace {

/// One link, seen from the side from which the walk came.
struct Link {
  ObjID nearNode, nearInterface, farNode, farInterface;

  explicit Link(const ZNConnection& connection)
      : nearNode(connection.getSrcNodeObjID()),
        nearInterface(connection.getSrcInterfaceObjID()),
        farNode(connection.getDestNodeObjID()),
        farInterface(connection.getDestInterfaceObjID()) {
    if (connection.getConnData().isNodeSide()) return;
    std::swap(nearNode, farNode);
    std::swap(nearInterface, farInterface);
  }
};

}  // namespace

Listing<NamedLink> linkListing(Session& session, const std::list<ZNConnection>& connections) {
  const std::vector<Link> links(connections.begin(), connections.end());
  Identifiers nodes;
  Identifiers interfaces;
  for (const Link& link : links) {
    for (const ObjID* const id : {&link.nearNode, &link.farNode}) nodes.add(*id);
    for (const ObjID* const id : {&link.nearInterface, &link.farInterface}) interfaces.add(*id);
  }
  const Names names(session, interfaces, nodes);
  Listing<NamedLink> listing(linkFields());
  for (const Link& link : links) {
    listing.add(
        {names.end(link.nearNode, link.nearInterface), names.end(link.farNode, link.farInterface)});
  }
  return listing;
}

}  // namespace zntopo::tools
