#pragma once

#include "zntopo/core/ZNRefPtr.h"
#include "zntopo/notify/TopologyNotification.h"
#include "zntopo/platform/Export.h"

struct SNMPPdu;

namespace zntopo {

/// Turns received events into notifications.
///
/// What is missing in an event, or of another type than it should be, is taken as 0 or empty; what
/// is too much is ignored.
class ZNTOPO_EXPORT TopologyNotificationFactory final : public TvSnmpObject {
 public:
  using Notification = ZNRefPtr<TopologyNotification>;

  /// Null for an event of another kind than the four, for one that is refused, and for a null pdu.
  /// Holds the guard of the event sessions.
  static Notification createNotification(SNMPPdu* pdu);

  // For an event of one kind, with the guard held by the caller; null for a null pdu.

  static Notification createStatusChangeNotif(SNMPPdu* pdu);
  /// Null, with a line in the log, for an attribute that there is not.
  static Notification createAttrChangeNotif(SNMPPdu* pdu);
  /// Its type is AttributeChangeNotif.
  static Notification createLifeCycleNotif(SNMPPdu* pdu);
  /// Clears the cache if the topology is ready.
  static Notification createTopologyStateNotif(SNMPPdu* pdu);

  /// Copies at most destSize - 1 bytes and a NUL behind them; bytes that are neither printable nor
  /// white space in ASCII become ".".
  static void formatString(char* dest, int destSize, unsigned char* src, int srcLen);
};

}  // namespace zntopo
