package com.corvane.tv.zntopology;

import java.io.IOException;
import java.lang.reflect.Method;
import java.lang.reflect.Modifier;
import java.nio.ByteBuffer;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.LinkedHashMap;
import java.util.List;
import java.util.Map;
import java.util.Queue;
import java.util.Set;
import java.util.concurrent.ConcurrentLinkedQueue;
import java.util.concurrent.ExecutorService;
import java.util.concurrent.Executors;
import java.util.concurrent.Future;
import java.util.concurrent.atomic.AtomicLong;
import java.util.stream.Collectors;

/**
 * Calls all natives from several threads for a long time, and fails if the process grows after it
 * has warmed up: {@code Soak CALLS [LEAK]}, where each call keeps LEAK bytes for ever, to see that
 * this fails.
 */
final class Soak {
  private static final int THREADS = 8;
  private static final long ALLOWED_KILOBYTES = 12 * 1024;

  private static final ZorbNative NATIVES = Sample.NATIVES;
  private static final Map<String, Call> CALLS = new LinkedHashMap<>();
  private static final Map<String, AtomicLong> COUNTS = new LinkedHashMap<>();

  private interface Call {
    Object make(ZorbTopoStatus status, ZorbTopoCache cache);
  }

  private Soak() {}

  private static void add(String name, Call call) {
    CALLS.put(name, call);
    COUNTS.put(name, new AtomicLong());
  }

  private static Call quiet(Runnable call) {
    return (status, cache) -> {
      call.run();
      return null;
    };
  }

  private static void addSetup() {
    add("initZorb", quiet(() -> ZorbNative.initZorb(1, "harbor")));
    add(
        "initNativeCache",
        quiet(() -> ZorbNative.initNativeCache(10000, 15000, 15000, 500, 500, 500, 500)));
    TopologyConfiguration configuration = new TopologyConfiguration();
    add(
        "setTopologyConfigurationNative",
        quiet(() -> ZorbNative.setTopologyConfigurationNative(configuration)));
    add("setNativeMClogLevel", quiet(() -> ZorbNative.setNativeMClogLevel(7)));
    add("getTopologyStateNative", (s, c) -> NATIVES.getTopologyStateNative(s));
    add("getNativeTopoInfo", (s, c) -> NATIVES.getNativeTopoInfo(s));
    add("getAuditTrailNative", (s, c) -> NATIVES.getAuditTrailNative(0, 0, -1, -1, s));
  }

  private static void addObjects() {
    ObjID node = Sample.nodeID("core-1");
    ObjID legacy = new ObjID("101");
    Object[] interfaces =
        Sample.rows("select objid from nwentity where entitytype = 2 limit 20").stream()
            .map(ObjID::new)
            .toArray();
    Object[] addresses =
        Sample.rows("select addressid from address limit 20").stream().map(ObjID::new).toArray();
    ObjID subnet = Sample.id("select objid from nwentity where entitytype = 7");
    ObjID vlan = Sample.id("select objid from nwentity where entitytype = 4");
    Object[] ifc = {Sample.id("select objid from nwentity where entitytype = 12")};
    ObjID ipv6 = Sample.id("select leftaddressid from addressmapping");
    add("getNodeNativeByObjID", (s, c) -> NATIVES.getNodeNativeByObjID(node, s, c));
    add("getNodeNativeByQRMObjID", (s, c) -> NATIVES.getNodeNativeByQRMObjID(legacy, s, c));
    add("getNativeNodeByName", (s, c) -> NATIVES.getNativeNodeByName("core-1", s, c));
    add(
        "getInterfacesByObjIDListNative",
        (s, c) -> NATIVES.getInterfacesByObjIDListNative(interfaces, false, false, s, c));
    add(
        "getInterfaceIDListFromNode",
        (s, c) -> ZorbNative.getInterfaceIDListFromNode(node, s));
    add(
        "getAddressNativeByObjID",
        (s, c) -> NATIVES.getAddressNativeByObjID((ObjID) addresses[0], s, c));
    add(
        "getAddressNativeByQRMObjID",
        (s, c) -> NATIVES.getAddressNativeByQRMObjID(new ObjID("961"), s, c));
    add("getAddrsNativeByObjIDs", (s, c) -> NATIVES.getAddrsNativeByObjIDs(addresses, s, c));
    add("resolveIPv6ToDNSNative", (s, c) -> NATIVES.resolveIPv6ToDNSNative(ipv6, s));
    add("getSubnetNativeByObjID", (s, c) -> NATIVES.getSubnetNativeByObjID(subnet, s, c));
    add("getSubnetNativeByQRMObjID", (s, c) -> NATIVES.getSubnetNativeByQRMObjID(legacy, s, c));
    add("getVlanByObjIDNative", (s, c) -> NATIVES.getVlanByObjIDNative(vlan, s, c));
    add("getIfcsByObjIDListNative", (s, c) -> NATIVES.getIfcsByObjIDListNative(ifc, s, c));
    add("getEntityNativeByObjID", (s, c) -> NATIVES.getEntityNativeByObjID(node, s, c));
    add("getEntityNativeByQRMObjID", (s, c) -> NATIVES.getEntityNativeByQRMObjID(legacy, s, c));
    add(
        "updateCacheObjectStatusNative",
        (s, c) -> {
          NATIVES.updateCacheObjectStatusNative(node, false, 1, 3, 0, 5, s, false);
          return null;
        });
    add(
        "updateCacheObjectAttributeNative",
        (s, c) -> {
          NATIVES.updateCacheObjectAttributeNative(interfaces[0], 2, 3, 1, null, s);
          return null;
        });
  }

