package com.corvane.tv.zntopology;

/** Lacks most methods. */
public class TopoFilter {
  public boolean isFieldIgnored(int field) {
    return false;
  }
}
