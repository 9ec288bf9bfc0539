#pragma once

#include <list>
#include <string>

#include "zntopo/core/ObjID.h"
#include "zntopo/store/TableSet.h"

/// @file
/// The statements of the interface queries, as texts. Blanks are part of them.

namespace zntopo::detail {

/// How the big select was asked for, which decides on the loading of addresses.
enum InterfaceMode : int { INTERFACES_BY_ID = 0, INTERFACES_BY_NODE = 1, ALL_CONNECTED = 2 };

/// The big select, with what follows the alias "a" of the interface table.
std::string interfaceSelect(const TableSet& tables, const std::string& partOfWhere);

/// @name What follows the alias in the big select
/// @{
/// By identifiers, or legacy identifiers.
std::string whereInterfaceIDs(const std::list<ObjID>& ids, bool isQRMID);
std::string whereConnected();
std::string whereInterfacesOfNodes(const std::list<ObjID>& nodeIDs);
/// @}

/// The identifiers of the interfaces of nodes.
std::string interfaceIDsOfNodesSql(const TableSet& tables, const std::list<ObjID>& nodeIDs);
/// The owners of an IPv4 address: of a public one with a route distinguisher of -1.
std::string ownersOfIPv4Sql(const TableSet& tables, const std::string& address, int rd);
/// The interfaces of a name on a node, or of a description on any node: the "or" has no brackets.
std::string interfacesByNameSql(const TableSet& tables, const std::string& name,
                                const std::string& nodeName);
/// The meshes that an interface is in.
std::string meshSql(const TableSet& tables, const ObjID& interfaceID);
/// The interfaces in a container.
std::string containedInterfacesSql(const TableSet& tables, const ObjID& containerID);

}  // namespace zntopo::detail
