#pragma once

#include <string>

#include "zntopo/core/ObjID.h"
#include "zntopo/model/EntityType.h"
#include "zntopo/model/ZNEntity.h"
#include "zntopo/model/ZNHSRPAddressInfo.h"
#include "zntopo/store/TableSet.h"

/// @file
/// The statements that change states in the store, as texts. Blanks are part of them, and but for
/// the last one so are the values: an identifier with a quote in it ends the text around it. A kind
/// of state that is not known has no column, and a statement without one is refused by every
/// engine.

namespace zntopo::detail {

/// State, certainty and priority of an HSRP address, in every group that it serves in.
std::string hsrpAddressUpdate(const TableSet& tables, const ZNHSRPAddressInfo& info);
/// @param attributeType 0 the admin state, 1 the operational one.
std::string interfaceStateUpdate(const TableSet& tables, const ObjID& id, int value,
                                 int attributeType);
std::string pingStateUpdate(const TableSet& tables, const ObjID& id, int value);
/// @param statType a number of ZNEntity::EntityStatusType, or 6 for the SNMP state.
std::string nodeStatusUpdate(const TableSet& tables, const ObjID& id, int status, int statType);
/// In the table of the kind of entity, or in that of all entities.
std::string entityStatusUpdate(const TableSet& tables, const ObjID& id, int status,
                               int statusChangeTimeUTC, ZNEntity::EntityStatusType statType,
                               EntityType entType);
/// @param table that of nodes or that of interfaces.
std::string l2DomainUpdate(const std::string& table, const ObjID& id, int domain);
/// Of an association of containers: the state and its time, the two containers and the kind of
/// association are parameters. Whatever the table set, the table is that of the active one.
std::string ifcAssociationUpdate();

}  // namespace zntopo::detail