  private static void addKinds() {
    add("getVlans", (s, c) -> NATIVES.getVlans(s, c, -1));
    add("getIfcsByTypeNative", (s, c) -> NATIVES.getIfcsByTypeNative(2, s, c));
    add(
        "getIfcInfosByObjIDListNative",
        (s, c) -> NATIVES.getIfcInfosByObjIDListNative(null, false, true, 0, s));
    add("getHSRPsNativeByObjIDs", (s, c) -> NATIVES.getHSRPsNativeByObjIDs(null, true, s, c));
    TopoFilter names = new TopoFilter();
    names.setIPLevel(IPLevel.IPV4);
    names.setRegexEntityName("core%");
    add("getNodeIDsByFilterNative", (s, c) -> NATIVES.getNodeIDsByFilterNative(names, null, s));
    add("getSubnetIDsByFilterNative", (s, c) -> NATIVES.getSubnetIDsByFilterNative(names, null, s));
    add("getEntityIDsByFilterNative", (s, c) -> NATIVES.getEntityIDsByFilterNative(names, s));
  }

  private static void addWalks() {
    ObjID reader = Sample.nodeID("badge-reader-1");
    Object[] cores = {Sample.nodeID("core-1"), Sample.nodeID("core-2")};
    TopoFilter any = new TopoFilter();
    add("getNodeNeighbors", (s, c) -> NATIVES.getNodeNeighbors("core-1", 1, 100, s, c));
    add(
        "getConnectivityNative",
        (s, c) -> NATIVES.getConnectivityNative(cores, new ArrayList<ObjID>(), true, false, s, c));
    add(
        "getSubnetConnectivityNative",
        (s, c) -> NATIVES.getSubnetConnectivityNative(reader, 1, null, any, s));
    add(
        "getL2PathNative",
        (s, c) -> NATIVES.getL2PathNative("10.20.3.44", "10.20.8.17", s, c, false));
    add(
        "getL2PathBetweenNodesNative",
        (s, c) -> NATIVES.getL2PathBetweenNodesNative("core-1", "core-2", s, c, false));
    add("getL2PathXML", (s, c) -> NATIVES.getL2PathXML("10.20.3.44", "10.20.8.17"));
    add(
        "getL2PathBetweenNodesXML",
        (s, c) -> NATIVES.getL2PathBetweenNodesXML("core-1", "core-2", false));
  }

  /** Calls that take long, or have others begin anew: they come once in so many rounds. */
  private static final int ROUNDS_BETWEEN = 50;

