#pragma once

#include <atomic>

/// @file
/// The platform's part in message catalogues. catopen, catgets and catclose are the C library's.

/// The state of one catalogue: 1 before it is opened for the first time, 0 while it is open,
/// kTvMsgReopen to have it closed and opened again by its next look-up.
using TvMsgState = std::atomic<int>;

inline constexpr int kTvMsgReopen = 0x12344321;

/// Makes a catalogue's state word known to the platform. The word must live as long as the
/// process. May be called by several threads at once.
extern "C" void ____msg_register_first(TvMsgState* state);  // NOLINT(bugprone-reserved-identifier)

/// Has every catalogue that is known opened again by its next look-up.
void tvReopenMessageCatalogues();
