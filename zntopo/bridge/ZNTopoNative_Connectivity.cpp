#include <com_corvane_tv_zntopology_ZorbNative.h>

#include "zntopo/bridge/detail/Builders.h"
#include "zntopo/bridge/detail/NativeFrame.h"
#include "zntopo/bridge/detail/PathDocument.h"
#include "zntopo/platform/tvutil/JavaText.h"

using namespace zntopo;
using namespace zntopo::bridge;

namespace {

constexpr int kMaxDepth = 20;

}  // namespace

ZORB_NATIVE(jobject, getNodeNeighbors)
(JNIEnv* jni, jobject, jstring nameArg, jint nHopsArg, jint nMaxNodesArg, jobject statusArg,
 jobject theJavaCache) {
  return runNative(jni, "getNodeNeighbors", statusArg, [&](JavaEnv& env) {
    const auto ask = [&](ZNTopoAPI& api, const std::string& name, ZNTopoAPIStatus& status) {
      return api.getNodeNeighbors(name, status, nHopsArg, nMaxNodesArg);
    };
    return listAnswer(env, {env, statusArg, theJavaCache}, {"getNodeNeighbors", true},
                      byTexts(env, ask, nameArg),
                      [&](const auto& connections) { return createList(env, connections); });
  });
}

ZORB_NATIVE(jobject, getConnectivityNative)
(JNIEnv* jni, jobject, jobjectArray objIDsArg, jobject jnotFoundIDs, jboolean includeAllNodes,
 jboolean isQRMId, jobject statusArg, jobject theJavaCache) {
  return runNative(jni, "getConnectivityNative", statusArg, [&](JavaEnv& env) {
    const auto ids = createObjIDSetNative(env, objIDsArg);
    std::set<ObjID> notFound;
    LocalRef<> connections = listAnswer(
        env, {env, statusArg, theJavaCache}, {"getConnectivity", true},
        [&](ZNTopoAPI& api, ZNTopoAPIStatus& status) {
          return api.getConnectivity(*ids, notFound, status, includeAllNodes != 0, isQRMId != 0);
        },
        [&](const auto& list) { return createList(env, list); });
    populateObjIDList(env, notFound, jnotFoundIDs);
    return connections;
  });
}

ZORB_NATIVE(jobject, getL2PathNative)
(JNIEnv* jni, jobject, jstring ipBegin, jstring ipEnd, jobject statusArg, jobject theJavaCache,
 jboolean crossRouter) {
  return runNative(jni, "getL2PathNative", statusArg, [&](JavaEnv& env) {
    const auto ask = [&](ZNTopoAPI& api, const std::string& begin, const std::string& end,
                         ZNTopoAPIStatus& status) {
      return api.getL2Path(begin, end, kMaxDepth, status, ZNAddress::IPv4, crossRouter != 0);
    };
    return objectsAnswer(env, {env, statusArg, theJavaCache},
                         {"getL2Path", false, "(getL2PathNative) "},
                         byTexts(env, ask, ipBegin, ipEnd), createInterfaceList);
  });
}

ZORB_NATIVE(jobject, getL2PathBetweenNodesNative)
(JNIEnv* jni, jobject, jstring srcNode, jstring destNode, jobject statusArg, jobject theJavaCache,
 jboolean crossRouter) {
  return runNative(jni, "getL2PathBetweenNodesNative", statusArg, [&](JavaEnv& env) {
    const auto ask = [&](ZNTopoAPI& api, const std::string& source, const std::string& destination,
                         ZNTopoAPIStatus& status) {
      const auto path = api.getL2PathBetweenNodes(source, destination, kMaxDepth, status,
                                                  ZNAddress::IPv4, crossRouter != 0);
      if (!status.isOK() || !path) return ZNTopoAPI::OwnedConnDataVector();
      return api.convertPathInterfaceListToConnDataList(*path, status);
    };
    return listAnswer(env, {env, statusArg, theJavaCache},
                      {"getL2Path", false, "(getL2PathBetweenNodesNative) "},
                      byTexts(env, ask, srcNode, destNode),
                      [&](const auto& links) { return createConnDataList(env, links); });
  });
}

namespace {

/// The document of a path that find gives, as a Java text.
template <typename Find>
LocalRef<> documentAnswer(JavaEnv& env, const char* root, jstring begin, jstring end, Find find) {
  const TextArgument from(env, begin);
  const TextArgument to(env, end);
  ZNTopoAPI api;
  ZNTopoAPIStatus status;
  ZNTopoAPI::OwnedInterfaceList path;
  if (from.isSound(status) && to.isSound(status)) path = find(api, from.get(), to.get(), status);
  return env.text(pathDocument(root, from.get(), to.get(), status, path.get()));
}

}  // namespace

ZORB_NATIVE(jstring, getL2PathXML)(JNIEnv* jni, jobject, jstring ipBegin, jstring ipEnd) {
  return static_cast<jstring>(runNative(jni, "getL2PathXML", [&](JavaEnv& env) {
    return documentAnswer(env, "GETL2PATH", ipBegin, ipEnd,
                          [](ZNTopoAPI& api, const std::string& begin, const std::string& end,
                             ZNTopoAPIStatus& status) {
                            return api.getL2Path(begin, end, kMaxDepth, status, ZNAddress::IPv4,
                                                 false);
                          });
  }));
}

ZORB_NATIVE(jstring, getL2PathBetweenNodesXML)
(JNIEnv* jni, jobject, jstring ipBegin, jstring ipEnd, jboolean crossRouter) {
  return static_cast<jstring>(runNative(jni, "getL2PathBetweenNodesXML", [&](JavaEnv& env) {
    return documentAnswer(env, "GETL2PATH_BETWEEN_NODES", ipBegin, ipEnd,
                          [&](ZNTopoAPI& api, const std::string& begin, const std::string& end,
                              ZNTopoAPIStatus& status) {
                            return api.getL2PathBetweenNodes(begin, end, kMaxDepth, status,
                                                             ZNAddress::IPv4, crossRouter != 0);
                          });
  }));
}
