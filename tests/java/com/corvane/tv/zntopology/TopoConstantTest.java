package com.corvane.tv.zntopology;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertNotEquals;

import org.junit.jupiter.api.Test;

class TopoConstantTest {
  @Test
  void aNumberIsEqualToItsConstantAndHasItsName() {
    assertEquals(EntityType.E_SUBNET, new EntityType(7));
    assertEquals(EntityType.E_SUBNET.hashCode(), new EntityType(7).hashCode());
    assertEquals("E_SUBNET", new EntityType(7).toString());
  }

  @Test
  void aNumberWithoutAConstantIsKept() {
    assertEquals(99, new EntityType(99).toInt());
    assertEquals("EntityType(99)", new EntityType(99).toString());
  }

  @Test
  void numbersOfTwoEnumerationsAreNotEqual() {
    assertNotEquals(new SnmpState(1), (Object) new PingState(1));
  }
}
