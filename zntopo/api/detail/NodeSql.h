#pragma once

#include <list>
#include <string>

#include "zntopo/core/ObjID.h"
#include "zntopo/model/EntityType.h"
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

/// User variables: of the identifiers with E_Unknown, else of all objects of a kind.
/// @param typeTable the table of the kind; VLANs live in the entity table of the active set.
std::string userVarSelect(const TableSet& tables, EntityType type, const std::string& typeTable,
                          const std::list<ObjID>& ids);
/// Layer-2 connections of nodes, or all.
std::string connDataSelect(const TableSet& tables, const std::list<ObjID>& ids, bool all);
/// The nodes and interfaces in VLANs: of nodes (useNodeAsKey), of VLANs, or all.
/// @param ordered asks the optimiser to join in the order written.
std::string vlanInfoSelect(const TableSet& tables, const std::list<ObjID>& ids, bool useNodeAsKey,
                           bool all, bool ordered);
/// The nodes and interfaces in containers: of nodes (useNodeAsKey), of containers, or all; of
/// all types with an ifcType of 0.
std::string ifcInfoSelect(const TableSet& tables, const std::list<ObjID>& ids, bool useNodeAsKey,
                          bool all, int ifcType);

/// A filter document with one assertion, "op1", for a pattern of names or of IPv4 addresses.
std::string nodeFilterDocument(const std::string& pattern, int rd);

}  // namespace zntopo::detail
