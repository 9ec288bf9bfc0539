package com.corvane.tv.zntopology;

/**
 * A layer-2 link, from a source to a destination.
 *
 * @param srcNodeID the node at its source
 * @param srcInterfaceID the interface at its source
 * @param destNodeID the node at its destination
 * @param destInterfaceID the interface at its destination
 */
public record ZorbConnData(
    ObjID srcNodeID, ObjID srcInterfaceID, ObjID destNodeID, ObjID destInterfaceID) {}
