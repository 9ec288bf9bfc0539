package com.corvane.tv.zntopology;

/** The status of an object. */
public final class ObjectStatus extends TopoConstant {
  /** None. */
  public static final ObjectStatus NO_STATUS = new ObjectStatus(0);
  /** All is well. */
  public static final ObjectStatus NORMAL = new ObjectStatus(1);
  /** Not known. */
  public static final ObjectStatus UNKNOWN = new ObjectStatus(2);
  /** A warning. */
  public static final ObjectStatus WARNING = new ObjectStatus(3);
  /** Marginal. */
  public static final ObjectStatus MARGINAL = new ObjectStatus(4);
  /** A major fault. */
  public static final ObjectStatus MAJOR = new ObjectStatus(5);
  /** A critical fault. */
  public static final ObjectStatus CRITICAL = new ObjectStatus(6);
  /** Not looked after. */
  public static final ObjectStatus UNMANAGED = new ObjectStatus(10);
  /** Restricted. */
  public static final ObjectStatus RESTRICTED = new ObjectStatus(11);
  /** Being tested. */
  public static final ObjectStatus TESTING = new ObjectStatus(12);
  /** Switched off. */
  public static final ObjectStatus DISABLED = new ObjectStatus(13);

  /**
   * Takes any number: one without a name is kept as it is.
   *
   * @param value the number
   */
  public ObjectStatus(int value) {
    super(value);
  }
}
