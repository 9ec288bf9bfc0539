package com.corvane.tv.zntopology;

/** A DNS name. */
public class InetAddressDNS extends Address {
  /**
   * Makes an address of all its values.
   *
   * @param address its text
   * @param isSubnetAddress whether it is that of a subnet
   * @param addressID its identifier
   * @param entityID whose it is
   * @param routeDistinguisher its route distinguisher
   * @param pingState whether it answers
   */
  public InetAddressDNS(
      String address, boolean isSubnetAddress, ObjID addressID, ObjID entityID,
      long routeDistinguisher, PingState pingState) {
    super(
        AddressType.DNS, address, isSubnetAddress, addressID, entityID, null,
        routeDistinguisher, pingState);
  }
}
