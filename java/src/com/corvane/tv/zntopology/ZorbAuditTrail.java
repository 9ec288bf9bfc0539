package com.corvane.tv.zntopology;

import java.util.List;

/**
 * What discovery did to one object.
 *
 * @param objID the object
 * @param objectType its kind
 * @param actions what was done, in the order of the store
 */
public record ZorbAuditTrail(ObjID objID, EntityType objectType, List<ZorbAuditAction> actions) {}
