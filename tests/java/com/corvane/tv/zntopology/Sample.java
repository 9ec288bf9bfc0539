package com.corvane.tv.zntopology;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;

import java.io.IOException;
import java.io.OutputStream;
import java.nio.charset.StandardCharsets;
import java.util.List;

/** The store of the sample network that a test runs on, and what it holds, asked of it directly. */
final class Sample {
  static final ZorbNative NATIVES = new ZorbNative();
  static final int ANY_RD = -1;

  private Sample() {}

  /** The rows that a statement gives, a line each. */
  static List<String> rows(String sql) {
    ProcessBuilder builder = new ProcessBuilder("sqlite3", System.getenv("TV_TOPO_STORE"));
    builder.redirectError(ProcessBuilder.Redirect.INHERIT);
    try {
      Process process = builder.start();
      try (OutputStream in = process.getOutputStream()) {
        in.write(sql.getBytes(StandardCharsets.UTF_8));
      }
      String out =
          new String(process.getInputStream().readAllBytes(), StandardCharsets.UTF_8).strip();
      assertEquals(0, process.waitFor(), sql);
      return out.isEmpty() ? List.of() : out.lines().toList();
    } catch (IOException | InterruptedException e) {
      throw new IllegalStateException(e);
    }
  }

  /** The first of the rows, of which there is one at least. */
  static String value(String sql) {
    List<String> rows = rows(sql);
    assertFalse(rows.isEmpty(), sql);
    return rows.get(0);
  }

  static ObjID id(String sql) {
    return new ObjID(value(sql));
  }

  static ObjID nodeID(String name) {
    return id("select objid from nwentity where entitytype = 1 and entityname = '" + name + "'");
  }

  /** A document with one filter, which tests one attribute against a pattern. */
  static String filter(String kind, String name, String attribute, String pattern) {
    return "<filters xmlns=\"http://corvane.example/marlo/NetworkTopology/TopologyFilter\">"
        + "<%1$s name=\"%2$s\"><operator oper=\"NOOP\"><attribute><%3$s><string>%4$s</string></%3$s>"
            .formatted(kind, name, attribute, pattern)
        + "</attribute></operator></%s></filters>".formatted(kind);
  }

  /** Holds a status against an outcome. */
  static void assertStatus(TopoStatusCode expected, ZorbTopoStatus status) {
    assertEquals(expected, status.getCode(), status::toString);
  }

  /** Holds a status against a success, which has no text. */
  static void assertOK(ZorbTopoStatus status) {
    assertStatus(TopoStatusCode.SUCCESS, status);
    assertEquals("", status.getAuxMsg());
  }
}
