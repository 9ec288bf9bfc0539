package com.corvane.tv.zntopology;

import java.io.File;
import java.util.ArrayList;
import java.util.HashSet;
import java.util.Vector;

/**
 * The calls of the library as they are; {@link Topology} is the door for new programs.
 *
 * <p>A call that fails gives null and tells its {@link ZorbTopoStatus} why; it throws nothing,
 * {@link #getNativeTopoInfo} apart, which throws an {@link IllegalStateException} if it can't make
 * or fill its result. An argument that is null, or an object of another class than is asked for,
 * counts as none. A text with a NUL in it is refused, with the status ILLEGAL_INPUT.
 *
 * <p>Any number of threads may call at once. The library is loaded with this class: the system
 * property {@value #LIBRARY_PROPERTY} names its file; without it, it is looked for in the folders
 * of java.library.path.
 */
public class ZorbNative {
  /** The system property that names the file of the library. */
  public static final String LIBRARY_PROPERTY = "zntopo.library";

  static {
    loadLibrary();
  }

  /** Makes a caller; all are alike. */
  public ZorbNative() {}

  // Setting up.

  /**
   * Tells the library that it is used. Neither value is kept.
   *
   * @param latencyArg is not looked at
   * @param domainArg is not looked at
   * @return 1
   */
  public static native int initZorb(int latencyArg, String domainArg);

  /**
   * Sets the sizes of the library's cache, in objects; nothing changes if one of the first six is
   * negative.
   *
   * @param theNodeCacheSize of nodes; 0 for one whose walks must not miss a node
   * @param theInterfaceCacheSize of interfaces
   * @param theAddressCacheSize of addresses
   * @param theSubnetCacheSize of subnets
   * @param theVlanCacheSize of VLANs
   * @param theHSRPCacheSize of HSRP groups
   * @param theIfcCacheSize is not looked at
   */
  public static native void initNativeCache(
      int theNodeCacheSize, int theInterfaceCacheSize, int theAddressCacheSize,
      int theSubnetCacheSize, int theVlanCacheSize, int theHSRPCacheSize, int theIfcCacheSize);

  /**
   * Sets the switches of the library.
   *
   * @param topoConfig a {@link TopologyConfiguration}
   */
  public static native void setTopologyConfigurationNative(Object topoConfig);

  /**
   * Loads whole kinds of objects into the library's cache.
   *
   * @param loadSwitchNode the switches
   * @param loadRouterNode the routers
   * @param loadVlan the VLANs
   * @param loadHSRP the HSRP groups
   * @param loadConnectedIFs the interfaces with a layer-2 link
   * @param statusArg a {@link ZorbTopoStatus} that is told how the call ended
   */
  public static native void preLoadTopoCacheNative(
      boolean loadSwitchNode, boolean loadRouterNode, boolean loadVlan, boolean loadHSRP,
      boolean loadConnectedIFs, Object statusArg);

  /**
   * Sets the level of the library's log.
   *
   * @param newLevel 0 for all lines, to 7 for none
   */
  public static native void setNativeMClogLevel(int newLevel);

  /**
   * Empties the library's cache.
   */
  public native void clearNativeCache();

  // The topology.

  /**
   * Reads the state of the topology.
   *
   * @param statusArg a {@link ZorbTopoStatus} that is told how the call ended
   * @return the state; null on a failure
   */
  public native TopologyState getTopologyStateNative(Object statusArg);

  /**
   * Counts the topology.
   *
   * @param statusArg a {@link ZorbTopoStatus} that is told how the call ended
   * @return the counts; null on a failure
   */
  public native ZorbTopoInfo getNativeTopoInfo(Object statusArg);

