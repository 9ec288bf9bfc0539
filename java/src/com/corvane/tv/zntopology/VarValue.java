package com.corvane.tv.zntopology;

/**
 * A value of one of several kinds.
 *
 * @param value a {@link Short}, {@link Long}, {@link String}, {@link Float} or {@link Boolean};
 *     null for a text that is missing
 */
public record VarValue(Object value) {
  /**
   * Holds a small number.
   *
   * @param value the number
   */
  public VarValue(short value) {
    this((Object) value);
  }

  /**
   * Holds a number.
   *
   * @param value the number
   */
  public VarValue(long value) {
    this((Object) value);
  }

  /**
   * Holds a text.
   *
   * @param value the text
   */
  public VarValue(String value) {
    this((Object) value);
  }

  /**
   * Holds a number with a fraction.
   *
   * @param value the number
   */
  public VarValue(float value) {
    this((Object) value);
  }

  /**
   * Holds a truth value.
   *
   * @param value the truth value
   */
  public VarValue(boolean value) {
    this((Object) value);
  }

  @Override
  public String toString() {
    return String.valueOf(value);
  }
}
