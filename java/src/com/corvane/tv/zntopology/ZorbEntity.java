package com.corvane.tv.zntopology;

import java.util.List;

/**
 * What all topology objects have: a snapshot, with its values as the library had them when it
 * was made.
 *
 * The lists belong to the object and are not to be changed.
 */
public class ZorbEntity {
  private final ObjID objID;
  private final ObjID QRMObjID;
  private final String name;
  private final String description;
  private final EntityType entityType;
  private final ObjectStatus overallStatus;
  private final IPLevel ipLevel;
  private final ContainmentAss containmentAss;
  private final List<AssEndPoint> relatedTo;
  private final AssEndPoint containmentParent;
  private final List<UserDefVar> userVars;
  private final List<Capability> capabilities;
  private final List<Address> addresses;
  private final long createTime;
  private final long changeTime;
  private final ObjectStatus v6OverallStatus;
  private final ObjectStatus v6GlobalStatus;
  private final ObjectStatus v6SiteStatus;
  private final long statusChangeTime;
  private final int rd;

  /**
   * Makes an entity of all its values.
   *
   * @param objID the topology identifier
   * @param QRMObjID the legacy identifier
   * @param name the name
   * @param description the description
   * @param entityType the kind of the object
   * @param overallStatus the status of all of it
   * @param ipLevel the version of IP that it takes part in
   * @param containmentAss what it contains; null, as the library does not fill it
   * @param relatedTo what it is related to; null, as the library does not fill it
   * @param containmentParent what contains it
   * @param userVars the values that users hang on it
   * @param capabilities what it can do; empty for all but nodes and interfaces
   * @param addresses its addresses; null stands for one of a type that has no class here
   * @param createTime when it was discovered, in milliseconds UTC
   * @param changeTime when it last changed, in milliseconds UTC
   * @param v6OverallStatus the status of its IPv6 side
   * @param v6GlobalStatus the status of its global IPv6 addresses
   * @param v6SiteStatus the status of its site-local IPv6 addresses
   * @param statusChangeTime when its status last changed, in milliseconds UTC
   * @param rd its route distinguisher
   */
  public ZorbEntity(
      ObjID objID, ObjID QRMObjID, String name, String description, EntityType entityType,
      ObjectStatus overallStatus, IPLevel ipLevel, ContainmentAss containmentAss,
      List<AssEndPoint> relatedTo, AssEndPoint containmentParent, List<UserDefVar> userVars,
      List<Capability> capabilities, List<Address> addresses, long createTime, long changeTime,
      ObjectStatus v6OverallStatus, ObjectStatus v6GlobalStatus, ObjectStatus v6SiteStatus,
      long statusChangeTime, int rd) {
    this.objID = objID;
    this.QRMObjID = QRMObjID;
    this.name = name;
    this.description = description;
    this.entityType = entityType;
    this.overallStatus = overallStatus;
    this.ipLevel = ipLevel;
    this.containmentAss = containmentAss;
    this.relatedTo = relatedTo;
    this.containmentParent = containmentParent;
    this.userVars = userVars;
    this.capabilities = capabilities;
    this.addresses = addresses;
    this.createTime = createTime;
    this.changeTime = changeTime;
    this.v6OverallStatus = v6OverallStatus;
    this.v6GlobalStatus = v6GlobalStatus;
    this.v6SiteStatus = v6SiteStatus;
    this.statusChangeTime = statusChangeTime;
    this.rd = rd;
  }

  /**
   * Takes over all values of another entity.
   *
   * @param entity the other; null gives an entity without values
   */
  protected ZorbEntity(ZorbEntity entity) {
    objID = entity == null ? null : entity.objID;
    QRMObjID = entity == null ? null : entity.QRMObjID;
    name = entity == null ? null : entity.name;
    description = entity == null ? null : entity.description;
    entityType = entity == null ? null : entity.entityType;
    overallStatus = entity == null ? null : entity.overallStatus;
    ipLevel = entity == null ? null : entity.ipLevel;
    containmentAss = entity == null ? null : entity.containmentAss;
    relatedTo = entity == null ? null : entity.relatedTo;
    containmentParent = entity == null ? null : entity.containmentParent;
    userVars = entity == null ? null : entity.userVars;
    capabilities = entity == null ? null : entity.capabilities;
    addresses = entity == null ? null : entity.addresses;
    createTime = entity == null ? 0 : entity.createTime;
    changeTime = entity == null ? 0 : entity.changeTime;
    v6OverallStatus = entity == null ? null : entity.v6OverallStatus;
    v6GlobalStatus = entity == null ? null : entity.v6GlobalStatus;
    v6SiteStatus = entity == null ? null : entity.v6SiteStatus;
    statusChangeTime = entity == null ? 0 : entity.statusChangeTime;
    rd = entity == null ? 0 : entity.rd;
  }

  /** {@return the topology identifier} */
  public ObjID getObjID() {
    return objID;
  }

  /** {@return the legacy identifier} */
  public ObjID getQRMObjID() {
    return QRMObjID;
  }

  /** {@return the name} */
  public String getName() {
    return name;
  }

  /** {@return the description} */
  public String getDescription() {
    return description;
  }

  /** {@return the kind of the object} */
  public EntityType getEntityType() {
    return entityType;
  }

  /** {@return the status of all of it} */
  public ObjectStatus getOverallStatus() {
    return overallStatus;
  }

  /** {@return the version of IP that it takes part in} */
  public IPLevel getIPLevel() {
    return ipLevel;
  }

  /** {@return what it contains; null, as the library does not fill it} */
  public ContainmentAss getContainmentAss() {
    return containmentAss;
  }

  /** {@return what it is related to; null, as the library does not fill it} */
  public List<AssEndPoint> getRelatedTo() {
    return relatedTo;
  }

  /** {@return what contains it} */
  public AssEndPoint getContainmentParent() {
    return containmentParent;
  }

  /** {@return the values that users hang on it} */
  public List<UserDefVar> getUserVars() {
    return userVars;
  }

  /** {@return what it can do; empty for all but nodes and interfaces} */
  public List<Capability> getCapabilities() {
    return capabilities;
  }

  /** {@return its addresses; null stands for one of a type that has no class here} */
  public List<Address> getAddresses() {
    return addresses;
  }

  /** {@return when it was discovered, in milliseconds UTC} */
  public long getCreateTime() {
    return createTime;
  }

  /** {@return when it last changed, in milliseconds UTC} */
  public long getChangeTime() {
    return changeTime;
  }

  /** {@return the status of its IPv6 side} */
  public ObjectStatus getV6OverallStatus() {
    return v6OverallStatus;
  }

  /** {@return the status of its global IPv6 addresses} */
  public ObjectStatus getV6GlobalStatus() {
    return v6GlobalStatus;
  }

  /** {@return the status of its site-local IPv6 addresses} */
  public ObjectStatus getV6SiteStatus() {
    return v6SiteStatus;
  }

  /** {@return when its status last changed, in milliseconds UTC} */
  public long getStatusChangeTime() {
    return statusChangeTime;
  }

  /** {@return its route distinguisher} */
  public int getRD() {
    return rd;
  }

  @Override
  public String toString() {
    return getClass().getSimpleName() + "(" + objID + ", " + name + ")";
  }
}
