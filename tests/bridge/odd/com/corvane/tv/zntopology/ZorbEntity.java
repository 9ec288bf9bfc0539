package com.corvane.tv.zntopology;

import java.util.List;

/** Throws when it is made. */
public class ZorbEntity {
  public ZorbEntity(
      ObjID objID, ObjID QRMObjID, String name, String description, EntityType entityType,
      ObjectStatus overallStatus, IPLevel ipLevel, ContainmentAss containmentAss, List<?> relatedTo,
      AssEndPoint containmentParent, List<?> userVars, List<?> capabilities, List<?> addresses,
      long createTime, long changeTime, ObjectStatus v6OverallStatus, ObjectStatus v6GlobalStatus,
      ObjectStatus v6SiteStatus, long statusChangeTime, int rd) {
    throw new IllegalArgumentException("entity");
  }
}
