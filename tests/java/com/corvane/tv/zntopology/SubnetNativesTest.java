package com.corvane.tv.zntopology;

import static com.corvane.tv.zntopology.Sample.NATIVES;
import static com.corvane.tv.zntopology.Sample.assertOK;
import static com.corvane.tv.zntopology.Sample.assertStatus;
import static org.junit.jupiter.api.Assertions.*;

import java.util.List;
import java.util.Vector;
import org.junit.jupiter.api.Test;

class SubnetNativesTest {
  private final ZorbTopoStatus status = new ZorbTopoStatus();

  private static ObjID subnetID(String name) {
    return Sample.id(
        "select objid from nwentity where entitytype = 7 and entityname = '" + name + "'");
  }

  @Test
  void aSubnetComesWithItsEndPoints() {
    ObjID id = subnetID("10.20.3.0/24");
    ZorbSubnet subnet = NATIVES.getSubnetNativeByObjID(id, status, null);
    assertOK(status);
    assertEquals("Quays, IPv4", subnet.getDescription());
    assertEquals(EntityType.E_SUBNET, subnet.getEntityType());
    assertTrue(subnet.getCapabilities().isEmpty());
    assertEquals(
        Sample.rows(
            "select addressid || objid || nodeobjid from address where subnetobjid = '"
                + id.getStringValue() + "' order by 1"),
        subnet.getEndPointList().stream()
            .map(e -> "" + e.addressID() + e.interfaceObjID() + e.nodeObjID())
            .sorted()
            .toList());
  }

  @Test
  void anIdentifierOfNoSubnetIsAFailure() {
    assertNull(NATIVES.getSubnetNativeByObjID(Sample.nodeID("core-1"), status, null));
    assertStatus(TopoStatusCode.INVALID_ID, status);
  }

  @Test
  void aSubnetIsFoundByItsLegacyIdentifier() {
    String legacyID =
        Sample.value("select qrmobjid from nwentity where entitytype = 7 and qrmobjid <> ''");
    ZorbSubnet subnet = NATIVES.getSubnetNativeByQRMObjID(new ObjID(legacyID), status, null);
    assertOK(status);
    assertEquals(new ObjID(legacyID), subnet.getQRMObjID());
    assertNull(NATIVES.getSubnetNativeByQRMObjID(new ObjID(), status, null));
    assertStatus(TopoStatusCode.INVALID_ID, status);
  }

  @Test
  void subnetsAreReadByIdentifiersOrAllAtOnce() {
    ObjID[] ids = {subnetID("10.20.3.0/24"), subnetID("10.20.8.0/24"), new ObjID("nobody")};
    Vector<ZorbSubnet> some =
        NATIVES.getSubnetsNativeByObjIDs(ids, false, status, null, 0, false, -1);
    assertOK(status);
    assertEquals(
        List.of("10.20.3.0/24", "10.20.8.0/24"),
        some.stream().map(ZorbEntity::getName).sorted().toList());
    Vector<ZorbSubnet> all =
        NATIVES.getSubnetsNativeByObjIDs(
            null, false, status, null, IPLevel.IPV6.toInt(), true, -1);
    assertOK(status);
    assertEquals(
        Sample.value("select count(*) from nwentity where entitytype = 7 and iplevel = 6"),
        all.size() + "");
    assertNull(NATIVES.getSubnetsNativeByObjIDs(null, false, status, null, 0, false, -1));
    assertStatus(TopoStatusCode.EMPTY_OBJID_LIST, status);
  }

  @Test
  void subnetsAreFoundByAttributes() {
    TopoFilter filter = new TopoFilter();
    filter.setIPLevel(IPLevel.IPV6);
    filter.setV6ScopeType(IPv6ScopeType.GLOBAL);
    Vector<ObjID> ids = NATIVES.getSubnetIDsByFilterNative(filter, null, status);
    assertOK(status);
    assertEquals(
        Sample.rows(
            "select distinct e.objid from nwentity e join address a on a.objid = e.objid"
                + " where e.entitytype = 7 and e.iplevel = 6 and a.v6scopetype = 3 order by 1"),
        ids.stream().map(ObjID::getStringValue).distinct().sorted().toList());
    filter.setRegexEntityName("it's");
    assertNull(NATIVES.getSubnetIDsByFilterNative(filter, null, status));
    assertFalse(status.isOK());
  }

  @Test
  void theSubnetsAroundANodeAreIdentifiers() {
    Vector<ObjID> ids =
        NATIVES.getSubnetConnectivityNative(
            Sample.nodeID("badge-reader-1"), 1, null, new TopoFilter(), status);
    assertOK(status);
    assertEquals(List.of(subnetID("2001:db8:20:8::/64")), ids);
  }

  @Test
  void theSubnetsAroundNothingAreAFailure() {
    assertNull(
        NATIVES.getSubnetConnectivityNative(new ObjID(), 1, null, new TopoFilter(), status));
    assertStatus(TopoStatusCode.INVALID_ID, status);
    assertEquals("The ObjID is null", status.getAuxMsg());
    ObjID reader = Sample.nodeID("badge-reader-1");
    assertNull(NATIVES.getSubnetConnectivityNative(reader, 0, null, new TopoFilter(), status));
    assertStatus(TopoStatusCode.INVALID_NUM_HOPS, status);
    ObjID core = Sample.nodeID("core-1");
    assertNull(NATIVES.getSubnetConnectivityNative(core, 1, null, new TopoFilter(), status));
    assertStatus(TopoStatusCode.NON_V6_NODE, status);
  }
}
