#include "zntopo/notify/detail/FilterText.h"

#include <array>

#include "zntopo/notify/detail/EventWire.h"

namespace zntopo::detail {

namespace {

constexpr int kStatus = kStatusChangeEvent.number;
constexpr int kAttr = kAttrChangeEvent.number;
constexpr int kLife = kLifeCycleEvent.number;
constexpr int kState = kTopologyStateEvent.number;

struct FilterRow {
  NotificationFilter filter;
  std::array<int, 4> events;  ///< in the order of the text; 0 for none
};

constexpr std::array kFilters{
    FilterRow{STATUS_CHANGE_NOTIFICATION, {kStatus, kState}},
    FilterRow{ATTR_CHANGE_NOTIFICATION, {kAttr, kState}},
    FilterRow{LIFE_CYCLE_NOTIFICATION, {kLife, kState}},
    FilterRow{STATUS_ATTR_CHANGE_NOTIFICATION, {kStatus, kAttr, kState}},
    FilterRow{ATTR_LIFECYCLE_NOTIFICATION, {kAttr, kLife, kState}},
    FilterRow{LIFECYCLE_STATUS_NOTIFICATION, {kLife, kStatus, kState}},
    FilterRow{ALL, {kStatus, kAttr, kLife, kState}},
};

std::string textOf(const FilterRow& row) {
  std::string text = ".1.3.6.1.4.1.47231.2.17.1.0.";
  const char* separator = "";
  for (const int event : row.events) {
    if (event == 0) break;
    text += separator + std::to_string(event);
    separator = ",";
  }
  return text;
}

}  // namespace

std::string filterText(NotificationFilter filter) {
  for (const FilterRow& row : kFilters) {
    if (row.filter == filter) return textOf(row);
  }
  return "";
}

}  // namespace zntopo::detail
