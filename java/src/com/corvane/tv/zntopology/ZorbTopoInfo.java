package com.corvane.tv.zntopology;

/** The size of the stored topology: a snapshot, whose fields the library sets by their names. */
public class ZorbTopoInfo {
  /** When the topology last became ready, in seconds UTC. */
  public long cacheTimeStamp;
  /** Nodes. */
  public long myNumNode;
  /** IPv4 nodes. */
  public long myNumV4Node;
  /** IPv6 nodes. */
  public long myNumV6Node;
  /** Nodes with a system OID. */
  public long myNumV4SNMPNode;
  /** Interfaces. */
  public long myNumInterface;
  /** IPv4 interfaces. */
  public long myNumV4Interface;
  /** IPv6 interfaces. */
  public long myNumV6Interface;
  /** IPv6 subnets. */
  public long myNumPrefixGroup;
  /** IPv4 subnets. */
  public long myNumSubnet;
  /** VLANs. */
  public long myNumVlan;
  /** HSRP groups. */
  public long myNumHSRP;
  /** Meshes. */
  public long myNumMesh;
  /** Layer-2 links. */
  public long myNumL2Link;
  /** IPv4 addresses. */
  public long myNumV4Addr;
  /** IPv6 addresses. */
  public long myNumV6Addr;
  /** DNS names. */
  public long myNumDNSName;
  /** When discovery began, in seconds UTC. */
  public long myDiscoStartTime;
  /** When the topology was ready, in seconds UTC. */
  public long myTopoReadyTime;
  /** The state of the topology, as a line. */
  public String topologyState;
  /** The route distinguishers that nodes have. */
  public String[] myRDCountName;
  /** How many nodes have each of {@link #myRDCountName}. */
  public int[] myRDCount;

  /** Makes one that counts nothing. */
  public ZorbTopoInfo() {}
}
