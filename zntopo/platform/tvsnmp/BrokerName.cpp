#include "zntopo/platform/tvsnmp/detail/BrokerName.h"

#include <charconv>

namespace tvsnmp {

namespace {

constexpr int kPort = 1883;
constexpr int kSecurePort = 8883;

std::optional<int> number(std::string_view text, int base, int most) {
  int value = 0;
  const char* const end = text.data() + text.size();
  const auto read = std::from_chars(text.data(), end, value, base);
  if (text.empty() || read.ec != std::errc() || read.ptr != end) return std::nullopt;
  return value >= 0 && value <= most ? std::optional(value) : std::nullopt;
}

/// Reads "%40" as "@"; nothing if what follows a "%" is no such number, or ends the text.
std::optional<std::string> unescaped(std::string_view text) {
  std::string result;
  while (!text.empty()) {
    if (text.front() != '%') {
      result += text.front();
      text.remove_prefix(1);
      continue;
    }
    const auto code = number(text.substr(1, 2), 16, 0xFF);
    if (!code || *code == 0 || text.size() < 3) return std::nullopt;
    result += static_cast<char>(*code);
    text.remove_prefix(3);
  }
  return result;
}

bool readUser(std::string_view text, BrokerName& broker) {
  const std::size_t colon = text.find(':');
  const auto user = unescaped(text.substr(0, colon));
  const auto password =
      unescaped(colon == std::string_view::npos ? std::string_view() : text.substr(colon + 1));
  if (!user || !password || user->empty()) return false;
  broker.user = *user;
  broker.password = *password;
  return true;
}

bool readHost(std::string_view text, BrokerName& broker) {
  std::size_t end = text.find(':');
  if (text.starts_with('[')) {
    const std::size_t bracket = text.find(']');
    if (bracket == std::string_view::npos) return false;
    broker.host = text.substr(1, bracket - 1);
    end = bracket + 1;
  } else {
    broker.host = text.substr(0, end);
  }
  const std::string_view behind = end < text.size() ? text.substr(end) : std::string_view();
  broker.port = broker.isSecure ? kSecurePort : kPort;
  if (!behind.empty()) {
    const auto port = number(behind.substr(1), 10, 65535);
    if (behind.front() != ':' || !port || *port == 0) return false;
    broker.port = *port;
  }
  return !broker.host.empty() && broker.host.find_first_of("/?#@% ") == std::string::npos;
}

}  // namespace

std::optional<BrokerName> parseBrokerName(std::string_view text) {
  BrokerName broker;
  broker.isSecure = text.starts_with("mqtts://");
  if (!broker.isSecure && !text.starts_with("mqtt://")) return std::nullopt;
  text.remove_prefix(text.find("//") + 2);
  if (text.ends_with('/')) text.remove_suffix(1);
  const std::size_t at = text.rfind('@');
  if (at != std::string_view::npos) {
    if (!readUser(text.substr(0, at), broker)) return std::nullopt;
    text.remove_prefix(at + 1);
  }
  if (!readHost(text, broker)) return std::nullopt;
  return broker;
}

}  // namespace tvsnmp
