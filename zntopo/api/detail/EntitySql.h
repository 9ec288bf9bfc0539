#pragma once

#include <list>
#include <string>

#include "zntopo/core/ObjID.h"
#include "zntopo/model/ZNEntity.h"
#include "zntopo/store/TableSet.h"

/// @file
/// The statements that read entities of any kind and the end points of subnets, as texts. Blanks
/// are part of them.

namespace zntopo::detail {

/// The big select of entities.
std::string entitySelect(const TableSet& tables, const std::string& condition);

/// @name Conditions of the big select
/// @{
/// Subnets by their identifiers, of the legacy kind with isQRMID.
std::string subnetsByIDs(const std::list<ObjID>& ids, bool isQRMID);
/// All subnets of an IP level; of both for any level but 4 and 6, of all route distinguishers for
/// one below 0.
std::string allSubnets(ZNEntity::IPLevel level, int rd);
/// @}

/// The end points of one subnet, through the containment of their interfaces.
std::string endPointsSql(const TableSet& tables, const ObjID& subnetID);
/// The end points of subnets, through the interfaces' own rows.
std::string endPointsOfSubnetsSql(const TableSet& tables, const std::list<ObjID>& subnetIDs);

}  // namespace zntopo::detail
