#pragma once

#include <string>

#include "zntopo/core/ObjID.h"
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
};

/// The first object that read() gives, as a list or a vector that is owned; else null, with
/// ZN_API_INVALID_ID or what read() left in the status.
template <typename Read>
auto singleObject(const ObjID& id, const SingleObjectTexts& texts, ZNTopoAPIStatus& status,
                  const Read& read) {
  using Handle = typename decltype(read())::element_type::value_type;
  if (texts.nullID && id.isNull()) {
    setFailure(status, ZN_API_INVALID_ID, texts.nullID);
    return Handle();
  }
  const auto objects = read();
  if (!status.isOK() && !texts.replacesFailure) return Handle();
  if (!objects->empty()) return objects->front();
  const std::string shownID = texts.afterID ? id.toString() + texts.afterID : "";
  setFailure(status, ZN_API_INVALID_ID, texts.beforeID + shownID);
  return Handle();
}

}  // namespace zntopo::detail
