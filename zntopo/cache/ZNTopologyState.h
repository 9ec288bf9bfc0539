#pragma once

#include <string>

#include "zntopo/platform/Export.h"

namespace zntopo {

/// What the store's row of the table `state` says about the model. A plain value.
class ZNTOPO_EXPORT ZNTopologyState {
 public:
  enum TopoState : int { READY = 0, TOPOLOGY_INTERNAL_PROCESSING = 1, UNKNOWN = 2 };

  /// The row as it stands. Times are seconds UTC; the states are the store's own numbers.
  struct CompleteTopologyState {
    long createTime = 0;         ///< column CreateTime
    long topologyReadyTime = 0;  ///< column TOPOLOGYREADYCHANGETIME
    long lastChangeTime = 0;     ///< column ChangeTime
    int DiscoCycleComplete = 0;  ///< column DISCOCYCLECOMPLETE
    int DiscoZoneComplete = 0;
    int DiscoZoneInProgress = 0;
    int MeshState = 0;
    int HSRPState = 0;
    int ContainmentState = 0;
    int RelatedToState = 0;
    int TopologyReady = 0;      ///< 1 for a model that may be read
    long prevDiscoEndTime = 0;  ///< column PrevDiscoEndTime; 0 if the column is NULL
  };

  /// An unknown state with a change time of 0.
  ZNTopologyState() = default;
  ZNTopologyState(TopoState aState, long lastTopoReadyChangeTime, CompleteTopologyState stat)
      : myChangeTime(lastTopoReadyChangeTime), myState(aState), myCompleteState(stat) {}

  TopoState getTopoState() const { return myState; }
  /// The time at which the model last became ready.
  long getLastTopoReadyChangeTime() const { return myChangeTime; }
  const CompleteTopologyState& getCompleteTopologyState() const { return myCompleteState; }

  /// The enumerator's name, "UNKNOWN" for any number beyond them.
  std::string getStateAsString() const;
  /// " Topology State = ", the name and an end of line.
  std::string toString() const;

 private:
  long myChangeTime = 0;
  TopoState myState = UNKNOWN;
  CompleteTopologyState myCompleteState;
};

}  // namespace zntopo
