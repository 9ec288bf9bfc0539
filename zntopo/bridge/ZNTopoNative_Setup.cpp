#include <com_corvane_tv_zntopology_ZorbNative.h>

#include <atomic>

#include "zntopo/bridge/detail/Builders.h"
#include "zntopo/bridge/detail/NativeFrame.h"

using namespace zntopo;
using namespace zntopo::bridge;

namespace {

/// Set by initZorb; nothing reads it.
constinit std::atomic<bool> NativeInit{false};

/// One boolean of a Java configuration, and the setting that it is for.
struct Switch {
  const char* field;
  const char* failure;
  void (*set)(ZNTopoConfig& config, bool value);
};

constexpr Switch kSwitches[] = {
    {"enableNodeVlanInfoLoad", "javaNativeGetInstanceBoolean() fail \n",
     [](ZNTopoConfig& config, bool value) { config.setLoadNodeVlanInfo(value); }},
    {"enableNodeL2ConnectionInfoLoad", "javaNativeGetInstanceBoolean() fail \n",
     [](ZNTopoConfig& config, bool value) { config.setLoadNodeL2ConnectionInfo(value); }},
    {"enableTopoCacheFIFOSwap", "javaNativeGetInstanceBoolean() - enableTopoCacheFIFOSwap fail \n",
     [](ZNTopoConfig& config, bool value) { config.setEnableFIFOCacheSwap(value); }},
    {"enableTopoCache", "javaNativeGetInstanceBoolean() - enableTopoCache fail \n",
     [](ZNTopoConfig& config, bool value) { config.setUseCache(value); }},
    {"enableJavaInterfaceCache",
     "javaNativeGetInstanceBoolean() - enableJavaInterfaceCache fail \n",
     [](ZNTopoConfig& /*config*/, bool value) {
       setUseJavaInterfaceCache(value);
       MCLog::log(MC_INFO,
                  "javaNativeGetInstanceBoolean() - enableJavaInterfaceCache set to [%c] \n",
                  value ? 'T' : 'F');
     }},
};

}  // namespace

ZORB_NATIVE(jint, initZorb)(JNIEnv* jni, jclass, jint latencyArg, jstring domainArg) {
  runNative(jni, "initZorb", [&](JavaEnv& env) {
    NativeInit = true;
    const TextArgument domain(env, domainArg);
    MCLog::log(MC_TRACE_L1, "Entering Native::initZorb() with latency = %d, domain = %s \n",
               static_cast<int>(latencyArg), domain.get().c_str());
  });
  return 1;
}

ZORB_NATIVE(void, initNativeCache)
(JNIEnv* jni, jclass, jint theNodeCacheSize, jint theInterfaceCacheSize, jint theAddressCacheSize,
 jint theSubnetCacheSize, jint theVlanCacheSize, jint theHSRPCacheSize, jint theIfcCacheSize) {
  runNative(jni, "initNativeCache", [&](JavaEnv&) {
    ZNTopoAPI::setCacheSize(theNodeCacheSize, theInterfaceCacheSize, theAddressCacheSize,
                            theSubnetCacheSize, theVlanCacheSize, theHSRPCacheSize,
                            theIfcCacheSize);
  });
}

ZORB_NATIVE(void, setTopologyConfigurationNative)(JNIEnv* jni, jclass, jobject topoConfig) {
  runNative(jni, "setTopologyConfigurationNative", [&](JavaEnv& env) {
    ZNTopoConfig config = ZNTopoAPI::getTopoConfiguration();
    for (const Switch& each : kSwitches) {
      bool value = false;
      if (javaNativeGetInstanceBoolean(env, topoConfig, each.field, value) == 0) {
        each.set(config, value);
      } else {
        MCLog::log(MC_INFO, "%s", each.failure);
      }
    }
    ZNTopoAPI::setTopoConfiguration(config);
  });
}

ZORB_NATIVE(void, setNativeMClogLevel)(JNIEnv* jni, jclass, jint newLevel) {
  runNative(jni, "setNativeMClogLevel", [&](JavaEnv&) {
    const MCDebugLevel before = MCLog::debugLevel();
    MCLog::setDebuggingLevel(static_cast<MCDebugLevel>(newLevel));
    MCLog::log(MC_INFO, "New logging level changed from %d to %d\n", static_cast<int>(before),
               static_cast<int>(newLevel));
  });
}

ZORB_NATIVE(void, clearNativeCache)(JNIEnv* jni, jobject) {
  runNative(jni, "clearNativeCache", [](JavaEnv&) {
    ZNTopoAPI api;
    api.clearCache();
  });
}

ZORB_NATIVE(void, preLoadTopoCacheNative)
(JNIEnv* jni, jclass, jboolean loadSwitchNode, jboolean loadRouterNode, jboolean loadVlan,
 jboolean loadHSRP, jboolean loadConnectedIFs, jobject statusArg) {
  runNative(jni, "preLoadTopoCacheNative", statusArg, [&](JavaEnv& env) {
    ZNTopoAPI api;
    setStatus(env, statusArg,
              api.preLoadTopoCache(loadSwitchNode != 0, loadRouterNode != 0, loadVlan != 0,
                                   loadHSRP != 0, loadConnectedIFs != 0));
  });
}
