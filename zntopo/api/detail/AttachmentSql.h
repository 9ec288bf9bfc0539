#pragma once

#include <list>
#include <string>

#include "zntopo/core/ObjID.h"
#include "zntopo/model/EntityType.h"
#include "zntopo/store/TableSet.h"

/// @file
/// The statements that read what hangs on objects of any kind, as texts. Blanks are part of them.

namespace zntopo::detail {

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

}  // namespace zntopo::detail