  /**
   * Reads what discovery did.
   *
   * @param starttime from when on, in seconds UTC; 0 for always
   * @param endtime up to when, in seconds UTC; 0 for always
   * @param acttype the number of an {@link ActionType}
   * @param objtype the number of an {@link EntityType}; -1 for any
   * @param status a {@link ZorbTopoStatus} that is told how the call ended
   * @return the trails, one for an object; null on a failure
   */
  public native Vector<ZorbAuditTrail> getAuditTrailNative(
      long starttime, long endtime, int acttype, int objtype, Object status);

  // Nodes.

  /**
   * Finds a node by its identifier.
   *
   * @param ObjIDArg an {@link ObjID}
   * @param statusArg a {@link ZorbTopoStatus} that is told how the call ended
   * @param theJavaCache a {@link ZorbTopoCache} to share objects through; null for none
   * @return the node; null if there is none, or on a failure
   */
  public native ZorbNode getNodeNativeByObjID(
      Object ObjIDArg, Object statusArg, Object theJavaCache);

  /**
   * Finds a node by its legacy identifier.
   *
   * @param QRMIDArg an {@link ObjID}, a legacy identifier
   * @param statusArg a {@link ZorbTopoStatus} that is told how the call ended
   * @param theJavaCache a {@link ZorbTopoCache} to share objects through; null for none
   * @return the node; null if there is none, or on a failure
   */
  public native ZorbNode getNodeNativeByQRMObjID(
      Object QRMIDArg, Object statusArg, Object theJavaCache);

  /**
   * Finds the one node of a text: an identifier, an address, a name or the beginning of one.
   *
   * @param aName the text
   * @param statusArg a {@link ZorbTopoStatus} that is told how the call ended
   * @param theJavaCache a {@link ZorbTopoCache} to share objects through; null for none
   * @return the node; null if there is none, or on a failure
   */
  public native ZorbNode getNativeNodeByName(String aName, Object statusArg, Object theJavaCache);

  /**
   * Reads all nodes.
   *
   * @param statusArg a {@link ZorbTopoStatus} that is told how the call ended
   * @param theJavaCache a {@link ZorbTopoCache} to share objects through; null for none
   * @param ipLevel the number of an {@link IPLevel}
   * @param aRD the route distinguisher; -1 for any
   * @return the nodes; null on a failure
   */
  public native Vector<ZorbNode> getNativeAllNodes(
      Object statusArg, Object theJavaCache, int ipLevel, int aRD);

  /**
   * Finds the nodes that have the attributes of a filter.
   *
   * @param filterArg a {@link TopoFilter}
   * @param batchInfoArg is not looked at
   * @param statusArg a {@link ZorbTopoStatus} that is told how the call ended
   * @return their identifiers; null on a failure
   */
  public native Vector<ObjID> getNodeIDsByFilterNative(
      Object filterArg, Object batchInfoArg, Object statusArg);

  /**
   * Finds the nodes that a filter in a document selects.
   *
   * @param aFilterStr a document of filters
   * @param aFiltName the name of a filter in it
   * @param statusArg a {@link ZorbTopoStatus} that is told how the call ended
   * @param theJavaCache a {@link ZorbTopoCache} to share objects through; null for none
   * @return the nodes; null on a failure
   */
  public native Vector<ZorbNode> parseAndGetNodesByTopoFilterNative(
      String aFilterStr, String aFiltName, Object statusArg, Object theJavaCache);

  // Interfaces.

  /**
   * Reads interfaces.
   *
   * @param objIDsArg identifiers, each an {@link ObjID}
   * @param areQRMOIDArg whether they are legacy identifiers
   * @param getAllConnected whether to read all with a layer-2 link instead
   * @param statusArg a {@link ZorbTopoStatus} that is told how the call ended
   * @param theJavaCache a {@link ZorbTopoCache} to share objects through; null for none
   * @return the interfaces; null on a failure
   */
  public native Vector<ZorbInterface> getInterfacesByObjIDListNative(
      Object[] objIDsArg, boolean areQRMOIDArg, boolean getAllConnected, Object statusArg,
      Object theJavaCache);

