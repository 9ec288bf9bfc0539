package com.corvane.tv.zntopology;

/**
 * A value that users hang on an object under a name.
 *
 * @param name the name
 * @param value the value; null for a kind of value that has no form in Java
 */
public record UserDefVar(String name, VarValue value) {}
