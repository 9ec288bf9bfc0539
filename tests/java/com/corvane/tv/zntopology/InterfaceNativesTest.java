package com.corvane.tv.zntopology;

import static com.corvane.tv.zntopology.Sample.NATIVES;
import static com.corvane.tv.zntopology.Sample.assertOK;
import static com.corvane.tv.zntopology.Sample.assertStatus;
import static org.junit.jupiter.api.Assertions.*;

import java.util.HashSet;
import java.util.List;
import java.util.Set;
import java.util.TreeSet;
import java.util.Vector;
import java.util.stream.Collectors;
import org.junit.jupiter.api.Test;

class InterfaceNativesTest {
  private final ZorbTopoStatus status = new ZorbTopoStatus();

  private static ObjID interfaceID(String node, String name) {
    return Sample.id(
        "select i.objid from nwinterface i join nwentity n on n.objid = i.nodeobjid"
            + " where n.entityname = '" + node + "' and i.ifname = '" + name + "'");
  }

  private ZorbInterface read(ObjID id) {
    return NATIVES
        .getInterfacesByObjIDListNative(new ObjID[] {id}, false, false, status, null)
        .get(0);
  }

  @Test
  void anInterfaceComesWithItsPropertiesItsLinksAndItsNode() {
    ObjID id = interfaceID("access-1", "Gi1/0/7");
    ZorbInterface anInterface = read(id);
    assertOK(status);
    assertEquals(EntityType.E_INTERFACE, anInterface.getEntityType());
    assertEquals("access-1", anInterface.getContainmentParent().name());
    assertEquals(Sample.nodeID("access-1"), anInterface.getContainmentParent().objID());
    assertEquals(EntityType.E_NODE, anInterface.getContainmentParent().type());
    IFProperty property = anInterface.getIFProperty();
    String where = " from nwinterface where objid = '" + id.getStringValue() + "'";
    assertEquals("Gi1/0/7", property.ifName());
    assertEquals(Sample.value("select ifindex" + where), property.ifIndex() + "");
    assertEquals(Sample.value("select iftype" + where), property.ifType() + "");
    assertEquals(Sample.value("select ifspeed" + where), property.ifSpeed() + "");
    assertEquals(Sample.value("select physicaladdress" + where), property.physicalAddress());
    assertEquals(IFAdminStatus.UP, property.adminStatus());
    assertEquals(IFOperStatus.UP, property.operStatus());
    assertFalse(property.isATM());
    assertFalse(property.isHSRP());
    assertEquals(property.capabilities(), anInterface.getCapabilities());
    assertNull(anInterface.getHSRPObjIDList());

    ZorbConnData link = anInterface.getConnData().get(0);
    Set<ObjID> ends = Set.of(link.srcInterfaceID(), link.destInterfaceID());
    assertEquals(1, anInterface.getConnData().size());
    assertTrue(ends.contains(id));
    assertTrue(ends.contains(interfaceID("crane-4-plc", "eth0")));
  }

  @Test
  void aMemberOfAnHSRPGroupTellsTheGroup() {
    ObjID id =
        Sample.id(
            "select addressifobjid from hsrpaddress h join nwinterface i"
                + " on i.objid = h.addressifobjid where i.ishsrp = 1 limit 1");
    ZorbInterface anInterface = read(id);
    assertTrue(anInterface.getIFProperty().isHSRP());
    assertEquals(
        Sample.rows(
            "select distinct objid from hsrpaddress where addressifobjid = '"
                + id.getStringValue() + "' order by 1"),
        anInterface.getHSRPObjIDList().stream().map(ObjID::getStringValue).sorted().toList());
  }

  @Test
  void interfacesAreFoundByTheirLegacyIdentifiers() {
    String legacyID =
        Sample.value("select qrmobjid from nwentity where entitytype = 2 and qrmobjid <> ''");
    Vector<ZorbInterface> found =
        NATIVES.getInterfacesByObjIDListNative(
            new ObjID[] {new ObjID(legacyID)}, true, false, status, null);
    assertOK(status);
    assertEquals(1, found.size());
    assertEquals(new ObjID(legacyID), found.get(0).getQRMObjID());
  }

  @Test
  void allConnectedInterfacesCanBeAskedFor() {
    Vector<ZorbInterface> found =
        NATIVES.getInterfacesByObjIDListNative(null, false, true, status, null);
    assertOK(status);
    assertEquals(
        Sample.rows("select objid from nwinterface where isl2connected = 1 order by 1"),
        found.stream().map(i -> i.getObjID().getStringValue()).sorted().toList());
  }

  @Test
  void noIdentifiersAreAFailure() {
    assertNull(
        NATIVES.getInterfacesByObjIDListNative(new ObjID[0], false, false, status, null));
    assertStatus(TopoStatusCode.EMPTY_OBJID_LIST, status);
  }

  @Test
  void unknownIdentifiersGiveAnEmptyCollection() {
    Vector<ZorbInterface> found =
        NATIVES.getInterfacesByObjIDListNative(
            new ObjID[] {new ObjID("nobody")}, false, false, status, null);
    assertEquals(new Vector<>(), found);
    assertOK(status);
  }

  @Test
  void theInterfacesOfANodeAreASetOfIdentifiers() {
    HashSet<ObjID> ids =
        ZorbNative.getInterfaceIDListFromNode(Sample.nodeID("core-1"), status);
    assertOK(status);
    assertEquals(
        new TreeSet<>(
            Sample.rows(
                "select i.objid from nwinterface i join nwentity n on n.objid = i.nodeobjid"
                    + " where n.entityname = 'core-1'")),
        ids.stream().map(ObjID::getStringValue).collect(Collectors.toCollection(TreeSet::new)));
    assertNull(ZorbNative.getInterfaceIDListFromNode(new ObjID("nobody"), status));
    assertStatus(TopoStatusCode.INVALID_ID, status);
  }

  @Test
  void interfacesAreFoundByAFilterInADocument() {
    String document = Sample.filter("interfaceAssertion", "Crane", "nodeName", "crane-*");
    Vector<ZorbInterface> found =
        NATIVES.parseAndGetInterfacesByTopoFilterNative(document, "Crane", status, null);
    assertOK(status);
    assertEquals(
        List.of("eth0"), found.stream().map(i -> i.getIFProperty().ifName()).toList());
    assertNull(NATIVES.parseAndGetInterfacesByTopoFilterNative(document, "Other", status, null));
    assertStatus(TopoStatusCode.XML_FILTER_NAME_NOT_FOUND_ERROR, status);
  }
}
