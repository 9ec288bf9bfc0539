package com.corvane.tv.zntopology;

/** Throws when it is made. */
public class ZorbHSRPState {
  public ZorbHSRPState(int value) {
    throw new IllegalArgumentException("state " + value);
  }
}
