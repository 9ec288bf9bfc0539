#include "zntopo/platform/tvxpl/TvXplMsg.h"

namespace TvXplMsg {

Message_t CreateError_t(const std::string& text) { return {kError, text}; }

void MessageList_t::Add(const Message_t& message) { messages_.push_back(message); }

int MessageList_t::GetMessageCount() const { return static_cast<int>(messages_.size()); }

const Message_t& MessageList_t::GetMessage(int index) const {
  static const Message_t& none = *new Message_t();
  return index >= 0 && index < GetMessageCount() ? messages_[static_cast<std::size_t>(index)]
                                                 : none;
}

std::string MessageList_t::Format(FormatFlags_e /*flags*/) const {
  // No message of ours holds others, so both forms are one.
  std::string all;
  for (const Message_t& message : messages_) {
    all += message.GetText();
    all += '\n';
  }
  return all;
}

}  // namespace TvXplMsg
