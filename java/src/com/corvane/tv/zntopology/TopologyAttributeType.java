package com.corvane.tv.zntopology;

/** An attribute that can be changed in the cache. */
public final class TopologyAttributeType extends TopoConstant {
  /** The state of a member of an HSRP group. */
  public static final TopologyAttributeType HSRP_STATE = new TopologyAttributeType(0);
  /** How sure that state is. */
  public static final TopologyAttributeType HSRP_CERTAINTY = new TopologyAttributeType(1);
  /** What an interface is told to be. */
  public static final TopologyAttributeType IF_ADMIN_STATUS = new TopologyAttributeType(2);
  /** What an interface is. */
  public static final TopologyAttributeType IF_OPER_STATUS = new TopologyAttributeType(3);
  /** Whether an address answers. */
  public static final TopologyAttributeType PING_STATE = new TopologyAttributeType(4);
  /** Whether the SNMP agent of a node answers. */
  public static final TopologyAttributeType SNMP_STATE = new TopologyAttributeType(5);
  /** The priority of a member of an HSRP group. */
  public static final TopologyAttributeType HSRP_PRIORITY = new TopologyAttributeType(6);

  /**
   * Takes any number: one without a name is kept as it is.
   *
   * @param value the number
   */
  public TopologyAttributeType(int value) {
    super(value);
  }
}