  /**
   * Tells the interfaces of a node.
   *
   * @param ObjIDArg an {@link ObjID}
   * @param statusArg a {@link ZorbTopoStatus} that is told how the call ended
   * @return their identifiers; null on a failure
   */
  public static native HashSet<ObjID> getInterfaceIDListFromNode(Object ObjIDArg, Object statusArg);

  /**
   * Finds the interfaces that a filter in a document selects.
   *
   * @param aFilterStr a document of filters
   * @param aFiltName the name of a filter in it
   * @param statusArg a {@link ZorbTopoStatus} that is told how the call ended
   * @param theJavaCache a {@link ZorbTopoCache} to share objects through; null for none
   * @return the interfaces; null on a failure
   */
  public native Vector<ZorbInterface> parseAndGetInterfacesByTopoFilterNative(
      String aFilterStr, String aFiltName, Object statusArg, Object theJavaCache);

  // Addresses.

  /**
   * Finds an address by its identifier.
   *
   * @param ObjIDArg an {@link ObjID}
   * @param statusArg a {@link ZorbTopoStatus} that is told how the call ended
   * @param theJavaCache a {@link ZorbTopoCache} to share objects through; null for none
   * @return the address; null if there is none, or on a failure
   */
  public native Address getAddressNativeByObjID(
      Object ObjIDArg, Object statusArg, Object theJavaCache);

  /**
   * Finds an address by its legacy identifier.
   *
   * @param ObjIDArg an {@link ObjID}, a legacy identifier
   * @param statusArg a {@link ZorbTopoStatus} that is told how the call ended
   * @param theJavaCache a {@link ZorbTopoCache} to share objects through; null for none
   * @return the address; null if there is none, or on a failure
   */
  public native Address getAddressNativeByQRMObjID(
      Object ObjIDArg, Object statusArg, Object theJavaCache);

  /**
   * Reads addresses.
   *
   * @param addrIDs identifiers, each an {@link ObjID}
   * @param statusArg a {@link ZorbTopoStatus} that is told how the call ended
   * @param theJavaCache a {@link ZorbTopoCache} to share objects through; null for none
   * @return the addresses, null for one of a type that has no class here; null on a failure
   */
  public native Vector<Address> getAddrsNativeByObjIDs(
      Object[] addrIDs, Object statusArg, Object theJavaCache);

  /**
   * Tells the DNS names of an IPv6 address.
   *
   * @param theIPv6Addr the address's {@link ObjID}
   * @param statusArg a {@link ZorbTopoStatus} that is told how the call ended
   * @return the names; null on a failure
   */
  public native ArrayList<String> resolveIPv6ToDNSNative(Object theIPv6Addr, Object statusArg);

  // Subnets.

  /**
   * Finds a subnet by its identifier.
   *
   * @param ObjIDArg an {@link ObjID}
   * @param statusArg a {@link ZorbTopoStatus} that is told how the call ended
   * @param theJavaCache a {@link ZorbTopoCache} to share objects through; null for none
   * @return the subnet; null if there is none, or on a failure
   */
  public native ZorbSubnet getSubnetNativeByObjID(
      Object ObjIDArg, Object statusArg, Object theJavaCache);

  /**
   * Finds a subnet by its legacy identifier.
   *
   * @param QRMIDArg an {@link ObjID}, a legacy identifier
   * @param statusArg a {@link ZorbTopoStatus} that is told how the call ended
   * @param theJavaCache a {@link ZorbTopoCache} to share objects through; null for none
   * @return the subnet; null if there is none, or on a failure
   */
  public native ZorbSubnet getSubnetNativeByQRMObjID(
      Object QRMIDArg, Object statusArg, Object theJavaCache);

