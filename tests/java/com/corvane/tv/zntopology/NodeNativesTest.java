package com.corvane.tv.zntopology;

import static com.corvane.tv.zntopology.Sample.ANY_RD;
import static com.corvane.tv.zntopology.Sample.NATIVES;
import static com.corvane.tv.zntopology.Sample.assertOK;
import static com.corvane.tv.zntopology.Sample.assertStatus;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertNotNull;
import static org.junit.jupiter.api.Assertions.assertNull;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.util.List;
import java.util.Vector;
import org.junit.jupiter.api.BeforeAll;
import org.junit.jupiter.api.Test;

class NodeNativesTest {
  // So that no list misses a node that is there already.
  @BeforeAll
  static void keepNoNodes() {
    ZorbNative.initNativeCache(0, 15000, 15000, 500, 500, 500, 500);
  }

  private final ZorbTopoStatus status = new ZorbTopoStatus();

  @Test
  void aNodeIsFoundByItsIdentifierWithAllThatHangsOnIt() {
    ObjID id = Sample.nodeID("core-1");
    ZorbNode node = NATIVES.getNodeNativeByObjID(id, status, null);
    assertOK(status);
    assertEquals(id, node.getObjID());
    assertEquals("core-1", node.getName());
    assertEquals("Core switch, harbor office basement", node.getDescription());
    assertEquals(EntityType.E_NODE, node.getEntityType());
    assertEquals(IPLevel.IPV4, node.getIPLevel());
    assertNull(node.getContainmentAss());
    assertNull(node.getRelatedTo());
    assertNotNull(node.getContainmentParent());
    String times =
        "select %s * 1000 from nwentity where objid = '" + id.getStringValue() + "'";
    assertEquals(Sample.value(times.formatted("createtimeutc")), node.getCreateTime() + "");
    assertEquals(Sample.value(times.formatted("changetimeutc")), node.getChangeTime() + "");

    NodeProperty property = node.getNodeProperty();
    assertEquals("10.20.1.11", property.managementAddress().getAddressAsString());
    assertEquals("1.3.6.1.4.1.32473.1.30", property.entityOid());
    assertEquals("noc@harbor.example, extension 2110", property.sysContact());
    assertEquals("Harbor office, basement, rack A1", property.sysLocation());
    assertEquals(SnmpState.RESPONDING, property.snmpState());
    assertTrue(property.capabilities().contains(new Capability("isOSPF")));
    assertEquals(property.capabilities(), node.getCapabilities());
    assertEquals(5, node.getConnDataList().size());
    assertEquals(5, node.getVlanInfoList().size());
    assertFalse(node.getIfcInfoList().isEmpty());
    assertFalse(node.getIfcInfoList().get(0).interfaceInfos().isEmpty());
  }

  @Test
  void userVariablesKeepTheirKindsAndALongLongIsZero() {
    ZorbNode node = NATIVES.getNodeNativeByObjID(Sample.nodeID("core-1"), status, null);
    assertTrue(
        node.getUserVars().contains(new UserDefVar("rackUnit", new VarValue((short) 38))));
    assertTrue(
        node.getUserVars().contains(new UserDefVar("assetNumber", new VarValue(400117L))));
    assertTrue(node.getUserVars().contains(new UserDefVar("serviceContract", new VarValue(0L))));
    assertTrue(
        node.getUserVars()
            .contains(new UserDefVar("owner", new VarValue("harbor master's office"))));
    assertTrue(
        node.getUserVars().contains(new UserDefVar("powerKilowatts", new VarValue(0.75f))));
  }

  @Test
  void theLinksOfANodeBeginAtIt() {
    ZorbNode node = NATIVES.getNodeNativeByObjID(Sample.nodeID("core-1"), status, null);
    for (ZorbConnData link : node.getConnDataList()) {
      assertEquals(node.getObjID(), link.srcNodeID());
    }
  }

  @Test
  void anUnknownIdentifierIsNullWithAStatus() {
    assertNull(NATIVES.getNodeNativeByObjID(new ObjID("nobody"), status, null));
    assertStatus(TopoStatusCode.INVALID_ID, status);
    assertNull(NATIVES.getNodeNativeByObjID(new ObjID(), status, null));
    assertStatus(TopoStatusCode.INVALID_ID, status);
  }

