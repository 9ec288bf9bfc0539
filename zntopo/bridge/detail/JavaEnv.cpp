#include "zntopo/bridge/detail/JavaEnv.h"

#include <atomic>
#include <cstring>

#include "zntopo/core/MCLog.h"
#include "zntopo/platform/tvutil/JavaText.h"

namespace zntopo::bridge {

namespace {

/// Local references that are alive at once in the deepest build, beside those of the classes.
constexpr jint kLocalReferences = 96;

// What is looked up once for the life of the process. A class is held by a global reference, since
// its methods are valid only as long as it is loaded.
constinit std::array<std::atomic<jclass>, T_Count> keptClasses{};
constinit std::array<std::atomic<jmethodID>, T_Count> keptConstructors{};
constinit std::array<std::atomic<jmethodID>, M_Count> keptMethods{};

std::string pathOf(const JavaType& type) {
  if (std::strchr(type.name, '/') != nullptr) return type.name;
  return std::string("com/corvane/tv/zntopology/") + type.name;
}

/// Of two threads that look a class up at once, one keeps its reference.
jclass keep(JNIEnv* env, std::atomic<jclass>& place, jclass found) {
  auto* const global = static_cast<jclass>(env->NewGlobalRef(found));
  jclass before = nullptr;
  if (global == nullptr || place.compare_exchange_strong(before, global)) return global;
  env->DeleteGlobalRef(global);
  return before;
}

}  // namespace

const char* shownName(const JavaType& type) {
  const char* const slash = std::strrchr(type.name, '/');
  return slash != nullptr ? slash + 1 : type.name;
}

JavaEnv::JavaEnv(JNIEnv* env) : jni_(env) {
  if (!isStopped()) jni_->EnsureLocalCapacity(static_cast<jint>(T_Count) + kLocalReferences);
}

jclass JavaEnv::lookUp(JavaTypeID type) {
  const JavaType& row = kJavaTypes[type];
  if (row.isKept) {
    if (jclass const kept = keptClasses[type].load()) return kept;
  } else if (classes_[type]) {
    return classes_[type].get();
  }
  LocalRef<jclass> found(jni_, jni_->FindClass(pathOf(row).c_str()));
  if (!found) return nullptr;
  if (row.isKept) return keep(jni_, keptClasses[type], found.get());
  classes_[type] = std::move(found);
  return classes_[type].get();
}

jmethodID JavaEnv::constructor(JavaTypeID type) {
  const JavaType& row = kJavaTypes[type];
  if (row.isKept) constructors_[type] = keptConstructors[type].load();
  if (constructors_[type] == nullptr) {
    constructors_[type] = jni_->GetMethodID(lookUp(type), "<init>", row.constructor);
    if (row.isKept) keptConstructors[type] = constructors_[type];
  }
  return constructors_[type];
}

jmethodID JavaEnv::lookUp(JavaMethodID method) {
  const JavaMethod& row = kJavaMethods[method];
  if (row.isKept) methods_[method] = keptMethods[method].load();
  if (methods_[method] == nullptr) {
    jclass const type = lookUp(row.type);
    if (type == nullptr) return nullptr;
    methods_[method] = jni_->GetMethodID(type, row.name, row.descriptor);
    if (row.isKept) keptMethods[method] = methods_[method];
  }
  return methods_[method];
}

jmethodID JavaEnv::find(JavaMethodID method) {
  if (isStopped()) return nullptr;
  jmethodID const found = lookUp(method);
  if (found != nullptr) return found;
  clear();
  const JavaMethod& row = kJavaMethods[method];
  const JavaType& type = kJavaTypes[row.type];
  if (lookUp(row.type) == nullptr) {
    MCLog::log(MC_MINOR, "Unable to access %s in %s! \n", shownName(type), type.builder);
    clear();
  } else {
    MCLog::log(MC_MAJOR, "Unable to access %s %s method! \n", shownName(type), row.name);
  }
  return nullptr;
}

bool JavaEnv::isA(jobject object, JavaTypeID type) {
  if (object == nullptr || isStopped()) return false;
  jclass const found = lookUp(type);
  if (found == nullptr) {
    clear();
    return false;
  }
  return jni_->IsInstanceOf(object, found) != JNI_FALSE;
}

void JavaEnv::endLookUp(bool isDescribed) {
  if (isDescribed && isStopped()) jni_->ExceptionDescribe();
  clear();
}

LocalRef<> JavaEnv::makeObject(JavaTypeID type, const char* builder, bool isDescribed,
                               const jvalue* arguments) {
  if (isStopped()) return {};
  const JavaType& row = kJavaTypes[type];
  jclass const found = lookUp(type);
  if (found == nullptr || constructor(type) == nullptr) {
    MCLog::log(MC_MINOR, "Unable to access %s%s in %s! \n", shownName(row),
               found == nullptr ? "" : " constructor", builder);
    endLookUp(isDescribed);
    return {};
  }
  LocalRef<> object(jni_, jni_->NewObjectA(found, constructor(type), arguments));
  if (object && !isStopped()) return object;
  if (row.notMade != nullptr) {
    MCLog::log(MC_MAJOR, "%s", row.notMade);
  } else {
    MCLog::log(MC_MAJOR, "Could not create %s! \n", shownName(row));
  }
  if (isDescribed) endLookUp(true);
  return {};
}

jmethodID JavaEnv::callable(JavaMethodID method, jobject target) {
  return target != nullptr ? find(method) : nullptr;
}

bool JavaEnv::callVoid(JavaMethodID method, jobject target, const jvalue* arguments) {
  jmethodID const found = callable(method, target);
  if (found == nullptr) return false;
  jni_->CallVoidMethodA(target, found, arguments);
  return !isStopped();
}

bool JavaEnv::callBool(JavaMethodID method, jobject target, const jvalue* arguments) {
  jmethodID const found = callable(method, target);
  if (found == nullptr) return false;
  const jboolean result = jni_->CallBooleanMethodA(target, found, arguments);
  return !isStopped() && result != JNI_FALSE;
}

jint JavaEnv::callInt(JavaMethodID method, jobject target, const jvalue* arguments) {
  jmethodID const found = callable(method, target);
  if (found == nullptr) return 0;
  const jint result = jni_->CallIntMethodA(target, found, arguments);
  return isStopped() ? 0 : result;
}

LocalRef<> JavaEnv::callObject(JavaMethodID method, jobject target, const jvalue* arguments) {
  jmethodID const found = callable(method, target);
  if (found == nullptr) return {};
  LocalRef<> result(jni_, jni_->CallObjectMethodA(target, found, arguments));
  if (isStopped()) return {};
  return result;
}

bool JavaEnv::add(JavaMethodID method, jobject collection, const LocalRef<>& element) {
  const jvalue arguments[] = {valueOf(element)};
  return callBool(method, collection, arguments);
}

LocalRef<jstring> JavaEnv::text(std::string_view text) {
  if (isStopped()) return {};
  return {jni_, newJavaText(jni_, text)};
}

}  // namespace zntopo::bridge
