package com.corvane.tv.zntopology;

/**
 * A member of an interface container.
 *
 * @param ifcObjID the container
 * @param ifcType the type of the container
 * @param containmentType how it is contained
 * @param sequenceNumber its place in the container
 * @param interfaceObjID the interface
 */
public record ZorbIfcIFInfo(
    ObjID ifcObjID, int ifcType, int containmentType, int sequenceNumber, ObjID interfaceObjID) {}
