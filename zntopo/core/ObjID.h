#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "zntopo/platform/Export.h"

class MS_Uuid;

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
/// A value type that owns its heap part. It has no lock: one value belongs to one thread at a
/// time.
class ZNTOPO_EXPORT ObjID {
 public:
  enum ObjType : int { E_Null = 0, E_Long = 1, E_MsUuid = 2, E_String = 3 };

  /// Null.
  ObjID() noexcept;
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
  ObjID(const ObjID& other);
  ObjID(ObjID&& other) noexcept;
  ~ObjID();

  ObjID& operator=(const ObjID& other);
  ObjID& operator=(ObjID&& other) noexcept;
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

  /// Releases the heap part and becomes null.
  void clear();

  friend ZNTOPO_EXPORT bool operator==(const ObjID& left, const ObjID& right);
  friend ZNTOPO_EXPORT bool operator<(const ObjID& left, const ObjID& right);

 private:
  void CreateObj(const char* text);
  void copyFrom(const ObjID& other);
  void moveFrom(ObjID& other) noexcept;
  void setLong(long value);

  union myId {
    std::int32_t _lid;
    MS_Uuid* _msid;
    char* _sid;
  } _id;
  ObjType _objType;
};

ZNTOPO_EXPORT bool operator==(const ObjID& left, const ObjID& right);
/// False between different kinds and with a null identifier on either side.
ZNTOPO_EXPORT bool operator<(const ObjID& left, const ObjID& right);
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
