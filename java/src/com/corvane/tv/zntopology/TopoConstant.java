package com.corvane.tv.zntopology;

import java.lang.reflect.Field;
import java.lang.reflect.Modifier;
import java.util.Map;
import java.util.TreeMap;

/**
 * A number of one of the library's enumerations.
 *
 * <p>Two are equal if they are of one class and have one number. The known numbers are constants of
 * their class; a number that has none is kept as it is.
 */
public abstract class TopoConstant {
  private static final ClassValue<Map<Integer, String>> NAMES =
      new ClassValue<>() {
        @Override
        protected Map<Integer, String> computeValue(Class<?> type) {
          return namesOf(type);
        }
      };

  private final int value;

  /**
   * Keeps a number.
   *
   * @param value the number
   */
  protected TopoConstant(int value) {
    this.value = value;
  }

  /** {@return the number, as the library counts} */
  public final int toInt() {
    return value;
  }

  @Override
  public final boolean equals(Object other) {
    return other != null
        && getClass() == other.getClass()
        && value == ((TopoConstant) other).value;
  }

  @Override
  public final int hashCode() {
    return value;
  }

  /** {@return the name of the constant; the class and the number for one without a name} */
  @Override
  public final String toString() {
    String name = NAMES.get(getClass()).get(value);
    return name != null ? name : getClass().getSimpleName() + "(" + value + ")";
  }

  private static Map<Integer, String> namesOf(Class<?> type) {
    Map<Integer, String> names = new TreeMap<>();
    for (Field field : type.getFields()) {
      if (!Modifier.isStatic(field.getModifiers()) || field.getType() != type) {
        continue;
      }
      try {
        names.put(((TopoConstant) field.get(null)).value, field.getName());
      } catch (IllegalAccessException e) {
        throw new IllegalStateException(e); // getFields() gives public ones
      }
    }
    return names;
  }
}
