#include "zntopo/core/ObjID.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <limits>

#include "zntopo/core/ltos.h"
#include "zntopo/platform/tv/MS_Uuid.h"

namespace zntopo {

namespace {

constexpr int kHashRange = 2048;

std::int32_t saturated(long value) {
  using Limits = std::numeric_limits<std::int32_t>;
  return static_cast<std::int32_t>(
      std::clamp(value, static_cast<long>(Limits::min()), static_cast<long>(Limits::max())));
}

// What atol yields where long has 32 bits.
std::int32_t numberOf(const char* text) { return saturated(std::strtol(text, nullptr, 10)); }

bool isDigit(char c) { return c >= '0' && c <= '9'; }

char* duplicate(const char* text) {
  const std::size_t size = std::strlen(text) + 1;
  auto* const copy = new char[size];
  std::memcpy(copy, text, size);
  return copy;
}

// A word of 32 bits, as the hash of a number or a text has been since long had them.
unsigned long asWord(std::int32_t value) { return static_cast<std::uint32_t>(value); }

unsigned long hashOfText(const char* text) {
  std::uint32_t sum = 0;
  for (; *text; ++text) sum += static_cast<std::uint32_t>(static_cast<signed char>(*text));
  return asWord(static_cast<std::int32_t>(sum) % kHashRange);
}

std::string textOf(const MS_Uuid& uuid) {
  char buffer[MS_Uuid::kTextSize];
  return uuid.as_asciiz(buffer);
}

}  // namespace

ObjID::ObjID(const long& value) : ObjID() { setLong(value); }
ObjID::ObjID(const int& value) : ObjID() { setLong(value); }
ObjID::ObjID(const int64& value) : ObjID() { setLong(static_cast<std::int32_t>(value)); }
ObjID::ObjID(const unsigned& value) : ObjID(static_cast<int>(value)) {}
ObjID::ObjID(const unsigned long& value) : ObjID(static_cast<int64>(value)) {}
ObjID::ObjID(const unsigned long long& value) : ObjID(static_cast<int64>(value)) {}
ObjID::ObjID(const char* text) : ObjID() { CreateObj(text); }
ObjID::ObjID(const std::string& text) : ObjID() { CreateObj(text.c_str()); }

ObjID& ObjID::operator=(const unsigned long& value) {
  clear();
  setLong(static_cast<std::int32_t>(value));
  return *this;
}

unsigned long ObjID::getHash() const {
  switch (_objType) {
    case E_Long:
      return asWord(_id._lid % kHashRange);
    case E_MsUuid:
      return _id._msid.hash();
    case E_String:
      return hashOfText(_id._sid);
    case E_Null:
      break;
  }
  return 0;
}

long ObjID::getLongValue() const {
  switch (_objType) {
    case E_Long:
      return _id._lid;
    case E_String:
      return numberOf(_id._sid);
    case E_MsUuid:
    case E_Null:
      break;
  }
  return 0;
}

std::string ObjID::getStrValue() const { return _objType == E_Null ? "NULL" : toString(); }

std::string ObjID::toString() const {
  switch (_objType) {
    case E_Long:
      return ltos(_id._lid);
    case E_MsUuid:
      return textOf(_id._msid);
    case E_String:
      return _id._sid;
    case E_Null:
      break;
  }
  return {};
}

ObjID::operator std::string() const { return getStrValue(); }

void ObjID::CreateObj(const char* text) {
  constexpr std::size_t kUuidLength = MS_Uuid::kTextSize - 1;
  const std::size_t length = text ? std::strlen(text) : 0;
  if (length == 0) return;
  if (length == kUuidLength) {
    // The dash at 18 is not asked for; and 36 digits are a text, not a number.
    if (text[8] == '-' && text[13] == '-' && text[23] == '-') {
      _id._msid = MS_Uuid(text);
      _objType = E_MsUuid;
      return;
    }
  } else if (std::all_of(text, text + length, isDigit)) {
    setLong(numberOf(text));
    return;
  }
  _id._sid = duplicate(text);
  _objType = E_String;
}

void ObjID::ownText() { _id._sid = duplicate(_id._sid); }

void ObjID::setLong(long value) {
  _id._lid = saturated(value);
  _objType = E_Long;
}

bool ObjID::isSame(const ObjID& other) const {
  if (_objType == E_Long) return _id._lid == other._id._lid;
  return _objType == E_Null || std::strcmp(_id._sid, other._id._sid) == 0;
}

bool ObjID::isLess(const ObjID& other) const {
  if (_objType == E_Long) return _id._lid < other._id._lid;
  return _objType != E_Null && std::strcmp(_id._sid, other._id._sid) < 0;
}

}  // namespace zntopo
