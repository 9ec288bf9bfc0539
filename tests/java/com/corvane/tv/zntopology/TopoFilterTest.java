package com.corvane.tv.zntopology;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertTrue;

import org.junit.jupiter.api.Test;

class TopoFilterTest {
  @Test
  void aFieldIsIgnoredUntilItIsSet() {
    TopoFilter filter = new TopoFilter();
    assertTrue(filter.isFieldIgnored(TopoFilter.F_PREFIX_LENGTH));
    filter.setPrefixLength(64);
    assertFalse(filter.isFieldIgnored(TopoFilter.F_PREFIX_LENGTH));
    assertTrue(filter.isFieldIgnored(TopoFilter.F_PREFIX_ADDRESS));
    assertEquals(64, filter.getPrefixLength());
  }

  @Test
  void eachSetterMarksItsOwnField() {
    TopoFilter filter = new TopoFilter();
    filter.setIPLevel(IPLevel.IPV6);
    filter.setAddressType(AddressType.IPV4);
    filter.setV6ScopeType(IPv6ScopeType.GLOBAL);
    filter.setRegexEntityName("core%");
    filter.setRegexAddressStr("10.%");
    filter.setPrefixAddress("2001:db8::");
    filter.setEntityType(EntityType.E_NODE);
    StringBuilder marked = new StringBuilder();
    for (int field = 0; field <= 12; field++) {
      marked.append(filter.isFieldIgnored(field) ? '.' : 'x');
    }
    assertEquals("xxxxx....x.x.", marked.toString());
  }

  @Test
  void aFieldThatDoesNotExistIsIgnored() {
    assertTrue(new TopoFilter().isFieldIgnored(-1));
    assertTrue(new TopoFilter().isFieldIgnored(Integer.MAX_VALUE));
  }
}
