#pragma once

#include <atomic>
#include <cstdarg>
#include <cstdio>
#include <string>

#include "zntopo/platform/Export.h"

namespace zntopo {

class ZNMutex;

/// How grave a log line is; the log's own level is a threshold.
enum MCDebugLevel : int {
  MC_VERBOSE = 0,
  MC_TRACE_L2 = 1,
  MC_TRACE_L1 = 2,
  MC_INFO = 3,
  MC_MINOR = 4,
  MC_MAJOR = 5,
  MC_CRITICAL = 6,
  MC_NONE = 7,
  MC_DEFAULT = 8
};

/// Whether the user's name goes into the name of the log file (foreground) or not.
enum MCDaemonFlag : int { MC_DAEMON = 0, MC_FOREGROUND = 1 };

/// The diagnostic log of the process: a rotating file, or standard output without a file name.
///
/// Without init() and without MC_DLEVEL in the environment it is silent. Every line also goes
/// to the platform's trace, whatever the level. All operations may be called by several threads
/// at once. The instance is never destroyed; one that init() replaces stays as it is.
///
/// Environment: TV_SHARE_LOG (folder), MC_DUSER (user name), MC_DFILES (number of files),
/// MC_DFILESIZE (size of a file in units of 1000 bytes), MC_DLEVEL (level), MC_DMSEC (above 0:
/// lines with microseconds).
class ZNTOPO_EXPORT MCLog {
 public:
  /// Makes the log from an application name, the environment and the options -d level, -f file,
  /// -n number of files, -k size of a file in units of 1000 bytes. Options beat the environment.
  /// The arguments stay in their order.
  static void init(const std::string& appName, int argc, char** argv, MCDaemonFlag flag);
  /// Makes the log with a level; MC_DEFAULT leaves the level to MC_DLEVEL.
  static void init(MCDebugLevel level);

  /// As the other form; a level outside 0 to 7 is MC_DEFAULT.
  static void log(int level, const char* format, ...) __attribute__((format(printf, 2, 3)));
  /// Formats at most 10239 characters and writes them if the level is at or above the log's.
  ///
  /// The formatted text is read as a format once more on its way to the file: "%%" in it becomes
  /// "%", and every other "%" is written as it stands.
  static void log(MCDebugLevel level, const char* format, ...)
      __attribute__((format(printf, 2, 3)));

  /// Stores both limits; -1 without an instance, else 1.
  static int setLimits(int theNumFiles, int theFileSize);
  /// Null before the first init() or log().
  static MCLog* getInstance() { return myLog.load(std::memory_order_acquire); }
  /// The level of the instance, MC_NONE without one.
  static MCDebugLevel debugLevel();
  /// Does nothing without an instance.
  static void setDebuggingLevel(MCDebugLevel level);
  /// Keeps lines from the log until enableLogging(); the trace still gets them.
  static void disableLogging();
  static void enableLogging();

  /// True if a line of this level would reach the log or the trace: lets a caller spare itself
  /// the making of the arguments. Makes the instance, as log() does.
  static bool isHeard(MCDebugLevel level);

  MCDebugLevel getDebugLevel() const { return myDebugLevel; }
  /// The open stream; a rotation closes it.
  std::FILE* getLogFile() const;
  /// Size of a file in units of 1000 bytes.
  int getFileSize() const { return myFileSize; }
  int getNumFiles() const { return myNumFiles; }
  void setFileSize(int size) { myFileSize = size; }
  void setNumFiles(int number) { myNumFiles = number; }
  /// The user's name, or else the user's number as text.
  std::string getUserInfo() const;
  /// The name of the log file behind its last "/"; empty without a "/".
  std::string getFileName() const;
  /// The name of the log file up to and with its last "/"; empty without one.
  std::string getLogPath() const;
  /// Writes the local time and a blank, or the time and the seconds and microseconds.
  void printTime(std::FILE* stream);
  /// Opens the log file: 0 goes on where the last process stopped, another number empties that
  /// file.
  void createLog(int version);
  /// Goes on to the next file if the open one has reached its size.
  void updateSize();

  MCLog(const MCLog&) = delete;
  MCLog& operator=(const MCLog&) = delete;

 private:
  explicit MCLog(MCDebugLevel level);
  MCLog(const std::string& appName, int argc, char** argv, MCDaemonFlag flag);
  ~MCLog() = default;

  static ZNMutex& logMutex();
  static void publish(MCLog* log);
  static MCLog* makeInstance();
  static bool isDisabled() { return myLoggingDisabled.load(std::memory_order_relaxed) < 0; }
  static bool passes(MCDebugLevel level);
  /// True if it is sure, and cheap to tell, that nobody hears a line of this level.
  static bool isUnheard(MCDebugLevel level);
  static void vlog(MCDebugLevel level, const char* format, va_list arguments)
      __attribute__((format(printf, 2, 0)));
  static void write(MCDebugLevel level, const char* text);

  void getEnvVars();
  void parseArgs(int argc, char** argv);

  // The caller of what follows holds the mutex.
  void openLog(int version);
  bool nameLog();
  void openNamed(const std::string& name, const char* mode);
  void checkLogs(const std::string& base);
  void rotateIfFull();
  long long sizeLimit() const { return static_cast<long long>(myFileSize) * 1000; }

  // Set while the log is made.
  std::string myAppName;
  std::string myFileName;
  std::string myUserName;
  int myUID = -1;
  std::string myLogPath;
  MCDaemonFlag myDaemonProcFlag = MC_DAEMON;
  int myMSecOn = 0;
  MCLog* replaced_ = nullptr;  // the instance before this one, kept reachable

  // Set by any thread at any time.
  std::atomic<int> myFileSize{5120};
  std::atomic<int> myNumFiles{1};
  std::atomic<MCDebugLevel> myDebugLevel;

  // Guarded by the mutex.
  std::string myLogName;
  std::FILE* myLogFile = stdout;
  long myCurrentFileSize = 0;
  int myFilePos = 1;

  static std::atomic<MCLog*> myLog;
  static std::atomic<int> myLoggingDisabled;
};

}  // namespace zntopo
