package com.corvane.tv.zntopology;

import java.util.List;

/** A node: a device of the network. */
public class ZorbNode extends ZorbEntity {
  private List<ZorbIfcInfo> ifcInfoList;
  private List<ZorbVlanInfo> vlanInfoList;
  private NodeProperty nodeProperty;
  private List<ZorbConnData> connDataList;

  /**
   * Makes one of the values of an entity.
   *
   * @param entity what it has as an entity
   */
  public ZorbNode(ZorbEntity entity) {
    super(entity);
  }

  /** {@return its parts of interface containers} */
  public List<ZorbIfcInfo> getIfcInfoList() {
    return ifcInfoList;
  }

  /** {@return its parts of VLANs} */
  public List<ZorbVlanInfo> getVlanInfoList() {
    return vlanInfoList;
  }

  /** {@return what it has beside what all entities have} */
  public NodeProperty getNodeProperty() {
    return nodeProperty;
  }

  /** {@return its layer-2 links} */
  public List<ZorbConnData> getConnDataList() {
    return connDataList;
  }

  /**
   * Sets its parts of interface containers.
   *
   * @param ifcInfoList its parts of interface containers
   */
  public void setIfcInfoList(List<ZorbIfcInfo> ifcInfoList) {
    this.ifcInfoList = ifcInfoList;
  }

  /**
   * Sets its parts of VLANs.
   *
   * @param vlanInfoList its parts of VLANs
   */
  public void setVlanInfoList(List<ZorbVlanInfo> vlanInfoList) {
    this.vlanInfoList = vlanInfoList;
  }

  /**
   * Sets what it has beside what all entities have.
   *
   * @param nodeProperty what it has beside what all entities have
   */
  public void setNodeProperty(NodeProperty nodeProperty) {
    this.nodeProperty = nodeProperty;
  }

  /**
   * Sets its layer-2 links.
   *
   * @param connDataList its layer-2 links
   */
  public void setConnDataList(List<ZorbConnData> connDataList) {
    this.connDataList = connDataList;
  }
}
