package com.corvane.tv.zntopology;

/** An IPv4 address. */
public class InetAddressIPv4 extends Address {
  private final String publicAddress;
  private final int prefixLength;

  /**
   * Makes an address of all its values.
   *
   * @param address its text
   * @param isSubnetAddress whether it is that of a subnet
   * @param addressID its identifier
   * @param entityID whose it is
   * @param subnetID the subnet that it is in; null for a DNS name
   * @param routeDistinguisher its route distinguisher
   * @param publicAddress the address under which it is known outside its domain
   * @param pingState whether it answers
   * @param prefixLength how many bits of it name the subnet
   */
  public InetAddressIPv4(
      String address, boolean isSubnetAddress, ObjID addressID, ObjID entityID, ObjID subnetID,
      long routeDistinguisher, String publicAddress, PingState pingState, int prefixLength) {
    super(
        AddressType.IPV4, address, isSubnetAddress, addressID, entityID, subnetID,
        routeDistinguisher, pingState);
    this.publicAddress = publicAddress;
    this.prefixLength = prefixLength;
  }

  /** {@return the address under which it is known outside its domain} */
  public String getPublicAddress() {
    return publicAddress;
  }

  /** {@return how many bits of it name the subnet} */
  public int getPrefixLength() {
    return prefixLength;
  }
}
