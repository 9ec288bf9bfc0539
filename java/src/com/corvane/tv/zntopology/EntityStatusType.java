package com.corvane.tv.zntopology;

/** Which status of an entity is meant. */
public final class EntityStatusType extends TopoConstant {
  /** Of its IPv6 addresses. */
  public static final EntityStatusType IPV6_OVERALL = new EntityStatusType(0);
  /** Of its link-local addresses. */
  public static final EntityStatusType IPV6_LINK_LOCAL = new EntityStatusType(1);
  /** Of its site-local addresses. */
  public static final EntityStatusType IPV6_SITE_LOCAL = new EntityStatusType(2);
  /** Of its global addresses. */
  public static final EntityStatusType IPV6_GLOBAL = new EntityStatusType(3);
  /** Of its IPv4 addresses. */
  public static final EntityStatusType IPV4_OVERALL = new EntityStatusType(4);
  /** Of all of it. */
  public static final EntityStatusType OVERALL = new EntityStatusType(5);

  /**
   * Takes any number: one without a name is kept as it is.
   *
   * @param value the number
   */
  public EntityStatusType(int value) {
    super(value);
  }
}
