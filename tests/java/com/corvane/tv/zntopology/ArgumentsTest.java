package com.corvane.tv.zntopology;

import static com.corvane.tv.zntopology.Sample.NATIVES;
import static com.corvane.tv.zntopology.Sample.assertOK;
import static com.corvane.tv.zntopology.Sample.assertStatus;
import static org.junit.jupiter.api.Assertions.*;

import java.lang.reflect.Method;
import java.lang.reflect.Modifier;
import java.util.Arrays;
import java.util.List;
import java.util.Vector;
import java.util.stream.Stream;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.params.ParameterizedTest;
import org.junit.jupiter.params.provider.MethodSource;

/** Every native with arguments that are null, or of another class than is asked for. */
class ArgumentsTest {
  private final ZorbTopoStatus status = new ZorbTopoStatus();

  static Stream<Method> natives() {
    return Arrays.stream(ZorbNative.class.getDeclaredMethods())
        .filter(method -> Modifier.isNative(method.getModifiers()));
  }

  /** A plain value of a primitive type; of another type, what is given. */
  private static Object argument(Class<?> type, Object other) {
    if (type == boolean.class) {
      return false;
    }
    if (type == int.class) {
      return 0;
    }
    return type == long.class ? (Object) 0L : other;
  }

  private static void call(Method method, Object other, Object[] array, String text)
      throws ReflectiveOperationException {
    Object[] arguments =
        Arrays.stream(method.getParameterTypes())
            .map(
                type ->
                    argument(
                        type,
                        type == String.class ? text : type == Object[].class ? array : other))
            .toArray();
    method.invoke(NATIVES, arguments);
    ZorbNative.setNativeMClogLevel(7);
  }

  @ParameterizedTest
  @MethodSource("natives")
  void nullsAreHarmless(Method method) throws ReflectiveOperationException {
    call(method, null, null, null);
    call(method, null, new Object[] {null, null}, "");
  }

  @ParameterizedTest
  @MethodSource("natives")
  void objectsOfAnotherClassAreHarmless(Method method) throws ReflectiveOperationException {
    call(method, "another", new Object[] {"another", 5, new int[0]}, "nobody");
    call(method, new Object[0], new String[] {"x"}, "nobody");
    call(method, new ObjID("x"), new ObjID[] {new ObjID("x")}, "nobody");
    call(method, new ZorbTopoStatus(), new Object[0], "nobody");
    call(method, new ZorbTopoCache(), new Object[0], "nobody");
    call(method, new TopoFilter(), new Object[0], "nobody");
    NATIVES.clearNativeCache();
  }

  @ParameterizedTest
  @MethodSource("natives")
  void textsOfAnyCharactersAreHarmless(Method method) throws ReflectiveOperationException {
    for (String text : List.of("a\0b", "\uD83C\uDF0A", "\uD83C", "%s%n", "';", "x".repeat(100000))) {
      call(method, new ObjID(text), new Object[] {new ObjID(text)}, text);
      TopoFilter filter = new TopoFilter();
      filter.setRegexEntityName(text);
      filter.setRegexAddressStr(text);
      filter.setPrefixAddress(text);
      call(method, filter, new Object[0], text);
    }
  }

  @Test
  void aTextWithANulIsRefused() {
    assertNull(NATIVES.getNativeNodeByName("core-1\0", status, null));
    assertStatus(TopoStatusCode.ILLEGAL_INPUT, status);
    assertNull(NATIVES.getNodeNeighbors("core-1\0", 1, 10, status, null));
    assertStatus(TopoStatusCode.ILLEGAL_INPUT, status);
    assertNull(NATIVES.getL2PathNative("10.20.3.44", "10.20.8.17\0", status, null, false));
    assertStatus(TopoStatusCode.ILLEGAL_INPUT, status);
    TopoFilter filter = new TopoFilter();
    filter.setIPLevel(IPLevel.IPV4);
    filter.setRegexEntityName("%\0");
    assertNull(NATIVES.getNodeIDsByFilterNative(filter, null, status));
    assertStatus(TopoStatusCode.ILLEGAL_INPUT, status);
    assertTrue(
        NATIVES.getL2PathXML("a\0", "b").contains("<ERROR_CODE>7</ERROR_CODE>\n"));
  }

  @Test
  void anIdentifierWithANulIsNone() {
    String id = Sample.nodeID("core-1").getStringValue();
    assertNull(NATIVES.getNodeNativeByObjID(new ObjID(id + "\0"), status, null));
    assertStatus(TopoStatusCode.INVALID_ID, status);
    assertNull(NATIVES.getNodeNativeByQRMObjID(new ObjID("101\0"), status, null));
    assertStatus(TopoStatusCode.INVALID_ID, status);
  }

  @Test
  void textsBeyondTheBasicPlaneReachTheStore() {
    String id = Sample.nodeID("gate-camera-2").getStringValue();
    Sample.rows(
        "update nwnode set entityname = '\uD83C\uDF0A.net' where objid = '" + id + "' returning 1");
    ZorbNode node = NATIVES.getNativeNodeByName("\uD83C\uDF0A.net", status, null);
    assertOK(status);
    assertEquals(id, node.getObjID().getStringValue());
    assertEquals("\uD83C\uDF0A.net", node.getName());
  }

  @Test
  void withoutAStatusTheAnswerIsTheSame() {
    assertEquals(
        "core-1", NATIVES.getNodeNativeByObjID(Sample.nodeID("core-1"), null, null).getName());
    Vector<ZorbVlan> vlans = NATIVES.getVlans("no status", "no cache", -1);
    assertEquals(5, vlans.size());
  }
}
