#include "zntopo/model/PingStatus.h"

#include "zntopo/model/detail/Rendering.h"

namespace zntopo {

namespace {

using Line = detail::Line<PingStatus>;

constexpr Line kText[] = {
    {"Status:", Line::of<&PingStatus::getStatus>},
    {"\nLastPingTime:", Line::of<&PingStatus::getLastPingTime>},
    {"\nLastStatusUpdateTime:", Line::of<&PingStatus::getLastStatusUpdateTime>},
};

}  // namespace

std::string PingStatus::toString() const { return detail::rendered(*this, kText); }

}  // namespace zntopo
