package com.corvane.tv.zntopology;

import java.util.List;
import java.util.Vector;

/** An interface of a node. */
public class ZorbInterface extends ZorbEntity {
  private final Vector<ZorbConnData> connData;
  private final IFProperty ifProperty;
  private List<ObjID> hsrpObjIDList;

  /**
   * Makes one of the values of an entity and of its own.
   *
   * @param entity what it has as an entity
   * @param connData its layer-2 links
   * @param ifProperty what it has beside what all entities have
   */
  public ZorbInterface(ZorbEntity entity, Vector<ZorbConnData> connData, IFProperty ifProperty) {
    super(entity);
    this.connData = connData;
    this.ifProperty = ifProperty;
  }

  /** {@return its layer-2 links} */
  public Vector<ZorbConnData> getConnData() {
    return connData;
  }

  /** {@return what it has beside what all entities have} */
  public IFProperty getIFProperty() {
    return ifProperty;
  }

  /** {@return the HSRP groups that it is in; null if it is in none} */
  public List<ObjID> getHSRPObjIDList() {
    return hsrpObjIDList;
  }

  /**
   * Sets the HSRP groups that it is in; null if it is in none.
   *
   * @param hsrpObjIDList the HSRP groups that it is in; null if it is in none
   */
  public void setHSRPObjIDList(List<ObjID> hsrpObjIDList) {
    this.hsrpObjIDList = hsrpObjIDList;
  }
}
