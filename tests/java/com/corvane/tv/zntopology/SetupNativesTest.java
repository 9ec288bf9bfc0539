package com.corvane.tv.zntopology;

import static com.corvane.tv.zntopology.Sample.NATIVES;
import static com.corvane.tv.zntopology.Sample.assertOK;
import static com.corvane.tv.zntopology.Sample.assertStatus;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertNotSame;
import static org.junit.jupiter.api.Assertions.assertSame;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.lang.reflect.Method;
import java.lang.reflect.Modifier;
import java.util.Arrays;
import java.util.List;
import org.junit.jupiter.api.AfterEach;
import org.junit.jupiter.api.Test;

class SetupNativesTest {
  /** A configuration without the field that tells whether to use the cache. */
  static class Incomplete {
    boolean enableNodeVlanInfoLoad = false;
    boolean enableNodeL2ConnectionInfoLoad = false;
    boolean enableTopoCacheFIFOSwap = false;
    boolean enableJavaInterfaceCache = false;
  }

  @AfterEach
  void restore() {
    ZorbNative.setTopologyConfigurationNative(new TopologyConfiguration());
    NATIVES.clearNativeCache();
  }

  @Test
  void thereAreFortyFourNativesOfWhichSixAreStatic() {
    List<Method> natives =
        Arrays.stream(ZorbNative.class.getDeclaredMethods())
            .filter(method -> Modifier.isNative(method.getModifiers()))
            .toList();
    assertEquals(44, natives.size());
    assertEquals(44, natives.stream().map(Method::getName).distinct().count());
    assertEquals(6, natives.stream().filter(m -> Modifier.isStatic(m.getModifiers())).count());
  }

  @Test
  void initZorbGivesOneWhateverItIsTold() {
    assertEquals(1, ZorbNative.initZorb(30, "harbor"));
    assertEquals(1, ZorbNative.initZorb(-1, null));
  }

  @Test
  void aCacheWithoutNodesGivesEachNodeAnew() {
    ZorbNative.initNativeCache(0, 100, 100, 100, 100, 100, 100);
    ZorbTopoStatus status = new ZorbTopoStatus();
    ObjID id = Sample.nodeID("core-1");
    String before = NATIVES.getNodeNativeByObjID(id, status, null).getDescription();
    Sample.rows(
        "update nwnode set description = 'changed' where objid = '"
            + id.getStringValue() + "' returning objid");
    assertEquals("changed", NATIVES.getNodeNativeByObjID(id, status, null).getDescription());
    ZorbNative.initNativeCache(10000, 15000, 15000, 500, 500, 500, 500);
    assertOK(status);
    Sample.rows(
        "update nwnode set description = '" + before + "' where objid = '"
            + id.getStringValue() + "' returning objid");
  }

  @Test
  void aNegativeSizeChangesNothing() {
    ZorbNative.initNativeCache(-1, 0, 0, 0, 0, 0, 0);
    ZorbTopoStatus status = new ZorbTopoStatus();
    ObjID id = Sample.nodeID("core-2");
    NATIVES.getNodeNativeByObjID(id, status, null);
    NATIVES.updateCacheObjectStatusNative(
        id, false, 1, ObjectStatus.MAJOR.toInt(), 0, EntityStatusType.OVERALL.toInt(), status,
        false);
    // What the cache kept is what was changed.
    assertEquals(
        ObjectStatus.MAJOR, NATIVES.getNodeNativeByObjID(id, status, null).getOverallStatus());
  }

  @Test
  void clearNativeCacheDropsWhatWasChangedInIt() {
    ZorbTopoStatus status = new ZorbTopoStatus();
    ObjID id = Sample.nodeID("fw-1");
    ObjectStatus stored = NATIVES.getNodeNativeByObjID(id, status, null).getOverallStatus();
    NATIVES.updateCacheObjectStatusNative(
        id, false, 1, ObjectStatus.CRITICAL.toInt(), 0, EntityStatusType.OVERALL.toInt(), status,
        false);
    assertEquals(
        ObjectStatus.CRITICAL, NATIVES.getNodeNativeByObjID(id, status, null).getOverallStatus());
    NATIVES.clearNativeCache();
    assertEquals(stored, NATIVES.getNodeNativeByObjID(id, status, null).getOverallStatus());
  }

