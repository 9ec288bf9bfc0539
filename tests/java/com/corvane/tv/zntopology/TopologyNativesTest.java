package com.corvane.tv.zntopology;

import static com.corvane.tv.zntopology.Sample.NATIVES;
import static com.corvane.tv.zntopology.Sample.assertOK;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertNotNull;
import static org.junit.jupiter.api.Assertions.assertNull;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.util.ArrayList;
import java.util.List;
import java.util.Map;
import java.util.Vector;
import java.util.function.Supplier;
import org.junit.jupiter.api.Test;

class TopologyNativesTest {
  private final ZorbTopoStatus status = new ZorbTopoStatus();

  @Test
  void theStateIsThatOfTheStore() {
    TopologyState state = NATIVES.getTopologyStateNative(status);
    assertOK(status);
    assertEquals(0, state.state());
    assertEquals(
        Sample.value("select topologyreadychangetime from state"), state.changeTime() + "");
  }

  /** What each number of the size counts in the store. */
  private static final Map<String, String> NUMBERS =
      Map.ofEntries(
          Map.entry("cacheTimeStamp", "topologyreadychangetime from state"),
          Map.entry("myNumNode", "count(*) from nwnode"),
          Map.entry("myNumV4Node", "count(*) from nwnode where iplevel = 4"),
          Map.entry("myNumV6Node", "count(*) from nwnode where iplevel = 6"),
          Map.entry("myNumV4SNMPNode", "count(*) from nwnode where sysoid <> '-'"),
          Map.entry("myNumInterface", "count(*) from nwinterface"),
          Map.entry("myNumV4Interface", "count(*) from nwinterface where iplevel = 4"),
          Map.entry("myNumV6Interface", "count(*) from nwinterface where iplevel = 6"),
          Map.entry("myNumPrefixGroup", "count(*) from nwentity where entitytype = 7 and iplevel = 6"),
          Map.entry("myNumSubnet", "count(*) from nwentity where entitytype = 7 and iplevel = 4"),
          Map.entry("myNumVlan", "count(*) from nwentity where entitytype = 4"),
          Map.entry("myNumHSRP", "count(*) from nwentity where entitytype = 11"),
          Map.entry("myNumMesh", "count(*) from nwentity where entitytype = 10"),
          Map.entry("myNumL2Link", "count(*) from nwinterfaceasc where reltype = 1"),
          Map.entry("myNumV4Addr", "count(*) from address where addresstype = 1"),
          Map.entry("myNumV6Addr", "count(*) from address where addresstype = 2"),
          Map.entry("myNumDNSName", "count(*) from address where addresstype = 16"),
          Map.entry("myDiscoStartTime", "createtime from state"),
          Map.entry("myTopoReadyTime", "topologyreadychangetime from state"));

  @Test
  void theSizeIsThatOfTheStore() throws ReflectiveOperationException {
    ZorbTopoInfo info = NATIVES.getNativeTopoInfo(status);
    assertOK(status);
    assertEquals(19, NUMBERS.size());
    for (Map.Entry<String, String> number : NUMBERS.entrySet()) {
      assertEquals(
          Sample.value("select " + number.getValue()),
          ZorbTopoInfo.class.getField(number.getKey()).getLong(info) + "",
          number.getKey());
    }
    assertEquals(" Topology State = READY\n", info.topologyState);
    List<String> domains = new ArrayList<>();
    for (int i = 0; i < info.myRDCountName.length; i++) {
      domains.add(info.myRDCountName[i] + "|" + info.myRDCount[i]);
    }
    assertEquals(info.myRDCountName.length, info.myRDCount.length);
    assertEquals(
        Sample.rows(
            "select coalesce(v4managementaddressrd, ''), count(*) from nwnode group by 1"
                + " order by cast(v4managementaddressrd as text)"),
        domains);
  }

  /** The entries of trails in one order, as the store shows their rows. */
  private static List<String> entriesOf(Vector<ZorbAuditTrail> trails) {
    List<String> entries = new ArrayList<>();
    for (ZorbAuditTrail trail : trails) {
      for (ZorbAuditAction action : trail.actions()) {
        entries.add(
            trail.objID() + "|" + trail.objectType().toInt() + "|" + action.time() + "|"
                + action.type().toInt() + "|" + action.detailType().toInt() + "|"
                + action.info());
      }
    }
    entries.sort(null);
    return entries;
  }

  private static List<String> storedEntries(String condition) {
    List<String> entries =
        new ArrayList<>(
            Sample.rows(
                "select objid, objecttype, actiontimeutc, actiontype, actiondetail, actioninfo"
                    + " from nwtopoaudittrail where " + condition));
    entries.sort(null);
    return entries;
  }

  @Test
  void theAuditTrailIsThatOfTheStore() {
    Vector<ZorbAuditTrail> trails = NATIVES.getAuditTrailNative(0, 0, -1, -1, status);
    assertOK(status);
    assertFalse(trails.isEmpty());
    assertEquals(storedEntries("true"), entriesOf(trails));
    assertEquals(
        Sample.value("select count(distinct objid) from nwtopoaudittrail"), trails.size() + "");
  }

  @Test
  void theAuditTrailCanBeAskedForAWindowAndForKinds() {
    String time = Sample.value("select max(actiontimeutc) from nwtopoaudittrail");
    long last = Long.parseLong(time);
    assertEquals(
        storedEntries("actiontimeutc = " + time),
        entriesOf(NATIVES.getAuditTrailNative(last, last, -1, -1, status)));
    assertEquals(
        storedEntries("actiontimeutc < " + time),
        entriesOf(NATIVES.getAuditTrailNative(0, last - 1, -1, -1, status)));
    assertEquals(
        storedEntries("actiontype = 2"),
        entriesOf(
            NATIVES.getAuditTrailNative(
                0, 0, ActionType.OBJECT_CREATION.toInt(), -1, status)));
    assertEquals(
        storedEntries("objecttype = 4"),
        entriesOf(
            NATIVES.getAuditTrailNative(0, 0, -1, EntityType.E_VLAN.toInt(), status)));
    assertTrue(NATIVES.getAuditTrailNative(last, 1, -1, -1, status).isEmpty());
    assertOK(status);
  }

  /** Asks without a table, and holds the answer and the status against a failure. */
  private void assertFailsWithout(String table, Supplier<Object> call) {
    Sample.rows("alter table " + table + " rename to hidden");
    try {
      status.setStatus(0, "");
      assertNull(call.get());
      assertFalse(status.isOK());
      assertFalse(status.getAuxMsg().isEmpty());
    } finally {
      Sample.rows("alter table hidden rename to " + table);
    }
  }

  @Test
  void whatCantBeReadIsNullWithAStatus() {
    assertFailsWithout(
        "nwtopoaudittrail", () -> NATIVES.getAuditTrailNative(0, 0, -1, -1, status));
    assertFailsWithout("nwnode", () -> NATIVES.getNativeTopoInfo(status));
    assertFailsWithout("state", () -> NATIVES.getTopologyStateNative(status));
    assertFailsWithout(
        "nwifcctm", () -> NATIVES.getIfcInfosByObjIDListNative(null, false, true, 0, status));
    // All is as it was before.
    assertNotNull(NATIVES.getNativeTopoInfo(status));
    assertOK(status);
  }
}
