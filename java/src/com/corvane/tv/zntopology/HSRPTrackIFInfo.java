package com.corvane.tv.zntopology;

/**
 * An interface that a member of an HSRP group tracks.
 *
 * @param interfaceObjID the interface
 * @param priority by how much the member's priority falls when the interface does
 */
public record HSRPTrackIFInfo(ObjID interfaceObjID, int priority) {}
