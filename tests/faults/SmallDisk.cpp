#include "tests/faults/SmallDisk.h"

#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <stdexcept>

namespace zntopo::test {
namespace {

std::string sizeOption(int megabytes) {
  return "mode=0777,size=" + std::to_string(megabytes) + "m";
}

/// Mounts that are this process's alone: root needs no more than a space of its own for them,
/// another user one for its rights, too.
bool leaveCommonSpace() {
  if (geteuid() == 0) return unshare(CLONE_NEWNS) == 0;
  const std::string user = std::to_string(geteuid());
  const std::string group = std::to_string(getegid());
  if (unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) return false;
  std::ofstream("/proc/self/setgroups") << "deny";
  std::ofstream("/proc/self/uid_map") << user << " " << user << " 1";
  std::ofstream("/proc/self/gid_map") << group << " " << group << " 1";
  return true;
}

}  // namespace

SmallDisk::SmallDisk(int megabytes) {
  if (!leaveCommonSpace() || mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
      mount("none", folder().c_str(), "tmpfs", 0, sizeOption(megabytes).c_str()) != 0) {
    whyMissing_ = std::string("this process may not mount a disk: ") + std::strerror(errno);
  }
}

SmallDisk::~SmallDisk() {
  if (whyMissing_.empty()) umount2(folder().c_str(), MNT_DETACH);
}

void SmallDisk::grow(int megabytes) const {
  if (mount("none", folder().c_str(), "tmpfs", MS_REMOUNT, sizeOption(megabytes).c_str()) != 0) {
    throw std::runtime_error(std::string("the disk can't grow: ") + std::strerror(errno));
  }
}

}  // namespace zntopo::test
