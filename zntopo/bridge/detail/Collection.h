#pragma once

#include <type_traits>

#include "zntopo/bridge/detail/JavaEnv.h"
#include "zntopo/core/MCLog.h"
#include "zntopo/core/ZNRefPtr.h"

/// @file
/// The builders of Java collections, as data.

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

/// What an element is, or the handle that an element is refers to.
template <typename T>
struct Referred {
  using Type = T;
};
template <typename T>
struct Referred<ZNRefPtr<T>> {
  using Type = T;
};

/// Builds a collection of values. A null handle among them is what could not be made.
template <typename Elements>
struct ValueList {
  using Element = typename Elements::value_type;
  using Value = typename Referred<Element>::Type;

  LocalRef<> operator()(JavaEnv& env, const Elements& elements) const {
    return createCollection(env, list, elements, [&](const Element& element) -> LocalRef<> {
      if constexpr (std::is_same_v<Element, Value>) {
        return create(env, element);
      } else {
        return element.isNull() ? LocalRef<>() : create(env, *element);
      }
    });
  }

  ListBuilder list;
  LocalRef<> (*create)(JavaEnv& env, const Value& value);
};

/// Builds a collection of objects, which are shared through the Java cache.
template <typename Handles>
struct ObjectList {
  using Handle = typename Handles::value_type;

  LocalRef<> operator()(JavaEnv& env, const Handles& handles, jobject theJavaCache) const {
    return createCollection(env, list, handles, [&](const Handle& handle) {
      return create(env, handle, theJavaCache);
    });
  }

  ListBuilder list;
  LocalRef<> (*create)(JavaEnv& env, Handle handle, jobject theJavaCache);
};

}  // namespace zntopo::bridge
