package com.corvane.tv.zntopology;

/** What discovery did to an object. */
public final class ActionType extends TopoConstant {
  /** Any, when asking. */
  public static final ActionType DONT_CARE = new ActionType(-1);
  /** It removed the object. */
  public static final ActionType OBJECT_DELETION = new ActionType(1);
  /** It created the object. */
  public static final ActionType OBJECT_CREATION = new ActionType(2);
  /** It created an association. */
  public static final ActionType ASSOCIATION_CREATION = new ActionType(3);
  /** It removed an association. */
  public static final ActionType ASSOCIATION_DELETION = new ActionType(4);
  /** It changed an association. */
  public static final ActionType ASSOCIATION_CHANGE = new ActionType(5);
  /** It changed an attribute. */
  public static final ActionType ATTRIBUTE_CHANGE = new ActionType(6);

  /**
   * Takes any number: one without a name is kept as it is.
   *
   * @param value the number
   */
  public ActionType(int value) {
    super(value);
  }
}
