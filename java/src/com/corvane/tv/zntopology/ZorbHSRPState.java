package com.corvane.tv.zntopology;

/** The state of a member of an HSRP group. */
public final class ZorbHSRPState extends TopoConstant {
  /** Not running. */
  public static final ZorbHSRPState INITIAL = new ZorbHSRPState(1);
  /** It has not heard of the group's address. */
  public static final ZorbHSRPState LEARN = new ZorbHSRPState(2);
  /** It knows the group's address. */
  public static final ZorbHSRPState LISTEN = new ZorbHSRPState(3);
  /** It takes part in the election. */
  public static final ZorbHSRPState SPEAK = new ZorbHSRPState(4);
  /** It is the next in line. */
  public static final ZorbHSRPState STAND_BY = new ZorbHSRPState(5);
  /** It forwards for the group. */
  public static final ZorbHSRPState ACTIVE = new ZorbHSRPState(6);
  /** Something else. */
  public static final ZorbHSRPState MISC_STATE = new ZorbHSRPState(7);
  /** It can't be asked. */
  public static final ZorbHSRPState UNAVAILABLE = new ZorbHSRPState(8);
  /** It does not answer. */
  public static final ZorbHSRPState NO_RESPONSE = new ZorbHSRPState(9);

  /**
   * Takes any number: one without a name is kept as it is.
   *
   * @param value the number
   */
  public ZorbHSRPState(int value) {
    super(value);
  }
}