  @Test
  void theConfigurationTellsWhatNodesAreLoadedWith() {
    ZorbTopoStatus status = new ZorbTopoStatus();
    ObjID id = Sample.nodeID("core-1");
    ZorbNode full = NATIVES.getNodeNativeByObjID(id, status, null);
    assertEquals(5, full.getVlanInfoList().size());
    assertFalse(full.getConnDataList().isEmpty());

    TopologyConfiguration bare = new TopologyConfiguration();
    bare.enableNodeVlanInfoLoad = false;
    bare.enableNodeL2ConnectionInfoLoad = false;
    ZorbNative.setTopologyConfigurationNative(bare);
    NATIVES.clearNativeCache();
    ZorbNode node = NATIVES.getNodeNativeByObjID(id, status, null);
    assertTrue(node.getVlanInfoList().isEmpty());
    assertTrue(node.getConnDataList().isEmpty());
    assertOK(status);
  }

  @Test
  void aConfigurationWithoutAFieldStillSetsTheOthers() {
    ZorbNative.setTopologyConfigurationNative(new Incomplete());
    NATIVES.clearNativeCache();
    ZorbTopoStatus status = new ZorbTopoStatus();
    ZorbNode node = NATIVES.getNodeNativeByObjID(Sample.nodeID("core-1"), status, null);
    assertTrue(node.getVlanInfoList().isEmpty());
    assertTrue(node.getConnDataList().isEmpty());
    assertInterfacesAreMadeAnew();
  }

  @Test
  void noConfigurationChangesNothing() {
    ZorbNative.setTopologyConfigurationNative(null);
    ZorbNative.setTopologyConfigurationNative("no configuration");
    ZorbTopoStatus status = new ZorbTopoStatus();
    ZorbNode node = NATIVES.getNodeNativeByObjID(Sample.nodeID("core-1"), status, null);
    assertEquals(5, node.getVlanInfoList().size());
  }

  @Test
  void interfacesCanBeKeptOutOfTheJavaCache() {
    ZorbTopoCache cache = new ZorbTopoCache();
    assertSame(anInterface(cache), anInterface(cache));

    TopologyConfiguration configuration = new TopologyConfiguration();
    configuration.enableJavaInterfaceCache = false;
    ZorbNative.setTopologyConfigurationNative(configuration);
    assertInterfacesAreMadeAnew();
  }

  private static void assertInterfacesAreMadeAnew() {
    ZorbTopoCache cache = new ZorbTopoCache();
    ZorbInterface first = anInterface(cache);
    assertNotSame(first, anInterface(cache));
    assertEquals(null, cache.hasInterfaceID(first.getObjID().getStringValue()));
  }

  private static ZorbInterface anInterface(ZorbTopoCache cache) {
    ObjID[] ids = {Sample.id("select min(objid) from nwentity where entitytype = 2")};
    return NATIVES
        .getInterfacesByObjIDListNative(ids, false, false, new ZorbTopoStatus(), cache)
        .get(0);
  }

  @Test
  void theLevelOfTheLogTakesAnyNumber() {
    ZorbNative.setNativeMClogLevel(99);
    ZorbNative.setNativeMClogLevel(7);
    ZorbTopoStatus status = new ZorbTopoStatus();
    NATIVES.getTopologyStateNative(status);
    assertOK(status);
  }

  @Test
  void preloadingLoadsWhatItIsAskedFor() {
    ObjID id = Sample.nodeID("core-1");
    String set = "update nwnode set description = '%s' where objid = '" + id + "' returning 1";
    String before = Sample.value("select description from nwnode where objid = '" + id + "'");
    ZorbTopoStatus status = new ZorbTopoStatus();
    NATIVES.clearNativeCache();
    ZorbNative.preLoadTopoCacheNative(true, true, false, false, false, status);
    assertOK(status);
    Sample.rows(set.formatted("changed"));
    try {
      // What was loaded is as it was then.
      assertEquals(before, NATIVES.getNodeNativeByObjID(id, status, null).getDescription());
      NATIVES.clearNativeCache();
      ZorbNative.preLoadTopoCacheNative(false, false, true, true, false, status);
      assertOK(status);
      assertEquals("changed", NATIVES.getNodeNativeByObjID(id, status, null).getDescription());
    } finally {
      Sample.rows(set.formatted(before));
    }
  }

  @Test
  void preloadingTellsWhatFailed() {
    ZorbTopoStatus status = new ZorbTopoStatus();
    Sample.rows("update state set topologyready = 0 returning 1");
    NATIVES.clearNativeCache();
    try {
      ZorbNative.preLoadTopoCacheNative(true, false, false, false, false, status);
      assertStatus(TopoStatusCode.DB_NOT_READY, status);
    } finally {
      Sample.rows("update state set topologyready = 1 returning 1");
    }
  }
}
