#pragma once

#include <jni.h>

#include <array>
#include <exception>
#include <functional>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>

#include "zntopo/api/ZNTopoAPI.h"
#include "zntopo/bridge/detail/Arguments.h"
#include "zntopo/bridge/detail/Builders.h"
#include "zntopo/bridge/detail/JavaEnv.h"
#include "zntopo/core/MCLog.h"
#include "zntopo/core/ZNTopoAPIStatus.h"
#include "zntopo/core/detail/OperationScope.h"

/// @file
/// What all natives have in common.

namespace zntopo::bridge {

/// Tells a ZorbTopoStatus the number and the auxiliary text of a status. Another object, and null,
/// is told nothing.
void setStatus(JavaEnv& env, jobject statusArg, const ZNTopoAPIStatus& status);

/// Where the Java cache is to be validated, after each call that feeds it: nothing is needed yet.
void validateCache(JavaEnv& env, jobject theJavaCache, const ZNTopoAPIStatus& status);

/// No route distinguisher.
inline constexpr int kNoRD = -1;

/// What a native was given to answer with, beside its own arguments.
struct Answer {
  Answer(JavaEnv& env, jobject status, jobject cache = nullptr)
      : statusArg(status), theJavaCache(env.isA(cache, T_ZorbTopoCache) ? cache : nullptr) {}

  jobject statusArg;
  jobject theJavaCache;  ///< null for an object of another class, too
};

/// That of a text with a NUL in it.
ZNTopoAPIStatus nulStatus();

/// A text of Java as the library takes it.
class TextArgument {
 public:
  TextArgument(JavaEnv& env, jstring text);
  const std::string& get() const { return text_; }
  /// False, and the status says so, for a text with a NUL in it.
  bool isSound(ZNTopoAPIStatus& status) const;

