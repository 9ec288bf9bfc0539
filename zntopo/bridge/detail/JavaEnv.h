#pragma once

#include <jni.h>

#include <array>
#include <string>
#include <string_view>

#include "zntopo/bridge/detail/JavaTypes.h"
#include "zntopo/bridge/detail/LocalRef.h"

namespace zntopo::bridge {

// The kinds of arguments, and their values.
inline jvalue valueOf(bool value) { return {.z = static_cast<jboolean>(value)}; }
inline jvalue valueOf(jshort value) { return {.s = value}; }
inline jvalue valueOf(jint value) { return {.i = value}; }
inline jvalue valueOf(jlong value) { return {.j = value}; }
inline jvalue valueOf(jfloat value) { return {.f = value}; }
inline jvalue valueOf(jobject value) { return {.l = value}; }
template <typename T>
jvalue valueOf(const LocalRef<T>& value) {
  return {.l = value.get()};
}
template <typename T>
inline constexpr char kArgumentKind = 'L';
template <>
inline constexpr char kArgumentKind<bool> = 'Z';
template <>
inline constexpr char kArgumentKind<jshort> = 'S';
template <>
inline constexpr char kArgumentKind<jint> = 'I';
template <>
inline constexpr char kArgumentKind<jlong> = 'J';
template <>
inline constexpr char kArgumentKind<jfloat> = 'F';

/// The JNIEnv of one call of a native, with the classes and methods that the call has met: each is
/// looked up once a call, and the kept ones once a process.
///
/// A look-up that fails is logged, and leaves nothing pending. What else raises an exception, Java
/// code or a want of memory, leaves it pending for the Java caller: the call is stopped then, and
/// every operation gives null, or nothing, without asking Java.
class JavaEnv {
 public:
  explicit JavaEnv(JNIEnv* env);
  JavaEnv(const JavaEnv&) = delete;
  JavaEnv& operator=(const JavaEnv&) = delete;

  JNIEnv* jni() const { return jni_; }
  /// True while an exception is pending.
  bool isStopped() const { return jni_->ExceptionCheck() != JNI_FALSE; }
  /// Drops the exception of a look-up.
  void clear() { jni_->ExceptionClear(); }

  /// The class or the method; null, with the exception of the look-up pending, if it is not there.
  jclass lookUp(JavaTypeID type);
  jmethodID lookUp(JavaMethodID method);
  /// The same; what is not there is logged in the usual shape.
  jmethodID find(JavaMethodID method);
  /// True for an object of a class. False for null, and if there is no such class.
  bool isA(jobject object, JavaTypeID type);

  /// Makes an object, or gives null and logs why.
  template <JavaTypeID type, typename... Arguments>
  LocalRef<> make(const Arguments&... arguments) {
    static_assert(takes(kJavaTypes[type].constructor, {kArgumentKind<Arguments>...}));
    const jvalue values[] = {valueOf(arguments)..., jvalue{}};
    return makeObject(type, kJavaTypes[type].builder, kJavaTypes[type].isDescribed, values);
  }
  /// Makes an empty collection on behalf of a builder.
  LocalRef<> makeCollection(JavaTypeID type, const char* builder, bool isDescribed) {
    return makeObject(type, builder, isDescribed, nullptr);
  }

  /// Calls a method that gives nothing, a truth value, a number or an object. Gives false, 0 or
  /// null for a null target, and if the method is not there or raises an exception; for one that
  /// gives nothing, whether it was called.
  template <JavaMethodID method, typename... Arguments>
  auto call(jobject target, const Arguments&... arguments) {
    static_assert(takes(kJavaMethods[method].descriptor, {kArgumentKind<Arguments>...}));
    const jvalue values[] = {valueOf(arguments)..., jvalue{}};
    constexpr char kResult = resultOf(kJavaMethods[method].descriptor);
    if constexpr (kResult == 'V') {
      return callVoid(method, target, values);
    } else if constexpr (kResult == 'Z') {
      return callBool(method, target, values);
    } else if constexpr (kResult == 'I') {
      return callInt(method, target, values);
    } else {
      return callObject(method, target, values);
    }
  }
  /// Adds an element to a collection, by the method that its class has for that.
  bool add(JavaMethodID method, jobject collection, const LocalRef<>& element);

  /// A new Java text of UTF-8; null if the call is stopped.
  LocalRef<jstring> text(std::string_view text);

 private:
  LocalRef<> makeObject(JavaTypeID type, const char* builder, bool isDescribed,
                        const jvalue* arguments);
  jmethodID constructor(JavaTypeID type);
  void endLookUp(bool isDescribed);
  jmethodID callable(JavaMethodID method, jobject target);
  bool callVoid(JavaMethodID method, jobject target, const jvalue* arguments);
  bool callBool(JavaMethodID method, jobject target, const jvalue* arguments);
  jint callInt(JavaMethodID method, jobject target, const jvalue* arguments);
  LocalRef<> callObject(JavaMethodID method, jobject target, const jvalue* arguments);

  JNIEnv* const jni_;
  std::array<LocalRef<jclass>, T_Count> classes_;
  std::array<jmethodID, T_Count> constructors_{};
  std::array<jmethodID, M_Count> methods_{};
};

/// The name of a class as the log shows it: without its package.
const char* shownName(const JavaType& type);

}  // namespace zntopo::bridge
