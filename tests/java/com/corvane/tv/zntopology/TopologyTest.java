package com.corvane.tv.zntopology;

import static org.junit.jupiter.api.Assertions.*;

import java.util.List;
import org.junit.jupiter.api.Test;

class TopologyTest {
  private final Topology topology = Topology.withoutNodeCache();

  @Test
  void questionsAreAnsweredWithObjects() {
    assertEquals(0, topology.state().state());
    ZorbNode node = topology.node("core-1");
    assertEquals("core-1", node.getName());
    assertEquals("core-1", topology.node(node.getObjID()).getName());
    assertEquals(24, topology.nodes().size());
    assertEquals(17, topology.interfaces(node).size());
    assertEquals(5, topology.vlans().size());
    assertEquals(5, topology.hsrpGroups().size());
    assertEquals(2, topology.containers(2).size());
    assertEquals(
        Sample.value("select count(*) from nwentity where entitytype = 7"),
        topology.subnets().size() + "");
    assertEquals(6, topology.neighbors("core-1", 1, 100).size());
  }

  @Test
  void aPathIsFoundBetweenAddressesAndBetweenNodes() {
    assertEquals(10, topology.path("10.20.3.44", "10.20.8.17").size());
    assertEquals(5, topology.pathBetweenNodes("crane-4-plc", "customs-printer").size());
  }

  @Test
  void filtersSelectNodesAndInterfaces() {
    String nodes = Sample.filter("nodeAssertion", "Cores", "name", "core-*");
    assertEquals(2, topology.nodes(nodes, "Cores").size());
    String interfaces = Sample.filter("interfaceAssertion", "Crane", "nodeName", "crane-*");
    assertEquals(1, topology.interfaces(interfaces, "Crane").size());
  }

  @Test
  void noInterfacesAreNone() {
    assertEquals(List.of(), topology.interfaces(List.of()));
  }

  @Test
  void aFailureIsAnExceptionThatSaysWhatWasAsked() {
    TopologyException exception =
        assertThrows(TopologyException.class, () -> topology.node("nobody"));
    assertEquals(TopoStatusCode.OBJ_NOT_EXIST, exception.getCode());
    assertTrue(exception.getMessage().startsWith("the node nobody: "), exception.getMessage());
  }

  @Test
  void neighboursThatAreNotAllOfThemAreAFailure() {
    TopologyException exception =
        assertThrows(TopologyException.class, () -> topology.neighbors("core-1", 3, 2));
    assertEquals(TopoStatusCode.INCOMPLETE_NEIGHBOR_INFO, exception.getCode());
  }
}
