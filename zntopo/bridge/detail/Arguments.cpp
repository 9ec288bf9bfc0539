#include "zntopo/bridge/detail/Arguments.h"

#include "zntopo/core/MCLog.h"
#include "zntopo/platform/tvutil/JavaText.h"

namespace zntopo::bridge {

namespace {

constexpr const char* kTextDescriptor = "Ljava/lang/String;";

/// Null for an object without the field.
jfieldID fieldOf(JavaEnv& env, jobject object, const char* fieldName, const char* descriptor) {
  if (object == nullptr || env.isStopped()) return nullptr;
  const LocalRef<jclass> type(env.jni(), env.jni()->GetObjectClass(object));
  jfieldID const field = env.jni()->GetFieldID(type.get(), fieldName, descriptor);
  if (field == nullptr) env.clear();
  return field;
}

bool hasNul(const std::string& text) { return text.find('\0') != std::string::npos; }

/// A text with a NUL names nothing: to the library it would end there, and name something else.
ObjID idOf(const std::string& text) {
  if (!hasNul(text)) return ObjID(text);
  MCLog::log(MC_MAJOR, "An identifier with a NUL in it is none: %s \n", text.c_str());
  return ObjID();
}

/// Calls a function with the identifier of each element of an array.
template <typename Use>
void forEachID(JavaEnv& env, jobjectArray ids, Use use) {
  const jsize length = ids == nullptr || env.isStopped() ? 0 : env.jni()->GetArrayLength(ids);
  MCLog::log(MC_INFO, "jsize length = %d \n", static_cast<int>(length));
  for (jsize i = 0; i < length; ++i) {
    const LocalRef<> element(env.jni(), env.jni()->GetObjectArrayElement(ids, i));
    if (env.isStopped()) return;
    use(getNativeObjID(env, element.get()));
  }
}

}  // namespace

int javaNativeGetInstanceBoolean(JavaEnv& env, jobject object, const char* fieldName, bool& value) {
  jfieldID const field = fieldOf(env, object, fieldName, "Z");
  if (field == nullptr) return -1;
  value = env.jni()->GetBooleanField(object, field) > 0;
  return 0;
}

int javaNativeGetInstanceString(JavaEnv& env, jobject object, const char* fieldName,
                                std::string& value) {
  jfieldID const field = fieldOf(env, object, fieldName, kTextDescriptor);
  if (field == nullptr) return -1;
  const LocalRef<jstring> text(env.jni(),
                               static_cast<jstring>(env.jni()->GetObjectField(object, field)));
  if (text) {
    value = nativeText(env.jni(), text.get());
    MCLog::log(MC_INFO, "String = %s \n", value.c_str());
  } else {
    MCLog::log(MC_INFO, "String is null \n");
  }
  return 0;
}

int javaNativeSetInstanceObject(JavaEnv& env, jobject object, const char* fieldName, jobject value,
                                const char* descriptor) {
  if (object == nullptr || env.isStopped()) {
    MCLog::log(MC_CRITICAL, "Error in GetObjectClass() - %s \n", fieldName);
    return -1;
  }
  jfieldID const field = fieldOf(env, object, fieldName, descriptor);
  if (field == nullptr) {
    MCLog::log(MC_CRITICAL, "Error in GetFieldID() - %s \n", descriptor);
    return -1;
  }
  env.jni()->SetObjectField(object, field, value);
  return 0;
}

ObjID getNativeObjID(JavaEnv& env, jobject object) {
  std::string text;
  if (javaNativeGetInstanceString(env, object, "myID", text) == 0) return idOf(text);
  MCLog::log(MC_INFO, "javaNativeGetInstanceString() fail \n");
  return ObjID();
}

bool readObjID(JavaEnv& env, jobject object, const char* native, ObjID& id) {
  if (env.isStopped()) return false;
  if (env.lookUp(T_ObjID) == nullptr) {
    MCLog::log(MC_MAJOR, "Unable to access ObjID class in %s() \n", native);
    env.clear();
    return false;
  }
  if (env.find(M_getStringValue) == nullptr) return false;
  if (!env.isA(object, T_ObjID)) return true;
  const LocalRef<> text = env.call<M_getStringValue>(object);
  id = idOf(nativeText(env.jni(), static_cast<jstring>(text.get())));
  return !env.isStopped();
}

std::unique_ptr<std::set<ObjID>> createObjIDSetNative(JavaEnv& env, jobjectArray ids) {
  auto set = std::make_unique<std::set<ObjID>>();
  forEachID(env, ids, [&](ObjID id) { set->insert(std::move(id)); });
  MCLog::log(MC_INFO, "Size of ObjID list = %d \n", static_cast<int>(set->size()));
  return set;
}

std::unique_ptr<std::list<ObjID>> createObjIDListNative(JavaEnv& env, jobjectArray ids) {
  auto list = std::make_unique<std::list<ObjID>>();
  forEachID(env, ids, [&](ObjID id) { list->push_back(std::move(id)); });
  MCLog::log(MC_INFO, "Size of ObjID list = %d \n", static_cast<int>(list->size()));
  return list;
}

namespace {

/// Reads a Java filter into a native one. A value that is null, or can't be read, sets nothing.
class FilterReader {
 public:
  FilterReader(JavaEnv& env, jobject filterArg, ZNTopoFilter& filter)
      : env_(env), filterArg_(filterArg), filter_(filter) {}

  bool read();

