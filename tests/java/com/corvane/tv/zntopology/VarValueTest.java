package com.corvane.tv.zntopology;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertNull;

import org.junit.jupiter.api.Test;

class VarValueTest {
  @Test
  void aValueKeepsItsKind() {
    assertEquals((Object) (short) 3, new VarValue((short) 3).value());
    assertEquals((Object) 3L, new VarValue(3L).value());
    assertEquals((Object) 0.5f, new VarValue(0.5f).value());
    assertEquals((Object) true, new VarValue(true).value());
    assertEquals("x", new VarValue("x").value());
  }

  @Test
  void aTextMayBeMissing() {
    assertNull(new VarValue((String) null).value());
    assertEquals("null", new VarValue((String) null).toString());
  }
}
