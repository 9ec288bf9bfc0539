#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "tools/export/StoreReader.h"
#include "tools/network/NetworkModel.h"
#include "zntopo/api/ZNTopoAPI.h"
#include "zntopo/platform/tvdbil/TvDbil.h"

/// @file
/// What the parts of the reading of a store share.

namespace zntopo::tools {

/// Where an address stands in a network.
struct AddressAt {
  EndPoint interface;
  Index address = 0;
};

/// Where the objects of a network stand, by identifier.
struct StoreIndex {
  std::map<std::string, Index> nodes, subnets, vlans, containers;
  std::map<std::string, EndPoint> interfaces;
  std::map<std::string, AddressAt> addresses;
  /// The names in the DNS, by the identifiers of their rows.
  std::map<std::string, std::string> dnsNames;
};

/// Throws a ToolError unless the status is OK.
void requireOk(const ZNTopoAPIStatus& status);

/// Fills what objects of all kinds have with what the library tells.
void fillEntity(EntityModel& to, const ZNEntity& from);

/// Reads subnets, VLANs, HSRP groups and containers: all of them, or those of the interfaces that
/// the index has.
class GroupReader {
 public:
  GroupReader(ZNTopoAPI& api, TvDbil::DbConnection_t& connection, bool isWhole, NetworkModel& model,
              StoreIndex& index)
      : api_(api), connection_(connection), isWhole_(isWhole), model_(model), index_(index) {}

  /// The wanted ones are not looked at for a whole store.
  void readSubnets(const std::set<std::string>& wanted);
  void readVlans(const std::set<std::string>& wanted);
  void readHsrpGroups();
  void readContainers();

 private:
  using Associations = std::vector<ZNRefPtr<ZNIfcAssocInfo>>;

  void addSubnets(const std::set<ObjID>& ids);
  void readPrefixes();
  void addVlans(const std::set<ObjID>& ids);
  void addMember(const ZNHSRPAddressInfo& from, HsrpGroupModel& group) const;
  std::set<std::string> containersOfNodes() const;
  void addContainers(const std::set<ObjID>& ids, Associations& associations);
  void addAssociations(const Associations& associations);

  ZNTopoAPI& api_;
  TvDbil::DbConnection_t& connection_;
  const bool isWhole_;
  NetworkModel& model_;
  StoreIndex& index_;
};

/// Makes a network exact that was read from the library's objects.
void addDetails(ZNTopoAPI& api, TvDbil::DbConnection_t& connection, bool isWhole,
                NetworkModel& model, const StoreIndex& index);

}  // namespace zntopo::tools
