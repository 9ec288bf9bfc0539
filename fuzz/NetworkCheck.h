#pragma once

#include <algorithm>
#include <set>
#include <string>

#include "fuzz/Fuzz.h"
#include "tools/import/NetworkFormat.h"
#include "tools/network/NetworkModel.h"
#include "tools/network/NetworkReport.h"
#include "tools/network/StoreRows.h"
#include "zntopo/platform/tvxpl/Utf8.h"

/// @file
/// What every reader promises of the network that it gives out.

namespace zntopo::fuzz {

inline void checkEnd(const tools::NetworkModel& model, const tools::EndPoint& end) {
  ZNTOPO_REQUIRE(end.node < model.nodes.size());
  ZNTOPO_REQUIRE(end.interface < model.nodes[end.node].interfaces.size());
}

inline bool hasAddress(const tools::InterfaceModel& interface, const tools::IpAddress& address) {
  return std::any_of(interface.addresses.begin(), interface.addresses.end(),
                     [&](const tools::AddressModel& one) { return one.address == address; });
}

/// An entity has a key, and no user variable twice.
inline void checkEntity(const tools::EntityModel& entity) {
  ZNTOPO_REQUIRE(!entity.key.empty());
  std::set<std::string> names;
  for (const tools::UserVariableModel& one : entity.variables) {
    ZNTOPO_REQUIRE(names.insert(one.name).second);
  }
}

inline void checkInterface(const tools::NetworkModel& model,
                           const tools::InterfaceModel& interface) {
  checkEntity(interface);
  for (const tools::Index vlan : interface.vlans) ZNTOPO_REQUIRE(vlan < model.vlans.size());
  for (const tools::AddressModel& address : interface.addresses) {
    ZNTOPO_REQUIRE(!address.subnet || *address.subnet < model.subnets.size());
    ZNTOPO_REQUIRE(!address.mappedV4 || hasAddress(interface, *address.mappedV4));
    ZNTOPO_REQUIRE(address.address.isV6() || (!address.monitoring && address.dnsName.empty()));
  }
}

/// Every member of a group once, with an address of its own and tracks that its column can hold.
inline void checkHsrpGroup(const tools::NetworkModel& model, const tools::HsrpGroupModel& group) {
  checkEntity(group);
  std::set<tools::EndPoint> known;
  for (const tools::HsrpMemberModel& member : group.members) {
    checkEnd(model, member.interface);
    ZNTOPO_REQUIRE(known.insert(member.interface).second);
    ZNTOPO_REQUIRE(hasAddress(model.at(member.interface), member.address));
    ZNTOPO_REQUIRE(member.certainty >= 0 && member.certainty <= 100);
    for (const tools::HsrpTrackModel& track : member.tracks) checkEnd(model, track.interface);
  }
}

inline void checkGroups(const tools::NetworkModel& model) {
  for (const tools::SubnetModel& subnet : model.subnets) checkEntity(subnet);
  for (const tools::VlanModel& vlan : model.vlans) checkEntity(vlan);
  for (const tools::MeshModel& mesh : model.meshes) {
    checkEntity(mesh);
    for (const tools::EndPoint& member : mesh.members) checkEnd(model, member);
  }
  for (const tools::HsrpGroupModel& group : model.hsrpGroups) checkHsrpGroup(model, group);
  for (const tools::ContainerModel& container : model.containers) {
    checkEntity(container);
    for (const auto& member : container.members) checkEnd(model, member.interface);
  }
  for (const tools::AssociationModel& one : model.associations) {
    ZNTOPO_REQUIRE(one.left < model.containers.size() && one.right < model.containers.size());
  }
  for (const tools::AuditModel& one : model.audit) ZNTOPO_REQUIRE(!one.objectKey.empty());
}

/// Every index leads to something.
inline void checkIndices(const tools::NetworkModel& model) {
  for (const tools::LinkModel& link : model.links) {
    checkEnd(model, link.left);
    checkEnd(model, link.right);
  }
  for (const tools::NodeModel& node : model.nodes) {
    checkEntity(node);
    for (const tools::InterfaceModel& interface : node.interfaces) checkInterface(model, interface);
  }
  checkGroups(model);
}

/// A store accepts the cell: a key is there, and a text is UTF-8, in one piece and not too long.
inline void checkCell(const tools::ColumnDef& column, const tools::Cell& cell) {
  const bool isNull = std::holds_alternative<std::monostate>(cell);
  ZNTOPO_REQUIRE(!isNull || column.role != tools::ColumnDef::Key);
  const auto* text = std::get_if<std::string>(&cell);
  ZNTOPO_REQUIRE(isNull || (text != nullptr) == (column.type == tools::ColumnDef::Text));
  if (text == nullptr) return;
  ZNTOPO_REQUIRE(text->size() <= static_cast<std::size_t>(column.width));
  ZNTOPO_REQUIRE(TvXplStr::isUtf8(*text) && text->find('\0') == std::string::npos);
}

/// The network can be written into a store.
inline void checkNetwork(const tools::NetworkModel& model) {
  checkIndices(model);
  tools::NetworkReport report;
  tools::RowSet rows;
  tools::addRows(model, "", rows, report);
  for (const tools::Row& row : rows.rows()) {
    const tools::TableDef& table = tools::tableDef(row.table);
    ZNTOPO_REQUIRE(row.cells.size() == table.columns.size());
    for (std::size_t i = 0; i < row.cells.size(); ++i) checkCell(table.columns[i], row.cells[i]);
  }
}

/// Reads outside bytes as a network file: what it says can be written into a store, or it is told
/// where the file is wrong.
inline void checkReader(tools::ReadNetwork& read, const std::uint8_t* data, std::size_t size) {
  try {
    tools::NetworkReport report;
    checkNetwork(read({"network", "network", textOf(data, size)}, report, {}));
  } catch (const tools::ImportError& error) {
    ZNTOPO_REQUIRE(*error.what() != '\0');
  }
}

}  // namespace zntopo::fuzz
