#include "zntopo/platform/tvutil/TvUtil.h"

#include <cstdarg>
#include <iterator>
#include <string>

#include "zntopo/platform/tvsnmp/detail/Session.h"

const TVsnmpArc marloSourceNameId[] = {1, 3, 6, 1, 4, 1, 47231, 2, 17, 2, 1, 0};
const TVsnmpArc marloTVwOIDId[] = {1, 3, 6, 1, 4, 1, 47231, 2, 17, 2, 2, 0};
const TVsnmpArc marloDataId[] = {1, 3, 6, 1, 4, 1, 47231, 2, 17, 2, 3, 0};
const int marloAttributesLen = static_cast<int>(std::size(marloDataId));

static_assert(std::size(marloSourceNameId) == std::size(marloDataId));
static_assert(std::size(marloTVwOIDId) == std::size(marloDataId));

namespace {

using tvsnmp::EventError;

std::string textArgument(const char* text, int length) {
  if (text == nullptr) return "";
  return length < 0 ? std::string(text) : std::string(text, static_cast<std::size_t>(length));
}

/// Reads what follows the identifier of a variable. What follows an unknown type can't be read.
bool readVariable(const TVsnmpArc* name, va_list& arguments, tvsnmp::EventVariable& variable) {
  const int length = va_arg(arguments, int);
  const int type = va_arg(arguments, int);
  if (length < 0 || (type != tvsnmp::kIntegerType && type != tvsnmp::kTextType)) return false;
  variable.name.assign(name, name + length);
  variable.type = static_cast<unsigned char>(type);
  if (type == tvsnmp::kIntegerType) {
    variable.integer = va_arg(arguments, int);
    return va_arg(arguments, int) == 1;
  }
  const char* const text = va_arg(arguments, const char*);
  variable.text = textArgument(text, va_arg(arguments, int));
  return true;
}

bool readVariables(va_list& arguments, tvsnmp::Event& event) {
  while (const TVsnmpArc* const name = va_arg(arguments, const TVsnmpArc*)) {
    if (!readVariable(name, arguments, event.variables.emplace_back())) return false;
  }
  return true;
}

}  // namespace

int _qrmVSendNamedEvent(  // NOLINT(cert-dcl50-cpp)
    const void* /*reserved*/, SNMPSession* session, const char** err_message, int eventNumber,
    ...) {
  tvsnmp::Event event;
  event.number = static_cast<unsigned>(eventNumber);
  va_list arguments;
  va_start(arguments, eventNumber);
  const bool isRead = readVariables(arguments, event);
  va_end(arguments);
  const EventError error = isRead ? tvsnmp::sendEvent(session, event) : EventError::BadEvent;
  if (error == EventError::None) return 0;
  if (err_message != nullptr) *err_message = TVsnmpErrString(static_cast<int>(error));
  return static_cast<int>(error);
}
