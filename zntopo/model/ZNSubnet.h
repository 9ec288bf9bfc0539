#pragma once

#include <list>
#include <string>

#include "zntopo/model/InetAddressIPv6.h"
#include "zntopo/model/SubnetEndPoint.h"
#include "zntopo/model/ZNEntity.h"

namespace zntopo {

/// A subnet, a row of nwentity, and its end points. The list has no lock: it is filled before the
/// object is shared.
class ZNTOPO_EXPORT ZNSubnet : public ZNEntity {
 public:
  ZNSubnet();
  explicit ZNSubnet(const ZNEntity& ent);
  ZNSubnet(const ZNEntity& ent, const std::list<SubnetEndPoint>& aList);
  ZNSubnet(const ZNSubnet& other) = default;
  ZNSubnet& operator=(const ZNSubnet& other) = default;
  ~ZNSubnet() override;

  /// The entity, and its end points numbered from 0: three look-ups in the store each.
  std::string toString() const override;

  const std::list<SubnetEndPoint>& getSubnetEndPointList() const { return _subnetEPs; }
  void setSubnetEndPointList(const std::list<SubnetEndPoint>& list) { _subnetEPs = list; }
  /// One entry for each end point, in their order, duplicates included.
  std::list<ObjID> getContainedAddressIDs() const;
  std::list<ObjID> getContainedNodeObjIDs() const;
  /// The scope of the first IPv6 address, Unknown without one. Asks the store.
  InetAddressIPv6::ScopeType getSubnetScopeType() const;

 private:
  std::list<SubnetEndPoint> _subnetEPs;
};

}  // namespace zntopo