 private:
  std::string text_;
};

/// Tells the log and the status what ended a native before it was done.
void tellEnd(JNIEnv* jni, const char* native, jobject statusArg,
             const std::exception& end) noexcept;

/// Runs a native in its log scope. No exception of C++ leaves it: the answer is null then, and the
/// status tells. One of Java that is pending when it begins stays, and nothing is done.
template <typename Body>
auto runNative(JNIEnv* jni, const detail::TracedBlock& block, jobject statusArg, Body body) {
  using Result = std::invoke_result_t<Body, JavaEnv&>;
  try {
    const detail::OperationScope scope(block);
    JavaEnv env(jni);
    if constexpr (std::is_void_v<Result>) {
      if (!env.isStopped()) body(env);
      return;
    } else {
      return static_cast<jobject>(env.isStopped() ? nullptr : body(env).release());
    }
  } catch (const std::exception& end) {
    tellEnd(jni, block.name, statusArg, end);
  }
  if constexpr (!std::is_void_v<Result>) return static_cast<jobject>(nullptr);
}

/// The same without a status.
template <typename Body>
auto runNative(JNIEnv* jni, const detail::TracedBlock& block, Body body) {
  return runNative(jni, block, nullptr, std::move(body));
}

/// The Java object of the one object that fetch gives. One that comes with a failure, as a subnet
/// without its end points does, is null, and stays out of the Java cache.
template <typename Fetch, typename Create>
LocalRef<> singleAnswer(JavaEnv& env, const Answer& answer, Fetch fetch, Create create) {
  ZNTopoAPI api;
  ZNTopoAPIStatus status;
  const auto object = fetch(api, status);
  validateCache(env, answer.theJavaCache, status);
  setStatus(env, answer.statusArg, status);
  if (!status.isOK() || object.isNull()) return {};
  return create(env, object, answer.theJavaCache);
}

ZNTopoAPIStatus nullListStatus();

/// Gives null, with a status that refuses an empty identifier.
LocalRef<> refuseID(JavaEnv& env, jobject statusArg, const char* text);

/// What finds one object by an identifier, find(api, id, status), and what makes its twin. The API
/// is not asked for an empty identifier that is refused: the status has the text of the refusal.
template <typename Find, typename Create>
struct IDQuestion {
  Find find;
  Create create;
  const char* refusal = nullptr;
};
template <typename Find, typename Create, typename... Refusal>
IDQuestion(Find, Create, Refusal...) -> IDQuestion<Find, Create>;

template <typename Find, typename Create>
LocalRef<> answerByID(JavaEnv& env, const Answer& answer, const ObjID& id,
                      const IDQuestion<Find, Create>& question) {
  if (question.refusal != nullptr && id.isNull()) {
    return refuseID(env, answer.statusArg, question.refusal);
  }
  return singleAnswer(
      env, answer,
      [&](ZNTopoAPI& api, ZNTopoAPIStatus& status) {
        return std::invoke(question.find, api, id, status);
      },
      question.create);
}

/// By the identifier that a Java field holds.
template <typename Find, typename Create>
jobject byObjID(JNIEnv* jni, const detail::TracedBlock& block, jobject idArg, jobject statusArg,
                jobject theJavaCache, const IDQuestion<Find, Create>& question) {
  return runNative(jni, block, statusArg, [&](JavaEnv& env) {
    return answerByID(env, {env, statusArg, theJavaCache}, getNativeObjID(env, idArg), question);
  });
}

/// By the identifier that a Java method gives, as legacy ones are read.
template <typename Find, typename Create>
jobject byQRMObjID(JNIEnv* jni, const detail::TracedBlock& block, jobject idArg, jobject statusArg,
                   jobject theJavaCache, const IDQuestion<Find, Create>& question) {
  return runNative(jni, block, statusArg, [&](JavaEnv& env) {
    ObjID id;
    if (!readObjID(env, idArg, block.name, id)) return LocalRef<>();
    return answerByID(env, {env, statusArg, theJavaCache}, id, question);
  });
}

/// How the failures of a list are told.
struct ListCall {
  const char* operation;       ///< what the log calls it
  bool tellsNullList = false;  ///< whether the status tells of a null list, too
  const char* prefix = "";     ///< of the line that the log has of a failure
};
void logProblem(const ListCall& call, const ZNTopoAPIStatus& status);

/// The Java collection of the list that fetch gives: what create makes of it.
template <typename Fetch, typename Create>
LocalRef<> listAnswer(JavaEnv& env, const Answer& answer, const ListCall& call, Fetch fetch,
                      Create create) {
  ZNTopoAPI api;
  ZNTopoAPIStatus status;
  const auto list = fetch(api, status);
  validateCache(env, answer.theJavaCache, status);
  setStatus(env, answer.statusArg, status);
  // Neighbours that are not all of them are a list, too.
  if (!status.isOK() && status.getStatus() != ZN_API_INCOMPLETE_NEIGHBOR_INFO) {
    logProblem(call, status);
    return {};
  }
  if (!list) {
    MCLog::log(MC_INFO, "Null List from C++ API \n");
    if (call.tellsNullList) setStatus(env, answer.statusArg, nullListStatus());
    return {};
  }
  return create(*list);
}

/// The same with a builder that shares the objects of the list through the Java cache.
template <typename Fetch, typename Create>
LocalRef<> objectsAnswer(JavaEnv& env, const Answer& answer, const ListCall& call, Fetch fetch,
                         Create create) {
  return listAnswer(env, answer, call, fetch,
                    [&](const auto& objects) { return create(env, objects, answer.theJavaCache); });
}

/// The identifiers that ask gives for a Java filter.
template <typename Ask>
LocalRef<> filteredIDs(JavaEnv& env, jobject statusArg, jobject filterArg, const char* operation,
                       Ask ask) {
  ZNTopoFilter filter;
  const bool isSound = populateFilter(env, filterArg, filter);
  return listAnswer(
      env, {env, statusArg}, {operation},
      [&](ZNTopoAPI& api, ZNTopoAPIStatus& status) {
        if (isSound) return ask(api, filter, status);
        status = nulStatus();
        return ZNTopoAPI::OwnedIDList();
      },
      [&](const std::list<ObjID>& ids) { return createObjIDList(env, ids); });
}

/// The identifiers that an operation of the API gives for a Java filter, all at once.
using FilterOperation = ZNTopoAPI::OwnedIDList (ZNTopoAPI::*)(const ZNTopoFilter&, ZNTopoAPIStatus&,
                                                              BatchInfo*);
inline LocalRef<> idsByFilter(JavaEnv& env, jobject statusArg, jobject filterArg,
                              const char* operation, FilterOperation ask) {
  return filteredIDs(env, statusArg, filterArg, operation,
                     [&](ZNTopoAPI& api, const ZNTopoFilter& filter, ZNTopoAPIStatus& status) {
                       return (api.*ask)(filter, status, nullptr);
                     });
}

/// What fetches by Java texts: ask(api, text..., status). It fetches nothing by a text with a NUL.
template <typename Ask, typename... Texts>
auto byTexts(JavaEnv& env, Ask ask, Texts... texts) {
  return [ask, taken = std::array{TextArgument(env, texts)...}](ZNTopoAPI& api,
                                                                ZNTopoAPIStatus& status) {
    return std::apply(
        [&](const auto&... text) {
          using Fetched = decltype(std::invoke(ask, api, text.get()..., status));
          return (text.isSound(status) && ...) ? std::invoke(ask, api, text.get()..., status)
                                               : Fetched();
        },
        taken);
  };
}

}  // namespace zntopo::bridge

/// The name under which the JVM finds a native of ZorbNative. The generated header declares each,
/// so the compiler holds its arguments against the Java class.
#define ZORB_NATIVE(type, name) \
  extern "C" ZNTOPO_EXPORT type JNICALL Java_com_corvane_tv_zntopology_ZorbNative_##name
