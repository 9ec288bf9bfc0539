#include "zntopo/model/ZNSubnet.h"

#include <algorithm>

#include "zntopo/core/ltos.h"
#include "zntopo/model/ZNRefPtrConversion.h"
#include "zntopo/model/detail/Rendering.h"

namespace zntopo {

namespace {

/// Appends the address identifier of each end point that it is called with.
struct AddToAddrList {
  void operator()(const SubnetEndPoint& point) const { ids.push_back(point.getAddressID()); }
  std::list<ObjID>& ids;
};

/// The same with the node identifiers.
struct AddToObjList {
  void operator()(const SubnetEndPoint& point) const { ids.push_back(point.getNodeObjID()); }
  std::list<ObjID>& ids;
};

/// Appends each end point that it is called with, numbered from 0.
struct AddEPToString {
  void operator()(const SubnetEndPoint& point) {
    *text += "\n" + ltos(cnt++) + ")" + point.toString(dbType);
  }
  std::string* text;
  TopoDBType dbType;
  int cnt = 0;
};

using Line = detail::Line<ZNSubnet>;

std::string endPointsOf(const ZNSubnet& subnet) {
  std::string text;
  const std::list<SubnetEndPoint>& points = subnet.getSubnetEndPointList();
  std::for_each(points.begin(), points.end(), AddEPToString{&text, subnet.getDBType()});
  return text;
}

constexpr Line kText[] = {
    {"\n++++++++++++++++ ZNSubnet ++++++++++++++", Line::baseText<ZNEntity>},
    {"\nSubnetEndPoint:"},
    {"\n=======================================", endPointsOf},
    {"\n======================================="},
    {"\n---------------- ZNSubnet --------------"},
};

}  // namespace

ZNSubnet::ZNSubnet() { _entityType = E_Subnet; }

ZNSubnet::ZNSubnet(const ZNEntity& ent) : ZNSubnet(ent, {}) {}

ZNSubnet::ZNSubnet(const ZNEntity& ent, const std::list<SubnetEndPoint>& aList)
    : ZNEntity(ent), _subnetEPs(aList) {
  _entityType = E_Subnet;
}

ZNSubnet::~ZNSubnet() = default;

std::string ZNSubnet::toString() const { return detail::rendered(*this, kText); }

std::list<ObjID> ZNSubnet::getContainedAddressIDs() const {
  std::list<ObjID> ids;
  std::for_each(_subnetEPs.begin(), _subnetEPs.end(), AddToAddrList{ids});
  return ids;
}

std::list<ObjID> ZNSubnet::getContainedNodeObjIDs() const {
  std::list<ObjID> ids;
  std::for_each(_subnetEPs.begin(), _subnetEPs.end(), AddToObjList{ids});
  return ids;
}

InetAddressIPv6::ScopeType ZNSubnet::getSubnetScopeType() const {
  const auto addresses = getAddressesByType(ZNAddress::IPv6);
  if (addresses->empty()) return InetAddressIPv6::Unknown;
  const ZNRefPtr<InetAddressIPv6> first = ZNRefPtrConversion::Address2IPv6(addresses->front());
  return first.isNull() ? InetAddressIPv6::Unknown : first->getScopeType();
}

}  // namespace zntopo
