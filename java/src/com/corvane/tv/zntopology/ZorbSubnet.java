package com.corvane.tv.zntopology;

import java.util.List;

/** A subnet. */
public class ZorbSubnet extends ZorbEntity {
  private final List<SubnetEndPoint> endPointList;

  /**
   * Makes one of the values of an entity and of its own.
   *
   * @param entity what it has as an entity
   * @param endPointList the addresses in it, and whose they are
   */
  public ZorbSubnet(ZorbEntity entity, List<SubnetEndPoint> endPointList) {
    super(entity);
    this.endPointList = endPointList;
  }

  /** {@return the addresses in it, and whose they are} */
  public List<SubnetEndPoint> getEndPointList() {
    return endPointList;
  }
}
