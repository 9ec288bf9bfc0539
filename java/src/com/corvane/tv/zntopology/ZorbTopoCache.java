package com.corvane.tv.zntopology;

import java.util.Map;
import java.util.concurrent.ConcurrentHashMap;

/**
 * The objects that a caller has been given already, by the texts of their identifiers.
 *
 * <p>Given to a call, it spares the making of objects that it holds, and takes up those that are
 * made. It never drops an object, and never hears of changes: an object in it stays as it was. A
 * cache that lives for one question, or for one screen, is what it is made for. Any number of
 * threads may use one at once.
 */
public class ZorbTopoCache {
  private final Map<String, ZorbNode> nodes = new ConcurrentHashMap<>();
  private final Map<String, ZorbInterface> interfaces = new ConcurrentHashMap<>();
  private final Map<String, Address> addresses = new ConcurrentHashMap<>();
  private final Map<String, ZorbSubnet> subnets = new ConcurrentHashMap<>();
  private final Map<String, ZorbVlan> vlans = new ConcurrentHashMap<>();
  private final Map<String, ZorbHSRP> hsrps = new ConcurrentHashMap<>();
  private final Map<String, ZorbIfc> ifcs = new ConcurrentHashMap<>();

  /** Makes an empty cache. */
  public ZorbTopoCache() {}

  /**
   * Looks for a node.
   *
   * @param id the text of its identifier
   * @return what was put there; null if nothing was
   */
  public ZorbNode hasNodeID(String id) {
    return find(nodes, id);
  }

  /**
   * Puts a node there, in the place of one with the same identifier.
   *
   * @param node what to put there; without an identifier, and as null, it has no effect
   */
  public void addNode(ZorbNode node) {
    if (node != null) {
      add(nodes, node.getObjID(), node);
    }
  }

  /**
   * Looks for an interface.
   *
   * @param id the text of its identifier
   * @return what was put there; null if nothing was
   */
  public ZorbInterface hasInterfaceID(String id) {
    return find(interfaces, id);
  }

  /**
   * Puts an interface there, in the place of one with the same identifier.
   *
   * @param anInterface what to put there; without an identifier, and as null, it has no effect
   */
  public void addInterface(ZorbInterface anInterface) {
    if (anInterface != null) {
      add(interfaces, anInterface.getObjID(), anInterface);
    }
  }

  /**
   * Looks for an address.
   *
   * @param id the text of its identifier
   * @return what was put there; null if nothing was
   */
  public Address hasAddressID(String id) {
    return find(addresses, id);
  }

  /**
   * Puts an address there, in the place of one with the same identifier.
   *
   * @param address what to put there; without an identifier, and as null, it has no effect
   */
  public void addAddress(Address address) {
    if (address != null) {
      add(addresses, address.getAddressID(), address);
    }
  }

  /**
   * Looks for a subnet.
   *
   * @param id the text of its identifier
   * @return what was put there; null if nothing was
   */
  public ZorbSubnet hasSubnetID(String id) {
    return find(subnets, id);
  }

  /**
   * Puts a subnet there, in the place of one with the same identifier.
   *
   * @param subnet what to put there; without an identifier, and as null, it has no effect
   */
  public void addSubnet(ZorbSubnet subnet) {
    if (subnet != null) {
      add(subnets, subnet.getObjID(), subnet);
    }
  }

  /**
   * Looks for a VLAN.
   *
   * @param id the text of its identifier
   * @return what was put there; null if nothing was
   */
  public ZorbVlan hasVlanID(String id) {
    return find(vlans, id);
  }

  /**
   * Puts a VLAN there, in the place of one with the same identifier.
   *
   * @param vlan what to put there; without an identifier, and as null, it has no effect
   */
  public void addVlan(ZorbVlan vlan) {
    if (vlan != null) {
      add(vlans, vlan.getObjID(), vlan);
    }
  }

  /**
   * Looks for an HSRP group.
   *
   * @param id the text of its identifier
   * @return what was put there; null if nothing was
   */
  public ZorbHSRP hasHSRPID(String id) {
    return find(hsrps, id);
  }

  /**
   * Puts an HSRP group there, in the place of one with the same identifier.
   *
   * @param hsrp what to put there; without an identifier, and as null, it has no effect
   */
  public void addHSRP(ZorbHSRP hsrp) {
    if (hsrp != null) {
      add(hsrps, hsrp.getObjID(), hsrp);
    }
  }

  /**
   * Looks for an interface container.
   *
   * @param id the text of its identifier
   * @return what was put there; null if nothing was
   */
  public ZorbIfc hasIfcID(String id) {
    return find(ifcs, id);
  }

  /**
   * Puts an interface container there, in the place of one with the same identifier.
   *
   * @param ifc what to put there; without an identifier, and as null, it has no effect
   */
  public void addIfc(ZorbIfc ifc) {
    if (ifc != null) {
      add(ifcs, ifc.getObjID(), ifc);
    }
  }

  private static <T> T find(Map<String, T> objects, String id) {
    return id == null ? null : objects.get(id);
  }

  private static <T> void add(Map<String, T> objects, ObjID id, T object) {
    if (id != null && id.getStringValue() != null) {
      objects.put(id.getStringValue(), object);
    }
  }
}
