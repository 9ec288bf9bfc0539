package com.corvane.tv.zntopology;

import static com.corvane.tv.zntopology.Sample.NATIVES;
import static com.corvane.tv.zntopology.Sample.assertOK;
import static com.corvane.tv.zntopology.Sample.assertStatus;
import static org.junit.jupiter.api.Assertions.*;

import java.util.ArrayList;
import java.util.List;
import java.util.Vector;
import org.junit.jupiter.api.BeforeAll;
import org.junit.jupiter.api.Test;

class ConnectivityNativesTest {
  private static final String CRANE = "10.20.3.44";
  private static final String PRINTER = "10.20.8.17";

  private final ZorbTopoStatus status = new ZorbTopoStatus();

  @BeforeAll
  static void keepNoNodes() {
    ZorbNative.initNativeCache(0, 15000, 15000, 500, 500, 500, 500);
  }

  private static String nodeOf(ZorbInterface anInterface) {
    return anInterface.getContainmentParent().name();
  }

  /** The interfaces of a link, the lower identifier first. */
  private static String endsOf(ZorbConnData link) {
    String source = link.srcInterfaceID().getStringValue();
    String destination = link.destInterfaceID().getStringValue();
    return source.compareTo(destination) < 0 ? source + destination : destination + source;
  }

  @Test
  void theNeighboursOfANodeAreConnections() {
    Vector<ZorbConnection> found = NATIVES.getNodeNeighbors("core-1", 1, 100, status, null);
    assertOK(status);
    String core = Sample.nodeID("core-1").getStringValue();
    assertEquals(
        Sample.rows(
            "select min(leftobjid, rightobjid) || max(leftobjid, rightobjid) from nwinterfaceasc"
                + " where '%1$s' in (leftifnodeobjid, rightifnodeobjid) order by 1"
                    .formatted(core)),
        found.stream()
            .map(ZorbConnection::connData)
            .filter(l -> core.equals("" + l.srcNodeID()) || core.equals("" + l.destNodeID()))
            .map(ConnectivityNativesTest::endsOf)
            .sorted()
            .toList());
  }

  @Test
  void someOfTheNeighboursAreAListWithAStatus() {
    Vector<ZorbConnection> found = NATIVES.getNodeNeighbors("core-1", 3, 2, status, null);
    assertStatus(TopoStatusCode.INCOMPLETE_NEIGHBOR_INFO, status);
    assertFalse(found.isEmpty());
  }

  @Test
  void neighboursOfNothingAreAFailure() {
    assertNull(NATIVES.getNodeNeighbors("nobody", 1, 100, status, null));
    assertStatus(TopoStatusCode.OBJ_NOT_EXIST, status);
    assertNull(NATIVES.getNodeNeighbors("core-1", 0, 100, status, null));
    assertStatus(TopoStatusCode.INVALID_NUM_HOPS, status);
  }

  @Test
  void theConnectionsOfNodesTellWhoWasNotFound() {
    List<ObjID> notFound = new ArrayList<>();
    // Of the form of the others: identifiers of two forms do not go together in one set.
    ObjID nobody = new ObjID("00000000-0000-0000-0000-000000000000");
    Object[] ids = {Sample.nodeID("core-1"), Sample.nodeID("core-2"), nobody};
    Vector<ZorbConnection> between =
        NATIVES.getConnectivityNative(ids, notFound, false, false, status, null);
    assertOK(status);
    assertEquals(List.of(nobody), notFound);
    Vector<ZorbConnection> around =
        NATIVES.getConnectivityNative(ids, null, true, false, status, null);
    assertTrue(between.size() < around.size());
    assertFalse(between.isEmpty());
  }

  @Test
  void connectionsOfNodesAreFoundByLegacyIdentifiers() {
    Object[] ids = {new ObjID("101"), new ObjID("104")};
    assertNotNull(NATIVES.getConnectivityNative(ids, null, true, true, status, null));
    assertOK(status);
  }

  @Test
  void connectionsOfNothingAreAFailure() {
    assertNull(NATIVES.getConnectivityNative(null, null, true, false, status, null));
    assertStatus(TopoStatusCode.EMPTY_OBJID_LIST, status);
    List<ObjID> notFound = new ArrayList<>();
    Object[] ids = {new ObjID("nobody")};
    assertNull(NATIVES.getConnectivityNative(ids, notFound, true, false, status, null));
    assertStatus(TopoStatusCode.INVALID_ID, status);
    assertEquals(List.of(new ObjID("nobody")), notFound);
  }

  @Test
  void aPathBetweenAddressesIsTheInterfacesOnTheWay() {
    Vector<ZorbInterface> path =
        NATIVES.getL2PathNative(CRANE, PRINTER, status, new ZorbTopoCache(), false);
    assertOK(status);
    assertEquals(
        List.of("crane-4-plc", "access-1", "access-1", "dist-quay", "dist-quay", "dist-office",
            "dist-office", "access-7", "access-7", "customs-printer"),
        path.stream().map(ConnectivityNativesTest::nodeOf).toList());
  }

  @Test
  void noPathBetweenAddressesIsAFailure() {
    assertNull(NATIVES.getL2PathNative("10.99.99.99", PRINTER, status, null, false));
    assertStatus(TopoStatusCode.UNKNOWN_IP, status);
    assertFalse(status.getAuxMsg().isEmpty());
  }

