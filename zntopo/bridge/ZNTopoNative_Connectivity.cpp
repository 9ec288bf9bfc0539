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
  return runNative(jni, "getNodeNeighbors", [&](JavaEnv& env) {
    const TextArgument name(env, nameArg);
    return listAnswer(
        env, {env, statusArg, theJavaCache}, {"getNodeNeighbors", true},
        [&](ZNTopoAPI& api, ZNTopoAPIStatus& status) {
          if (!name.isSound(status)) return ZNTopoAPI::OwnedConnectionList();
          return api.getNodeNeighbors(name.get(), status, nHopsArg, nMaxNodesArg);
        },
        [&](const auto& connections) { return createList(env, connections); });
  });
}

ZORB_NATIVE(jobject, getConnectivityNative)
(JNIEnv* jni, jobject, jobjectArray objIDsArg, jobject jnotFoundIDs, jboolean includeAllNodes,
 jboolean isQRMId, jobject statusArg, jobject theJavaCache) {
  return runNative(jni, "getConnectivityNative", [&](JavaEnv& env) {
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
  return runNative(jni, "getL2PathNative", [&](JavaEnv& env) {
    const TextArgument begin(env, ipBegin);
    const TextArgument end(env, ipEnd);
    return objectsAnswer(
        env, {env, statusArg, theJavaCache}, {"getL2Path", false, "(getL2PathNative) "},
        [&](ZNTopoAPI& api, ZNTopoAPIStatus& status) {
          if (!begin.isSound(status) || !end.isSound(status)) {
            return ZNTopoAPI::OwnedInterfaceList();
          }
          return api.getL2Path(begin.get(), end.get(), kMaxDepth, status, ZNAddress::IPv4,
                               crossRouter != 0);
        },
        createInterfaceList);
  });
}

ZORB_NATIVE(jobject, getL2PathBetweenNodesNative)
(JNIEnv* jni, jobject, jstring srcNode, jstring destNode, jobject statusArg, jobject theJavaCache,
 jboolean crossRouter) {
  return runNative(jni, "getL2PathBetweenNodesNative", [&](JavaEnv& env) {
    const TextArgument source(env, srcNode);
    const TextArgument destination(env, destNode);
    return listAnswer(
        env, {env, statusArg, theJavaCache}, {"getL2Path", false, "(getL2PathBetweenNodesNative) "},
        [&](ZNTopoAPI& api, ZNTopoAPIStatus& status) {
          ZNTopoAPI::OwnedConnDataVector links;
          if (!source.isSound(status) || !destination.isSound(status)) return links;
          const auto path = api.getL2PathBetweenNodes(source.get(), destination.get(), kMaxDepth,
                                                      status, ZNAddress::IPv4, crossRouter != 0);
          if (status.isOK() && path) {
            links = api.convertPathInterfaceListToConnDataList(*path, status);
          }
          return links;
        },
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
