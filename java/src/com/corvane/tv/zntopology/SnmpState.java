package com.corvane.tv.zntopology;

/** Whether the SNMP agent of a node answers. */
public final class SnmpState extends TopoConstant {
  /** It answers. */
  public static final SnmpState RESPONDING = new SnmpState(0);
  /** It does not answer. */
  public static final SnmpState NOT_RESPONDING = new SnmpState(1);
  /** It can't be reached. */
  public static final SnmpState UNREACHABLE = new SnmpState(2);
  /** It is down. */
  public static final SnmpState AGENT_DOWN = new SnmpState(3);
  /** It is not asked. */
  public static final SnmpState DISABLED = new SnmpState(4);

  /**
   * Takes any number: one without a name is kept as it is.
   *
   * @param value the number
   */
  public SnmpState(int value) {
    super(value);
  }
}
