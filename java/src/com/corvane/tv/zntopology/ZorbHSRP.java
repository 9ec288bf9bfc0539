package com.corvane.tv.zntopology;

import java.util.List;

/** An HSRP group. */
public class ZorbHSRP extends ZorbEntity {
  private final List<ZorbHSRPAddressInfo> addressInfoList;

  /**
   * Makes one of the values of an entity and of its own.
   *
   * @param entity what it has as an entity
   * @param addressInfoList its members
   */
  public ZorbHSRP(ZorbEntity entity, List<ZorbHSRPAddressInfo> addressInfoList) {
    super(entity);
    this.addressInfoList = addressInfoList;
  }

  /** {@return its members} */
  public List<ZorbHSRPAddressInfo> getAddressInfoList() {
    return addressInfoList;
  }
}
