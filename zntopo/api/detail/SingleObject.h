#pragma once

#include <memory>
#include <string>

#include "zntopo/core/ObjID.h"
#include "zntopo/core/ZNRefPtr.h"
#include "zntopo/core/detail/Failure.h"

namespace zntopo::detail {

/// What differs between the look-ups of one object by an identifier.
struct SingleObjectTexts {
  /// The complaint about the null identifier; without it that is asked for like any other.
  const char* nullID = nullptr;
  /// The complaint about an identifier that gave no object: the identifier, with text around it;
  /// without a text behind it, the identifier is left out.
  const char* beforeID = "";
  const char* afterID = nullptr;
  /// Whatever kept the object from being read, the complaint replaces it.
  bool replacesFailure = false;
  /// An object is given even if a part of it failed to load, with the status of that.
  bool givesIncomplete = false;
};

template <typename T>
ZNRefPtr<T> firstOf(ZNRefPtr<T> object) {
  return object;
}
template <typename Objects>
typename Objects::value_type firstOf(const std::unique_ptr<Objects>& objects) {
  return objects->empty() ? typename Objects::value_type() : objects->front();
}

/// What read() gives, an object or the first one of an owned list or vector; else null, with
/// ZN_API_INVALID_ID or what read() left in the status.
template <typename Read>
auto singleObject(const ObjID& id, const SingleObjectTexts& texts, ZNTopoAPIStatus& status,
                  const Read& read) {
  using Handle = decltype(firstOf(read()));
  if (texts.nullID && id.isNull()) {
    setFailure(status, ZN_API_INVALID_ID, texts.nullID);
    return Handle();
  }
  Handle object = firstOf(read());
  if (texts.givesIncomplete && !object.isNull()) return object;
  if (!status.isOK() && !texts.replacesFailure) return Handle();
  if (!object.isNull()) return object;
  const std::string shownID = texts.afterID ? id.toString() + texts.afterID : "";
  setFailure(status, ZN_API_INVALID_ID, texts.beforeID + shownID);
  return Handle();
}

}  // namespace zntopo::detail
