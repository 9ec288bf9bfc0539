#pragma once

#include "zntopo/notify/TopologyNotification.h"

namespace zntopo {

/// The state of the whole topology.
enum TopologyState : int {
  TOPOLOGY_FAILED = -1,
  TOPOLOGY_READY = 0,  ///< receiving this clears the cache
  TOPOLOGY_READ_ONLY = 1,
  TOPOLOGY_DISCO_START = 2
};

/// How the topology is discovered.
enum DiscoType : int { Full_Discovery = 1, Incremental_Discovery = 2 };

/// The state of the whole topology has changed. Times are seconds since the epoch, UTC.
class ZNTOPO_EXPORT TopologyStateNotification : public TopologyNotification {
 public:
  TopologyStateNotification(EntityType entityType, TopoNotificationType notifType, ObjID id,
                            TopologyState state, int _discoStartTime, int _discoEndTime,
                            int _prevDiscoEndTime, DiscoType _discoFlag)
      : TopologyNotification(notifType, static_cast<ObjID&&>(id), entityType),
        topoState(state),
        discoStartTime(_discoStartTime),
        discoEndTime(_discoEndTime),
        prevDiscoEndTime(_prevDiscoEndTime),
        discoFlag(_discoFlag) {}

  /// Fails with ZN_API_STATE_GEN_ERROR.
  ZNTopoAPIStatus createAndSendNotification() override;

  TopologyState getTopologyState() const { return topoState; }
  int getDiscoStartTime() const { return discoStartTime; }
  int getDiscoEndTime() const { return discoEndTime; }
  int getPrevDiscoEndTime() const { return prevDiscoEndTime; }
  DiscoType getDiscoFlag() const { return discoFlag; }

 private:
  TopologyState topoState;
  int discoStartTime;
  int discoEndTime;
  int prevDiscoEndTime;
  DiscoType discoFlag;
};

}  // namespace zntopo
