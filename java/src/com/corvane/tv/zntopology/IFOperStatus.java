package com.corvane.tv.zntopology;

/** What an interface is. */
public final class IFOperStatus extends TopoConstant {
  /** Up. */
  public static final IFOperStatus UP = new IFOperStatus(1);
  /** Down. */
  public static final IFOperStatus DOWN = new IFOperStatus(2);
  /** Being tested. */
  public static final IFOperStatus TESTING = new IFOperStatus(3);
  /** Not known. */
  public static final IFOperStatus UNKNOWN = new IFOperStatus(4);
  /** Waiting for something outside. */
  public static final IFOperStatus DORMANT = new IFOperStatus(5);
  /** Missing a component. */
  public static final IFOperStatus NOT_PRESENT = new IFOperStatus(6);
  /** Down for what lies below it. */
  public static final IFOperStatus LOWER_LAYER_DOWN = new IFOperStatus(7);

  /**
   * Takes any number: one without a name is kept as it is.
   *
   * @param value the number
   */
  public IFOperStatus(int value) {
    super(value);
  }
}
