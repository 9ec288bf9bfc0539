package com.corvane.tv.zntopology;

/** Classes that lack more and more of the fields of {@link ZorbTopoInfo}, from their last on. */
class TopoInfoParts {
  static class Nothing {}

  static class OneNumber extends Nothing {
    public long cacheTimeStamp;
  }

  static class AllButTheLastNumber extends OneNumber {
    public long myNumNode;
    public long myNumV4Node;
    public long myNumV6Node;
    public long myNumV4SNMPNode;
    public long myNumInterface;
    public long myNumV4Interface;
    public long myNumV6Interface;
    public long myNumPrefixGroup;
    public long myNumSubnet;
    public long myNumVlan;
    public long myNumHSRP;
    public long myNumMesh;
    public long myNumL2Link;
    public long myNumV4Addr;
    public long myNumV6Addr;
    public long myNumDNSName;
    public long myDiscoStartTime;
  }

  static class Numbers extends AllButTheLastNumber {
    public long myTopoReadyTime;
  }

  static class NumbersAndState extends Numbers {
    public String topologyState;
  }

  static class AllButTheCounts extends NumbersAndState {
    public String[] myRDCountName;
  }
}
