#pragma once

#include <atomic>
#include <functional>
#include <string>
#include <string_view>
#include <thread>

namespace zntopo::tools {

/// Waits for the end of a command that runs until it is told to stop: SIGINT, SIGTERM, or a reader
/// of its output who is gone. One for the process, made before it has threads.
///
/// The first signal asks; a second one ends the process. So does the first if this object is still
/// there two seconds later: with success, or with a failure if a line of the output has begun.
class Interruption {
 public:
  /// @param output the descriptor that the command writes to; it stays the caller's.
  /// @param onEnd called once, on a thread of its own.
  Interruption(int output, std::function<void()> onEnd);
  ~Interruption();
  Interruption(const Interruption&) = delete;
  Interruption& operator=(const Interruption&) = delete;

  bool hasEnded() const { return hasEnded_; }
  /// Writes a line to the output; false once the end has come, and if the reader is gone. A reader
  /// who takes nothing does not keep the end from coming.
  /// @throws std::system_error if the output can't be written otherwise: its disk is full.
  bool write(const std::string& line);

 private:
  void watch();
  void awaitStop() const;
  bool awaitRoom() const;
  /// Takes what was written from the beginning of a text; false if the reader is gone.
  bool writeSome(std::string_view& text) const;

  int output_;
  std::function<void()> onEnd_;
  int signals_;
  /// Readable once the end has come, and once this object ends.
  int ended_;
  int stopped_;
  std::atomic<bool> hasEnded_ = false;
  std::atomic<bool> isLineBegun_ = false;
  std::thread thread_;
};

}  // namespace zntopo::tools
