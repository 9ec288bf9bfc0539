package com.corvane.tv.zntopology;

import static com.corvane.tv.zntopology.Sample.NATIVES;
import static com.corvane.tv.zntopology.Sample.assertOK;
import static com.corvane.tv.zntopology.Sample.assertStatus;
import static org.junit.jupiter.api.Assertions.*;

import java.util.List;
import java.util.function.Supplier;
import org.junit.jupiter.api.AfterAll;
import org.junit.jupiter.api.BeforeAll;
import org.junit.jupiter.api.Test;

/** What the natives answer while the topology may not be read. */
class NoStoreTest {
  private final ZorbTopoStatus status = new ZorbTopoStatus();

  @BeforeAll
  static void unready() {
    Sample.rows("update state set topologyready = 0 returning 1");
  }

  @AfterAll
  static void ready() {
    Sample.rows("update state set topologyready = 1 returning 1");
  }

  @Test
  void listsAreNullWithAStatusUntilTheTopologyIsReady() {
    Object[] ids = {new ObjID("x")};
    List<Supplier<Object>> calls =
        List.of(
            () -> NATIVES.getNativeAllNodes(status, null, 0, -1),
            () -> NATIVES.getInterfacesByObjIDListNative(ids, false, true, status, null),
            () -> NATIVES.getAddrsNativeByObjIDs(ids, status, null),
            () -> NATIVES.getSubnetsNativeByObjIDs(ids, false, status, null, 0, true, -1),
            () -> NATIVES.getVlans(status, null, -1),
            () -> NATIVES.getIfcsByTypeNative(1, status, null),
            () -> NATIVES.getIfcsByObjIDListNative(ids, status, null),
            () -> NATIVES.getHSRPsNativeByObjIDs(ids, true, status, null),
            () -> NATIVES.getConnectivityNative(ids, null, true, false, status, null),
            () -> NATIVES.getNodeIDsByFilterNative(new TopoFilter(), null, status));
    for (Supplier<Object> call : calls) {
      status.setStatus(0, "");
      assertNull(call.get());
      assertStatus(TopoStatusCode.DB_NOT_READY, status);
    }
  }

  @Test
  void theStateCanStillBeRead() {
    TopologyState state = NATIVES.getTopologyStateNative(status);
    assertOK(status);
    assertEquals(1, state.state());
  }

  @Test
  void theSizeIsNullWithAStatusAndNoException() {
    assertNull(NATIVES.getNativeTopoInfo(status));
    assertStatus(TopoStatusCode.DB_NOT_READY, status);
    assertEquals(
        "Topology DataStore is in the state of : TOPOLOGY_INTERNAL_PROCESSING",
        status.getAuxMsg().strip());
  }
}
