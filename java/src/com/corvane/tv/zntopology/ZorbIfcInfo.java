package com.corvane.tv.zntopology;

import java.util.List;

/**
 * A part of an interface container: its members on one node, or in one container.
 *
 * @param objID the node or the container
 * @param interfaceInfos the members
 */
public record ZorbIfcInfo(ObjID objID, List<ZorbIfcIFInfo> interfaceInfos) {}
