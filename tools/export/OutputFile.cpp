#include "tools/export/OutputFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <vector>

#include "tools/network/PlainText.h"
#include "tools/network/ToolError.h"

namespace zntopo::tools {

namespace {

namespace fs = std::filesystem;

ToolError cannotWrite(const std::string& path, const std::string& why) {
  return {ZN_API_ILLEGAL_INPUT, "The file \"" + printable(path) + "\" can't be written: " + why};
}

ToolError isThere(const std::string& path) {
  return {ZN_API_ILLEGAL_INPUT, "There is a file \"" + printable(path) +
                                    "\" already: name another one, or replace it with --force."};
}

/// A file without a name that anybody knows, removed unless it was given one.
class Draft {
 public:
  explicit Draft(const std::string& target) : target_(target) {
    const std::string pattern = target + ".XXXXXX";
    name_.assign(pattern.begin(), pattern.end());
    name_.push_back('\0');
    const int descriptor = mkostemp(name_.data(), O_CLOEXEC);
    if (descriptor < 0) throw cannotWrite(target, std::strerror(errno));
    // As any new file of this user.
    const mode_t mask = umask(0);
    umask(mask);
    fchmod(descriptor, 0666 & ~mask);
    close(descriptor);
  }
  ~Draft() {
    if (!isNamed_) unlink(name_.data());
  }
  Draft(const Draft&) = delete;
  Draft& operator=(const Draft&) = delete;

  const char* name() const { return name_.data(); }

  void takeName(bool mayReplace) {
    const int code = mayReplace
                         ? std::rename(name(), target_.c_str())
                         : renameat2(AT_FDCWD, name(), AT_FDCWD, target_.c_str(), RENAME_NOREPLACE);
    isNamed_ = code == 0;
    if (isNamed_) return;
    if (errno == EEXIST) throw isThere(target_);
    // Not every file system can refuse by itself.
    if (errno == EINVAL && !mayReplace && !fs::exists(target_)) return takeName(true);
    throw cannotWrite(target_, std::strerror(errno));
  }

 private:
  std::string target_;
  std::vector<char> name_;
  bool isNamed_ = false;
};

void writeTo(const std::string& name, const std::string& path,
             const std::function<void(std::ostream&)>& writer) {
  std::ofstream stream(name, std::ios::binary | std::ios::trunc);
  if (stream) writer(stream);
  stream.close();
  if (!stream) throw cannotWrite(path, std::strerror(errno));
}

}  // namespace

void requireWritable(const std::string& path, bool mayReplace) {
  std::error_code ignored;
  if (fs::is_directory(path, ignored)) throw cannotWrite(path, "it is a folder");
  if (fs::is_regular_file(path, ignored) && !mayReplace) throw isThere(path);
}

void writeFile(const std::string& path, bool mayReplace,
               const std::function<void(std::ostream&)>& writer) {
  std::error_code ignored;
  requireWritable(path, mayReplace);
  if (fs::exists(path, ignored) && !fs::is_regular_file(path, ignored)) {
    return writeTo(path, path, writer);
  }
  // A link stays one to the new content.
  const fs::path target = fs::exists(path, ignored) ? fs::canonical(path) : fs::path(path);
  Draft draft(target);
  writeTo(draft.name(), path, writer);
  draft.takeName(mayReplace);
}

}  // namespace zntopo::tools
