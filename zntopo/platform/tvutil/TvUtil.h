#pragma once

#include "zntopo/platform/tvsnmp/TvSnmp.h"

/// @file
/// Sending the platform's named events.

// The identifiers that the variables of an event carry, marloAttributesLen arcs each.
extern const TVsnmpArc marloSourceNameId[];
extern const TVsnmpArc marloTVwOIDId[];
extern const TVsnmpArc marloDataId[];
extern const int marloAttributesLen;

/// Sends the event of a number with its variables on a session, without waiting for the broker.
///
/// Behind the number come five arguments a variable, of exactly these types:
///
///     const TVsnmpArc*  its identifier
///     int               the number of arcs in it
///     int               its ASN.1 type: 2 is an integer, 4 a text
///     int               the integer; or const char*, the text
///     int               1 for an integer; for a text its length in bytes, or -1 up to its NUL
///
/// and behind the last one a null const TVsnmpArc*: a plain 0 is narrower than what is read.
/// @param err_message told why the event was not sent; the text stays valid. May be null.
/// @return 0 if it was taken for sending; else the error's number, for TVsnmpErrString().
int _qrmVSendNamedEvent(  // NOLINT(cert-dcl50-cpp)
    const void* reserved, SNMPSession* session, const char** err_message, int eventNumber, ...)
    __attribute__((sentinel));
