package com.corvane.tv.zntopology;

/**
 * An address in a subnet, and whose it is.
 *
 * @param addressID the address
 * @param nodeObjID the node that has it
 * @param interfaceObjID the interface that has it
 */
public record SubnetEndPoint(ObjID addressID, ObjID nodeObjID, ObjID interfaceObjID) {}
