#pragma once

#include "zntopo/platform/Export.h"

/// @file
/// The platform's trace. It is off unless the environment variable TV_TRACE names a file, to
/// which every process then appends.

namespace TvXplTrc {

/// One traced subject, known by its trace name.
class TraceObj_t {
 public:
  constexpr explicit TraceObj_t(const char* name) : name_(name) {}

  /// True if a trace of this category would be written anywhere.
  bool IsActive(int category) const;
  /// Writes one line. May be called by several threads at once.
  void DoTrace(int category, const char* text, const char* file, int line) const;
  const char* GetName() const { return name_; }

 private:
  const char* name_;
};

/// A static object that stands for a TraceObj_t. Its constructor is constexpr, so that it can
/// be used before and after every other static object.
class TraceWrapper_t {
 public:
  constexpr explicit TraceWrapper_t(const char* name) : object_(name) {}

  /// Opens the trace; done by the first use as well.
  void InitObject() const;
  operator const TraceObj_t&() const { return object_; }  // NOLINT(google-explicit-constructor)

 private:
  TraceObj_t object_;
};

/// Marks entry to and exit from a block. Costs one test when the trace is off.
class BlockTrace_t {
 public:
  BlockTrace_t(const TraceWrapper_t& wrapper, const char* function, int category, const char* file,
               int line);
  ~BlockTrace_t();
  BlockTrace_t(const BlockTrace_t&) = delete;
  BlockTrace_t& operator=(const BlockTrace_t&) = delete;

 private:
  const TraceObj_t* object_ = nullptr;  // null while the trace is off
  const char* function_;
  int category_;
  const char* file_;
  int line_;
};

}  // namespace TvXplTrc
