#pragma once

#include <jni.h>

/// @file
/// The platform's helpers for natives of Java: setting one field of an object by its name.
///
/// The ...OrDeleteAndException forms return 0, or else delete the object's local reference, which
/// is then the caller's no more, and leave an IllegalStateException pending that names the class
/// and the field. The array forms return 0, or -1 with nothing pending but what Java itself raised
/// for want of memory.

/// Leaves an IllegalStateException pending; what is pending already stays.
void javaNativeThrowIllegalStateException(JNIEnv* env, const char* message);

int javaNativeSetInstanceBooleanOrDeleteAndException(JNIEnv* env, const char* className,
                                                     jobject object, const char* fieldName,
                                                     bool value);
int javaNativeSetInstanceLongOrDeleteAndException(JNIEnv* env, const char* className,
                                                  jobject object, const char* fieldName,
                                                  jlong value);
/// The text is taken as UTF-8, whatever the locale's code set.
int javaNativeSetInstanceStringNoCodesetOrDeleteAndException(JNIEnv* env, const char* className,
                                                             jobject object, const char* fieldName,
                                                             const char* value);
int javaNativeSetInstanceStringArray(JNIEnv* env, jobject object, const char* fieldName,
                                     const char* const* values, int count);
int javaNativeSetInstanceIntArray(JNIEnv* env, jobject object, const char* fieldName,
                                  const int* values, int count);
