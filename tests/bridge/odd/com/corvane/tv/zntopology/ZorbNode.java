package com.corvane.tv.zntopology;

import java.util.List;

/** Throws when it is made. */
public class ZorbNode {
  public ZorbNode(ZorbEntity entity) {
    throw new IllegalArgumentException("node");
  }

  public void setIfcInfoList(List<?> list) {}

  public void setVlanInfoList(List<?> list) {}

  public void setNodeProperty(NodeProperty property) {}

  public void setConnDataList(List<?> list) {}
}
