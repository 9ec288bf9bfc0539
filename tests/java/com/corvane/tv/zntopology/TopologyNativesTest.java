package com.corvane.tv.zntopology;

import static com.corvane.tv.zntopology.Sample.NATIVES;
import static com.corvane.tv.zntopology.Sample.assertOK;
import static org.junit.jupiter.api.Assertions.*;

import java.util.List;
import java.util.Vector;
import org.junit.jupiter.api.Test;

class TopologyNativesTest {
  private final ZorbTopoStatus status = new ZorbTopoStatus();

  private static String count(String condition) {
    return Sample.value("select count(*) from nwentity where " + condition);
  }

  @Test
  void theStateIsThatOfTheStore() {
    TopologyState state = NATIVES.getTopologyStateNative(status);
    assertOK(status);
    assertEquals(0, state.state());
    assertEquals(
        Sample.value("select topologyreadychangetime from state"), state.changeTime() + "");
  }

  @Test
  void theSizeIsCountedInTheStore() {
    ZorbTopoInfo info = NATIVES.getNativeTopoInfo(status);
    assertOK(status);
    assertEquals(count("entitytype = 1"), info.myNumNode + "");
    assertEquals(
        Sample.value("select count(*) from nwnode where iplevel = 4"), info.myNumV4Node + "");
    assertEquals(
        Sample.value("select count(*) from nwnode where iplevel = 6"), info.myNumV6Node + "");
    assertEquals(count("entitytype = 2"), info.myNumInterface + "");
    assertEquals(info.myNumInterface, info.myNumV4Interface + info.myNumV6Interface);
    assertEquals(count("entitytype = 7 and iplevel = 4"), info.myNumSubnet + "");
    assertEquals(count("entitytype = 7 and iplevel = 6"), info.myNumPrefixGroup + "");
    assertEquals(count("entitytype = 4"), info.myNumVlan + "");
    assertEquals(count("entitytype = 11"), info.myNumHSRP + "");
    assertEquals(count("entitytype = 10"), info.myNumMesh + "");
    assertEquals(Sample.value("select count(*) from nwinterfaceasc"), info.myNumL2Link + "");
    assertEquals(
        Sample.value("select count(*) from address where addresstype = 16"),
        info.myNumDNSName + "");
    assertTrue(info.myNumV4SNMPNode > 0 && info.myNumV4Addr > 0 && info.myNumV6Addr > 0);
  }

  @Test
  void theTimesOfTheSizeAreSecondsAndItsStateIsALine() {
    ZorbTopoInfo info = NATIVES.getNativeTopoInfo(status);
    assertOK(status);
    assertEquals(
        Sample.value("select topologyreadychangetime from state"), info.cacheTimeStamp + "");
    assertEquals(
        Sample.value("select topologyreadychangetime from state"), info.myTopoReadyTime + "");
    assertEquals(Sample.value("select createtime from state"), info.myDiscoStartTime + "");
    assertEquals(" Topology State = READY\n", info.topologyState);
  }

  @Test
  void theSizeTellsTheNodesOfEachRouteDistinguisher() {
    ZorbTopoInfo info = NATIVES.getNativeTopoInfo(status);
    assertOK(status);
    assertEquals(info.myRDCountName.length, info.myRDCount.length);
    assertTrue(info.myRDCount.length > 0);
    for (int count : info.myRDCount) {
      assertTrue(count > 0);
    }
  }

  @Test
  void theAuditTrailTellsWhatHappenedToEachObject() {
    Vector<ZorbAuditTrail> trails = NATIVES.getAuditTrailNative(0, 0, -1, -1, status);
    assertOK(status);
    assertEquals(
        Sample.rows("select distinct objid from nwtopoaudittrail order by 1"),
        trails.stream().map(trail -> trail.objID().getStringValue()).sorted().toList());
    assertEquals(
        Sample.value("select count(*) from nwtopoaudittrail"),
        trails.stream().mapToInt(trail -> trail.actions().size()).sum() + "");
  }

  @Test
  void theAuditTrailCanBeAskedForATimeAndAKind() {
    Vector<ZorbAuditTrail> removed =
        NATIVES.getAuditTrailNative(
            0, 0, ActionType.OBJECT_DELETION.toInt(), EntityType.E_NODE.toInt(), status);
    assertOK(status);
    assertEquals(1, removed.size());
    ZorbAuditAction action = removed.get(0).actions().get(0);
    assertEquals(
        new ZorbAuditAction(
            1767400402, ActionType.OBJECT_DELETION, ActionDetailType.NOT_APPLICABLE,
            "Not seen for 30 days: access-3, quay 2"),
        action);
    assertEquals(List.of(), NATIVES.getAuditTrailNative(2000000000, 0, -1, -1, status));
    assertOK(status);
  }
}
