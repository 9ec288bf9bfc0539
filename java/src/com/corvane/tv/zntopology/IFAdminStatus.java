package com.corvane.tv.zntopology;

/** What an interface is told to be. */
public final class IFAdminStatus extends TopoConstant {
  /** Up. */
  public static final IFAdminStatus UP = new IFAdminStatus(1);
  /** Down. */
  public static final IFAdminStatus DOWN = new IFAdminStatus(2);
  /** Being tested. */
  public static final IFAdminStatus TESTING = new IFAdminStatus(3);

  /**
   * Takes any number: one without a name is kept as it is.
   *
   * @param value the number
   */
  public IFAdminStatus(int value) {
    super(value);
  }
}
