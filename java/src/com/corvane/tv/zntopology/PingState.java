package com.corvane.tv.zntopology;

/** Whether an address answers. */
public final class PingState extends TopoConstant {
  /** It answers. */
  public static final PingState PING_RESPONDING = new PingState(0);
  /** It does not answer. */
  public static final PingState PING_NOT_RESPONDING = new PingState(1);
  /** It can't be reached. */
  public static final PingState PING_UNREACHABLE = new PingState(2);
  /** Its agent is down. */
  public static final PingState PING_AGENT_DOWN = new PingState(3);
  /** It is not asked. */
  public static final PingState PING_DISABLED = new PingState(4);

  /**
   * Takes any number: one without a name is kept as it is.
   *
   * @param value the number
   */
  public PingState(int value) {
    super(value);
  }
}
