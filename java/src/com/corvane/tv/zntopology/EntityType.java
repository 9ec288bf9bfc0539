package com.corvane.tv.zntopology;

/** The kind of a topology object. */
public final class EntityType extends TopoConstant {
  /** Not known. */
  public static final EntityType E_UNKNOWN = new EntityType(0);
  /** A node. */
  public static final EntityType E_NODE = new EntityType(1);
  /** An interface. */
  public static final EntityType E_INTERFACE = new EntityType(2);
  /** A logical interface. */
  public static final EntityType E_LOGICAL_INTERFACE = new EntityType(3);
  /** A VLAN. */
  public static final EntityType E_VLAN = new EntityType(4);
  /** A card. */
  public static final EntityType E_CARD = new EntityType(5);
  /** A power supply. */
  public static final EntityType E_PSU = new EntityType(6);
  /** A subnet. */
  public static final EntityType E_SUBNET = new EntityType(7);
  /** A module. */
  public static final EntityType E_MODULE = new EntityType(8);
  /** A mesh of connections. */
  public static final EntityType E_MESH = new EntityType(10);
  /** An HSRP group. */
  public static final EntityType E_HSRP = new EntityType(11);
  /** An interface container. */
  public static final EntityType E_IFC = new EntityType(12);
  /** An address. */
  public static final EntityType E_ADDRESS = new EntityType(25);

  /**
   * Takes any number: one without a name is kept as it is.
   *
   * @param value the number
   */
  public EntityType(int value) {
    super(value);
  }
}
