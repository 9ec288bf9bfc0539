package com.corvane.tv.zntopology;

import static com.corvane.tv.zntopology.Sample.NATIVES;
import static com.corvane.tv.zntopology.Sample.assertOK;
import static com.corvane.tv.zntopology.Sample.assertStatus;
import static org.junit.jupiter.api.Assertions.*;

import java.util.ArrayList;
import java.util.List;
import java.util.Vector;
import java.util.concurrent.ExecutorService;
import java.util.concurrent.Executors;
import java.util.concurrent.Future;
import java.util.function.Function;
import org.junit.jupiter.api.Test;

class JavaCacheTest {
  private final ZorbTopoStatus status = new ZorbTopoStatus();
  private final ZorbTopoCache cache = new ZorbTopoCache();

  @Test
  void aNodeInTheCacheComesBackAsItWasPutThere() {
    ObjID id = Sample.nodeID("core-1");
    ZorbNode first = NATIVES.getNodeNativeByObjID(id, status, cache);
    assertSame(first, cache.hasNodeID(id.getStringValue()));
    NATIVES.updateCacheObjectStatusNative(
        id, false, EntityType.E_NODE.toInt(), ObjectStatus.MAJOR.toInt(), 0,
        EntityStatusType.OVERALL.toInt(), status, false);
    assertSame(first, NATIVES.getNodeNativeByObjID(id, status, cache));
    assertSame(first, NATIVES.getNativeNodeByName("core-1", status, cache));
    assertNotEquals(ObjectStatus.MAJOR, first.getOverallStatus());
    assertEquals(
        ObjectStatus.MAJOR, NATIVES.getNodeNativeByObjID(id, status, null).getOverallStatus());
  }

  /** One object of each kind, read with a cache. */
  private static List<Object> oneOfEachKind(ZorbTopoCache cache) {
    ZorbTopoStatus status = new ZorbTopoStatus();
    Function<Integer, ObjID> first =
        type -> Sample.id("select min(objid) from nwentity where entitytype = " + type);
    ObjID[] interfaces = {first.apply(2)};
    ObjID[] groups = {first.apply(11)};
    ObjID[] ifcs = {first.apply(12)};
    ObjID address = Sample.id("select min(addressid) from address");
    List<Object> found =
        List.of(
            NATIVES.getNodeNativeByObjID(first.apply(1), status, cache),
            NATIVES.getInterfacesByObjIDListNative(interfaces, false, false, status, cache).get(0),
            NATIVES.getAddressNativeByObjID(address, status, cache),
            NATIVES.getSubnetNativeByObjID(first.apply(7), status, cache),
            NATIVES.getVlanByObjIDNative(first.apply(4), status, cache),
            NATIVES.getHSRPsNativeByObjIDs(groups, false, status, cache).get(0),
            NATIVES.getIfcsByObjIDListNative(ifcs, status, cache).get(0));
    assertOK(status);
    return found;
  }

  @Test
  void eachKindIsMadeOnce() {
    List<Object> first = oneOfEachKind(cache);
    List<Object> second = oneOfEachKind(cache);
    for (int i = 0; i < first.size(); i++) {
      assertSame(first.get(i), second.get(i));
    }
  }

  @Test
  void withoutACacheEachObjectIsMadeAnewAndNoneIsKept() {
    List<Object> kept = oneOfEachKind(cache);
    List<Object> first = oneOfEachKind(null);
    List<Object> second = oneOfEachKind(null);
    List<Object> after = oneOfEachKind(cache);
    for (int i = 0; i < kept.size(); i++) {
      assertNotSame(first.get(i), second.get(i));
      assertNotSame(kept.get(i), first.get(i));
      assertSame(kept.get(i), after.get(i));
      assertSame(kept.get(i).getClass(), first.get(i).getClass());
    }
  }

