#include "zntopo/bridge/detail/NativeFrame.h"

#include "zntopo/platform/tvutil/JavaText.h"

namespace zntopo::bridge {

void setStatus(JavaEnv& env, jobject statusArg, const ZNTopoAPIStatus& status) {
  if (env.isStopped()) return;
  if (env.lookUp(T_ZorbTopoStatus) == nullptr) {
    MCLog::log(MC_MAJOR, "Unable to access ZorbTopoStatus class in setStatus() \n");
    env.clear();
    return;
  }
  if (env.find(M_setStatus) == nullptr) return;
  if (!env.isA(statusArg, T_ZorbTopoStatus)) return;
  env.call<M_setStatus>(statusArg, static_cast<jint>(status.getStatus()),
                        env.text(status.getAuxMsg()));
}

namespace {

/// With no text, and with the JVM alone: nothing here takes memory of this library.
void tellEndShortly(JNIEnv* jni, jobject statusArg) noexcept {
  if (statusArg == nullptr || jni->ExceptionCheck() != JNI_FALSE) return;
  jclass const type = jni->GetObjectClass(statusArg);
  const JavaMethod& method = kJavaMethods[M_setStatus];
  jmethodID const setter = jni->GetMethodID(type, method.name, method.descriptor);
  if (setter == nullptr) {
    jni->ExceptionClear();  // of another class
  } else if (jstring const text = jni->NewStringUTF("")) {
    jni->CallVoidMethod(statusArg, setter, static_cast<jint>(ZN_API_INTERNAL_ERROR), text);
    static_cast<void>(jni->ExceptionCheck());  // the JVM wants it asked; what was thrown stays
    jni->DeleteLocalRef(text);
  }
  jni->DeleteLocalRef(type);
}

}  // namespace

void tellEnd(JNIEnv* jni, const char* native, jobject statusArg,
             const std::exception& end) noexcept {
  try {
    MCLog::log(MC_CRITICAL, "%s() ended for want of something: %s \n", native, end.what());
    JavaEnv env(jni);
    setStatus(env, statusArg,
              {ZN_API_INTERNAL_ERROR, std::string(native) + "() ended early: " + end.what()});
  } catch (const std::exception&) {
    tellEndShortly(jni, statusArg);
  }
}

void validateCache(JavaEnv& /*env*/, jobject /*theJavaCache*/, const ZNTopoAPIStatus& /*status*/) {}

ZNTopoAPIStatus nulStatus() { return {ZN_API_ILLEGAL_INPUT, "The text has a NUL in it"}; }

TextArgument::TextArgument(JavaEnv& env, jstring text)
    : text_(env.isStopped() ? std::string() : nativeText(env.jni(), text)) {}

bool TextArgument::isSound(ZNTopoAPIStatus& status) const {
  if (text_.find('\0') == std::string::npos) return true;
  status = nulStatus();
  return false;
}

ZNTopoAPIStatus nullListStatus() {
  return {ZN_API_PATH_PROCESSING_ERROR, "Null List from C++ API"};
}

LocalRef<> refuseID(JavaEnv& env, jobject statusArg, const char* text) {
  setStatus(env, statusArg, {ZN_API_INVALID_ID, text});
  return {};
}

void logProblem(const ListCall& call, const ZNTopoAPIStatus& status) {
  MCLog::log(MC_MAJOR, "%sProblem in Status returned from %s\n     %s\n     %s", call.prefix,
             call.operation, status.getStatusMsg().c_str(), status.getAuxMsg().c_str());
}

}  // namespace zntopo::bridge
