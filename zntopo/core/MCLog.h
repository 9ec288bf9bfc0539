#pragma once

#include <cstdio>
#include <string>

#include "zntopo/platform/Export.h"

namespace zntopo {

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
/// to the platform's trace, whatever the level. All static operations may be called by several
/// threads at once.
class ZNTOPO_EXPORT MCLog {
 public:
  /// Makes the log from an application name, the environment and the options -d level, -f file,
  /// -n number of files, -k size of a file in units of 1000 bytes.
  static void init(const std::string& appName, int argc, char** argv, MCDaemonFlag flag);
  /// Makes the log with a level; MC_DEFAULT leaves the level to MC_DLEVEL.
  static void init(MCDebugLevel level);

  static void log(int level, const char* format, ...) __attribute__((format(printf, 2, 3)));
  /// Formats at most 10239 characters and writes them if the level is at or above the log's.
  static void log(MCDebugLevel level, const char* format, ...)
      __attribute__((format(printf, 2, 3)));

  /// Stores both limits; -1 without an instance, else 1.
  static int setLimits(int theNumFiles, int theFileSize);
  static MCLog* getInstance();
  /// The level of the instance, MC_NONE without one.
  static MCDebugLevel debugLevel();
  static void setDebuggingLevel(MCDebugLevel level);
  static void disableLogging();
  static void enableLogging();

  /// True if a line of this level would reach the log or the trace: lets a caller spare itself
  /// the making of the arguments.
  static bool isHeard(MCDebugLevel level);

  MCDebugLevel getDebugLevel() const { return myDebugLevel; }
  std::FILE* getLogFile() const { return myLogFile; }
  int getFileSize() const { return myFileSize; }
  int getNumFiles() const { return myNumFiles; }
  void setFileSize(int size) { myFileSize = size; }
  void setNumFiles(int number) { myNumFiles = number; }
  std::string getUserInfo() const;
  std::string getFileName() const;
  std::string getLogPath() const;
  void printTime(std::FILE* stream);
  void createLog(int version);
  void updateSize();

 private:
  explicit MCLog(MCDebugLevel level);
  MCLog(const std::string& appName, int argc, char** argv, MCDaemonFlag flag);
};

}  // namespace zntopo
