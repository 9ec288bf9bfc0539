#include "zntopo/platform/tvutil/JavaNative.h"

#include <string>
#include <vector>

#include "zntopo/platform/tvutil/JavaText.h"

namespace {

void forget(JNIEnv* env, jobject reference) {
  if (reference != nullptr) env->DeleteLocalRef(reference);
}

/// Null, with nothing pending, for a null object and for a field that it does not have.
jfieldID fieldOf(JNIEnv* env, jobject object, const char* name, const char* descriptor) {
  if (object == nullptr) return nullptr;
  jclass const type = env->GetObjectClass(object);
  jfieldID const field = env->GetFieldID(type, name, descriptor);
  if (field == nullptr) env->ExceptionClear();
  forget(env, type);
  return field;
}

int failed(JNIEnv* env, const char* className, jobject object, const char* fieldName) {
  const std::string message =
      "Could not set the field " + std::string(fieldName) + " of " + className;
  forget(env, object);
  javaNativeThrowIllegalStateException(env, message.c_str());
  return -1;
}

/// Sets an array field to what fill makes of an array of the type, and gives its reference back.
template <typename Array, typename Make>
int setArray(JNIEnv* env, jobject object, const char* fieldName, const char* descriptor,
             Make make) {
  jfieldID const field = fieldOf(env, object, fieldName, descriptor);
  if (field == nullptr) return -1;
  Array const array = make();
  if (array == nullptr || env->ExceptionCheck()) {
    forget(env, array);
    return -1;
  }
  env->SetObjectField(object, field, array);
  forget(env, array);
  return 0;
}

jobjectArray textArray(JNIEnv* env, const char* const* values, int count) {
  jclass const type = env->FindClass("java/lang/String");
  if (type == nullptr) return nullptr;
  jobjectArray const array = env->NewObjectArray(count, type, nullptr);
  forget(env, type);
  for (int i = 0; array != nullptr && i < count; ++i) {
    jstring const text = newJavaText(env, values[i]);
    if (text == nullptr) break;
    env->SetObjectArrayElement(array, i, text);
    const bool isKept = !env->ExceptionCheck();
    forget(env, text);
    if (!isKept) break;
  }
  return array;
}

jintArray numberArray(JNIEnv* env, const int* values, int count) {
  const std::vector<jint> numbers(values, values + count);
  jintArray const array = env->NewIntArray(count);
  if (array != nullptr) env->SetIntArrayRegion(array, 0, count, numbers.data());
  return array;
}

}  // namespace

void javaNativeThrowIllegalStateException(JNIEnv* env, const char* message) {
  if (env->ExceptionCheck()) return;
  jclass const type = env->FindClass("java/lang/IllegalStateException");
  if (type == nullptr) return;  // what FindClass raised is pending
  env->ThrowNew(type, message);
  forget(env, type);
}

int javaNativeSetInstanceBooleanOrDeleteAndException(JNIEnv* env, const char* className,
                                                     jobject object, const char* fieldName,
                                                     bool value) {
  jfieldID const field = fieldOf(env, object, fieldName, "Z");
  if (field == nullptr) return failed(env, className, object, fieldName);
  env->SetBooleanField(object, field, value ? JNI_TRUE : JNI_FALSE);
  return 0;
}

int javaNativeSetInstanceLongOrDeleteAndException(JNIEnv* env, const char* className,
                                                  jobject object, const char* fieldName,
                                                  jlong value) {
  jfieldID const field = fieldOf(env, object, fieldName, "J");
  if (field == nullptr) return failed(env, className, object, fieldName);
  env->SetLongField(object, field, value);
  return 0;
}

int javaNativeSetInstanceStringNoCodesetOrDeleteAndException(JNIEnv* env, const char* className,
                                                             jobject object, const char* fieldName,
                                                             const char* value) {
  jfieldID const field = fieldOf(env, object, fieldName, "Ljava/lang/String;");
  jstring const text = field != nullptr ? newJavaText(env, value) : nullptr;
  if (text == nullptr) return failed(env, className, object, fieldName);
  env->SetObjectField(object, field, text);
  forget(env, text);
  return 0;
}

int javaNativeSetInstanceStringArray(JNIEnv* env, jobject object, const char* fieldName,
                                     const char* const* values, int count) {
  return setArray<jobjectArray>(env, object, fieldName, "[Ljava/lang/String;",
                                [&] { return textArray(env, values, count); });
}

int javaNativeSetInstanceIntArray(JNIEnv* env, jobject object, const char* fieldName,
                                  const int* values, int count) {
  return setArray<jintArray>(env, object, fieldName, "[I",
                             [&] { return numberArray(env, values, count); });
}
