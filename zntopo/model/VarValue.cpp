#include "zntopo/model/VarValue.h"

#include <algorithm>
#include <cinttypes>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>

#include "zntopo/core/ltos.h"
#include "zntopo/model/detail/EnumTable.h"

namespace zntopo {

namespace {

constexpr detail::EnumText<VarValue::ValType> kTypeNames[] = {
    {VarValue::VT_Short, "short"},
    {VarValue::VT_Long, "long"},
    {VarValue::VT_LongLong, "long long"},
    {VarValue::VT_Str, "string"},
    {VarValue::VT_Capability, "CapabilityType"},
    {VarValue::VT_Float, "float"},
    {VarValue::VT_Bool, "bool"},
    {VarValue::VT_Octet, "octet"},
};

/// Calls a function with the field that the tag of a value stands for; false for octets and
/// unknown tags. A pair of values of one tag goes through it for every comparison.
template <typename Compare>
bool compareFields(const VarValue& lhs, const VarValue& rhs, Compare compare) {
  switch (lhs._type) {
    case VarValue::VT_Short:
      return compare(lhs._vShort, rhs._vShort);
    case VarValue::VT_Long:
      return compare(lhs._vLong, rhs._vLong);
    case VarValue::VT_LongLong:
      return compare(lhs._vLongLong, rhs._vLongLong);
    case VarValue::VT_Float:
      return compare(lhs._vFloat, rhs._vFloat);
    case VarValue::VT_Bool:
      return compare(lhs._vBool, rhs._vBool);
    case VarValue::VT_Str:
    case VarValue::VT_Capability:
      return compare(lhs._vStr, rhs._vStr);
    default:
      return false;
  }
}

bool areOctets(const VarValue& lhs, const VarValue& rhs) {
  return lhs._type == VarValue::VT_Octet && rhs._type == VarValue::VT_Octet;
}

/// memcmp of two blocks of equal length, which may be empty.
int compareOctets(const VarValue& lhs, const VarValue& rhs) {
  return lhs._vOctetLen == 0 ? 0 : std::memcmp(lhs._vOctetPtr, rhs._vOctetPtr, lhs._vOctetLen);
}

__attribute__((format(printf, 1, 2))) std::string formatted(const char* format, ...) {
  char buffer[80];
  std::va_list values;
  va_start(values, format);
  std::vsnprintf(buffer, sizeof buffer, format, values);
  va_end(values);
  return buffer;
}

}  // namespace

VarValue::VarValue() { init(); }

VarValue::VarValue(bool value) : VarValue() { setVal(value); }
VarValue::VarValue(short value) : VarValue() { setVal(value); }
VarValue::VarValue(int value) : VarValue() { setVal(value); }
VarValue::VarValue(long value) : VarValue() { setVal(value); }
VarValue::VarValue(long long value) : VarValue() { setVal(value); }
VarValue::VarValue(float value) : VarValue() { setVal(value); }
VarValue::VarValue(const std::string& value) : VarValue() { setVal(value); }
VarValue::VarValue(const char* value) : VarValue() { setVal(value); }
VarValue::VarValue(const void* octets, unsigned length) : VarValue() { setVal(octets, length); }
VarValue::VarValue(const VarValue& other) : VarValue() { *this = other; }

VarValue::~VarValue() { std::free(_vOctetPtr); }

VarValue& VarValue::operator=(const VarValue& other) {
  if (this == &other) return *this;
  switch (other._type) {
    case VT_Short:
      setVal(other._vShort);
      break;
    case VT_Long:
      setVal(static_cast<int>(other._vLong));
      break;
    case VT_LongLong:
      setVal(other._vLongLong);
      break;
    case VT_Str:
      setVal(other._vStr);
      break;
    case VT_Capability: {
      // init() drops the block of octets, so it is released first.
      std::free(_vOctetPtr);
      init();
      break;
    }
    case VT_Float:
      setVal(other._vFloat);
      break;
    case VT_Bool:
      setVal(other._vBool);
      break;
    case VT_Octet:
      setVal(other._vOctetPtr, other._vOctetLen);
      break;
  }
  return *this;
}

void VarValue::init() {
  _type = VT_Capability;
  _vShort = 0;
  _vLong = 0;
  _vLongLong = 0;
  _vFloat = 0;
  _vBool = true;
  _vStr.clear();
  _vOctetPtr = nullptr;
  _vOctetLen = 0;
}

void VarValue::setVal(bool value) {
  _type = VT_Bool;
  _vBool = value;
}

void VarValue::setVal(short value) {
  _type = VT_Short;
  _vShort = value;
}

void VarValue::setVal(int value) {
  _type = VT_Long;
  _vLong = value;
}

void VarValue::setVal(long value) {
  using Limits = std::numeric_limits<std::int32_t>;
  setVal(static_cast<int>(std::clamp<long>(value, Limits::min(), Limits::max())));
}

void VarValue::setVal(long long value) {
  _type = VT_LongLong;
  _vLongLong = value;
}

void VarValue::setVal(float value) {
  _type = VT_Float;
  _vFloat = value;
}

void VarValue::setVal(const std::string& value) {
  _type = VT_Str;
  _vStr = value;
}

void VarValue::setVal(const char* value) {
  _type = VT_Str;
  if (value) {
    _vStr = value;
  } else {
    _vStr.clear();
  }
}

void VarValue::setVal(const void* octets, unsigned length) {
  _type = VT_Octet;
  _vOctetLen = 0;
  if (!octets || length == 0) return;
  // Not resized in place: the octets may be some of this value's own.
  void* const block = std::malloc(length);
  if (!block) return;
  std::memcpy(block, octets, length);
  std::free(_vOctetPtr);
  _vOctetPtr = block;
  _vOctetLen = length;
}

int VarValue::getIntVal() const {
  if (_type == VT_Short) return _vShort;
  return _type == VT_Long ? _vLong : 0;
}

long long VarValue::castIntValToLongLong() const {
  switch (_type) {
    case VT_Short:
      return _vShort;
    case VT_Long:
      return _vLong;
    case VT_LongLong:
      return _vLongLong;
    case VT_Bool:
      return _vBool ? 1 : 0;
    case VT_Octet:
      return reinterpret_cast<std::intptr_t>(_vOctetPtr);
    default:
      return 0;
  }
}

std::string VarValue::getValAsStr() const {
  switch (_type) {
    case VT_Short:
      return ltos(_vShort);
    case VT_Long:
      return ltos(_vLong);
    case VT_LongLong:
      return ltos(static_cast<std::int32_t>(_vLongLong));
    case VT_Str:
      return _vStr;
    case VT_Capability:
      return "N/A";
    case VT_Float:
      return formatted("%f", static_cast<double>(_vFloat));
    case VT_Bool:
      return _vBool ? "true" : "false";
    case VT_Octet:
      return formatted("OctetPtr 0x%08" PRIxPTR ", OctetLen %d",
                       reinterpret_cast<std::uintptr_t>(_vOctetPtr), static_cast<int>(_vOctetLen));
  }
  return "Unknown";
}

std::string VarValue::toString() const {
  return "VarValueType:" + detail::textOf(kTypeNames, _type, "UnknownType") +
         "\tVarValue:" + getValAsStr();
}

bool operator==(const VarValue& lhs, const VarValue& rhs) {
  if (lhs._type != rhs._type) return false;
  if (areOctets(lhs, rhs)) {
    return lhs._vOctetLen == rhs._vOctetLen && compareOctets(lhs, rhs) == 0;
  }
  return compareFields(lhs, rhs, [](const auto& left, const auto& right) { return left == right; });
}

bool operator<(const VarValue& lhs, const VarValue& rhs) {
  if (lhs._type != rhs._type) return false;
  if (areOctets(lhs, rhs)) {
    if (lhs._vOctetLen != rhs._vOctetLen) return rhs._vOctetLen < lhs._vOctetLen;
    return compareOctets(lhs, rhs) < 0;
  }
  return compareFields(lhs, rhs, [](const auto& left, const auto& right) { return right < left; });
}

bool operator>(const VarValue& lhs, const VarValue& rhs) {
  if (lhs._type != rhs._type) return false;
  if (areOctets(lhs, rhs)) {
    if (lhs._vOctetLen != rhs._vOctetLen) return lhs._vOctetLen < rhs._vOctetLen;
    return compareOctets(lhs, rhs) > 0;
  }
  return compareFields(lhs, rhs, [](const auto& left, const auto& right) { return left < right; });
}

}  // namespace zntopo
