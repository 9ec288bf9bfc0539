package com.corvane.tv.zntopology;

import java.util.List;

/** A VLAN. */
public class ZorbVlan extends ZorbEntity {
  private final List<ZorbVlanInfo> vlanInfoList;

  /**
   * Makes one of the values of an entity and of its own.
   *
   * @param entity what it has as an entity
   * @param vlanInfoList its parts, a node each
   */
  public ZorbVlan(ZorbEntity entity, List<ZorbVlanInfo> vlanInfoList) {
    super(entity);
    this.vlanInfoList = vlanInfoList;
  }

  /** {@return its parts, a node each} */
  public List<ZorbVlanInfo> getVlanInfoList() {
    return vlanInfoList;
  }
}
