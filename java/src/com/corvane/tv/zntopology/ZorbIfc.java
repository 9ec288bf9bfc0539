package com.corvane.tv.zntopology;

import java.util.List;

/** An interface container. */
public class ZorbIfc extends ZorbEntity {
  private List<ZorbIfcInfo> ifcInfoList;
  private List<ZorbIfcAssocInfo> ifcAssocInfoList;

  /**
   * Makes one of the values of an entity.
   *
   * @param entity what it has as an entity
   */
  public ZorbIfc(ZorbEntity entity) {
    super(entity);
  }

  /** {@return its members, a node each} */
  public List<ZorbIfcInfo> getIfcInfoList() {
    return ifcInfoList;
  }

  /** {@return its relations to other containers} */
  public List<ZorbIfcAssocInfo> getIfcAssocInfoList() {
    return ifcAssocInfoList;
  }

  /**
   * Sets its members, a node each.
   *
   * @param ifcInfoList its members, a node each
   */
  public void setIfcInfoList(List<ZorbIfcInfo> ifcInfoList) {
    this.ifcInfoList = ifcInfoList;
  }

  /**
   * Sets its relations to other containers.
   *
   * @param ifcAssocInfoList its relations to other containers
   */
  public void setIfcAssocInfoList(List<ZorbIfcAssocInfo> ifcAssocInfoList) {
    this.ifcAssocInfoList = ifcAssocInfoList;
  }
}
