package com.corvane.tv.zntopology;

/**
 * How a call ended: the library fills in the one that a call was given.
 *
 * <p>Calls of several threads want one each.
 */
public class ZorbTopoStatus {
  private int status;
  private String auxMsg = "";

  /** Makes a status of success, without a text. */
  public ZorbTopoStatus() {}

  /**
   * Sets both values; what the library calls.
   *
   * @param status the number of the outcome
   * @param auxMsg what else is to be said
   */
  public void setStatus(int status, String auxMsg) {
    this.status = status;
    this.auxMsg = auxMsg;
  }

  /** {@return the number of the outcome, 0 for success} */
  public int getStatus() {
    return status;
  }

  /** {@return what else is to be said, a line each; empty for a success} */
  public String getAuxMsg() {
    return auxMsg;
  }

  /** {@return the text of the number} */
  public String getStatusMsg() {
    return TopoStatusCode.textOf(status);
  }

  /** {@return the outcome; null for a number that this class library does not know} */
  public TopoStatusCode getCode() {
    return TopoStatusCode.of(status);
  }

  /** {@return whether the call did all that it was asked} */
  public boolean isOK() {
    return status == TopoStatusCode.SUCCESS.number();
  }

  @Override
  public String toString() {
    String more = auxMsg == null || auxMsg.isEmpty() ? "" : ": " + auxMsg;
    return status + " " + getStatusMsg() + more;
  }
}
