package com.corvane.tv.zntopology;

/** Lacks most fields. */
public class ZorbTopoInfo {
  public long cacheTimeStamp;
}
