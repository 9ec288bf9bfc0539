#include "zntopo/core/MCLog.h"

#include <pwd.h>
#include <sys/time.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <exception>
#include <limits>
#include <memory>
#include <optional>
#include <vector>

#include "zntopo/core/Trace.h"
#include "zntopo/core/ZNMutex.h"

namespace zntopo {

std::atomic<MCLog*> MCLog::myLog{nullptr};
std::atomic<int> MCLog::myLoggingDisabled{1};

namespace {

constexpr std::size_t kTextSize = 10240;

int traceCategory(MCDebugLevel level) {
  switch (level) {
    case MC_VERBOSE:
      return 25;
    case MC_MINOR:
      return 10;
    case MC_MAJOR:
    case MC_CRITICAL:
      return 12;
    default:
      return 9;
  }
}

bool isTraced(MCDebugLevel level) {
  const TvXplTrc::TraceObj_t& trace = topoSvcOperationObj;
  return trace.IsActive(traceCategory(level));
}

// What "%d" reads at the start of a text: nothing changes when there is no number.
std::optional<int> numberAt(const char* text) {
  if (!text) return std::nullopt;
  char* end = nullptr;
  const long value = std::strtol(text, &end, 10);
  if (end == text) return std::nullopt;
  using Limits = std::numeric_limits<int>;
  return static_cast<int>(
      std::clamp(value, static_cast<long>(Limits::min()), static_cast<long>(Limits::max())));
}

template <typename Number, typename Target>
void take(Target& target, const char* text) {
  if (const auto number = numberAt(text)) target = static_cast<Number>(*number);
}

// The name of the process's user; it must fit into 100 characters with its end.
std::optional<std::string> platformUserName() {
  constexpr std::size_t kNameSize = 100;
  std::vector<char> buffer(16384);
  passwd entry{};
  passwd* found = nullptr;
  if (getpwuid_r(getuid(), &entry, buffer.data(), buffer.size(), &found) != 0 || !found) {
    return std::nullopt;
  }
  std::string name = found->pw_name;
  return name.size() < kNameSize ? std::optional(std::move(name)) : std::nullopt;
}

// The formatted text is a format once more: "%%" in it is one "%". A conversion that would need
// an argument has none, so it is written as it stands.
void writeAsFormat(std::FILE* stream, const char* text) {
  while (const char* const percent = std::strchr(text, '%')) {
    std::fwrite(text, 1, static_cast<std::size_t>(percent - text) + 1, stream);
    text = percent + (percent[1] == '%' ? 2 : 1);
  }
  std::fputs(text, stream);
}

}  // namespace

ZNMutex& MCLog::logMutex() {
  static ZNMutex* const myLogMutex = new ZNMutex();
  return *myLogMutex;
}

MCLog::MCLog(MCDebugLevel level) : myDebugLevel(level) {
  getEnvVars();
  openLog(0);
  // A level that was asked for beats the environment's.
  if (level != MC_DEFAULT) myDebugLevel = level;
}

MCLog::MCLog(const std::string& appName, int argc, char** argv, MCDaemonFlag flag)
    : myAppName(appName), myDaemonProcFlag(flag), myDebugLevel(MC_NONE) {
  getEnvVars();
  parseArgs(argc, argv);
  openLog(0);
}

void MCLog::init(const std::string& appName, int argc, char** argv, MCDaemonFlag flag) {
  {
    const MutexLockInternal hold(logMutex());
    publish(new MCLog(appName, argc, argv, flag));
  }
  log(MC_CRITICAL, "BEGIN LOGGING - %s\n", appName.c_str());
}

void MCLog::init(MCDebugLevel level) {
  const MutexLockInternal hold(logMutex());
  publish(new MCLog(level));
}

void MCLog::publish(MCLog* log) {
  log->replaced_ = myLog.load();
  myLog.store(log, std::memory_order_release);
}

MCLog* MCLog::makeInstance() {
  const MutexLockInternal hold(logMutex());
  if (isDisabled()) return nullptr;
  if (!getInstance()) publish(new MCLog(MC_DEFAULT));
  return getInstance();
}

bool MCLog::passes(MCDebugLevel level) {
  // Without a platform mutex nothing would guard the stream: nothing is written then.
  if (isDisabled() || !logMutex().getMutex()) return false;
  const MCLog* log = getInstance();
  if (!log) log = makeInstance();
  return log && level >= log->getDebugLevel();
}

bool MCLog::isUnheard(MCDebugLevel level) {
  const MCLog* const log = getInstance();
  return log && level < log->getDebugLevel() && !isTraced(level);
}

bool MCLog::isHeard(MCDebugLevel level) {
  if (isUnheard(level)) return false;
  // The instance is made either way.
  const bool passed = passes(level);
  return passed || isTraced(level);
}

void MCLog::log(int level, const char* format, ...) {
  const bool known = level >= MC_VERBOSE && level <= MC_NONE;
  if (known && isUnheard(static_cast<MCDebugLevel>(level))) return;
  va_list arguments;
  va_start(arguments, format);
  vlog(known ? static_cast<MCDebugLevel>(level) : MC_DEFAULT, format, arguments);
  va_end(arguments);
}

void MCLog::log(MCDebugLevel level, const char* format, ...) {
  if (isUnheard(level)) return;
  va_list arguments;
  va_start(arguments, format);
  vlog(level, format, arguments);
  va_end(arguments);
}

void MCLog::vlog(MCDebugLevel level, const char* format, va_list arguments) {
  try {
    const bool passed = passes(level);
    const bool traced = isTraced(level);
    if (!passed && !traced) return;
    // Zeroed: after a failed conversion the text ends where the formatting did.
    const auto text = std::make_unique<char[]>(kTextSize);
    if (format) {
      std::vsnprintf(text.get(), kTextSize, format, arguments);  // NOLINT(clang-analyzer-valist*)
    }
    if (traced) {
      const TvXplTrc::TraceObj_t& trace = topoSvcOperationObj;
      trace.DoTrace(traceCategory(level), text.get(), "../MCLog", __LINE__);
    }
    if (passed) write(level, text.get());
  } catch (const std::exception&) {
    // Without memory the line is lost: a log never fails its caller.
  }
}

void MCLog::write(MCDebugLevel level, const char* text) {
  const MutexLockInternal hold(logMutex());
  MCLog* const log = getInstance();
  if (isDisabled() || level < log->getDebugLevel()) return;
  std::FILE* const stream = log->myLogFile;
  log->printTime(stream);
  writeAsFormat(stream, text);
  std::fflush(stream);
  if (stream != stdout) log->rotateIfFull();
}

int MCLog::setLimits(int theNumFiles, int theFileSize) {
  MCLog* const log = getInstance();
  if (!log) return -1;
  log->setNumFiles(theNumFiles);
  log->setFileSize(theFileSize);
  return 1;
}

MCDebugLevel MCLog::debugLevel() {
  const MCLog* const log = getInstance();
  return log ? log->getDebugLevel() : MC_NONE;
}

void MCLog::setDebuggingLevel(MCDebugLevel level) {
  if (MCLog* const log = getInstance()) log->myDebugLevel = level;
}

void MCLog::disableLogging() { myLoggingDisabled = -1; }

void MCLog::enableLogging() { myLoggingDisabled = 1; }

std::string MCLog::getUserInfo() const {
  return myUserName.empty() && myUID != -1 ? std::to_string(myUID) : myUserName;
}

void MCLog::printTime(std::FILE* stream) {
  if (!stream) return;
  timeval now{};
  gettimeofday(&now, nullptr);
  std::tm local{};
  char text[64] = "";
  if (!localtime_r(&now.tv_sec, &local) || !asctime_r(&local, text)) return;
  const std::size_t length = std::strlen(text);
  if (length < 2) return;
  text[length - 1] = ' ';
  if (myMSecOn < 1) {
    std::fputs(text, stream);
    return;
  }
  std::fprintf(stream, "%s (%ld.%.6ld)", text, static_cast<long>(now.tv_sec),
               static_cast<long>(now.tv_usec));
}

void MCLog::getEnvVars() {
  const char* const path = std::getenv("TV_SHARE_LOG");
  if (path) myLogPath = path;
  if (auto name = platformUserName()) myUserName = std::move(*name);
  const char* const user = std::getenv("MC_DUSER");
  if (user) myUserName = user;
  take<int>(myNumFiles, std::getenv("MC_DFILES"));
  take<int>(myFileSize, std::getenv("MC_DFILESIZE"));
  take<MCDebugLevel>(myDebugLevel, std::getenv("MC_DLEVEL"));
  take<int>(myMSecOn, std::getenv("MC_DMSEC"));
  myUID = static_cast<int>(getuid());
}

void MCLog::parseArgs(int argc, char** argv) {
  if (argc < 1 || !argv) return;
  // getopt sorts its arguments and keeps its place in globals: it works on a copy here, says
  // nothing of options that are not ours, and the program's own place is put back.
  std::vector<char*> arguments(argv, std::find(argv, argv + argc, nullptr));
  const int count = static_cast<int>(arguments.size());
  arguments.push_back(nullptr);
  const int place = optind;
  const int reports = opterr;
  optind = 0;
  opterr = 0;
  for (int option; (option = getopt(count, arguments.data(), "d:f:n:k:")) != -1;) {
    if (option == 'd') take<MCDebugLevel>(myDebugLevel, optarg);
    if (option == 'f') myFileName = optarg;
    if (option == 'n') take<int>(myNumFiles, optarg);
    if (option == 'k') take<int>(myFileSize, optarg);
  }
  optind = place;
  opterr = reports;
}

}  // namespace zntopo
