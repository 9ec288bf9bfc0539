#pragma once

/// @file
/// The platform's event sessions: SNMPv2 notifications over a broker.
///
/// The broker is named by the environment variable TV_EVENT_BROKER: "mqtt://[user[:password]@]
/// host[:port]" or "mqtts://...". Without it events go round inside the process. With mqtts the
/// variables TV_EVENT_CA, TV_EVENT_CERT and TV_EVENT_KEY name PEM files: the authorities to trust
/// (else the system's), and a certificate of one's own with its key. TV_EVENT_KEEPALIVE is the
/// number of seconds, 5 to 65535, by default 10, after which a silent broker is asked for a sign of
/// life.
///
/// A session loses no event in silence and keeps the order of each sender: when its broker is
/// lost, or when more waits to be received than fits, the session fails, and the receiver learns
/// of it behind the last event that came. A failed session never comes back.
///
/// Different sessions may be used by several threads at once, and a session may send while it
/// receives. TVsnmpRecv() of one session is for one thread at a time, and nothing may use a session
/// that is being closed or has been.

/// One arc of an object identifier.
using TVsnmpArc = unsigned long;

struct SNMPSession;
struct SNMPPdu;

using TVsnmpCallback = void(int operation, SNMPSession* session, SNMPPdu* pdu, void* data);

/// An open session.
struct SNMPSession {
  char* community;
  int community_len;
  char* setCommunity;
  int setCommunity_len;
  /// Readable when TVsnmpRecv() has something to say: an event or the end of the session. For
  /// poll() and select() alone.
  int sock_fd;
  unsigned long session_flags;
  TVsnmpCallback* callback;  ///< kept for the caller, never called
  void* callback_data;
  int protocol_version;
};

/// One variable of a notification.
struct SNMPVarBind {
  SNMPVarBind* next_variable;
  TVsnmpArc* oid;
  int oid_length;
  /// The ASN.1 type: 2 is an integer, 4 a text.
  unsigned char type;
  /// Which member holds the value is told by the type. A text has val_len bytes, of which none
  /// needs to be a NUL.
  union {
    long* integer;
    unsigned char* string;
    TVsnmpArc* objid;
    unsigned long* unsigned32;
    unsigned long long* unsigned64;
  } val;
  int val_len;  ///< in bytes
};

/// A received notification.
struct SNMPPdu {
  /// Which event it is; null with length 0 for bytes that are no notification.
  TVsnmpArc* notify_oid;
  int notify_oid_length;
  /// The variables in their order; the first is the platform's own.
  SNMPVarBind* variables;
};

/// Why the last call of this thread failed; 0 if none has.
extern thread_local int TVsnmpErrno;

/// The text of an error number. It stays valid.
const char* TVsnmpErrString(int error);

/// Opens a session, or gives null and sets TVsnmpErrno. Waits for the broker 10 seconds at most.
/// @param hostname the broker, as TV_EVENT_BROKER names it; null for what that names.
/// @param applicationName goes into the name under which the broker knows this session; may be
/// null.
/// @param filter the events to receive: object identifiers, separated by commas; a number alone
/// takes the place of the last arc of the one before. Null or empty for a session that only sends.
SNMPSession* TVsnmpEventOpen(const char* hostname, const char* applicationName,
                             TVsnmpCallback* callback, void* callbackData, const char* filter);

/// Waits for the next event and gives it, for TVsnmpFreePdu(). Null, with TVsnmpErrno set, when the
/// session has failed or is null. What came and is no notification is given as an empty one.
SNMPPdu* TVsnmpRecv(SNMPSession* session);

/// Null does nothing.
void TVsnmpFreePdu(SNMPPdu* pdu);

/// Waits 5 seconds at most until the broker has what was sent, ends the session and frees it.
/// Whoever polls another descriptor of the same socket wakes. If the broker does not have all that
/// was to be sent, TVsnmpErrno tells why. Null does nothing.
void TVsnmpClose(SNMPSession* session);

/// Writes an identifier as ".1.3.6", cut to the buffer, and returns the buffer; null for a null
/// buffer or a size below 1.
char* TVsnmpOidToStr(const TVsnmpArc* oid, int length, char* buffer, int bufferSize);

/// Below 0, 0 or above 0, as the first identifier sorts before, equals or sorts behind the second.
int TVsnmpOidCompare(const TVsnmpArc* oid1, int length1, const TVsnmpArc* oid2, int length2);
