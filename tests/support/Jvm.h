#pragma once

#include <gtest/gtest.h>
#include <jni.h>

#include <iostream>
#include <string>

#include "zntopo/bridge/detail/JavaEnv.h"
#include "zntopo/platform/tvutil/JavaText.h"

/// @file
/// A JVM in the test's process, which checks the calls that are made of it.

namespace zntopo::test {

/// Starts the one JVM of the process with the class path of the test program, once.
inline JNIEnv* startJvm() {
  static JNIEnv* const env = [] {
    std::string classPath = "-Djava.class.path=" ZNTOPO_TEST_CLASS_PATH;
    char check[] = "-Xcheck:jni";
    char heap[] = "-Xmx512m";
    JavaVMOption options[] = {{classPath.data(), nullptr}, {check, nullptr}, {heap, nullptr}};
    JavaVMInitArgs arguments{};
    arguments.version = JNI_VERSION_10;
    arguments.nOptions = 3;
    arguments.options = options;
    JavaVM* jvm = nullptr;
    JNIEnv* started = nullptr;
    JNI_CreateJavaVM(&jvm, reinterpret_cast<void**>(&started), &arguments);
    return started;
  }();
  return env;
}

/// Whether the JVM complains of a call in what it prints.
inline bool hasComplaint(const std::string& output) {
  return output.find("in native method") != std::string::npos ||
         output.find("JNI local refs") != std::string::npos;
}

/// A test with a JVM. The JVM's complaints of a call fail it, and so does an exception that is left
/// pending.
class JvmTest : public testing::Test {
 protected:
  JvmTest() : jni(startJvm()), frame_(jni), env(jni) { testing::internal::CaptureStdout(); }
  ~JvmTest() override {
    const std::string output = testing::internal::GetCapturedStdout();
    if (HasFailure()) std::cout << output;
    EXPECT_FALSE(hasComplaint(output)) << output;
    EXPECT_FALSE(jni->ExceptionCheck());
    jni->ExceptionClear();
  }

  /// A new object of a class of the class library that has a constructor without arguments. Its
  /// reference is given back when the test ends.
  jobject make(const std::string& name) {
    jclass const type = jni->FindClass(("com/corvane/tv/zntopology/" + name).c_str());
    return jni->NewObject(type, jni->GetMethodID(type, "<init>", "()V"));
  }
  /// Takes the pending exception away and shows it.
  std::string raised() {
    const bridge::LocalRef<jthrowable> exception(jni, jni->ExceptionOccurred());
    jni->ExceptionClear();
    return shown(exception.get());
  }

  /// What toString() of an object gives; "null" for null.
  std::string shown(jobject object) {
    if (object == nullptr) return "null";
    jclass const type = jni->FindClass("java/lang/Object");
    jmethodID const method = jni->GetMethodID(type, "toString", "()Ljava/lang/String;");
    auto* const text = static_cast<jstring>(jni->CallObjectMethod(object, method));
    EXPECT_FALSE(jni->ExceptionCheck());
    std::string result = nativeText(jni, text);
    jni->DeleteLocalRef(text);
    jni->DeleteLocalRef(type);
    return result;
  }
  std::string shown(const bridge::LocalRef<>& object) { return shown(object.get()); }
  /// The name of an object's class without its package.
  std::string classOf(const bridge::LocalRef<>& object) {
    if (!object) return "null";
    jclass const type = jni->GetObjectClass(object.get());
    const std::string name = shown(type);
    jni->DeleteLocalRef(type);
    return name.substr(name.rfind('.') + 1);
  }
  /// What a method without arguments gives, as toString() shows it.
  std::string get(jobject object, const char* method, const char* result) {
    jclass const type = jni->GetObjectClass(object);
    jmethodID const id = jni->GetMethodID(type, method, (std::string("()") + result).c_str());
    jni->DeleteLocalRef(type);
    if (id == nullptr) {
      jni->ExceptionClear();
      return std::string("no method ") + method;
    }
    jobject const value = jni->CallObjectMethod(object, id);
    EXPECT_FALSE(jni->ExceptionCheck());
    std::string text = shown(value);
    jni->DeleteLocalRef(value);
    return text;
  }
  std::string get(const bridge::LocalRef<>& object, const char* method, const char* result) {
    return get(object.get(), method, result);
  }

  JNIEnv* const jni;

 private:
  /// Gives back the references that a test leaves, after those of the environment.
  struct Frame {
    explicit Frame(JNIEnv* jni) : jni_(jni) { jni_->PushLocalFrame(64); }
    ~Frame() { jni_->PopLocalFrame(nullptr); }
    JNIEnv* jni_;
  };
  const Frame frame_;

 protected:
  bridge::JavaEnv env;
};

}  // namespace zntopo::test
