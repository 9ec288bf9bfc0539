package com.corvane.tv.zntopology;

/**
 * A relation between two interface containers.
 *
 * @param leftIfcID the container on the left
 * @param rightIfcID the container on the right
 * @param relationType the type of the relation
 * @param leftIfcType the type of the container on the left
 * @param rightIfcType the type of the container on the right
 * @param state the state of the relation
 * @param stateTime since when, in seconds UTC
 * @param description what it is
 * @param extraInfo what else is known of it
 */
public record ZorbIfcAssocInfo(
    ObjID leftIfcID, ObjID rightIfcID, int relationType, int leftIfcType, int rightIfcType,
    int state, int stateTime, String description, String extraInfo) {}
