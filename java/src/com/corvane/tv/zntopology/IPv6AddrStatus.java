package com.corvane.tv.zntopology;

/** The status of a monitored IPv6 address. */
public final class IPv6AddrStatus extends TopoConstant {
  /** To be used. */
  public static final IPv6AddrStatus PREFERRED = new IPv6AddrStatus(1);
  /** To be used no more. */
  public static final IPv6AddrStatus DEPRECATED = new IPv6AddrStatus(2);
  /** Not to be reached. */
  public static final IPv6AddrStatus INACCESSIBLE = new IPv6AddrStatus(3);
  /** Not known. */
  public static final IPv6AddrStatus UNKNOWN = new IPv6AddrStatus(4);

  /**
   * Takes any number: one without a name is kept as it is.
   *
   * @param value the number
   */
  public IPv6AddrStatus(int value) {
    super(value);
  }
}
