#pragma once

#include <list>
#include <optional>
#include <string>

#include "zntopo/model/ZNEntity.h"
#include "zntopo/model/ZNHSRPAddressInfo.h"

namespace zntopo {

/// An HSRP group: its members, and three views of them by state. All operations lock the group;
/// a view's reference must not be read while another thread updates the group.
class ZNTOPO_EXPORT ZNHSRP : public ZNEntity {
 public:
  using AddressInfoList = std::list<ZNHSRPAddressInfo>;

  ZNHSRP();
  explicit ZNHSRP(const ZNEntity& ent);
  ZNHSRP(const ZNEntity& ent, const AddressInfoList& list);
  ZNHSRP(const ZNHSRP& other);
  ZNHSRP& operator=(const ZNHSRP& other);
  ~ZNHSRP() override;

  std::string toString() const override;
  std::string toXML() const override;
  std::string toShortString() const override;

  /// The group number of the first member, 0 without one.
  int getHSRPNumber() const;
  const AddressInfoList& getActiveAddressInfoList() const;
  const AddressInfoList& getStandbyAddressInfoList() const;
  const AddressInfoList& getMiscStateAddressInfoList() const;
  AddressInfoList getHSRPAddrInfoList() const;
  void setZNHSRPAddressInfoList(const AddressInfoList& list);

  /// Change anInfo and the group's member on the same interface; with updateDB write the store
  /// and send an attribute change for each thing that changed. ZN_API_DB_NOT_READY while the
  /// topology is not ready; ZN_API_ILLEGAL_INPUT for a certainty outside 0 to 100 or a priority
  /// outside 0 to 64000; ZN_API_OBJ_NOT_EXIST, with anInfo changed, when the group has no such
  /// member. The table set is the group's own, dbType is not consulted.
  ZNTopoAPIStatus setHSRPState(ZNHSRPAddressInfo& anInfo, ZNHSRPAddressInfo::HSRPState aStat,
                               int aStatCertainty, bool updateDB, TopoDBType dbType);
  ZNTopoAPIStatus setHSRPStateAndPriority(ZNHSRPAddressInfo& anInfo,
                                          ZNHSRPAddressInfo::HSRPState aStat, int aStatCertainty,
                                          int aPriority, bool updateDB, TopoDBType dbType);

 private:
  friend class ZNHSRPPeer;  // of the tests

  struct Update;

  /// As setHSRPState(), without the tests of certainty and priority; the member keeps its own
  /// priority.
  ZNTopoAPIStatus setHSRPStateHelper(ZNHSRPAddressInfo& anInfo, ZNHSRPAddressInfo::HSRPState aStat,
                                     int aStatCertainty, bool updateDB, TopoDBType dbType);
  void recomputeAddressList();
  ZNTopoAPIStatus update(Update& change, bool updateDB);
  std::optional<ZNTopoAPIStatus> apply(Update& change);
  static void copyTo(ZNHSRPAddressInfo& info, const Update& change);

  AddressInfoList myActiveInfoList;
  AddressInfoList myStandByInfoList;
  AddressInfoList myMiscStateInfoList;
  AddressInfoList myAddressInfoList;
};

}  // namespace zntopo
