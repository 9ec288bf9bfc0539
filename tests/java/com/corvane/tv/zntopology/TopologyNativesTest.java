package com.corvane.tv.zntopology;

import static com.corvane.tv.zntopology.Sample.NATIVES;
import static com.corvane.tv.zntopology.Sample.assertOK;
import static com.corvane.tv.zntopology.Sample.assertStatus;
import static org.junit.jupiter.api.Assertions.*;

import java.util.Vector;
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
}
