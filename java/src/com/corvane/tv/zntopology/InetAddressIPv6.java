package com.corvane.tv.zntopology;

/** An IPv6 address. */
public class InetAddressIPv6 extends Address {
  private final IPv6ScopeType scopeType;
  private final int prefixLength;

  /**
   * Makes an address of all its values.
   *
   * @param address its text
   * @param scopeType how far it is valid
   * @param prefixLength how many bits of it name the subnet
   * @param isSubnetAddress whether it is that of a subnet
   * @param addressID its identifier
   * @param entityID whose it is
   * @param subnetID the subnet that it is in; null for a DNS name
   * @param routeDistinguisher its route distinguisher
   * @param pingState whether it answers
   */
  public InetAddressIPv6(
      String address, IPv6ScopeType scopeType, int prefixLength, boolean isSubnetAddress,
      ObjID addressID, ObjID entityID, ObjID subnetID, long routeDistinguisher,
      PingState pingState) {
    super(
        AddressType.IPV6, address, isSubnetAddress, addressID, entityID, subnetID,
        routeDistinguisher, pingState);
    this.scopeType = scopeType;
    this.prefixLength = prefixLength;
  }

  /**
   * Takes over all values of another address.
   *
   * @param other the other address
   */
  protected InetAddressIPv6(InetAddressIPv6 other) {
    super(other);
    scopeType = other.scopeType;
    prefixLength = other.prefixLength;
  }

  /** {@return how far it is valid} */
  public IPv6ScopeType getScopeType() {
    return scopeType;
  }

  /** {@return how many bits of it name the subnet} */
  public int getPrefixLength() {
    return prefixLength;
  }
}
