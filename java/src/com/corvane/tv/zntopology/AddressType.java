package com.corvane.tv.zntopology;

/** The type of an address. */
public final class AddressType extends TopoConstant {
  /** Not known. */
  public static final AddressType UNKNOWN = new AddressType(0);
  /** An IPv4 address. */
  public static final AddressType IPV4 = new AddressType(1);
  /** An IPv6 address. */
  public static final AddressType IPV6 = new AddressType(2);
  /** A hardware address. */
  public static final AddressType PHYSICAL = new AddressType(3);
  /** A name that identifies. */
  public static final AddressType ID_NAME = new AddressType(4);
  /** A full distinguished name. */
  public static final AddressType FDN = new AddressType(5);
  /** A DNS name. */
  public static final AddressType DNS = new AddressType(16);

  /**
   * Takes any number: one without a name is kept as it is.
   *
   * @param value the number
   */
  public AddressType(int value) {
    super(value);
  }
}
