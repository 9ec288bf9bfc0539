#include "zntopo/platform/tvxpl/TvXplTrc.h"

#include <functional>
#include <string>
#include <thread>

#include "zntopo/platform/tvxpl/detail/AppendFile.h"

namespace TvXplTrc {

namespace {

const tvxpl::AppendFile& traceFile() {
  static const auto& file = *new tvxpl::AppendFile("TV_TRACE");
  return file;
}

const char* orEmpty(const char* text) { return text ? text : ""; }

}  // namespace

bool TraceObj_t::IsActive(int /*category*/) const { return traceFile().isOpen(); }

void TraceObj_t::DoTrace(int category, const char* text, const char* file, int line) const {
  const tvxpl::AppendFile& trace = traceFile();
  if (!trace.isOpen()) return;
  const auto thread = std::hash<std::thread::id>()(std::this_thread::get_id());
  trace.writeLine(std::to_string(thread) + " " + name_ + " " + std::to_string(category) + " " +
                  orEmpty(file) + ":" + std::to_string(line) + " " + orEmpty(text));
}

void TraceWrapper_t::InitObject() const { traceFile(); }

BlockTrace_t::BlockTrace_t(const TraceWrapper_t& wrapper, const char* function, int category,
                           const char* file, int line)
    : function_(function), category_(category), file_(file), line_(line) {
  const TraceObj_t& object = wrapper;
  if (!object.IsActive(category)) return;
  object_ = &object;
  object_->DoTrace(category_, (std::string("enter ") + orEmpty(function_)).c_str(), file_, line_);
}

BlockTrace_t::~BlockTrace_t() {
  if (!object_) return;
  object_->DoTrace(category_, (std::string("leave ") + orEmpty(function_)).c_str(), file_, line_);
}

}  // namespace TvXplTrc
