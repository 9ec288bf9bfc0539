#pragma once

#include <string>

namespace zntopo::tools {

/// A bar on standard error, if that is a terminal; otherwise nothing.
class Progress {
 public:
  explicit Progress(const std::string& label);
  /// Wipes the bar.
  ~Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  /// The part that is done, from 0 to 1.
  void show(double part);

 private:
  std::string label_;
  bool isTerminal_;
  int shown_ = -1;
};

}  // namespace zntopo::tools
