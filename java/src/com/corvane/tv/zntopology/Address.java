package com.corvane.tv.zntopology;

/** What all addresses have: a snapshot. */
public abstract class Address {
  private final AddressType addressType;
  private final String address;
  private final boolean isSubnetAddress;
  private final ObjID addressID;
  private final ObjID entityID;
  private final ObjID subnetID;
  private final long routeDistinguisher;
  private final PingState pingState;

  /**
   * Makes an address of all its values.
   *
   * @param addressType its type
   * @param address its text
   * @param isSubnetAddress whether it is that of a subnet
   * @param addressID its identifier
   * @param entityID whose it is
   * @param subnetID the subnet that it is in; null for a DNS name
   * @param routeDistinguisher its route distinguisher
   * @param pingState whether it answers
   */
  protected Address(
      AddressType addressType, String address, boolean isSubnetAddress, ObjID addressID,
      ObjID entityID, ObjID subnetID, long routeDistinguisher, PingState pingState) {
    this.addressType = addressType;
    this.address = address;
    this.isSubnetAddress = isSubnetAddress;
    this.addressID = addressID;
    this.entityID = entityID;
    this.subnetID = subnetID;
    this.routeDistinguisher = routeDistinguisher;
    this.pingState = pingState;
  }

  /**
   * Takes over all values of another address.
   *
   * @param other the other address
   */
  protected Address(Address other) {
    addressType = other.addressType;
    address = other.address;
    isSubnetAddress = other.isSubnetAddress;
    addressID = other.addressID;
    entityID = other.entityID;
    subnetID = other.subnetID;
    routeDistinguisher = other.routeDistinguisher;
    pingState = other.pingState;
  }

  /** {@return its type} */
  public AddressType getAddressType() {
    return addressType;
  }

  /** {@return its text} */
  public String getAddressAsString() {
    return address;
  }

  /** {@return whether it is that of a subnet} */
  public boolean isSubnetAddress() {
    return isSubnetAddress;
  }

  /** {@return its identifier} */
  public ObjID getAddressID() {
    return addressID;
  }

  /** {@return whose it is} */
  public ObjID getEntityID() {
    return entityID;
  }

  /** {@return the subnet that it is in; null for a DNS name} */
  public ObjID getSubnetID() {
    return subnetID;
  }

  /** {@return its route distinguisher} */
  public long getRouteDistinguisher() {
    return routeDistinguisher;
  }

  /** {@return whether it answers} */
  public PingState getPingState() {
    return pingState;
  }

  @Override
  public String toString() {
    return address;
  }
}