  /**
   * Reads subnets.
   *
   * @param objIDsArg identifiers, each an {@link ObjID}
   * @param areQRMOIDArg whether they are legacy identifiers
   * @param statusArg a {@link ZorbTopoStatus} that is told how the call ended
   * @param theJavaCache a {@link ZorbTopoCache} to share objects through; null for none
   * @param ipLevel the number of an {@link IPLevel}
   * @param getAll whether to read all instead, of the IP level and the route distinguisher
   * @param aRD the route distinguisher; -1 for any
   * @return the subnets; null on a failure
   */
  public native Vector<ZorbSubnet> getSubnetsNativeByObjIDs(
      Object[] objIDsArg, boolean areQRMOIDArg, Object statusArg, Object theJavaCache,
      int ipLevel, boolean getAll, int aRD);

  /**
   * Finds the subnets that have the attributes of a filter.
   *
   * @param filterArg a {@link TopoFilter}
   * @param batchInfoArg is not looked at
   * @param statusArg a {@link ZorbTopoStatus} that is told how the call ended
   * @return their identifiers; null on a failure
   */
  public native Vector<ObjID> getSubnetIDsByFilterNative(
      Object filterArg, Object batchInfoArg, Object statusArg);

  /**
   * Tells the subnets around an IPv6 node.
   *
   * @param nodeIDArg the node's {@link ObjID}
   * @param numHopsArg how many subnets away, at least 1
   * @param batchInfoArg is not looked at
   * @param filterArg a {@link TopoFilter}
   * @param statusArg a {@link ZorbTopoStatus} that is told how the call ended
   * @return their identifiers; null on a failure
   */
  public native Vector<ObjID> getSubnetConnectivityNative(
      Object nodeIDArg, int numHopsArg, Object batchInfoArg, Object filterArg, Object statusArg);

  // VLANs, interface containers and HSRP groups.

  /**
   * Reads all VLANs.
   *
   * @param statusArg a {@link ZorbTopoStatus} that is told how the call ended
   * @param theJavaCache a {@link ZorbTopoCache} to share objects through; null for none
   * @param aRD the route distinguisher; -1 for any
   * @return the VLANs; null on a failure
   */
  public native Vector<ZorbVlan> getVlans(Object statusArg, Object theJavaCache, int aRD);

  /**
   * Finds a VLAN by its identifier.
   *
   * @param aObjID an {@link ObjID}
   * @param statusArg a {@link ZorbTopoStatus} that is told how the call ended
   * @param theJavaCache a {@link ZorbTopoCache} to share objects through; null for none
   * @return the VLAN; null if there is none, or on a failure
   */
  public native ZorbVlan getVlanByObjIDNative(Object aObjID, Object statusArg, Object theJavaCache);

  /**
   * Reads interface containers.
   *
   * @param objIDsArg identifiers, each an {@link ObjID}
   * @param statusArg a {@link ZorbTopoStatus} that is told how the call ended
   * @param theJavaCache a {@link ZorbTopoCache} to share objects through; null for none
   * @return the containers; null on a failure
   */
  public native Vector<ZorbIfc> getIfcsByObjIDListNative(
      Object[] objIDsArg, Object statusArg, Object theJavaCache);

  /**
   * Reads the interface containers of a type.
   *
   * @param jIfcType the type
   * @param statusArg a {@link ZorbTopoStatus} that is told how the call ended
   * @param theJavaCache a {@link ZorbTopoCache} to share objects through; null for none
   * @return the containers; null on a failure
   */
  public native Vector<ZorbIfc> getIfcsByTypeNative(
      int jIfcType, Object statusArg, Object theJavaCache);

  /**
   * Tells what interface containers hold.
   *
   * @param objIDsArg identifiers, each an {@link ObjID}
   * @param useNodeAsKey whether the identifiers are those of nodes; else of containers
   * @param getAll whether to read all instead
   * @param IFCType the type of containers; 0 for any
   * @param statusArg a {@link ZorbTopoStatus} that is told how the call ended
   * @return the parts of containers, of all identifiers in one list; null on a failure
   */
  public native ArrayList<ZorbIfcInfo> getIfcInfosByObjIDListNative(
      Object[] objIDsArg, boolean useNodeAsKey, boolean getAll, int IFCType, Object statusArg);

