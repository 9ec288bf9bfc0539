#pragma once

#include <cstddef>
#include <tuple>
#include <utility>

#include "zntopo/core/ObjID.h"
#include "zntopo/core/ZNTopoAPIStatus.h"
#include "zntopo/notify/detail/EventWire.h"
#include "zntopo/platform/tvutil/TvUtil.h"

/// @file
/// Sending an event by its table of positions.

namespace zntopo::detail {

inline const TVsnmpArc* nameOf(Attribute attribute) {
  switch (attribute) {
    case Attribute::SourceName:
      return marloSourceNameId;
    case Attribute::Object:
      return marloTVwOIDId;
    case Attribute::Data:
      break;
  }
  return marloDataId;
}

/// The five arguments of one variable, each in exactly the type that the send call reads.
template <const auto& Event, std::size_t I>
auto argumentsOf(const WireValues& values) {
  constexpr Position position = Event.positions[I];
  if constexpr (position.type == kTextType) {
    return std::tuple<const TVsnmpArc*, int, int, const char*, int>(
        nameOf(position.attribute), marloAttributesLen, kTextType,
        values.text(position.slot).c_str(), -1);
  } else {
    return std::tuple<const TVsnmpArc*, int, int, int, int>(nameOf(position.attribute),
                                                            marloAttributesLen, kIntegerType,
                                                            values.integer(position.slot), 1);
  }
}

template <const auto& Event, std::size_t... I>
int callSend(SNMPSession* session, const char** error, const WireValues& values,
             std::index_sequence<I...> /*positions*/) {
  return std::apply(
      [session, error](auto... arguments) {
        return _qrmVSendNamedEvent(nullptr, session, error, Event.number, arguments...,
                                   static_cast<const TVsnmpArc*>(nullptr));
      },
      std::tuple_cat(argumentsOf<Event, I>(values)...));
}

/// What differs between the kinds when they are sent.
struct Sending {
  int (*call)(SNMPSession* session, const char** error, const WireValues& values);
  ZNTopoStatus failure;
  const char* success;
  /// Traces what is to be sent; null for nothing.
  void (*trace)(const WireValues& values);
};

/// Sends the values through the session of this process.
ZNTopoAPIStatus sendValues(const Sending& sending, const WireValues& values);

template <const auto& Event>
ZNTopoAPIStatus sendEvent(const WireValues& values, void (*trace)(const WireValues&) = nullptr) {
  const auto call = [](SNMPSession* session, const char** error, const WireValues& sent) {
    return callSend<Event>(session, error, sent,
                           std::make_index_sequence<Event.positions.size()>());
  };
  return sendValues({call, Event.failure, Event.success, trace}, values);
}

}  // namespace zntopo::detail
