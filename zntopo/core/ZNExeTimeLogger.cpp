#include "zntopo/core/ZNExeTimeLogger.h"

#include <unistd.h>

#include <cstdio>

namespace zntopo {

namespace {

const char* const kStartLogFileName = "/tmp/ExeTimeLoggerStart";
constexpr int kMicroseconds = 1000000;

// What all objects share; never destroyed.
struct Shared {
  std::FILE* marker = nullptr;  // stays open
  std::string logFileName;
  std::FILE* fp = nullptr;
  // The stream keeps its value when it is closed, so that no other file is opened; nothing goes
  // through it any more.
  bool closed = false;

  bool startLogging() const { return marker; }
  bool isWritable() const { return fp && !closed; }
};

Shared& shared() {
  static auto& one = *new Shared();
  return one;
}

void openFile() {
  const std::string name = shared().logFileName + "-" + std::to_string(getpid()) + ".dat";
  shared().fp = std::fopen(name.c_str(), "a+");
  if (!shared().fp) std::printf("Sorry can't open the file : %s", name.c_str());
  std::printf("File open\n");
}

void writeMark(char sign, const timeval& time, const std::string& function) {
  std::fprintf(shared().fp, "%ld.%.6ld[%c%s]", static_cast<long>(time.tv_sec),
               static_cast<long>(time.tv_usec), sign, function.c_str());
}

}  // namespace

void ZNExeTimeLogger::InitLogger(const std::string& name) {
  if (!shared().marker) shared().marker = std::fopen(kStartLogFileName, "r");
  shared().logFileName = name;
}

ZNExeTimeLogger::ZNExeTimeLogger(const std::string& funcName) {
  if (!shared().startLogging()) return;
  _funcName = funcName;
  if (!shared().fp) openFile();
  gettimeofday(&first, nullptr);
  if (!shared().isWritable()) return;
  writeMark('+', first, _funcName);
  std::fputc('\n', shared().fp);
  std::fflush(shared().fp);
}

ZNExeTimeLogger::~ZNExeTimeLogger() {
  if (!shared().startLogging()) return;
  gettimeofday(&second, nullptr);
  if (!shared().isWritable()) return;
  writeMark('-', second, _funcName);
  if (second.tv_usec < first.tv_usec) {
    second.tv_usec += kMicroseconds;
    second.tv_sec -= 1;
  }
  lapsed.tv_sec = second.tv_sec - first.tv_sec;
  lapsed.tv_usec = second.tv_usec - first.tv_usec;
  std::fprintf(shared().fp, "(%ld.%.6ld)\n", static_cast<long>(lapsed.tv_sec),
               static_cast<long>(lapsed.tv_usec));
  std::fclose(shared().fp);
  shared().closed = true;
}

}  // namespace zntopo
