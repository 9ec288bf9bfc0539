package com.corvane.tv.zntopology;

import static com.corvane.tv.zntopology.Sample.NATIVES;
import static com.corvane.tv.zntopology.Sample.assertOK;
import static com.corvane.tv.zntopology.Sample.assertStatus;
import static org.junit.jupiter.api.Assertions.*;

import java.util.ArrayList;
import java.util.List;
import java.util.Vector;
import org.junit.jupiter.api.Test;

class GroupNativesTest {
  private final ZorbTopoStatus status = new ZorbTopoStatus();

  private static ObjID id(int type, String name) {
    return Sample.id(
        "select objid from nwentity where entitytype = %d and entityname = '%s'"
            .formatted(type, name));
  }

  @Test
  void allVlansAreThereWithTheirParts() {
    Vector<ZorbVlan> vlans = NATIVES.getVlans(status, null, -1);
    assertOK(status);
    assertEquals(
        List.of("management", "office", "quay", "servers", "wireless"),
        vlans.stream().map(ZorbEntity::getName).sorted().toList());
    for (ZorbVlan vlan : vlans) {
      for (ZorbVlanInfo info : vlan.getVlanInfoList()) {
        assertEquals(vlan.getObjID(), info.vlanObjID());
        assertFalse(info.interfaceInfos().isEmpty());
      }
    }
  }

  @Test
  void aVlanIsFoundByItsIdentifier() {
    ZorbVlan vlan = NATIVES.getVlanByObjIDNative(id(4, "quay"), status, null);
    assertOK(status);
    assertEquals("Cranes, cameras and tally desks on the quays", vlan.getDescription());
    assertEquals(6, vlan.getVlanInfoList().size());
    int interfaces = 0;
    for (ZorbVlanInfo info : vlan.getVlanInfoList()) {
      assertEquals(
          Sample.value(
              "select entityname from nwentity where objid = '"
                  + info.nodeObjID().getStringValue() + "'"),
          info.nodeName());
      interfaces += info.interfaceInfos().size();
    }
    assertEquals(21, interfaces);
    assertNull(NATIVES.getVlanByObjIDNative(new ObjID("nobody"), status, null));
    assertStatus(TopoStatusCode.INVALID_ID, status);
  }

  @Test
  void containersComeWithMembersAndRelations() {
    Vector<ZorbIfc> ifcs =
        NATIVES.getIfcsByObjIDListNative(new ObjID[] {id(12, "wan-a")}, status, null);
    assertOK(status);
    ZorbIfc ifc = ifcs.get(0);
    assertEquals("Way to the wide area by the ferry terminal", ifc.getDescription());
    assertEquals(3, ifc.getIfcInfoList().size());
    for (ZorbIfcInfo info : ifc.getIfcInfoList()) {
      for (ZorbIfcIFInfo member : info.interfaceInfos()) {
        // The library reads the two types the other way round, and Java has them as they come.
        assertEquals(ifc.getObjID(), member.ifcObjID());
        assertEquals(
            Sample.value(
                "select ifctype || ' ' || containmenttype || ' ' || sequencenumber from nwifcctm"
                    + " where containerobjid = '%s' and interfaceobjid = '%s'"
                        .formatted(member.ifcObjID(), member.interfaceObjID())),
            member.containmentType() + " " + member.ifcType() + " " + member.sequenceNumber());
      }
    }
    assertFalse(ifc.getIfcAssocInfoList().isEmpty());
    ZorbIfcAssocInfo relation = ifc.getIfcAssocInfoList().get(0);
    assertTrue(
        relation.leftIfcID().equals(ifc.getObjID())
            || relation.rightIfcID().equals(ifc.getObjID()));
    assertNull(NATIVES.getIfcsByObjIDListNative(new ObjID[0], status, null));
    assertStatus(TopoStatusCode.EMPTY_OBJID_LIST, status);
  }

  @Test
  void containersAreFoundByTheirType() {
    Vector<ZorbIfc> ifcs = NATIVES.getIfcsByTypeNative(2, status, new ZorbTopoCache());
    assertOK(status);
    assertEquals(
        List.of("wan-a", "wan-b"), ifcs.stream().map(ZorbEntity::getName).sorted().toList());
    assertEquals(new Vector<>(), NATIVES.getIfcsByTypeNative(99, status, null));
    assertOK(status);
  }

  @Test
  void whatContainersHoldIsOneFlatList() {
    ArrayList<ZorbIfcInfo> all =
        NATIVES.getIfcInfosByObjIDListNative(null, false, true, 0, status);
    assertOK(status);
    assertEquals(15, all.stream().mapToInt(info -> info.interfaceInfos().size()).sum());
    ArrayList<ZorbIfcInfo> ofNode =
        NATIVES.getIfcInfosByObjIDListNative(
            new ObjID[] {Sample.nodeID("core-1")}, true, false, 0, status);
    assertOK(status);
    assertEquals(
        Sample.value(
            "select count(*) from nwifcctm c join nwentity n on n.objid = c.nodeobjid"
                + " where n.entityname = 'core-1'"),
        ofNode.stream().mapToInt(info -> info.interfaceInfos().size()).sum() + "");
    assertTrue(NATIVES.getIfcInfosByObjIDListNative(null, true, false, 0, status).isEmpty());
  }

  @Test
  void hsrpGroupsComeWithTheirMembers() {
    Vector<ZorbHSRP> all = NATIVES.getHSRPsNativeByObjIDs(null, true, status, null);
    assertOK(status);
    assertEquals(5, all.size());
    Vector<ZorbHSRP> one =
        NATIVES.getHSRPsNativeByObjIDs(
            new ObjID[] {id(11, "gateway-quay")}, false, status, new ZorbTopoCache());
    assertOK(status);
    for (ZorbHSRPAddressInfo member : one.get(0).getAddressInfoList()) {
      assertEquals(20, member.groupNumber());
      assertEquals(
          Sample.value(
              "select hsrppriority || ' ' || state || ' ' || hsrpstatecertainty from hsrpaddress"
                  + " where addressid = '%s' and addressifobjid = '%s'"
                      .formatted(member.addressID(), member.interfaceObjID())),
          member.priority() + " " + member.state().toInt() + " " + member.stateCertainty());
    }
    assertEquals(2, one.get(0).getAddressInfoList().size());
    assertTrue(
        all.stream()
            .flatMap(group -> group.getAddressInfoList().stream())
            .anyMatch(member -> !member.trackedInterfaces().isEmpty()));
    assertNull(NATIVES.getHSRPsNativeByObjIDs(null, false, status, null));
    assertStatus(TopoStatusCode.EMPTY_OBJID_LIST, status);
  }
}
