package com.corvane.tv.zntopology;

/** Lacks the field that tells whether to use the cache. */
public class TopologyConfiguration {
  public boolean enableNodeVlanInfoLoad = false;
  public boolean enableNodeL2ConnectionInfoLoad = false;
  public boolean enableTopoCacheFIFOSwap = true;
  public boolean enableJavaInterfaceCache = false;
}
