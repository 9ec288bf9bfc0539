#pragma once

#include <list>
#include <string>

#include "zntopo/model/ZNEntity.h"
#include "zntopo/model/ZNVlanInfo.h"

namespace zntopo {

/// A VLAN, a row of nwentity: per-node summaries of which interfaces are its members. Build it
/// after the entity's user variables are set: its number is the variable "VlanId". The lists have
/// no lock: they are filled before the object is shared.
class ZNTOPO_EXPORT ZNVlan : public ZNEntity {
 public:
  ZNVlan();
  explicit ZNVlan(const ZNEntity& theEnt);
  ZNVlan(const ZNEntity& theEnt, const std::list<ZNVlanInfo>& theInfoList);
  ZNVlan(const ZNVlan& other) = default;
  ZNVlan& operator=(const ZNVlan& other) = default;
  ~ZNVlan() override;

  std::string toString() const override;
  std::string toXML() const override;

  /// Null unless the variable is a VT_Long or a VT_Str.
  const ObjID& getVlanID() const { return myVlanID; }
  const std::list<ZNVlanInfo>& getVlanInfoList() const { return myInfoList; }
  void addVlanInfo(const ZNVlanInfo& info) { myInfoList.push_back(info); }
  void setVlanInfoList(const std::list<ZNVlanInfo>& list) { myInfoList = list; }

 private:
  ObjID myVlanID;
  std::list<ZNVlanInfo> myInfoList;
};

}  // namespace zntopo
