#pragma once

#include <string>
#include <vector>

#include "tools/network/StoreRows.h"
#include "zntopo/model/EntityType.h"

namespace zntopo::tools {

/// What the makers of rows share while one model is turned into rows.
class RowContext {
 public:
  RowContext(const NetworkModel& model, const std::string& zone, RowSink& rows,
             NetworkReport& report);

  const NetworkModel& model() const { return model_; }
  const std::string& zone() const { return zone_; }

  /// The identifier of the object of a key.
  std::string id(const std::string& objectKey) const;
  /// The identifier of an object that may bring its own. Beside a zone that one is told apart from
  /// the same identifier in other zones.
  std::string id(const std::string& ownId, const std::string& objectKey) const;
  std::string id(const EntityModel& entity) const { return id(entity.id, entity.key); }
  /// The identifier of an address of an interface.
  std::string addressId(const EndPoint& end, const AddressModel& address) const;
  std::string addressId(const EndPoint& end, const IpAddress& address) const;
  const std::string& nodeId(Index node) const { return nodeIds_[node]; }
  const std::string& vlanId(Index vlan) const { return vlanIds_[vlan]; }
  const std::string& subnetId(Index subnet) const { return subnetIds_[subnet]; }
  const std::string& interfaceId(const EndPoint& end) const {
    return interfaceIds_[end.node][end.interface];
  }

  void put(Row row) { rows_.put(std::move(row)); }
  /// Puts the row of an object of any kind and those of its user variables.
  RowOf<NwEntity> putEntity(const EntityModel& entity, const std::string& entityId, EntityType type,
                            int ipLevel, bool hasAddress);
  /// The same, for a kind whose own table has the entity's columns too: its row, begun.
  template <Table table>
  RowOf<table> beginRow(const EntityModel& entity, const std::string& entityId, EntityType type,
                        int ipLevel, bool hasAddress) {
    const RowOf<NwEntity> common = putEntity(entity, entityId, type, ipLevel, hasAddress);
    RowOf<table> row;
    for (std::size_t i = 0; i < columns::kEntity.size(); ++i) row.cells[i] = common.cells[i];
    return row;
  }
  void putVariable(const std::string& objectId, const UserVariableModel& variable);
  void putContainment(const std::string& container, EntityType type, const EndPoint& member);

 private:
  std::string describe(const EntityModel& entity);

  const NetworkModel& model_;
  const std::string& zone_;
  RowSink& rows_;
  NetworkReport& report_;
  std::vector<std::string> nodeIds_;
  std::vector<std::string> vlanIds_;
  std::vector<std::string> subnetIds_;
  std::vector<std::vector<std::string>> interfaceIds_;
};

constexpr int kIPv4Level = 4;
constexpr int kIPv6Level = 6;

inline Cell cellOf(const std::optional<int>& value) { return value ? Cell(*value) : Cell(); }
/// A flag that is told only where it is set.
inline Cell flagCell(bool isSet) { return isSet ? Cell(1) : Cell(); }
inline std::string orDash(const std::string& value) { return value.empty() ? "-" : value; }

/// Nodes, interfaces with their addresses, and links.
void addNodeRows(RowContext& context);
void addAddressRows(RowContext& context, const EndPoint& end, const AddressModel& address);
void addSubnetRows(RowContext& context);
/// VLANs, meshes, HSRP groups, and containers with their associations.
void addGroupRows(RowContext& context);
void addAuditRows(RowContext& context);

}  // namespace zntopo::tools
