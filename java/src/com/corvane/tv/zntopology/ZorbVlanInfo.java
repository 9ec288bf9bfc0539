package com.corvane.tv.zntopology;

import java.util.List;

/**
 * The part of a VLAN that lies on one node.
 *
 * @param vlanObjID the VLAN
 * @param nodeObjID the node
 * @param nodeName the node's name
 * @param interfaceInfos the interfaces of the node that are in the VLAN
 */
public record ZorbVlanInfo(
    ObjID vlanObjID, ObjID nodeObjID, String nodeName, List<ZorbVlanIFInfo> interfaceInfos) {}
