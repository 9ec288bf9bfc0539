package com.corvane.tv.zntopology;

import static com.corvane.tv.zntopology.Sample.NATIVES;
import static com.corvane.tv.zntopology.Sample.assertOK;
import static com.corvane.tv.zntopology.Sample.assertStatus;
import static org.junit.jupiter.api.Assertions.*;

import java.util.ArrayList;
import java.util.List;
import java.util.Vector;
import org.junit.jupiter.api.Test;

class AddressNativesTest {
  private final ZorbTopoStatus status = new ZorbTopoStatus();

  private Address read(String condition) {
    ObjID id = Sample.id("select addressid from address where " + condition);
    Address address = NATIVES.getAddressNativeByObjID(id, status, null);
    assertOK(status);
    assertEquals(id, address.getAddressID());
    return address;
  }

  @Test
  void anIPv4AddressHasItsOwnClass() {
    Address address = read("v4address = '10.20.3.44'");
    InetAddressIPv4 ipv4 = assertInstanceOf(InetAddressIPv4.class, address);
    assertEquals(AddressType.IPV4, ipv4.getAddressType());
    assertEquals("10.20.3.44", ipv4.getAddressAsString());
    String where = " from address where v4address = '10.20.3.44'";
    assertEquals(Sample.value("select prefixlength" + where), ipv4.getPrefixLength() + "");
    assertEquals(Sample.id("select objid" + where), ipv4.getEntityID());
    assertEquals(Sample.id("select subnetobjid" + where), ipv4.getSubnetID());
    assertEquals(PingState.PING_RESPONDING, ipv4.getPingState());
    assertFalse(ipv4.isSubnetAddress());
  }

  @Test
  void aMonitoredIPv6AddressHasWhatIsWatched() {
    Address address = read("addressqrmid = '961'");
    MonitoredInetAddressIPv6 ipv6 = assertInstanceOf(MonitoredInetAddressIPv6.class, address);
    assertEquals("2001:db8:20:10::a", ipv6.getAddressAsString());
    assertEquals(AddressType.IPV6, ipv6.getAddressType());
    assertEquals(IPv6ScopeType.GLOBAL, ipv6.getScopeType());
    assertEquals(64, ipv6.getPrefixLength());
    assertEquals(new ObjID("961"), ipv6.getQRMObjID());
    String where = " from address where addressqrmid = '961'";
    assertEquals(Sample.value("select v6addresstype" + where), ipv6.getAddrType().toInt() + "");
    assertEquals(
        Sample.value("select v6addressstatus" + where), ipv6.getAddrStatus().toInt() + "");
    assertEquals(
        Sample.value("select v6addressntmstate" + where),
        ipv6.getNetToMediaState().toInt() + "");
    assertEquals(
        Sample.value("select pingstatus" + where),
        ipv6.getPingStatus().status().toInt() + "");
    // These times stay in seconds.
    assertEquals(
        Sample.value("select lastpingtimeutc" + where), ipv6.getPingStatus().lastPingTime() + "");
  }

  @Test
  void aDNSNameHasItsOwnClass() {
    Address address = read("dnsname = 'core-1.harbor.example'");
    assertInstanceOf(InetAddressDNS.class, address);
    assertEquals("core-1.harbor.example", address.getAddressAsString());
  }

  @Test
  void anUnknownOrEmptyIdentifierIsAFailure() {
    assertNull(NATIVES.getAddressNativeByObjID(new ObjID("nobody"), status, null));
    assertStatus(TopoStatusCode.INVALID_ID, status);
    assertNull(NATIVES.getAddressNativeByObjID(new ObjID(), status, null));
    assertStatus(TopoStatusCode.INVALID_ID, status);
    assertEquals("The Address ObjID is null", status.getAuxMsg());
  }

  @Test
  void anAddressIsFoundByItsLegacyIdentifier() {
    Address address = NATIVES.getAddressNativeByQRMObjID(new ObjID("965"), status, null);
    assertOK(status);
    assertEquals("2001:db8:20:1::2", address.getAddressAsString());
    assertNull(NATIVES.getAddressNativeByQRMObjID(new ObjID(), status, null));
    assertStatus(TopoStatusCode.INVALID_ID, status);
    assertEquals("The Address QRMObjID is null", status.getAuxMsg());
    assertNull(NATIVES.getAddressNativeByQRMObjID(new ObjID("111111"), status, null));
    assertStatus(TopoStatusCode.INVALID_ID, status);
  }

  @Test
  void addressesAreReadByTheirIdentifiers() {
    List<String> ids =
        Sample.rows("select addressid from address where v4address like '10.20.3.%' order by 1");
    Vector<Address> addresses =
        NATIVES.getAddrsNativeByObjIDs(
            ids.stream().map(ObjID::new).toArray(), status, new ZorbTopoCache());
    assertOK(status);
    assertEquals(
        ids, addresses.stream().map(a -> a.getAddressID().getStringValue()).sorted().toList());
  }

  @Test
  void noIdentifiersAreAFailure() {
    assertNull(NATIVES.getAddrsNativeByObjIDs(new Object[0], status, null));
    assertStatus(TopoStatusCode.EMPTY_OBJID_LIST, status);
  }

  @Test
  void theNamesOfAnIPv6AddressAreTexts() {
    List<String> names =
        Sample.rows(
            "select m.leftaddressid || ' ' || d.dnsname from addressmapping m"
                + " join address d on d.addressid = m.rightaddressid"
                + " where m.addressmappingtype = 1");
    String[] first = names.get(0).split(" ");
    ArrayList<String> found = NATIVES.resolveIPv6ToDNSNative(new ObjID(first[0]), status);
    assertOK(status);
    assertTrue(found.contains(first[1]), found::toString);
    assertNull(NATIVES.resolveIPv6ToDNSNative(new ObjID(), status));
    assertStatus(TopoStatusCode.INVALID_ID, status);
  }
}
