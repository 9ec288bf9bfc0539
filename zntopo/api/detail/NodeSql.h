#pragma once

#include <list>
#include <string>

#include "zntopo/core/ObjID.h"
#include "zntopo/model/ZNEntity.h"
#include "zntopo/store/TableSet.h"

/// @file
/// The statements of node retrieval, as texts. Blanks are part of them.

namespace zntopo::detail {

/// What a text that names a node looks like.
enum class NodeNameClass { Uuid, IPv4, FullDns, IPv6, PartialDns };

/// The first class that fits, in this order. A full stop is looked for before a colon, so an
/// IPv6 text with a dotted tail is a DNS name.
NodeNameClass classifyNodeName(const std::string& name);

/// The table of nodes with the alias of the big select.
std::string nodeTables(const TableSet& tables);
/// The big select; without a condition it selects all.
std::string nodeSelect(const std::string& condition, const std::string& tables);
/// The condition of a request by identifiers, or by legacy identifiers.
std::string nodeIDCondition(const std::list<ObjID>& ids, bool isQRMID);
/// The condition of a request for all nodes; empty without a level and with a negative rd.
std::string allNodesCondition(ZNEntity::IPLevel level, int rd);
/// The nodes of a text of a class other than Uuid.
std::string nodeNameSelect(NodeNameClass nameClass, const TableSet& tables, const std::string& name,
                           int rd);

}  // namespace zntopo::detail
