#pragma once

#include <list>
#include <string>

#include "zntopo/core/ObjID.h"
#include "zntopo/store/TableSet.h"

/// @file
/// The statements that read VLANs, interface containers and HSRP groups, and what these hold, as
/// texts. Blanks are part of them. VLANs and HSRP groups are read by the big select of entities.

namespace zntopo::detail {

/// @name Conditions for all groups of a kind
/// Limited to a route distinguisher unless that is below 0.
/// @{
std::string allVlans(int rd);
std::string allIfcs(int rd);
std::string allHSRPs(int rd);
/// @}
/// The containers of a type.
std::string ifcsOfType(int type, int rd);

/// The big select of containers; an empty condition reads all.
std::string ifcEntitySelect(const TableSet& tables, const std::string& condition);
/// What the row of a container tells beside that.
std::string ifcDataSql(const TableSet& tables, const ObjID& id);
/// The associations of a container, whichever of their ends it is.
std::string ifcAssociationsSql(const TableSet& tables, const ObjID& id);

/// The members of HSRP groups, or of all.
std::string hsrpInfoSelect(const TableSet& tables, const std::list<ObjID>& ids, bool all);
/// The HSRP groups of which a column of the members' table names an identifier.
std::string hsrpsByMemberSql(const TableSet& tables, const std::string& column, const ObjID& id);
/// The same without a condition: no engine takes it.
std::string hsrpsByNothingSql(const TableSet& tables);

}  // namespace zntopo::detail