  @Test
  void theAddressesOfAnObjectAreKeptAndTheOneThatManagesItIsNot() {
    List<Address> kept = new ArrayList<>();
    ZorbTopoCache keeping =
        new ZorbTopoCache() {
          @Override
          public void addAddress(Address address) {
            kept.add(address);
          }
        };
    ObjID[] ids = {
      Sample.id("select objid from address where v4address = '10.20.3.44'")
    };
    ZorbInterface anInterface =
        NATIVES.getInterfacesByObjIDListNative(ids, false, false, status, keeping).get(0);
    assertEquals(anInterface.getAddresses(), kept);
    assertEquals("10.20.3.44", kept.get(0).getAddressAsString());
    ZorbNode node = NATIVES.getNativeNodeByName("core-1", status, keeping);
    Address management = node.getNodeProperty().managementAddress();
    assertEquals("10.20.1.11", management.getAddressAsString());
    assertTrue(kept.stream().noneMatch(address -> address == management));
  }

  @Test
  void severalThreadsMayBuildIntoOneCache() throws Exception {
    int threads = 8;
    int rounds = 5;
    ExecutorService executor = Executors.newFixedThreadPool(threads);
    List<Future<Integer>> built = new ArrayList<>();
    for (int thread = 0; thread < threads; thread++) {
      built.add(
          executor.submit(
              () -> {
                int nodes = 0;
                for (int round = 0; round < rounds; round++) {
                  nodes +=
                      NATIVES.getNativeAllNodes(new ZorbTopoStatus(), cache, 0, -1).size();
                }
                return nodes;
              }));
    }
    for (Future<Integer> each : built) {
      assertEquals(rounds * 24, each.get());
    }
    executor.shutdown();
    for (ZorbNode node : NATIVES.getNativeAllNodes(status, cache, 0, -1)) {
      assertSame(node, cache.hasNodeID(node.getObjID().getStringValue()));
    }
    assertOK(status);
  }

  @Test
  void whatACacheGivesIsTakenAsItIs() {
    ZorbNode decoy = new ZorbNode(null);
    ZorbTopoCache always =
        new ZorbTopoCache() {
          @Override
          public ZorbNode hasNodeID(String id) {
            return decoy;
          }
        };
    Vector<ZorbNode> nodes = NATIVES.getNativeAllNodes(status, always, 0, -1);
    assertOK(status);
    assertEquals(24, nodes.size());
    assertTrue(nodes.stream().allMatch(node -> node == decoy));
  }

  @Test
  void anExceptionOfACacheReachesTheCaller() {
    ZorbTopoCache broken =
        new ZorbTopoCache() {
          @Override
          public ZorbNode hasNodeID(String id) {
            throw new UnsupportedOperationException("probe");
          }

          @Override
          public void addVlan(ZorbVlan vlan) {
            throw new UnsupportedOperationException("store");
          }

          @Override
          public Address hasAddressID(String id) {
            throw new UnsupportedOperationException("inside");
          }
        };
    assertThrown(() -> NATIVES.getNativeAllNodes(status, broken, 0, -1), "probe");
    assertThrown(() -> NATIVES.getVlans(status, broken, -1), "store");
    ObjID[] ids = {Sample.id("select objid from address where v4address = '10.20.3.44'")};
    assertThrown(
        () -> NATIVES.getInterfacesByObjIDListNative(ids, false, false, status, broken), "inside");
    // The calls before left nothing behind.
    assertEquals(24, NATIVES.getNativeAllNodes(status, null, 0, -1).size());
  }

  @Test
  void anExceptionOfAListOrAFilterOrAStatusReachesTheCaller() {
    Object[] ids = {new ObjID("nobody")};
    assertThrows(
        UnsupportedOperationException.class,
        () -> NATIVES.getConnectivityNative(ids, List.of(), true, false, status, null));
    TopoFilter filter =
        new TopoFilter() {
          @Override
          public boolean isFieldIgnored(int field) {
            throw new UnsupportedOperationException("filter");
          }
        };
    assertThrown(() -> NATIVES.getNodeIDsByFilterNative(filter, null, status), "filter");
    ZorbTopoStatus throwing =
        new ZorbTopoStatus() {
          @Override
          public void setStatus(int number, String auxMsg) {
            throw new UnsupportedOperationException("status");
          }
        };
    assertThrown(() -> NATIVES.getVlans(throwing, null, -1), "status");
  }

  private static void assertThrown(org.junit.jupiter.api.function.Executable call, String message) {
    assertEquals(
        message, assertThrows(UnsupportedOperationException.class, call).getMessage());
  }
}
