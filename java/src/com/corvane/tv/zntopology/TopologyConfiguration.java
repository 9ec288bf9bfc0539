package com.corvane.tv.zntopology;

/**
 * Switches of the library, for {@link ZorbNative#setTopologyConfigurationNative}. They hold for the
 * whole process.
 */
public class TopologyConfiguration {
  /** Whether nodes are loaded together with their VLANs. */
  public boolean enableNodeVlanInfoLoad = true;

  /** Whether nodes are loaded together with their layer-2 links. */
  public boolean enableNodeL2ConnectionInfoLoad = true;

  /** Whether the object that was used longest ago leaves a full cache of the library. */
  public boolean enableTopoCacheFIFOSwap;

  /** Has no effect: a kind of objects is not cached if its size is 0. */
  public boolean enableTopoCache = true;

  /** Whether interfaces are looked for in, and put into, the caller's {@link ZorbTopoCache}. */
  public boolean enableJavaInterfaceCache = true;

  /** Makes a configuration of the values that the library starts with. */
  public TopologyConfiguration() {}
}
