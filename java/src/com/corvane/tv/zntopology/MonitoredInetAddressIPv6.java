package com.corvane.tv.zntopology;

/** An IPv6 address that is watched. */
public class MonitoredInetAddressIPv6 extends InetAddressIPv6 {
  private final IPv6NetToMediaState netToMediaState;
  private final IPv6AddrType addrType;
  private final IPv6AddrStatus addrStatus;
  private final PingStatus pingStatus;
  private final ObjID QRMObjID;

  /**
   * Makes an address of all its values.
   *
   * @param address the address
   * @param netToMediaState what its node's neighbours know of it
   * @param addrType how it came about
   * @param addrStatus its status
   * @param pingStatus how it answers
   * @param QRMObjID its legacy identifier
   */
  public MonitoredInetAddressIPv6(
      InetAddressIPv6 address, IPv6NetToMediaState netToMediaState, IPv6AddrType addrType,
      IPv6AddrStatus addrStatus, PingStatus pingStatus, ObjID QRMObjID) {
    super(address);
    this.netToMediaState = netToMediaState;
    this.addrType = addrType;
    this.addrStatus = addrStatus;
    this.pingStatus = pingStatus;
    this.QRMObjID = QRMObjID;
  }

  /** {@return what its node's neighbours know of it} */
  public IPv6NetToMediaState getNetToMediaState() {
    return netToMediaState;
  }

  /** {@return how it came about} */
  public IPv6AddrType getAddrType() {
    return addrType;
  }

  /** {@return its status} */
  public IPv6AddrStatus getAddrStatus() {
    return addrStatus;
  }

  /** {@return how it answers} */
  public PingStatus getPingStatus() {
    return pingStatus;
  }

  /** {@return its legacy identifier} */
  public ObjID getQRMObjID() {
    return QRMObjID;
  }
}
