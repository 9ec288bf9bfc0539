#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "zntopo/platform/Export.h"
#include "zntopo/platform/tv/MS_Uuid.h"

namespace zntopo {

/// A 64-bit number as the interfaces of this library take it.
using int64 = long long;

/// A tagged identifier of a topology object: null, a 32-bit number, a UUID or a text.
///
/// Text is parsed by fixed rules: empty is null, 36 characters with dashes at the positions 8,
/// 13 and 23 are a UUID, digits alone (of another length than 36) are a number, all else is a
/// text. Identifiers come from the columns named ...ObjId of every table.
///
/// Identifiers of different kinds never order against each other, so in an ordered container
/// one of a kind is equivalent to each of another: look up through findObjID() of
/// core/ObjIDLookup.h, which tests for equality behind the find.
///
/// A value type: a text is on the heap, all else in the value itself. It has no lock: one value
/// belongs to one thread at a time.
class ZNTOPO_EXPORT ObjID {
 public:
  enum ObjType : int { E_Null = 0, E_Long = 1, E_MsUuid = 2, E_String = 3 };

  /// Null.
  ObjID() noexcept : _objType(E_Null) {}
  /// A number. Numbers beyond 32 bits saturate.
  ObjID(const long& value);  // NOLINT(google-explicit-constructor)
  ObjID(const int& value);   // NOLINT(google-explicit-constructor)
  /// These keep the low 32 bits.
  ObjID(const int64& value);               // NOLINT(google-explicit-constructor)
  ObjID(const unsigned& value);            // NOLINT(google-explicit-constructor)
  ObjID(const unsigned long& value);       // NOLINT(google-explicit-constructor)
  ObjID(const unsigned long long& value);  // NOLINT(google-explicit-constructor)
  /// From a text, by the rules above; a null pointer is null.
  ObjID(const char* text);         // NOLINT(google-explicit-constructor)
  ObjID(const std::string& text);  // NOLINT(google-explicit-constructor)
  ObjID(const ObjID& other) : _id(other._id), _objType(other._objType) {
    if (_objType == E_String) ownText();
  }
  ObjID(ObjID&& other) noexcept : _id(other._id), _objType(other._objType) {
    other._objType = E_Null;
  }
  ~ObjID() { clear(); }

  ObjID& operator=(const ObjID& other) {
    if (this != &other) *this = ObjID(other);
    return *this;
  }
  ObjID& operator=(ObjID&& other) noexcept {
    if (this == &other) return *this;
    clear();
    _id = other._id;
    _objType = other._objType;
    other._objType = E_Null;
    return *this;
  }
  /// A number. Keeps the low 32 bits, so that every integer that is assigned does.
  ObjID& operator=(const unsigned long& value);

  /// True for the kind E_Null alone: the number 0 is not null.
  bool isNull() const { return _objType == E_Null; }
  ObjType getIDType() const { return _objType; }
  /// A number: value rem 2048. A text: the sum of its characters rem 2048. A UUID: its hash.
  unsigned long getHash() const;
  /// The number; what atol yields for a text, saturating at 32 bits; 0 for the others.
  long getLongValue() const;
  /// The text form, "NULL" for the null identifier.
  std::string getStrValue() const;
  /// The text form, empty for the null identifier.
  std::string toString() const;
  operator std::string() const;  // NOLINT(google-explicit-constructor)

  /// Releases the text and becomes null.
  void clear() {
    if (_objType == E_String) delete[] _id._sid;
    _objType = E_Null;
  }

  friend bool operator==(const ObjID& left, const ObjID& right) {
    if (left._objType != right._objType) return false;
    return left._objType == E_MsUuid ? left._id._msid == right._id._msid : left.isSame(right);
  }
  /// False between different kinds and with a null identifier on either side.
  friend bool operator<(const ObjID& left, const ObjID& right) {
    if (left._objType != right._objType) return false;
    return left._objType == E_MsUuid ? left._id._msid < right._id._msid : left.isLess(right);
  }

 private:
  void CreateObj(const char* text);
  /// Replaces the text, another's, by a copy.
  void ownText();
  void setLong(long value);
  // The comparisons of kinds other than UUIDs, which the two have in common.
  bool isSame(const ObjID& other) const;
  bool isLess(const ObjID& other) const;

  union myId {
    myId() : _sid(nullptr) {}
    std::int32_t _lid;
    MS_Uuid _msid;
    char* _sid;
  } _id;
  ObjType _objType;
};

bool operator==(const ObjID& left, const ObjID& right);
bool operator<(const ObjID& left, const ObjID& right);
inline bool operator!=(const ObjID& left, const ObjID& right) { return !(left == right); }

/// Hash function object for unordered containers.
struct ObjIDHash {
  std::size_t operator()(const ObjID& id) const { return id.getHash(); }
};

/// Equality function object for unordered containers.
struct ObjIDEQ {
  bool operator()(const ObjID& left, const ObjID& right) const { return left == right; }
};

}  // namespace zntopo
