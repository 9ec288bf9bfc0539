package com.corvane.tv.zntopology;

/** The version of IP that an object takes part in. */
public final class IPLevel extends TopoConstant {
  /** Any. */
  public static final IPLevel ALL_PROTOCOL = new IPLevel(0);
  /** IPv4. */
  public static final IPLevel IPV4 = new IPLevel(4);
  /** IPv6. */
  public static final IPLevel IPV6 = new IPLevel(6);

  /**
   * Takes any number: one without a name is kept as it is.
   *
   * @param value the number
   */
  public IPLevel(int value) {
    super(value);
  }
}
