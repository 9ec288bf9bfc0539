// Lines of outside bytes as identifiers: each is of the kind that its text tells and keeps its
// text; together they keep the laws of equality, order and hash.
#include <uuid/uuid.h>

#include <algorithm>
#include <cstring>
#include <limits>
#include <unordered_set>
#include <utility>

#include "fuzz/Fuzz.h"
#include "zntopo/core/ObjID.h"

namespace {

using zntopo::ObjID;

constexpr std::size_t kMostIdentifiers = 6;

bool isDigit(char c) { return c >= '0' && c <= '9'; }

ObjID::ObjType kindOf(const std::string& text) {
  if (text.empty()) return ObjID::E_Null;
  if (text.size() == 36) {
    return text[8] == '-' && text[13] == '-' && text[23] == '-' ? ObjID::E_MsUuid : ObjID::E_String;
  }
  return std::all_of(text.begin(), text.end(), isDigit) ? ObjID::E_Long : ObjID::E_String;
}

/// What a text begins with as a number of 32 bits.
long numberOf(const std::string& text) {
  using Limits = std::numeric_limits<std::int32_t>;
  std::size_t at = std::min(text.find_first_not_of(" \t\n\v\f\r"), text.size());
  const bool isNegative = at < text.size() && text[at] == '-';
  if (at < text.size() && (text[at] == '-' || text[at] == '+')) ++at;
  long long value = 0;
  for (; at < text.size() && isDigit(text[at]) && value <= Limits::max(); ++at) {
    value = 10 * value + (text[at] - '0');
  }
  return static_cast<long>(
      std::clamp<long long>(isNegative ? -value : value, Limits::min(), Limits::max()));
}

unsigned long hashOf(const ObjID& id) {
  long long sum = id.getLongValue();
  if (id.getIDType() == ObjID::E_String) {
    sum = 0;
    for (const char c : id.toString()) sum += static_cast<signed char>(c);
  }
  return static_cast<std::uint32_t>(sum % 2048);
}

void checkUuid(const std::string& text, const ObjID& id) {
  uuid_t bytes;
  if (uuid_parse(text.c_str(), bytes) != 0) return;
  char canonical[37];
  uuid_unparse_lower(bytes, canonical);
  ZNTOPO_REQUIRE(id.toString() == canonical);
}

void checkKind(const std::string& text, const ObjID& id) {
  ZNTOPO_REQUIRE(id.getIDType() == kindOf(text));
  ZNTOPO_REQUIRE(id.isNull() == text.empty());
  switch (id.getIDType()) {
    case ObjID::E_Null:
      ZNTOPO_REQUIRE(id.toString().empty() && id.getStrValue() == "NULL" && id.getHash() == 0);
      break;
    case ObjID::E_Long:
      ZNTOPO_REQUIRE(id.toString() == std::to_string(numberOf(text)));
      break;
    case ObjID::E_MsUuid:
      checkUuid(text, id);
      break;
    case ObjID::E_String:
      ZNTOPO_REQUIRE(id.toString() == text);
      break;
  }
  const bool isNumeric = id.getIDType() == ObjID::E_Long || id.getIDType() == ObjID::E_String;
  ZNTOPO_REQUIRE(id.getLongValue() == (isNumeric ? numberOf(text) : 0));
  if (isNumeric) ZNTOPO_REQUIRE(id.getHash() == hashOf(id));
}

void checkRoundTrip(const ObjID& id) {
  ZNTOPO_REQUIRE(ObjID(id.toString()) == id);
  ZNTOPO_REQUIRE(ObjID(id.toString().c_str()) == id);
  ZNTOPO_REQUIRE(id.isNull() || id.getStrValue() == id.toString());
  ZNTOPO_REQUIRE(static_cast<std::string>(id) == id.getStrValue());
}

void checkCopies(const ObjID& id, const ObjID& other) {
  ObjID copy(id);
  ObjID target(other);
  target = copy;
  copy.clear();
  ZNTOPO_REQUIRE(copy.isNull() && target == id);
  ObjID moved(std::move(target));
  ZNTOPO_REQUIRE(moved == id);
  moved = 7UL;
  ZNTOPO_REQUIRE(moved == ObjID(7));
}

/// The order within a kind, told another way.
bool isLess(const ObjID& left, const ObjID& right) {
  if (left.getIDType() == ObjID::E_Long) return left.getLongValue() < right.getLongValue();
  return left.toString() < right.toString();
}

void checkPair(const ObjID& a, const ObjID& b) {
  ZNTOPO_REQUIRE((a == b) == (b == a) && (a != b) == !(a == b));
  ZNTOPO_REQUIRE(!(a < b && b < a));
  if (a == b) ZNTOPO_REQUIRE(a.getHash() == b.getHash() && a.toString() == b.toString());
  if (a.getIDType() != b.getIDType()) {
    ZNTOPO_REQUIRE(!(a == b) && !(a < b));
    return;
  }
  // Within a kind exactly one of less, equal and greater holds.
  ZNTOPO_REQUIRE((a < b) + (b < a) + (a == b) == 1);
  ZNTOPO_REQUIRE((a < b) == isLess(a, b));
}

void checkTriple(const ObjID& a, const ObjID& b, const ObjID& c) {
  if (a == b && b == c) ZNTOPO_REQUIRE(a == c);
  if (a < b && b < c) ZNTOPO_REQUIRE(a < c);
  // Equal identifiers stand at one place of the order.
  if (a == b) ZNTOPO_REQUIRE((a < c) == (b < c) && (c < a) == (c < b));
}

void checkLaws(const std::vector<ObjID>& ids) {
  std::unordered_set<ObjID, zntopo::ObjIDHash, zntopo::ObjIDEQ> distinct(ids.begin(), ids.end());
  for (const ObjID& a : ids) {
    ZNTOPO_REQUIRE(a == a && !(a < a));
    ZNTOPO_REQUIRE(distinct.count(a) == 1);
    for (const ObjID& b : ids) {
      checkPair(a, b);
      checkCopies(a, b);
      for (const ObjID& c : ids) checkTriple(a, b, c);
    }
  }
}

void checkNumber(const std::string& bytes) {
  long long wide = 0;
  std::memcpy(&wide, bytes.data(), std::min(bytes.size(), sizeof wide));
  const ObjID saturated(static_cast<long>(wide));
  ZNTOPO_REQUIRE(saturated.getLongValue() == numberOf(std::to_string(wide)));
  ZNTOPO_REQUIRE(saturated.getHash() == hashOf(saturated));
  ZNTOPO_REQUIRE(ObjID(wide).getLongValue() == static_cast<std::int32_t>(wide));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string all = zntopo::fuzz::textOf(data, size);
  std::vector<ObjID> ids;
  for (const std::string& line : zntopo::fuzz::split(all, '\n')) {
    if (ids.size() == kMostIdentifiers) break;
    // A text ends at its first zero.
    const std::string text = line.c_str();
    ids.emplace_back(line);
    checkKind(text, ids.back());
    checkRoundTrip(ids.back());
  }
  checkLaws(ids);
  checkNumber(all);
  return 0;
}
