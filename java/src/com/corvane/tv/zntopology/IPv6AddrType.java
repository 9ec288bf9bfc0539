package com.corvane.tv.zntopology;

/** How a monitored IPv6 address came about. */
public final class IPv6AddrType extends TopoConstant {
  /** By stateless configuration. */
  public static final IPv6AddrType STATELESS = new IPv6AddrType(1);
  /** By stateful configuration. */
  public static final IPv6AddrType STATEFUL = new IPv6AddrType(2);
  /** Not known. */
  public static final IPv6AddrType UNKNOWN = new IPv6AddrType(3);

  /**
   * Takes any number: one without a name is kept as it is.
   *
   * @param value the number
   */
  public IPv6AddrType(int value) {
    super(value);
  }
}
