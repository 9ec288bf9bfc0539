#pragma once

#include <list>
#include <string>

#include "zntopo/core/ObjID.h"
#include "zntopo/model/TrackInterfaceInfo.h"
#include "zntopo/platform/Export.h"

namespace zntopo {

/// One member of an HSRP group: an interface address with its state, priority, certainty and the
/// interfaces that it tracks: a row of hsrpaddress. A plain value.
class ZNTOPO_EXPORT ZNHSRPAddressInfo {
 public:
  enum HSRPState : int {
    Initial = 1,
    Learn = 2,
    Listen = 3,
    Speak = 4,
    StandBy = 5,
    Active = 6,
    MiscState = 7,
    Unavailable = 8,
    NoResponse = 9
  };

  ZNHSRPAddressInfo() = default;
  /// Parses the track list: any number of groups "[interface id,priority]". A group whose comma
  /// stands behind it is left out, and what follows a group that is not closed; nothing is told.
  ZNHSRPAddressInfo(int aHSRPNumber, const ObjID& anIFID, const ObjID& anAddrID, int aHSRPPriority,
                    HSRPState aState, const std::string& aTrackInterfaceOIDList,
                    int aHSRPStateCertainty);

  /// Column AddressID.
  const ObjID& getAddressID() const { return myAddrID; }
  /// Column AddressIfObjID: a group knows its members by it.
  const ObjID& getIFObjID() const { return myIFID; }
  /// Column HSRPNumber: the number of the group.
  int getHSRPNumber() const { return myHSRPNumber; }
  /// Column state.
  HSRPState getHSRPState() const { return myHSRPState; }
  /// "Unknown" for Unavailable and for numbers that are no state.
  std::string getHSRPStateAsString() const;
  /// Column HSRPPriority: 0 to 64000 where it was set through a group.
  int getHSRPPriority() const { return myPriority; }
  /// Column HSRPStateCertainty: 0 to 100 where it was set through a group.
  int getHSRPStateCertainty() const { return myHSRPStateCertainty; }
  /// Column TrackInterfaceList.
  const std::string& getHSRPTrackInterfaceAsString() const { return myTrackIFInfoStr; }
  const std::list<TrackInterfaceInfo>& getTrackInterfaceInfoList() const {
    return myTrackIFInfoList;
  }

  std::string toString() const;
  std::string toXML() const;

  /// MiscState for 7, 8 and numbers that are no state.
  static HSRPState getHSRPStateFromInt(int value);

 private:
  friend class ZNHSRP;
  void setHSRPState(HSRPState state) { myHSRPState = state; }
  void setHSRPStateCertainty(int certainty) { myHSRPStateCertainty = certainty; }
  void setHSRPPriority(int priority) { myPriority = priority; }
  void parseTrackList();

  ObjID myAddrID;
  ObjID myIFID;
  HSRPState myHSRPState = MiscState;
  int myPriority = 0;
  int myHSRPNumber = 0;
  int myHSRPStateCertainty = 0;
  std::string myTrackIFInfoStr;
  std::list<TrackInterfaceInfo> myTrackIFInfoList;
};

}  // namespace zntopo