  /**
   * Reads HSRP groups.
   *
   * @param objIDsArg identifiers, each an {@link ObjID}
   * @param allHSRPsArg whether to read all instead
   * @param statusArg a {@link ZorbTopoStatus} that is told how the call ended
   * @param theJavaCache a {@link ZorbTopoCache} to share objects through; null for none
   * @return the groups; null on a failure
   */
  public native Vector<ZorbHSRP> getHSRPsNativeByObjIDs(
      Object[] objIDsArg, boolean allHSRPsArg, Object statusArg, Object theJavaCache);

  // Entities.

  /**
   * Finds nothing: use the call of the kind.
   *
   * @param ObjIDArg an {@link ObjID}
   * @param statusArg a {@link ZorbTopoStatus} that is told how the call ended
   * @param theJavaCache a {@link ZorbTopoCache} to share objects through; null for none
   * @return null, with a status of success
   */
  public native ZorbEntity getEntityNativeByObjID(
      Object ObjIDArg, Object statusArg, Object theJavaCache);

  /**
   * Finds nothing: use the call of the kind.
   *
   * @param QRMIDArg an {@link ObjID}, a legacy identifier
   * @param statusArg a {@link ZorbTopoStatus} that is told how the call ended
   * @param theJavaCache a {@link ZorbTopoCache} to share objects through; null for none
   * @return null, with a status of success
   */
  public native ZorbEntity getEntityNativeByQRMObjID(
      Object QRMIDArg, Object statusArg, Object theJavaCache);

  /**
   * Finds the objects that have the attributes of a filter.
   *
   * @param filterArg a {@link TopoFilter}
   * @param statusArg a {@link ZorbTopoStatus} that is told how the call ended
   * @return their identifiers; null on a failure
   */
  public native Vector<ObjID> getEntityIDsByFilterNative(Object filterArg, Object statusArg);

  // Walks.

  /**
   * Tells the layer-2 connections around a node.
   *
   * @param nameArg the node, as for {@link #getNativeNodeByName}
   * @param nHopsArg how many hops away, at least 1
   * @param nMaxNodesArg at how many nodes to stop
   * @param statusArg a {@link ZorbTopoStatus} that is told how the call ended
   * @param theJavaCache a {@link ZorbTopoCache} to share objects through; null for none
   * @return the connections, some of them with status 23; null on any other failure
   */
  public native Vector<ZorbConnection> getNodeNeighbors(
      String nameArg, int nHopsArg, int nMaxNodesArg, Object statusArg, Object theJavaCache);

  /**
   * Tells the layer-2 connections of nodes.
   *
   * @param objIDsArg identifiers, each an {@link ObjID}
   * @param jnotFoundIDs a {@link java.util.List} to which an {@link ObjID} of each node that was
   *     not found is added
   * @param includeAllNodes whether connections to other nodes count too
   * @param isQRMId whether they are legacy identifiers
   * @param statusArg a {@link ZorbTopoStatus} that is told how the call ended
   * @param theJavaCache a {@link ZorbTopoCache} to share objects through; null for none
   * @return the connections; null on a failure
   */
  public native Vector<ZorbConnection> getConnectivityNative(
      Object[] objIDsArg, Object jnotFoundIDs, boolean includeAllNodes, boolean isQRMId,
      Object statusArg, Object theJavaCache);

  /**
   * Finds the layer-2 path between two addresses.
   *
   * @param ipBegin the address at its beginning
   * @param ipEnd the address at its end
   * @param statusArg a {@link ZorbTopoStatus} that is told how the call ended
   * @param theJavaCache a {@link ZorbTopoCache} to share objects through; null for none
   * @param crossRouter whether the way may pass through routers
   * @return the interfaces on the way; null on a failure
   */
  public native Vector<ZorbInterface> getL2PathNative(
      String ipBegin, String ipEnd, Object statusArg, Object theJavaCache, boolean crossRouter);

