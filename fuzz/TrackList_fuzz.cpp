// Outside bytes as the list of interfaces that a member of an HSRP group tracks: the groups
// "[identifier,priority]" that reading bracket by bracket gives, in their order, whatever stands
// between them.
#include <algorithm>
#include <limits>
#include <utility>

#include "fuzz/Fuzz.h"
#include "zntopo/core/MCLog.h"
#include "zntopo/model/ZNHSRPAddressInfo.h"

namespace {

using zntopo::MCLog;
using zntopo::ObjID;
using zntopo::ZNHSRPAddressInfo;
using Tracked = std::vector<std::pair<ObjID, int>>;

Tracked trackedIn(const std::string& text) {
  const ZNHSRPAddressInfo info(1, ObjID(2), ObjID(3), 4, ZNHSRPAddressInfo::Active, text, 100);
  ZNTOPO_REQUIRE(info.getHSRPTrackInterfaceAsString() == text);
  Tracked result;
  for (const auto& one : info.getTrackInterfaceInfoList()) {
    result.emplace_back(one.ifObjID, one.ifPriority);
  }
  return result;
}

/// The number in front of a text, within 32 bits; 0 without one.
int numberIn(const std::string& text) {
  std::size_t at = std::min(text.find_first_not_of(" \t\n\v\f\r"), text.size());
  const bool isNegative = at < text.size() && text[at] == '-';
  if (at < text.size() && (text[at] == '-' || text[at] == '+')) ++at;
  constexpr long kBeyond = 1L << 40;
  long value = 0;
  for (; at < text.size() && text[at] >= '0' && text[at] <= '9'; ++at) {
    value = std::min(value * 10 + (text[at] - '0'), kBeyond);
  }
  using Limits = std::numeric_limits<int>;
  return static_cast<int>(
      std::clamp<long>(isNegative ? -value : value, Limits::min(), Limits::max()));
}

/// What each closing bracket ends, from the first opening one on.
Tracked expectedIn(const std::string& text) {
  Tracked result;
  std::vector<std::string> parts = zntopo::fuzz::split(text, ']');
  parts.pop_back();  // nothing closes it
  for (const std::string& part : parts) {
    const std::size_t open = part.find('[');
    if (open == std::string::npos) continue;
    const std::size_t comma = part.find(',', open);
    if (comma == std::string::npos) continue;
    result.emplace_back(ObjID(part.substr(open + 1, comma - open - 1)),
                        numberIn(part.substr(comma + 1)));
  }
  return result;
}

Tracked joined(Tracked front, const Tracked& back) {
  front.insert(front.end(), back.begin(), back.end());
  return front;
}

std::string without(std::string text, std::string_view characters) {
  std::erase_if(text, [&](char c) { return characters.find(c) != std::string_view::npos; });
  return text;
}

/// A comma behind its bracket leaves the group out and keeps the rest.
void checkCommaBehind(const std::string& text) {
  const std::string group = "[" + without(text, "[],") + "],";
  ZNTOPO_REQUIRE(trackedIn(group + text) == trackedIn(text));
  ZNTOPO_REQUIRE(trackedIn(text + "]" + group) == trackedIn(text + "]"));
}

/// What a closing bracket ends has no influence on what follows.
void checkJoining(const std::string& text) {
  const std::string front = text.substr(0, text.size() / 2) + "]";
  const std::string back = text.substr(text.size() / 2);
  ZNTOPO_REQUIRE(trackedIn(front + back) == joined(trackedIn(front), trackedIn(back)));
}

/// Groups are read back as they were written.
void checkRoundTrip(const std::string& text) {
  Tracked written;
  std::string list;
  for (const std::string& word : zntopo::fuzz::split(without(text, "[],"), ' ')) {
    const int priority = static_cast<int>(written.size()) * 10007 - 500;
    written.emplace_back(ObjID(word), priority);
    list += "[" + word + "," + std::to_string(priority) + "]";
  }
  ZNTOPO_REQUIRE(trackedIn(list) == written);
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
  MCLog::setDebuggingLevel(zntopo::MC_NONE);
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text = zntopo::fuzz::textOf(data, size);
  ZNTOPO_REQUIRE(trackedIn(text) == expectedIn(text));
  checkCommaBehind(text);
  checkJoining(text);
  checkRoundTrip(text);
  return 0;
}
