package com.corvane.tv.zntopology;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertNull;
import static org.junit.jupiter.api.Assertions.assertTrue;

import org.junit.jupiter.api.Test;

class ZorbTopoStatusTest {
  @Test
  void aNewStatusIsASuccess() {
    ZorbTopoStatus status = new ZorbTopoStatus();
    assertTrue(status.isOK());
    assertEquals("", status.getAuxMsg());
    assertEquals("0 Successful API Call", status.toString());
  }

  @Test
  void aNumberHasItsOutcomeAndItsText() {
    ZorbTopoStatus status = new ZorbTopoStatus();
    status.setStatus(19, "more");
    assertFalse(status.isOK());
    assertEquals(TopoStatusCode.NO_PATH, status.getCode());
    assertEquals("19 No layer 2 path is found: more", status.toString());
  }

  @Test
  void aNumberThatIsNoOutcomeIsAnUnknownError() {
    ZorbTopoStatus status = new ZorbTopoStatus();
    status.setStatus(50, null);
    assertNull(status.getCode());
    assertEquals("50 Unknown Error code ", status.toString());
  }

  @Test
  void anExceptionTellsTheQuestionAndWhatTheStatusSays() {
    ZorbTopoStatus status = new ZorbTopoStatus();
    status.setStatus(7, "The text is empty\n");
    TopologyException exception = new TopologyException("the node ", status);
    assertEquals(7, exception.getStatus());
    assertEquals(TopoStatusCode.ILLEGAL_INPUT, exception.getCode());
    assertEquals(
        "the node : The input paramter value to Topo API is illegal: The text is empty",
        exception.getMessage());
  }
}
