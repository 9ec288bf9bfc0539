#pragma once

#include <jni.h>

#include <string>
#include <string_view>

/// @file
/// Texts to and from Java. They go through UTF-16: Java's own narrow form is no UTF-8.

/// A new Java text of UTF-8, in which what is malformed becomes U+FFFD. Null with a pending
/// exception if Java has no memory for it.
jstring newJavaText(JNIEnv* env, std::string_view text);

/// The UTF-8 of a Java text; half of a pair becomes U+FFFD, and a NUL stays. Empty for null.
std::string nativeText(JNIEnv* env, jstring text);
