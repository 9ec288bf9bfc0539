package com.corvane.tv.zntopology;

/** What a node knows of a neighbour's IPv6 address. */
public final class IPv6NetToMediaState extends TopoConstant {
  /** It answers. */
  public static final IPv6NetToMediaState REACHABLE = new IPv6NetToMediaState(1);
  /** It has not been heard of for a while. */
  public static final IPv6NetToMediaState STALE = new IPv6NetToMediaState(2);
  /** It is about to be asked. */
  public static final IPv6NetToMediaState DELAY = new IPv6NetToMediaState(3);
  /** It is being asked. */
  public static final IPv6NetToMediaState PROBE = new IPv6NetToMediaState(4);
  /** It is not valid. */
  public static final IPv6NetToMediaState INVALID = new IPv6NetToMediaState(5);
  /** Not known. */
  public static final IPv6NetToMediaState UNKNOWN = new IPv6NetToMediaState(6);

  /**
   * Takes any number: one without a name is kept as it is.
   *
   * @param value the number
   */
  public IPv6NetToMediaState(int value) {
    super(value);
  }
}
