#include <cstdlib>
#include <cstring>
#include <new>
#include <utility>

#include "zntopo/bridge/detail/Builders.h"

namespace zntopo::bridge {

LocalRef<> createID(JavaEnv& env, const ObjID& id) {
  if (id.isNull()) return env.make<T_NullObjID>();
  return env.make<T_ObjID>(env.text(id.getStrValue()));
}

LocalRef<> createEntityStatus(JavaEnv& env, const ObjectStatus& status) {
  return env.make<T_ObjectStatus>(jint{status.getStatusAsInt()});
}

LocalRef<> createPingState(JavaEnv& env, PingState state) {
  return env.make<T_PingState>(static_cast<jint>(state));
}

namespace {

LocalRef<> createVarValue(JavaEnv& env, const VarValue& value) {
  switch (value.getValType()) {
    case VarValue::VT_Short:
      return env.make<T_ShortValue>(jshort{value.getShortVal()});
    case VarValue::VT_Long:
    case VarValue::VT_LongLong:  // gives the 32-bit value, which is 0
      return env.make<T_LongValue>(jlong{value.getLongVal()});
    case VarValue::VT_Str:
      return env.make<T_TextValue>(env.text(value.getStrVal()));
    case VarValue::VT_Float:
      return env.make<T_FloatValue>(jfloat{value.getFloatVal()});
    case VarValue::VT_Bool:
      return env.make<T_BoolValue>(value.getBoolVal());
    default:
      return {};  // capabilities and octets have no form in Java
  }
}

}  // namespace

LocalRef<> createUserDefVar(JavaEnv& env, const UserDefVar& var) {
  const LocalRef<> value = createVarValue(env, var.getValue());
  return env.make<T_UserDefVar>(env.text(var.getName()), value);
}

LocalRef<> createConnData(JavaEnv& env, const ZNConnData& data) {
  const LocalRef<> srcNode = createID(env, data.getSrcNodeObjID());
  const LocalRef<> srcInterface = createID(env, data.getSrcInterfaceObjID());
  const LocalRef<> destNode = createID(env, data.getDestNodeObjID());
  const LocalRef<> destInterface = createID(env, data.getDestInterfaceObjID());
  if (data.isNodeSide()) {
    return env.make<T_ZorbConnData>(srcNode, srcInterface, destNode, destInterface);
  }
  return env.make<T_ZorbConnData>(destNode, destInterface, srcNode, srcInterface);
}

LocalRef<> createConnection(JavaEnv& env, const ZNConnection& connection) {
  return env.make<T_ZorbConnection>(createConnData(env, connection.getConnData()));
}

LocalRef<> createTopologyState(JavaEnv& env, const ZNTopologyState& state) {
  return env.make<T_TopologyState>(static_cast<jint>(state.getTopoState()),
                                   jlong{state.getLastTopoReadyChangeTime()});
}

LocalRef<> createCapability(JavaEnv& env, const ZNCapability& capability) {
  return env.make<T_Capability>(env.text(capability.getCapabilityName()));
}

LocalRef<> createText(JavaEnv& env, const std::string& text) { return env.text(text); }

void populateObjIDList(JavaEnv& env, const std::set<ObjID>& ids, jobject javaList) {
  if (!env.isA(javaList, T_List)) return;
  for (const ObjID& id : ids) {
    MCLog::log(MC_INFO, "ID = %s\n", id.getStrValue().c_str());
    const LocalRef<> made = createID(env, id);
    if (made) env.add(M_ListAdd, javaList, made);
    if (env.isStopped()) return;
  }
}

namespace {

/// Memory of malloc(), or of what is like it; throws std::bad_alloc for none.
template <typename T>
T* allocated(T* memory) {
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

}  // namespace

int createNameCountArrayFromMap(const std::map<std::string, int>& map, char*** names,
                                int** counts) {
  *names = nullptr;
  *counts = nullptr;
  if (map.empty()) return 0;
  int entries = 0;
  try {
    *names = allocated(static_cast<char**>(std::malloc(map.size() * sizeof(char*))));
    *counts = allocated(static_cast<int*>(std::malloc(map.size() * sizeof(int))));
    for (const auto& [name, count] : map) {
      (*names)[entries] = allocated(strdup(name.c_str()));
      (*counts)[entries] = count;
      ++entries;
    }
  } catch (const std::bad_alloc&) {
    freeNameCountArray(std::exchange(*names, nullptr), std::exchange(*counts, nullptr), entries);
    throw;
  }
  return entries;
}

void freeNameCountArray(char** names, int* counts, int entries) {
  for (int i = 0; i < entries; ++i) std::free(names[i]);
  std::free(static_cast<void*>(names));
  std::free(counts);
}

}  // namespace zntopo::bridge
