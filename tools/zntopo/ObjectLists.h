#pragma once

#include <vector>

#include "tools/zntopo/Lookup.h"
#include "tools/zntopo/fields/AddressFields.h"
#include "tools/zntopo/fields/InterfaceFields.h"
#include "tools/zntopo/fields/NodeFields.h"

/// @file
/// Nodes, interfaces and addresses as lists, whatever chose them.

namespace zntopo::tools {

/// By name.
Listing<ZNNode> nodeListing(std::vector<ZNRefPtr<ZNNode>> nodes);

/// By name. Interfaces of one node, which is not named in the table.
Listing<InterfaceDetails> interfaceListing(Session& session,
                                           std::vector<ZNRefPtr<ZNInterface>> interfaces,
                                           const ZNNode& node);
/// By node and name.
Listing<InterfaceDetails> interfaceListing(Session& session,
                                           const std::vector<ZNRefPtr<ZNInterface>>& interfaces);

/// By node, interface and address.
Listing<AddressDetails> addressListing(Session& session,
                                       const std::vector<ZNRefPtr<ZNAddress>>& addresses);

/// The lists of objects by identifiers. One that is cut short is what was read, with the status of
/// a failure.
void fillNodes(Session& session, const Identifiers& ids, Answer& answer);
void fillInterfaces(Session& session, const Identifiers& ids, Answer& answer);
void fillAddresses(Session& session, const Identifiers& ids, Answer& answer);

}  // namespace zntopo::tools
