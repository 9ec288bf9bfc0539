#include "zntopo/model/ZNHSRPAddressInfo.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

#include "zntopo/core/MCLog.h"
#include "zntopo/model/detail/EnumTable.h"
#include "zntopo/model/detail/Rendering.h"

namespace zntopo {

namespace {

using Info = ZNHSRPAddressInfo;

// Unavailable has no text of its own.
constexpr detail::EnumText<Info::HSRPState> kTexts[] = {
    {Info::Initial, "Initial"},     {Info::Learn, "Learn"},           {Info::Listen, "Listen"},
    {Info::Speak, "Speak"},         {Info::StandBy, "StandBy"},       {Info::Active, "Active"},
    {Info::MiscState, "MiscState"}, {Info::NoResponse, "NoResponse"},
};

using Line = detail::Line<Info>;

std::string tracksOf(const Info& info) {
  return detail::section(
      "\n---------- Track Interface Info ----------", info.getTrackInterfaceInfoList(),
      [](const TrackInterfaceInfo& track) {
        return "\nIF ObjID = " + track.ifObjID.getStrValue() +
               "\nIF Priority = " + detail::shown(track.ifPriority);
      },
      "\n------------------------------------------\n");
}

constexpr Line kText[] = {
    {"\nAddressObjID:", Line::of<&Info::getAddressID>},
    {"\nIFObjID:", Line::of<&Info::getIFObjID>},
    {"\nHSRPState:", Line::of<&Info::getHSRPStateAsString>},
    {"\nHSRPNumber:", Line::of<&Info::getHSRPNumber>},
    {"\nHSRPPriority:", Line::of<&Info::getHSRPPriority>},
    {"\nHSRPStateCertainty:", Line::of<&Info::getHSRPStateCertainty>},
    {"", tracksOf},
};

constexpr Line kXml[] = {
    {"<HSRPAddress>\n"},
    {"AddressObjID", Line::of<&Info::getAddressID>, "objID"},
    {"IFObjID", Line::of<&Info::getIFObjID>, "objID"},
    {"HSRPState", Line::of<&Info::getHSRPStateAsString>, "str"},
    {"HSRPPriority", Line::of<&Info::getHSRPPriority>, "int"},
    {"HSRPCertainty", Line::of<&Info::getHSRPStateCertainty>, "int"},
    {"</HSRPAddress>\n"},
};

/// The number of a text, within 32 bits.
int numberOf(const std::string& text) {
  using Limits = std::numeric_limits<int>;
  return static_cast<int>(std::clamp<long>(std::atol(text.c_str()), Limits::min(), Limits::max()));
}

void logPosition(const char* what, std::size_t position) {
  MCLog::log(MC_INFO, "%s pos = %d \n", what, static_cast<int>(position));
}

}  // namespace

ZNHSRPAddressInfo::ZNHSRPAddressInfo(int aHSRPNumber, const ObjID& anIFID, const ObjID& anAddrID,
                                     int aHSRPPriority, HSRPState aState,
                                     const std::string& aTrackInterfaceOIDList,
                                     int aHSRPStateCertainty)
    : myAddrID(anAddrID),
      myIFID(anIFID),
      myHSRPState(aState),
      myPriority(aHSRPPriority),
      myHSRPNumber(aHSRPNumber),
      myHSRPStateCertainty(aHSRPStateCertainty),
      myTrackIFInfoStr(aTrackInterfaceOIDList) {
  if (!myTrackIFInfoStr.empty()) parseTrackList();
}

void ZNHSRPAddressInfo::parseTrackList() {
  const std::string& text = myTrackIFInfoStr;
  MCLog::log(MC_INFO, "Track IF Info Str = %s \n", text.c_str());
  std::size_t pos = 0;
  while (true) {
    const std::size_t open = text.find('[', pos);
    if (open == std::string::npos) return;
    const std::size_t close = text.find(']', open);
    if (close == std::string::npos) return;
    logPosition("[", open);
    logPosition("]", close);
    const std::size_t comma = text.find(',', open);
    if (comma == std::string::npos) return;
    logPosition(",", comma);
    // A comma behind the group belongs to none: the group then has no entry.
    if (comma < close) {
      const std::string id = text.substr(open + 1, comma - open - 1);
      const std::string priority = text.substr(comma + 1, close - comma - 1);
      MCLog::log(MC_INFO, "Track IF ID=%s\n", id.c_str());
      MCLog::log(MC_INFO, "Track IF Priority=%s\n", priority.c_str());
      myTrackIFInfoList.push_back({ObjID(id), numberOf(priority)});
    }
    pos = close;
  }
}

std::string ZNHSRPAddressInfo::getHSRPStateAsString() const {
  return detail::textOf(kTexts, myHSRPState, "Unknown");
}

ZNHSRPAddressInfo::HSRPState ZNHSRPAddressInfo::getHSRPStateFromInt(int value) {
  return detail::valueOf(kTexts, value, MiscState);
}

std::string ZNHSRPAddressInfo::toString() const { return detail::rendered(*this, kText); }
std::string ZNHSRPAddressInfo::toXML() const { return detail::rendered(*this, kXml); }

}  // namespace zntopo
