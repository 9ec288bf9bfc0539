package com.corvane.tv.zntopology;

/** Throws when it is made. */
public class Capability {
  public Capability(String name) {
    throw new IllegalArgumentException(name);
  }
}
