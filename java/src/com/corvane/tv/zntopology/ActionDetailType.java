package com.corvane.tv.zntopology;

/** What of an object discovery changed. */
public final class ActionDetailType extends TopoConstant {
  /** Any, when asking. */
  public static final ActionDetailType DONT_CARE = new ActionDetailType(-1);
  /** Nothing in particular. */
  public static final ActionDetailType NOT_APPLICABLE = new ActionDetailType(0);
  /** A layer-2 connection. */
  public static final ActionDetailType L2_CONNECTION = new ActionDetailType(1);
  /** What is in a VLAN. */
  public static final ActionDetailType VLAN_CONTAINMENT = new ActionDetailType(2);
  /** What is in an interface container. */
  public static final ActionDetailType IFC_CONTAINMENT = new ActionDetailType(3);
  /** The interfaces of a node. */
  public static final ActionDetailType NODE_IF_CONTAINMENT = new ActionDetailType(4);
  /** The addresses of an interface. */
  public static final ActionDetailType IF_ADDRESS_ASSOCIATION = new ActionDetailType(5);
  /** The addresses of a subnet. */
  public static final ActionDetailType SUBNET_ADDRESS_ASSOCIATION = new ActionDetailType(6);
  /** A member of an HSRP group changed. */
  public static final ActionDetailType HSRP_ADDRESS_CHANGE = new ActionDetailType(101);
  /** A member joined or left an HSRP group. */
  public static final ActionDetailType HSRP_ADDRESS_ADD_OR_DELETE = new ActionDetailType(102);

  /**
   * Takes any number: one without a name is kept as it is.
   *
   * @param value the number
   */
  public ActionDetailType(int value) {
    super(value);
  }
}
