#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tvsnmp {

/// Where a broker is, and who asks.
struct BrokerName {
  bool isSecure = false;
  std::string user;      ///< empty for none
  std::string password;  ///< only with a user
  std::string host;
  int port = 0;
};

/// Reads "mqtt://[user[:password]@]host[:port]" or "mqtts://..."; nothing if it is malformed. The
/// port is 1883 or 8883 if none is given, an IPv6 address stands in brackets, and "%40" in user or
/// password is read as "@".
std::optional<BrokerName> parseBrokerName(std::string_view text);

}  // namespace tvsnmp
