package com.corvane.tv.zntopology;

/** Lacks the method that gives its text. */
public class ObjID {
  public ObjID() {}

  public ObjID(String text) {}
}
