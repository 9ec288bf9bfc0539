#pragma once

#include <nl_types.h>

#include "zntopo/platform/Export.h"

/// @file
/// The message catalogue "zorb_topo": texts in the language of the environment variable LANG.
///
/// It is looked for along NLSPATH, then in the data directory of the installation. Without LANG,
/// or without a catalogue, every text is the default. All operations may be called by several
/// threads at once.

namespace zntopo {

/// The text of a message, fetched once and kept for the life of the process.
///
/// @param set 0 to 255; this library uses 1 alone
/// @param number from 1; a number below never reaches the catalogue
/// @param defaultText what is returned when the catalogue has no such text
ZNTOPO_EXPORT const char* _zorb_topoMsg(int set, int number, const char* defaultText);

/// The descriptor of the open catalogue; (nl_catd)-1 before the first look-up and if there is no
/// catalogue.
ZNTOPO_EXPORT nl_catd ___zorb_topoMsg_fd__();  // NOLINT(bugprone-reserved-identifier)

/// Has the catalogue closed and opened again by the next look-up. Texts fetched before stay.
ZNTOPO_EXPORT void reopenMessageCatalogue();

}  // namespace zntopo
