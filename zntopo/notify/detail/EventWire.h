#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string>

#include "zntopo/core/ZNTopoStatus.h"
#include "zntopo/platform/tvsnmp/TvSnmp.h"

/// @file
/// The four events on the wire: one table of positions each, for sending and for reading.

namespace zntopo::detail {

/// What a variable of an event holds.
enum class Slot : int {
  SourceName,
  Marlo,
  SendTime,
  SrcID,
  EntityType,
  NewStatus,
  PrevStatus,
  StatusType,
  AttrType,
  AttrValType,
  AttrValInt,
  AttrValStr,
  OtherID,
  AssocType,
  ZoneID,
  TopoState,
  DiscoStart,
  DiscoEnd,
  PrevDiscoEnd,
  DiscoFlag,
  Count
};

/// Which of the platform's identifiers a variable carries.
enum class Attribute : int { SourceName, Object, Data };

inline constexpr int kIntegerType = 2;
inline constexpr int kTextType = 4;

/// One variable of an event.
struct Position {
  Slot slot;
  Attribute attribute;
  int type;
  bool isRead;  ///< false for what a receiver has no use for
};

inline constexpr Position kSourceName{Slot::SourceName, Attribute::SourceName, kTextType, false};
inline constexpr Position kMarlo{Slot::Marlo, Attribute::Data, kTextType, false};

constexpr Position object(Slot slot) { return {slot, Attribute::Object, kTextType, true}; }
constexpr Position integer(Slot slot) { return {slot, Attribute::Data, kIntegerType, true}; }
/// A text that is sent and not read.
constexpr Position unread(Slot slot) { return {slot, Attribute::Data, kTextType, false}; }

/// One kind of event. A variable that is sent at a position is received one position behind it, for
/// the platform puts one of its own in front.
template <std::size_t N>
struct WireEvent {
  int number;
  ZNTopoStatus failure;
  const char* success;  ///< traced when it is sent
  std::array<Position, N> positions;
};

// Not every compiler deduces this of an aggregate.
template <std::size_t N>
WireEvent(int, ZNTopoStatus, const char*, std::array<Position, N>) -> WireEvent<N>;

inline constexpr const char* kStatusSuccess = "Status Change Event Successfully Generated";

inline constexpr WireEvent kStatusChangeEvent{
    60001101, ZN_API_STATUS_NOTIF_GEN_ERROR, kStatusSuccess,
    std::array{kSourceName, object(Slot::SrcID), kMarlo, unread(Slot::SendTime),
               integer(Slot::EntityType), integer(Slot::NewStatus), integer(Slot::PrevStatus),
               integer(Slot::StatusType)}};

inline constexpr WireEvent kAttrChangeEvent{
    60001102, ZN_API_ATTR_NOTIF_GEN_ERROR, "Attribute Change Event Successfully Generated",
    std::array{kSourceName, object(Slot::SrcID), kMarlo, integer(Slot::EntityType),
               integer(Slot::AttrType), integer(Slot::AttrValType), integer(Slot::AttrValInt),
               unread(Slot::AttrValStr), object(Slot::OtherID), integer(Slot::AssocType)}};

// That the other two tell of a status change when they are sent is kept: programs read the trace.

inline constexpr WireEvent kLifeCycleEvent{
    60001103, ZN_API_LIFE_CYCLE_GEN_ERROR, kStatusSuccess,
    std::array{kSourceName, object(Slot::SrcID), kMarlo, integer(Slot::EntityType),
               integer(Slot::ZoneID)}};

/// The one event without a source name.
inline constexpr WireEvent kTopologyStateEvent{
    60001104, ZN_API_STATE_GEN_ERROR, kStatusSuccess,
    std::array{object(Slot::SrcID), kMarlo, integer(Slot::EntityType), integer(Slot::TopoState),
               integer(Slot::DiscoStart), integer(Slot::DiscoEnd), integer(Slot::PrevDiscoEnd),
               integer(Slot::DiscoFlag)}};

/// What the variables of an event hold: 0 and empty texts if nothing else is said.
class WireValues {
 public:
  int& integer(Slot slot) { return integers_[static_cast<std::size_t>(slot)]; }
  int integer(Slot slot) const { return integers_[static_cast<std::size_t>(slot)]; }
  std::string& text(Slot slot) { return texts_[static_cast<std::size_t>(slot)]; }
  const std::string& text(Slot slot) const { return texts_[static_cast<std::size_t>(slot)]; }

 private:
  std::array<int, static_cast<std::size_t>(Slot::Count)> integers_{};
  std::array<std::string, static_cast<std::size_t>(Slot::Count)> texts_;
};

/// Reads the variables of a received event. A variable that is missing or of another type leaves
/// its value as it is; of an integer the low 32 bits count.
WireValues readVariables(std::span<const Position> positions, const SNMPVarBind* variables);

}  // namespace zntopo::detail
