#pragma once

#include "zntopo/bridge/detail/JavaEnv.h"
#include "zntopo/core/MCLog.h"

namespace zntopo::bridge {

/// What list builders differ in.
struct ListBuilder {
  const char* name;
  JavaTypeID collection;
  const char* element;       ///< the class of the elements, for the log
  bool isDescribed = false;  ///< as in JavaType
  bool keepsNulls = false;   ///< what could not be made is a null in the collection
};

inline JavaMethodID addOf(JavaTypeID collection) {
  if (collection == T_ArrayList) return M_ArrayListAdd;
  return collection == T_HashSet ? M_HashSetAdd : M_VectorAdd;
}

/// A Java collection of what create makes of each element. Each element's reference is given back
/// at once, so that a list of any length needs a few.
template <typename Elements, typename Create>
LocalRef<> createCollection(JavaEnv& env, const ListBuilder& list, const Elements& elements,
                            Create create) {
  LocalRef<> collection = env.makeCollection(list.collection, list.name, list.isDescribed);
  if (!collection) return {};
  const JavaMethodID add = addOf(list.collection);
  for (const auto& element : elements) {
    const LocalRef<> made = create(element);
    if (env.isStopped()) return {};
    if (!made && !list.keepsNulls) {
      MCLog::log(MC_MINOR, "Failed to create %s in %s \n", list.element, list.name);
      continue;
    }
    env.add(add, collection.get(), made);
    if (env.isStopped()) return {};
  }
  return collection;
}

/// The same of handles to objects, with a builder that shares them through the Java cache.
template <typename Objects, typename Create>
LocalRef<> createObjects(JavaEnv& env, const ListBuilder& list, const Objects& objects,
                         jobject theJavaCache, Create create) {
  return createCollection(env, list, objects,
                          [&](const auto& object) { return create(env, object, theJavaCache); });
}

}  // namespace zntopo::bridge
