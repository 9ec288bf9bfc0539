#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "zntopo/platform/Export.h"

/// @file
/// Messages of the platform: what a lower layer has to say about a failure.

namespace TvXplMsg {

/// How MessageList_t::Format() renders a list.
enum FormatFlags_e : int {
  fNone_k = 0,    ///< the texts, one a line
  fRecurse_k = 2  ///< the same, with the messages that a message holds in turn
};

/// How grave a message is.
enum Severity_e : int { kInformation = 0, kWarning = 1, kError = 2 };

/// One message: a severity and a text in UTF-8. A plain value.
class ZNTOPO_EXPORT Message_t {
 public:
  Message_t() = default;
  Message_t(Severity_e severity, std::string text) : severity_(severity), text_(std::move(text)) {}

  Severity_e GetSeverity() const { return severity_; }
  const std::string& GetText() const { return text_; }

 private:
  Severity_e severity_ = kInformation;
  std::string text_;
};

/// Makes a message of severity kError.
ZNTOPO_EXPORT Message_t CreateError_t(const std::string& text);

/// An ordered list of messages that a call appends its complaints to.
/// A plain value without a lock: one list belongs to one thread at a time.
class ZNTOPO_EXPORT MessageList_t {
 public:
  /// Appends a copy of a message.
  void Add(const Message_t& message);
  /// The number of messages.
  int GetMessageCount() const;
  /// The message at an index from 0 to GetMessageCount() - 1; an empty one for another index.
  const Message_t& GetMessage(int index) const;
  /// All texts in order, each with an end of line behind it; empty for an empty list.
  std::string Format(FormatFlags_e flags) const;

 private:
  std::vector<Message_t> messages_;
};

/// What the platform throws; nothing of this library lets one pass to its caller.
class ZNTOPO_EXPORT Exception_t {
 public:
  explicit Exception_t(const MessageList_t& messages) : messages_(messages) {}
  const MessageList_t& GetMessages() const { return messages_; }

 private:
  MessageList_t messages_;
};

}  // namespace TvXplMsg
