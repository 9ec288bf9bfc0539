// The files of the log: their names, and which of them is written to.

#include "zntopo/core/MCLog.h"
#include "zntopo/core/ZNMutex.h"
#include "zntopo/core/detail/LogRotation.h"
#include "zntopo/core/detail/MessageTexts.h"

namespace zntopo {

namespace {

long sizeOf(std::FILE* file) {
  std::fseek(file, 0, SEEK_END);
  return std::ftell(file);
}

}  // namespace

std::FILE* MCLog::getLogFile() const {
  const MutexLockInternal hold(logMutex());
  return myLogFile;
}

std::string MCLog::getFileName() const {
  const MutexLockInternal hold(logMutex());
  const auto slash = myLogName.rfind('/');
  return slash == std::string::npos ? std::string() : myLogName.substr(slash + 1);
}

std::string MCLog::getLogPath() const {
  const MutexLockInternal hold(logMutex());
  const auto slash = myLogName.rfind('/');
  return slash == std::string::npos ? std::string() : myLogName.substr(0, slash + 1);
}

void MCLog::createLog(int version) {
  const MutexLockInternal hold(logMutex());
  openLog(version);
}

void MCLog::updateSize() {
  const MutexLockInternal hold(logMutex());
  if (myLogFile != stdout) rotateIfFull();
}

void MCLog::openLog(int version) {
  myLogName.clear();
  if (myLogFile != stdout) std::fclose(myLogFile);
  myLogFile = stdout;
  if (!nameLog()) return;
  const bool numbered = myNumFiles > 1;
  if (version == 0 && numbered) {
    checkLogs(myLogName);
    return;
  }
  const std::string name =
      numbered && version > 0 ? detail::numberedLogName(myLogName, version) : myLogName + ".log";
  openNamed(name, version == 0 ? "a" : "w");
  if (myLogFile == stdout) {
    std::fputs(detail::withName(detail::messages::kNoLogFile.get(), name).c_str(), stdout);
  }
}

// Puts the name together as far as it is the same for all files; false if there is none.
bool MCLog::nameLog() {
  const std::string& base = myFileName.empty() ? myAppName : myFileName;
  if (base.empty()) return false;
  if (!myLogPath.empty() && base.front() != '/') myLogName = myLogPath + "/";
  myLogName += base;
  if (myDaemonProcFlag != MC_FOREGROUND) return true;
  const std::string user = getUserInfo();
  if (user.empty()) return false;
  myLogName += "_" + user;
  return true;
}

void MCLog::openNamed(const std::string& name, const char* mode) {
  myLogName = name;
  std::FILE* const file = std::fopen(name.c_str(), mode);
  myCurrentFileSize = file ? sizeOf(file) : 0;
  myLogFile = file ? file : stdout;
}

// Goes on with the newest file, or with the one behind it if the newest is full.
void MCLog::checkLogs(const std::string& base) {
  myFilePos = detail::newestLogNumber(base, myNumFiles);
  std::string name = detail::numberedLogName(base, myFilePos);
  std::FILE* const there = std::fopen(name.c_str(), "r");
  if (!there) {
    openNamed(name, "w");
    return;
  }
  const long size = sizeOf(there);
  std::fclose(there);
  if (size < sizeLimit()) {
    openNamed(name, "a");
    return;
  }
  myFilePos = myFilePos < myNumFiles ? myFilePos + 1 : 1;
  openNamed(detail::numberedLogName(base, myFilePos), "w");
}

void MCLog::rotateIfFull() {
  myCurrentFileSize = std::ftell(myLogFile);
  if (myCurrentFileSize < sizeLimit()) return;
  // With one file this empties the same file.
  myFilePos = myFilePos < myNumFiles ? myFilePos + 1 : 1;
  openLog(myFilePos);
}

}  // namespace zntopo
