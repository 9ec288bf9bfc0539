package com.corvane.tv.zntopology;

/** A question to the library failed: the message says why. */
public class TopologyException extends RuntimeException {
  private static final long serialVersionUID = 1;

  private final int status;

  /**
   * Makes an exception of how a call ended.
   *
   * @param question what was asked
   * @param status how it ended
   */
  public TopologyException(String question, ZorbTopoStatus status) {
    super(messageOf(question, status));
    this.status = status.getStatus();
  }

  /** {@return the number of the outcome} */
  public int getStatus() {
    return status;
  }

  /** {@return the outcome; null for a number that this class library does not know} */
  public TopoStatusCode getCode() {
    return TopoStatusCode.of(status);
  }

  private static String messageOf(String question, ZorbTopoStatus status) {
    String text = question + ": " + status.getStatusMsg().strip();
    String more = status.getAuxMsg() == null ? "" : status.getAuxMsg().strip();
    return more.isEmpty() ? text : text + ": " + more;
  }
}