  /**
   * Finds the layer-2 path between two nodes.
   *
   * @param srcNode the node at its beginning
   * @param destNode the node at its end
   * @param statusArg a {@link ZorbTopoStatus} that is told how the call ended
   * @param theJavaCache a {@link ZorbTopoCache} to share objects through; null for none
   * @param crossRouter whether the way may pass through routers
   * @return the links on the way; null on a failure
   */
  public native Vector<ZorbConnData> getL2PathBetweenNodesNative(
      String srcNode, String destNode, Object statusArg, Object theJavaCache, boolean crossRouter);

  /**
   * Finds the layer-2 path between two addresses without crossing routers.
   *
   * @param ipBegin the address at its beginning
   * @param ipEnd the address at its end
   * @return a document, which holds the path or the failure; texts in it are not escaped
   */
  public native String getL2PathXML(String ipBegin, String ipEnd);

  /**
   * Finds the layer-2 path between two nodes.
   *
   * @param ipBegin the node at its beginning
   * @param ipEnd the node at its end
   * @param crossRouter whether the way may pass through routers
   * @return a document, which holds the path or the failure; texts in it are not escaped
   */
  public native String getL2PathBetweenNodesXML(String ipBegin, String ipEnd, boolean crossRouter);

  // Changes in the library's cache.

  /**
   * Changes a status of an object in the library's cache.
   *
   * @param ObjIDArg an {@link ObjID}
   * @param isAddress whether it is an address
   * @param entityTypeArg the number of the {@link EntityType}
   * @param tvwStatus the number of the {@link ObjectStatus}
   * @param changeTimeUTC when, in seconds UTC
   * @param entStatusType the number of the {@link EntityStatusType}
   * @param statusArg a {@link ZorbTopoStatus} that is told how the call ended
   * @param isQRMID whether it is a legacy identifier
   */
  public native void updateCacheObjectStatusNative(
      Object ObjIDArg, boolean isAddress, int entityTypeArg, int tvwStatus, long changeTimeUTC,
      int entStatusType, Object statusArg, boolean isQRMID);

  /**
   * Changes an attribute of an object in the library's cache.
   *
   * @param objIDArg an {@link ObjID}
   * @param theEntType the number of the {@link EntityType}
   * @param theAttrType the number of the {@link TopologyAttributeType}
   * @param theAttrVal the value
   * @param theAddrID the {@link ObjID} of an HSRP member's address
   * @param theStatusArg a {@link ZorbTopoStatus} that is told how the call ended
   */
  public native void updateCacheObjectAttributeNative(
      Object objIDArg, int theEntType, int theAttrType, int theAttrVal, Object theAddrID,
      Object theStatusArg);

  private static void loadLibrary() {
    String file = System.getProperty(LIBRARY_PROPERTY);
    try {
      if (file != null) {
        System.load(new File(file).getAbsolutePath());
      } else {
        System.loadLibrary("zntopo");
      }
    } catch (UnsatisfiedLinkError e) {
      UnsatisfiedLinkError told = new UnsatisfiedLinkError(explain(file, e));
      told.initCause(e);
      throw told;
    }
  }

  private static String explain(String file, UnsatisfiedLinkError e) {
    String tried =
        file != null
            ? "the system property " + LIBRARY_PROPERTY + " names " + file
            : "java.library.path is " + System.getProperty("java.library.path");
    return "The library " + System.mapLibraryName("zntopo") + " could not be loaded: "
        + e.getMessage() + " (" + tried + "). Name its file with -D" + LIBRARY_PROPERTY
        + "=/folder/" + System.mapLibraryName("zntopo")
        + ", or its folder with -Djava.library.path=/folder.";
  }
}