  @Test
  void aPathBetweenNodesIsTheLinksOnTheWay() {
    Vector<ZorbConnData> links =
        NATIVES.getL2PathBetweenNodesNative("crane-4-plc", "customs-printer", status, null, false);
    assertOK(status);
    assertEquals(5, links.size());
    assertEquals(Sample.nodeID("crane-4-plc"), links.get(0).srcNodeID());
    assertEquals(Sample.nodeID("customs-printer"), links.get(4).destNodeID());
  }

  @Test
  void noPathBetweenNodesIsAFailure() {
    assertNull(
        NATIVES.getL2PathBetweenNodesNative("crane-4-plc", "srv-cargo-web", status, null, false));
    assertStatus(TopoStatusCode.NO_PATH, status);
    assertNull(NATIVES.getL2PathBetweenNodesNative("nobody", "core-1", status, null, false));
    assertStatus(TopoStatusCode.OBJ_NOT_EXIST, status);
  }

  @Test
  void theDocumentOfAPathHasAnElementForEachInterface() {
    String document = NATIVES.getL2PathXML(CRANE, PRINTER);
    assertTrue(
        document.startsWith(
            "\n<GETL2PATH begin = \"10.20.3.44\" end = \"10.20.8.17\">\n<NODE>\n<QRM_OBJECT_ID>"),
        document);
    assertTrue(document.endsWith("</NODE>\n</GETL2PATH>\n"), document);
    assertEquals(10, document.split("<NODE>", -1).length - 1);
    String id = Sample.nodeID("access-1").getStringValue();
    assertTrue(
        document.contains(
            "<PARENT_OBJECT_ID>" + id + "</PARENT_OBJECT_ID>\n"
                + "<OSI_LEVEL>2</OSI_LEVEL>\n"
                + "<NAME>access-1</NAME>\n"
                + "<DESCRIPTION>Quay 1, cabinet A</DESCRIPTION>\n"
                + "<IP_ADDRESS>10.20.1.16</IP_ADDRESS>\n"
                + "<IS_ATM>0</IS_ATM>\n"
                + "<IS_FRAMERELAY>0</IS_FRAMERELAY>\n"),
        document);
    assertTrue(
        document.contains("<INTERFACE_NAME>Gi1/0/7</INTERFACE_NAME>\n</NODE>\n"), document);
  }

  @Test
  void theDocumentOfAnUnknownAddressHasTheTwoElementsOfAFailure() {
    assertEquals(
        "\n<GETL2PATH begin = \"10.99.99.99\" end = \"10.20.8.17\">\n"
            + "<ERROR_CODE>3</ERROR_CODE>\n"
            + "<ERROR_MSG>The given IP Address is unknown</ERROR_MSG>\n"
            + "</GETL2PATH>\n",
        NATIVES.getL2PathXML("10.99.99.99", PRINTER));
  }

  @Test
  void theDocumentOfAPathBetweenNodesHasItsOwnRoot() {
    String document =
        NATIVES.getL2PathBetweenNodesXML("crane-4-plc", "customs-printer", false);
    assertTrue(
        document.startsWith(
            "\n<GETL2PATH_BETWEEN_NODES begin = \"crane-4-plc\" end = \"customs-printer\">\n"),
        document);
    assertTrue(document.endsWith("</NODE>\n</GETL2PATH_BETWEEN_NODES>\n"), document);
    assertEquals(10, document.split("<NODE>", -1).length - 1);
    assertEquals(
        "\n<GETL2PATH_BETWEEN_NODES begin = \"nobody\" end = \"core-1\">\n"
            + "<ERROR_CODE>6</ERROR_CODE>\n"
            + "<ERROR_MSG>Topology object does not exist in Topology Data Store</ERROR_MSG>\n"
            + "</GETL2PATH_BETWEEN_NODES>\n",
        NATIVES.getL2PathBetweenNodesXML("nobody", "core-1", true));
  }

  @Test
  void aRouterOnThePathTellsItsProtocols() {
    String document = NATIVES.getL2PathBetweenNodesXML("core-1", "core-2", false);
    String id = Sample.nodeID("core-1").getStringValue();
    assertTrue(
        document.contains(
            "<PARENT_OBJECT_ID>" + id + "</PARENT_OBJECT_ID>\n"
                + "<OSI_LEVEL>3</OSI_LEVEL>\n"
                + "<NAME>core-1</NAME>\n"
                + "<DESCRIPTION>Core switch, harbor office basement</DESCRIPTION>\n"
                // The interface has no address, so there is no element for one.
                + "<IS_OSPF>1</IS_OSPF>\n"
                + "<IS_BGP>0</IS_BGP>\n"
                + "<IS_IPV6>1</IS_IPV6>\n"
                + "<IS_HSRP>1</IS_HSRP>\n"
                + "<IS_MPLS>0</IS_MPLS>\n"
                + "</NODE>\n"),
        document);
  }

  @Test
  void theTextsOfADocumentAreNotEscaped() {
    String document = NATIVES.getL2PathXML("<a & b>", "\uD83C\uDF0A");
    assertTrue(document.contains("begin = \"<a & b>\" end = \"\uD83C\uDF0A\""), document);
  }
}
