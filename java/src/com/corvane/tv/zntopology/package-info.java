/**
 * A discovered network for Java programs, read from its store by the native library.
 *
 * <p>{@link com.corvane.tv.zntopology.Topology} is where to begin. {@link
 * com.corvane.tv.zntopology.ZorbNative} has the calls of the library as they are; the other classes
 * are what it makes its answers of. Answers are snapshots.
 */
package com.corvane.tv.zntopology;
