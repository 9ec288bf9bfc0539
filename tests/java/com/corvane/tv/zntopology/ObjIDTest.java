package com.corvane.tv.zntopology;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertNotEquals;
import static org.junit.jupiter.api.Assertions.assertNull;

import org.junit.jupiter.api.Test;

class ObjIDTest {
  @Test
  void anEmptyIdentifierHasNoText() {
    assertNull(new ObjID().getStringValue());
    assertEquals(new ObjID(), new ObjID(null));
    assertEquals("null", new ObjID().toString());
  }

  @Test
  void identifiersAreEqualByTheirTexts() {
    assertEquals(new ObjID("n1"), new ObjID("n1"));
    assertEquals(new ObjID("n1").hashCode(), new ObjID("n1").hashCode());
    assertNotEquals(new ObjID("n1"), new ObjID("n2"));
    assertNotEquals(new ObjID("n1"), new ObjID());
    assertNotEquals(new ObjID("n1"), (Object) "n1");
  }
}
