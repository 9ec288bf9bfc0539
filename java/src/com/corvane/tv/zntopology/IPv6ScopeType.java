package com.corvane.tv.zntopology;

/** How far an IPv6 address is valid. */
public final class IPv6ScopeType extends TopoConstant {
  /** Not known. */
  public static final IPv6ScopeType UNKNOWN = new IPv6ScopeType(0);
  /** On its link. */
  public static final IPv6ScopeType LINK_LOCAL = new IPv6ScopeType(1);
  /** On its site. */
  public static final IPv6ScopeType SITE_LOCAL = new IPv6ScopeType(2);
  /** Everywhere. */
  public static final IPv6ScopeType GLOBAL = new IPv6ScopeType(3);

  /**
   * Takes any number: one without a name is kept as it is.
   *
   * @param value the number
   */
  public IPv6ScopeType(int value) {
    super(value);
  }
}