  @Test
  void aNodeIsFoundByItsLegacyIdentifier() {
    String legacyID =
        Sample.value(
            "select qrmobjid from nwentity where entitytype = 1 and entityname = 'border-2'");
    ZorbNode node = NATIVES.getNodeNativeByQRMObjID(new ObjID(legacyID), status, null);
    assertOK(status);
    assertEquals("border-2", node.getName());
    assertEquals(legacyID, node.getQRMObjID().getStringValue());
    assertNull(NATIVES.getNodeNativeByQRMObjID(new ObjID("987654"), status, null));
    assertStatus(TopoStatusCode.INVALID_ID, status);
  }

  @Test
  void aNodeIsFoundByItsName() {
    ZorbNode node = NATIVES.getNativeNodeByName("harbor master pc", status, null);
    assertOK(status);
    assertEquals("harbor master pc", node.getName());
    assertNull(NATIVES.getNativeNodeByName("core-", status, null));
    assertStatus(TopoStatusCode.NONUNIQUE_NAME, status);
    assertNull(NATIVES.getNativeNodeByName("nobody", status, null));
    assertStatus(TopoStatusCode.OBJ_NOT_EXIST, status);
    assertNull(NATIVES.getNativeNodeByName("", status, null));
    assertStatus(TopoStatusCode.ILLEGAL_INPUT, status);
  }

  @Test
  void allNodesAreThere() {
    Vector<ZorbNode> nodes =
        NATIVES.getNativeAllNodes(status, null, IPLevel.ALL_PROTOCOL.toInt(), ANY_RD);
    assertOK(status);
    assertEquals(24, nodes.size());
    int ofLevelSix =
        Integer.parseInt(Sample.value("select count(*) from nwnode where iplevel = 6"));
    assertEquals(
        ofLevelSix, NATIVES.getNativeAllNodes(status, null, IPLevel.IPV6.toInt(), ANY_RD).size());
  }

  @Test
  void textsOfTheStoreArriveAsTheyAre() {
    ZorbNode beyond = NATIVES.getNativeNodeByName("berth-planner", status, null);
    assertEquals("Wave \uD83C\uDF0A, é", beyond.getDescription());
    ZorbNode malformed = NATIVES.getNativeNodeByName("tally-desk-1", status, null);
    assertEquals("a\uFFFDb", malformed.getDescription());
  }

  @Test
  void nodesAreFoundByAttributes() {
    TopoFilter filter = new TopoFilter();
    filter.setIPLevel(IPLevel.IPV4);
    filter.setRegexEntityName("core%");
    Vector<ObjID> ids = NATIVES.getNodeIDsByFilterNative(filter, null, status);
    assertOK(status);
    assertEquals(
        Sample.rows(
            "select objid from nwentity where entitytype = 1 and entityname like 'core%' order by 1"),
        ids.stream().map(ObjID::getStringValue).sorted().toList());

    filter.setRegexEntityName("it's");
    assertNull(NATIVES.getNodeIDsByFilterNative(filter, null, status));
    assertFalse(status.isOK());
  }

  @Test
  void capabilitiesOfAFilterDoNotCross() {
    TopoFilter filter = new TopoFilter();
    filter.setIPLevel(IPLevel.IPV4);
    Vector<ObjID> all = NATIVES.getNodeIDsByFilterNative(filter, null, status);
    filter.setCapabilityNames(List.of("isOSPF"));
    filter.setExcludeCapabilityNames(List.of("isATM"));
    assertEquals(all, NATIVES.getNodeIDsByFilterNative(filter, null, status));
    assertOK(status);
  }

  @Test
  void nodesAreFoundByAFilterInADocument() {
    String document = Sample.filter("nodeAssertion", "Cores", "name", "core-*");
    Vector<ZorbNode> nodes =
        NATIVES.parseAndGetNodesByTopoFilterNative(document, "Cores", status, null);
    assertOK(status);
    assertEquals(
        List.of("core-1", "core-2"), nodes.stream().map(ZorbEntity::getName).sorted().toList());
    assertNull(NATIVES.parseAndGetNodesByTopoFilterNative(document, "Other", status, null));
    assertStatus(TopoStatusCode.XML_FILTER_NAME_NOT_FOUND_ERROR, status);
    assertNull(NATIVES.parseAndGetNodesByTopoFilterNative("<no", "Cores", status, null));
    assertFalse(status.isOK());
  }
}
