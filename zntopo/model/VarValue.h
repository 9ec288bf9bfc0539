#pragma once

#include <cstdint>
#include <string>

#include "zntopo/platform/Export.h"

namespace zntopo {

/// A tagged value. Its fields stand side by side: the tag tells which of them counts, and setting
/// one leaves the others alone. A fresh value is tagged VT_Capability, with the boolean true.
///
/// Owns its block of octets. It has no lock.
class ZNTOPO_EXPORT VarValue {
 public:
  enum ValType : int {
    VT_Short = 0,
    VT_Long = 1,
    VT_LongLong = 2,
    VT_Str = 3,
    VT_Capability = 4,
    VT_Float = 5,
    VT_Bool = 6,
    VT_Octet = 7
  };

  VarValue();
  VarValue(bool value);                // NOLINT(google-explicit-constructor)
  VarValue(short value);               // NOLINT(google-explicit-constructor)
  VarValue(int value);                 // NOLINT(google-explicit-constructor)
  VarValue(long value);                // NOLINT(google-explicit-constructor)
  VarValue(long long value);           // NOLINT(google-explicit-constructor)
  VarValue(float value);               // NOLINT(google-explicit-constructor)
  VarValue(const std::string& value);  // NOLINT(google-explicit-constructor)
  VarValue(const char* value);         // NOLINT(google-explicit-constructor)
  VarValue(const void* octets, unsigned length);
  VarValue(const VarValue& other);
  /// Takes over the source's tag and the field of that tag; the other fields stay.
  VarValue& operator=(const VarValue& other);
  ~VarValue();

  /// To the fresh state. The octet pointer is dropped and not freed: for use on a value that
  /// holds none.
  void init();

  void setVal(bool value);
  void setVal(short value);
  void setVal(int value);
  /// Numbers beyond 32 bits saturate.
  void setVal(long value);
  void setVal(long long value);
  void setVal(float value);
  void setVal(const std::string& value);
  /// A null pointer is an empty text.
  void setVal(const char* value);
  /// Copies the octets. A failed allocation leaves a VT_Octet of length 0.
  void setVal(const void* octets, unsigned length);

  ValType getValType() const { return _type; }
  short getValTypeAsShort() const { return static_cast<short>(_type); }
  bool getBoolVal() const { return _vBool; }
  short getShortVal() const { return _vShort; }
  long getLongVal() const { return _vLong; }
  long long getLongLongVal() const { return _vLongLong; }
  float getFloatVal() const { return _vFloat; }
  const std::string& getStrVal() const { return _vStr; }
  const void* getOctetVal() const { return _vOctetPtr; }
  unsigned getOctetValLen() const { return _vOctetLen; }
  /// The number of a VT_Short or a VT_Long, 0 for every other tag.
  int getIntVal() const;
  /// Widened by tag; a VT_Octet gives its pointer's value, texts, floats and capabilities 0.
  long long castIntValToLongLong() const;

  /// The value as text; of a VT_LongLong only the low 32 bits.
  std::string getValAsStr() const;
  std::string toString() const;

  ValType _type;
  short _vShort;
  std::int32_t _vLong;
  long long _vLongLong;
  float _vFloat;
  bool _vBool;
  std::string _vStr;
  void* _vOctetPtr;
  std::uint32_t _vOctetLen;
};

/// Values of different tags are unequal, and neither less nor greater.
ZNTOPO_EXPORT bool operator==(const VarValue& lhs, const VarValue& rhs);
/// Reads its operands the other way round: true when rhs's value is below lhs's. Octets of equal
/// length are the exception, and compare as memcmp(lhs, rhs) < 0.
ZNTOPO_EXPORT bool operator<(const VarValue& lhs, const VarValue& rhs);
/// The reverse of operator<.
ZNTOPO_EXPORT bool operator>(const VarValue& lhs, const VarValue& rhs);

}  // namespace zntopo
