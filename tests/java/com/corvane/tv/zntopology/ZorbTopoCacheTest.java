package com.corvane.tv.zntopology;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertNull;
import static org.junit.jupiter.api.Assertions.assertSame;

import java.util.ArrayList;
import java.util.List;
import java.util.Vector;
import java.util.concurrent.ExecutorService;
import java.util.concurrent.Executors;
import java.util.concurrent.Future;
import org.junit.jupiter.api.Test;

class ZorbTopoCacheTest {
  private static ZorbEntity entity(String id) {
    return new ZorbEntity(
        id == null ? null : new ObjID(id), new ObjID(), id, "", EntityType.E_UNKNOWN,
        ObjectStatus.NORMAL, IPLevel.IPV4, null, null, null, List.of(), new Vector<>(), List.of(),
        1, 2, ObjectStatus.NORMAL, ObjectStatus.NORMAL, ObjectStatus.NORMAL, 3, 4);
  }

  @Test
  void eachKindHasItsOwnPlace() {
    ZorbTopoCache cache = new ZorbTopoCache();
    ZorbNode node = new ZorbNode(entity("x"));
    ZorbInterface anInterface = new ZorbInterface(entity("x"), null, null);
    Address address = new InetAddressDNS("a.b", false, new ObjID("x"), null, 0, null);
    ZorbSubnet subnet = new ZorbSubnet(entity("x"), null);
    ZorbVlan vlan = new ZorbVlan(entity("x"), null);
    ZorbHSRP hsrp = new ZorbHSRP(entity("x"), null);
    ZorbIfc ifc = new ZorbIfc(entity("x"));
    cache.addNode(node);
    cache.addInterface(anInterface);
    cache.addAddress(address);
    cache.addSubnet(subnet);
    cache.addVlan(vlan);
    cache.addHSRP(hsrp);
    cache.addIfc(ifc);
    assertSame(node, cache.hasNodeID("x"));
    assertSame(anInterface, cache.hasInterfaceID("x"));
    assertSame(address, cache.hasAddressID("x"));
    assertSame(subnet, cache.hasSubnetID("x"));
    assertSame(vlan, cache.hasVlanID("x"));
    assertSame(hsrp, cache.hasHSRPID("x"));
    assertSame(ifc, cache.hasIfcID("x"));
  }

  @Test
  void whatIsNotThereIsNull() {
    ZorbTopoCache cache = new ZorbTopoCache();
    assertNull(cache.hasNodeID("x"));
    assertNull(cache.hasNodeID(null));
  }

  @Test
  void anObjectWithoutAnIdentifierIsNotKept() {
    ZorbTopoCache cache = new ZorbTopoCache();
    cache.addNode(null);
    cache.addNode(new ZorbNode(null));
    cache.addNode(new ZorbNode(entity(null)));
    assertNull(cache.hasNodeID(null));
  }

  @Test
  void theLastOfAnIdentifierStays() {
    ZorbTopoCache cache = new ZorbTopoCache();
    cache.addNode(new ZorbNode(entity("x")));
    ZorbNode last = new ZorbNode(entity("x"));
    cache.addNode(last);
    assertSame(last, cache.hasNodeID("x"));
  }

  @Test
  void severalThreadsMayUseOne() throws Exception {
    ZorbTopoCache cache = new ZorbTopoCache();
    int threads = 8;
    int objects = 5000;
    ExecutorService executor = Executors.newFixedThreadPool(threads);
    List<Future<Integer>> found = new ArrayList<>();
    for (int thread = 0; thread < threads; thread++) {
      int first = thread * objects;
      found.add(
          executor.submit(
              () -> {
                int seen = 0;
                for (int i = first; i < first + objects; i++) {
                  cache.addNode(new ZorbNode(entity("n" + i)));
                  seen += cache.hasNodeID("n" + i) != null ? 1 : 0;
                }
                return seen;
              }));
    }
    for (Future<Integer> each : found) {
      assertEquals(objects, each.get());
    }
    executor.shutdown();
    for (int i = 0; i < threads * objects; i++) {
      assertEquals("n" + i, cache.hasNodeID("n" + i).getName());
    }
  }
}
