package com.corvane.tv.zntopology;

import java.util.Collection;
import java.util.List;
import java.util.Objects;
import java.util.Set;

/**
 * The topology of the store that the environment variable TV_TOPO_STORE names: questions to it, with
 * collections and objects for answers and a {@link TopologyException} for each failure.
 *
 * <p>An answer is a snapshot that belongs to the caller; within one answer an object that is met
 * twice is made once. Any number of threads may ask at once.
 */
public final class Topology {
  private static final int ANY_RD = -1;

  private final ZorbNative natives = new ZorbNative();

  /**
   * Loads the library, with its cache as it stands.
   *
   * @see #withoutNodeCache
   */
  public Topology() {}

  /**
   * Loads the library, and has it keep no nodes in its cache: neighbours and paths then never miss a
   * node. That holds for the whole process, and leaves the other sizes at what the library starts
   * with.
   *
   * @return the topology
   */
  public static Topology withoutNodeCache() {
    ZorbNative.initNativeCache(0, 15000, 15000, 500, 500, 500, 500);
    return new Topology();
  }

  /** {@return whether the topology may be read, and since when} */
  public TopologyState state() {
    return ask("the state of the topology", call -> natives.getTopologyStateNative(call.status));
  }

  /** {@return how large the topology is} */
  public ZorbTopoInfo info() {
    return ask("the size of the topology", call -> natives.getNativeTopoInfo(call.status));
  }

  /**
   * Finds the one node of a text.
   *
   * @param name an identifier, an address, a name or the beginning of one
   * @return the node
   */
  public ZorbNode node(String name) {
    return ask(
        "the node " + name, call -> natives.getNativeNodeByName(name, call.status, call.cache));
  }

  /**
   * Finds a node by its identifier.
   *
   * @param id the identifier
   * @return the node
   */
  public ZorbNode node(ObjID id) {
    return ask(
        "the node " + id, call -> natives.getNodeNativeByObjID(id, call.status, call.cache));
  }

  /** {@return all nodes} */
  public List<ZorbNode> nodes() {
    return ask(
        "all nodes",
        call ->
            natives.getNativeAllNodes(
                call.status, call.cache, IPLevel.ALL_PROTOCOL.toInt(), ANY_RD));
  }

  /**
   * Finds the nodes that a filter selects.
   *
   * @param document a document of filters
   * @param filter the name of a filter in it
   * @return the nodes
   */
  public List<ZorbNode> nodes(String document, String filter) {
    return ask(
        "the nodes of the filter " + filter,
        call ->
            natives.parseAndGetNodesByTopoFilterNative(document, filter, call.status, call.cache));
  }

  /**
   * Tells the interfaces of a node.
   *
   * @param node the node
   * @return the interfaces
   */
  public List<ZorbInterface> interfaces(ZorbNode node) {
    Set<ObjID> ids =
        ask(
            "the interfaces of " + node.getName(),
            call -> ZorbNative.getInterfaceIDListFromNode(node.getObjID(), call.status));
    return interfaces(ids);
  }

  /**
   * Reads interfaces.
   *
   * @param ids their identifiers
   * @return the interfaces, without those that do not exist
   */
  public List<ZorbInterface> interfaces(Collection<ObjID> ids) {
    if (ids.isEmpty()) {
      return List.of();
    }
    return ask(
        "interfaces",
        call ->
            natives.getInterfacesByObjIDListNative(
                ids.toArray(), false, false, call.status, call.cache));
  }

  /**
   * Finds the interfaces that a filter selects.
   *
   * @param document a document of filters
   * @param filter the name of a filter in it
   * @return the interfaces
   */
  public List<ZorbInterface> interfaces(String document, String filter) {
    return ask(
        "the interfaces of the filter " + filter,
        call ->
            natives.parseAndGetInterfacesByTopoFilterNative(
                document, filter, call.status, call.cache));
  }

  /** {@return all subnets} */
  public List<ZorbSubnet> subnets() {
    return ask(
        "all subnets",
        call ->
            natives.getSubnetsNativeByObjIDs(
                null, false, call.status, call.cache, IPLevel.ALL_PROTOCOL.toInt(), true, ANY_RD));
  }

  /** {@return all VLANs} */
  public List<ZorbVlan> vlans() {
    return ask("all VLANs", call -> natives.getVlans(call.status, call.cache, ANY_RD));
  }

  /** {@return all HSRP groups} */
  public List<ZorbHSRP> hsrpGroups() {
    return ask(
        "all HSRP groups",
        call -> natives.getHSRPsNativeByObjIDs(null, true, call.status, call.cache));
  }

  /**
   * Reads the interface containers of a type.
   *
   * @param type the type
   * @return the containers
   */
  public List<ZorbIfc> containers(int type) {
    return ask(
        "the interface containers of type " + type,
        call -> natives.getIfcsByTypeNative(type, call.status, call.cache));
  }

  /**
   * Tells the layer-2 connections around a node.
   *
   * @param node the node, as for {@link #node(String)}
   * @param hops how many hops away, at least 1
   * @param maxNodes at how many nodes to stop; that fails, with {@link
   *     TopoStatusCode#INCOMPLETE_NEIGHBOR_INFO}
   * @return the connections
   */
  public List<ZorbConnection> neighbors(String node, int hops, int maxNodes) {
    return ask(
        "the neighbours of " + node,
        call -> natives.getNodeNeighbors(node, hops, maxNodes, call.status, call.cache));
  }

  /**
   * Finds the layer-2 path between two addresses, through routers too.
   *
   * @param from the address at its beginning
   * @param to the address at its end
   * @return the interfaces on the way
   */
  public List<ZorbInterface> path(String from, String to) {
    return ask(
        "the path from " + from + " to " + to,
        call -> natives.getL2PathNative(from, to, call.status, call.cache, true));
  }

  /**
   * Finds the layer-2 path between two nodes, through routers too.
   *
   * @param from the node at its beginning, as for {@link #node(String)}
   * @param to the node at its end
   * @return the links on the way
   */
  public List<ZorbConnData> pathBetweenNodes(String from, String to) {
    return ask(
        "the path from " + from + " to " + to,
        call -> natives.getL2PathBetweenNodesNative(from, to, call.status, call.cache, true));
  }

  /** What a call is given: a status, and a cache for its answer alone. */
  private static final class Call {
    final ZorbTopoStatus status = new ZorbTopoStatus();
    final ZorbTopoCache cache = new ZorbTopoCache();
  }

  private interface Question<T> {
    T answer(Call call);
  }

  private static <T> T ask(String what, Question<T> question) {
    Call call = new Call();
    T answer = question.answer(call);
    if (!call.status.isOK()) {
      throw new TopologyException(what, call.status);
    }
    return Objects.requireNonNull(answer, () -> what + ": the library gave no answer; see its log");
  }
}