  private static void addRare() {
    String nodes = Sample.filter("nodeAssertion", "Cores", "name", "core-*");
    String interfaces = Sample.filter("interfaceAssertion", "Crane", "nodeName", "crane-*");
    add(
        "parseAndGetNodesByTopoFilterNative",
        (s, c) -> NATIVES.parseAndGetNodesByTopoFilterNative(nodes, "Cores", s, c));
    add(
        "parseAndGetInterfacesByTopoFilterNative",
        (s, c) -> NATIVES.parseAndGetInterfacesByTopoFilterNative(interfaces, "Crane", s, c));
    add("getNativeAllNodes", (s, c) -> NATIVES.getNativeAllNodes(s, c, 0, -1));
    add(
        "getSubnetsNativeByObjIDs",
        (s, c) -> NATIVES.getSubnetsNativeByObjIDs(null, false, s, c, 0, true, -1));
    add(
        "preLoadTopoCacheNative",
        (s, c) -> {
          ZorbNative.preLoadTopoCacheNative(true, true, false, false, false, s);
          return null;
        });
    add("clearNativeCache", quiet(NATIVES::clearNativeCache));
  }

  /** What calls keep, outside of the heap as a library does. */
  private static final Queue<ByteBuffer> KEPT = new ConcurrentLinkedQueue<>();

  private static int leak = 0;

  /** Calls natives in turn until their number is reached. */
  private static void run(List<String> often, List<String> rare, AtomicLong left) {
    ZorbTopoStatus status = new ZorbTopoStatus();
    for (long round = 0; ; round++) {
      List<String> names = round % ROUNDS_BETWEEN == 0 ? rare : often;
      for (String name : names) {
        if (left.decrementAndGet() < 0) {
          return;
        }
        CALLS.get(name).make(status, round % 2 == 0 ? null : new ZorbTopoCache());
        COUNTS.get(name).incrementAndGet();
        if (leak > 0) {
          KEPT.add(ByteBuffer.allocateDirect(leak));
        }
      }
    }
  }

  private static void runAll(
      ExecutorService executor, List<String> often, List<String> rare, long calls)
      throws Exception {
    AtomicLong left = new AtomicLong(calls);
    List<Future<?>> threads = new ArrayList<>();
    for (int i = 0; i < THREADS; i++) {
      threads.add(executor.submit(() -> run(often, rare, left)));
    }
    for (Future<?> thread : threads) {
      thread.get();
    }
  }

  private static Set<String> natives() {
    return Arrays.stream(ZorbNative.class.getDeclaredMethods())
        .filter(method -> Modifier.isNative(method.getModifiers()))
        .map(Method::getName)
        .collect(Collectors.toSet());
  }

  /** What the process has in memory. Its heap has all of its pages from the beginning. */
  private static long residentKilobytes() throws IOException {
    for (String line : Files.readAllLines(Path.of("/proc/self/status"))) {
      if (line.startsWith("VmRSS:")) {
        return Long.parseLong(line.replaceAll("[^0-9]", ""));
      }
    }
    throw new IOException("/proc/self/status has no VmRSS");
  }

  public static void main(String[] args) throws Exception {
    long calls = Long.parseLong(args[0]);
    leak = args.length > 1 ? Integer.parseInt(args[1]) : 0;
    addSetup();
    addObjects();
    addKinds();
    addWalks();
    List<String> often = List.copyOf(CALLS.keySet());
    addRare();
    List<String> rare = CALLS.keySet().stream().filter(name -> !often.contains(name)).toList();

    ExecutorService executor = Executors.newFixedThreadPool(THREADS);
    long warmUp = calls * 2 / 3;
    runAll(executor, often, rare, warmUp);
    long warm = residentKilobytes();
    runAll(executor, often, rare, calls - warmUp);
    long grown = residentKilobytes() - warm;
    executor.shutdown();

    long made = COUNTS.values().stream().mapToLong(AtomicLong::get).sum();
    System.out.println(
        made + " calls of " + COUNTS.size() + " natives from " + THREADS + " threads; "
            + warm + " kB after two thirds, " + grown + " kB more at the end");
    if (made != calls || !COUNTS.keySet().equals(natives())
        || COUNTS.values().stream().anyMatch(count -> count.get() == 0)) {
      System.err.println("Soak: not every native was called: " + COUNTS);
      System.exit(1);
    }
    if (grown > ALLOWED_KILOBYTES) {
      System.err.println("Soak: the process grew by more than " + ALLOWED_KILOBYTES + " kB");
      System.exit(1);
    }
    System.exit(0);
  }
}