 private:
  bool isAsked(ZNTopoFilter::Field field) {
    const auto number = static_cast<jint>(field);
    const bool isIgnored = env_.call<M_isFieldIgnored>(filterArg_, number);
    return !isIgnored && !env_.isStopped();
  }
  template <JavaMethodID getter, typename Set>
  void readText(bool isWanted, Set set, const char* done);
  template <JavaMethodID getter, JavaTypeID type, JavaMethodID toInt, typename Set>
  void readNumber(bool isWanted, Set set, const char* done);
  void readPrefixLength();

  JavaEnv& env_;
  jobject filterArg_;
  ZNTopoFilter& filter_;
  bool isSound_ = true;
};

template <JavaMethodID getter, typename Set>
void FilterReader::readText(bool isWanted, Set set, const char* done) {
  if (!isWanted) return;
  const LocalRef<> text = env_.call<getter>(filterArg_);
  if (!text || env_.isStopped()) return;
  const std::string value = nativeText(env_.jni(), static_cast<jstring>(text.get()));
  isSound_ = isSound_ && !hasNul(value);
  (filter_.*set)(value);
  MCLog::log(MC_INFO, "%s", done);
}

template <JavaMethodID getter, JavaTypeID type, JavaMethodID toInt, typename Set>
void FilterReader::readNumber(bool isWanted, Set set, const char* done) {
  if (!isWanted || env_.isStopped()) return;
  const bool hasClass = env_.lookUp(type) != nullptr;
  if (!hasClass || env_.lookUp(toInt) == nullptr) {
    MCLog::log(MC_MAJOR, "Unable to access %s%s in populateFilter! \n", kJavaTypes[type].name,
               hasClass ? "::toInt" : "");
    env_.clear();
    return;
  }
  const LocalRef<> constant = env_.call<getter>(filterArg_);
  const jint number = env_.call<toInt>(constant.get());
  if (!constant || env_.isStopped()) return;
  set(number);
  MCLog::log(MC_INFO, "%s", done);
}

bool FilterReader::read() {
  // All are asked for first, those of the capabilities too, which do not cross.
  const bool level = isAsked(ZNTopoFilter::F_IPLevel);
  const bool name = isAsked(ZNTopoFilter::F_RegexEntityName);
  const bool addressType = isAsked(ZNTopoFilter::F_AddressType);
  const bool scope = isAsked(ZNTopoFilter::F_V6ScopeType);
  const bool address = isAsked(ZNTopoFilter::F_AddressValue);
  isAsked(ZNTopoFilter::F_Capability);
  isAsked(ZNTopoFilter::F_ExCapability);
  const bool prefixLength = isAsked(ZNTopoFilter::F_PrefixLength);
  const bool prefixAddress = isAsked(ZNTopoFilter::F_PrefixAddress);
  const bool entityType = isAsked(ZNTopoFilter::F_EntityType);

  readText<M_getRegexEntityName>(name, &ZNTopoFilter::setRegexEntityName,
                                 "Filter RegexName Set! \n");
  readText<M_getRegexAddressStr>(address, &ZNTopoFilter::setAddressStr,
                                 "Filter RegexAddressString Set! \n");
  readNumber<M_getIPLevel, T_IPLevel, M_IPLevelToInt>(
      level, [&](jint n) { filter_.setIPLevel(static_cast<ZNEntity::IPLevel>(n)); },
      "Filter IPLevel Set! \n");
  readNumber<M_getEntityType, T_EntityType, M_EntityTypeToInt>(
      entityType, [&](jint n) { filter_.setEntityType(static_cast<EntityType>(n)); },
      "EntityType Filter Set! \n");
  readNumber<M_getV6ScopeType, T_IPv6ScopeType, M_IPv6ScopeTypeToInt>(
      scope, [&](jint n) { filter_.setV6ScopeType(static_cast<InetAddressIPv6::ScopeType>(n)); },
      "Filter V6ScopeType Set \n");
  readNumber<M_getAddressType, T_AddressType, M_AddressTypeToInt>(
      addressType, [&](jint n) { filter_.setAddressType(static_cast<ZNAddress::AddressType>(n)); },
      "Filter AddressType Set! \n");
  if (prefixLength) readPrefixLength();
  readText<M_getPrefixAddress>(prefixAddress, &ZNTopoFilter::setPrefixAddressStr,
                               "Filter PrefixAddressString Set! \n");
  return isSound_;
}

void FilterReader::readPrefixLength() {
  const jint length = env_.call<M_getPrefixLength>(filterArg_);
  if (env_.isStopped()) return;
  filter_.setPrefixLength(length);
  MCLog::log(MC_INFO, "Filter PrefixLength Set! \n");
}

}  // namespace

bool populateFilter(JavaEnv& env, jobject filterArg, ZNTopoFilter& filter) {
  if (env.isStopped()) return true;
  if (env.lookUp(T_TopoFilter) == nullptr) {
    MCLog::log(MC_MAJOR, "Unable to access TopoFilter! \n");
    env.clear();
    return true;
  }
  for (const JavaMethodID method :
       {M_isFieldIgnored, M_getRegexEntityName, M_getRegexAddressStr, M_getIPLevel, M_getEntityType,
        M_getV6ScopeType, M_getAddressType, M_getPrefixLength, M_getPrefixAddress,
        M_getCapabilityNames, M_getExcludeCapabilityNames}) {
    if (env.lookUp(method) != nullptr) continue;
    MCLog::log(MC_MAJOR, "Unable to access TopoFilter Methods in populateTopoFilter()! \n");
    env.clear();
    return true;
  }
  if (!env.isA(filterArg, T_TopoFilter)) return true;
  return FilterReader(env, filterArg, filter).read();
}

}  // namespace zntopo::bridge
