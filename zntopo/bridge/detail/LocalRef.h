#pragma once

#include <jni.h>

#include <utility>

namespace zntopo::bridge {

/// Owns a local reference of one JNIEnv: it is given back at the end of the scope, or released to
/// Java as the result of a native. For one thread, as the reference is.
template <typename T = jobject>
class LocalRef {
 public:
  LocalRef() = default;
  LocalRef(JNIEnv* env, T reference) : env_(env), reference_(reference) {}
  /// A reference of a narrower type.
  template <typename Other>
  LocalRef(LocalRef<Other>&& other) noexcept  // NOLINT(google-explicit-constructor)
      : env_(other.env()), reference_(other.release()) {}
  LocalRef(LocalRef&& other) noexcept : env_(other.env_), reference_(other.release()) {}
  LocalRef& operator=(LocalRef&& other) noexcept {
    std::swap(env_, other.env_);
    std::swap(reference_, other.reference_);
    return *this;
  }
  ~LocalRef() {
    if (reference_ != nullptr) env_->DeleteLocalRef(reference_);
  }

  T get() const { return reference_; }
  JNIEnv* env() const { return env_; }
  explicit operator bool() const { return reference_ != nullptr; }
  /// Hands the reference over to the caller.
  T release() { return std::exchange(reference_, nullptr); }

 private:
  JNIEnv* env_ = nullptr;
  T reference_ = nullptr;
};

}  // namespace zntopo::bridge
