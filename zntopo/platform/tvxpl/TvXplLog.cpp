#include "zntopo/platform/tvxpl/TvXplLog.h"

#include <syslog.h>

#include "zntopo/platform/tvxpl/detail/AppendFile.h"

namespace TvXplLog {

namespace {

struct Kind {
  int priority;
  const char* label;
};

Kind kindOf(TvXplMsg::Severity_e severity) {
  switch (severity) {
    case TvXplMsg::kInformation:
      return {LOG_INFO, "information: "};
    case TvXplMsg::kWarning:
      return {LOG_WARNING, "warning: "};
    case TvXplMsg::kError:
      break;
  }
  return {LOG_ERR, "error: "};
}

const tvxpl::AppendFile& logFile() {
  static const auto& file = *new tvxpl::AppendFile("TV_LOG");
  return file;
}

}  // namespace

void Log(const TvXplMsg::MessageList_t& messages) {
  const tvxpl::AppendFile& file = logFile();
  for (int i = 0; i < messages.GetMessageCount(); ++i) {
    const TvXplMsg::Message_t& message = messages.GetMessage(i);
    const Kind kind = kindOf(message.GetSeverity());
    if (file.isOpen()) {
      file.writeLine(kind.label + message.GetText());
    } else {
      syslog(kind.priority, "%s", std::string(tvxpl::withoutLineEnd(message.GetText())).c_str());
    }
  }
}

}  // namespace TvXplLog
