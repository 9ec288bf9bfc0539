package com.corvane.tv.zntopology;

import java.util.Objects;

/** The identifier of a topology object: a text, or nothing. */
public final class ObjID {
  /** The text, which the library reads here; null in an empty identifier. */
  private final String myID;

  /** Makes an empty identifier, which names nothing. */
  public ObjID() {
    this(null);
  }

  /**
   * Makes an identifier of its text.
   *
   * @param text the text, as the library gave it
   */
  public ObjID(String text) {
    myID = text;
  }

  /** {@return the text; null for an empty identifier} */
  public String getStringValue() {
    return myID;
  }

  @Override
  public boolean equals(Object other) {
    return other instanceof ObjID id && Objects.equals(myID, id.myID);
  }

  @Override
  public int hashCode() {
    return Objects.hashCode(myID);
  }

  @Override
  public String toString() {
    return String.valueOf(myID);
  }
}
