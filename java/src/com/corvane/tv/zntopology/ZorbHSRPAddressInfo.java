package com.corvane.tv.zntopology;

import java.util.List;

/**
 * A member of an HSRP group.
 *
 * @param groupNumber the number of the group
 * @param interfaceObjID the member's interface
 * @param addressID the member's address
 * @param priority its priority
 * @param state its state
 * @param stateCertainty how sure the state is
 * @param trackedInterfaces the interfaces that it tracks
 */
public record ZorbHSRPAddressInfo(
    int groupNumber, ObjID interfaceObjID, ObjID addressID, int priority, ZorbHSRPState state,
    int stateCertainty, List<HSRPTrackIFInfo> trackedInterfaces) {}
