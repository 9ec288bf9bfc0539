package com.corvane.tv.zntopology;

/**
 * An interface in a VLAN.
 *
 * @param interfaceObjID the interface
 * @param boardNumber the number of its board
 * @param portNumber the number of its port
 */
public record ZorbVlanIFInfo(ObjID interfaceObjID, String boardNumber, String portNumber) {}
