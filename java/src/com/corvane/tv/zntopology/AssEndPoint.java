package com.corvane.tv.zntopology;

/**
 * The end of an association: an object by name, identifier and kind.
 *
 * @param name its name
 * @param objID its identifier
 * @param type its kind
 */
public record AssEndPoint(String name, ObjID objID, EntityType type) {}
