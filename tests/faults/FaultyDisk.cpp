#include "tests/faults/FaultyDisk.h"

#include <sqlite3.h>

#include <atomic>
#include <cstddef>
#include <limits>
#include <new>
#include <stdexcept>

namespace zntopo::test {
namespace {

constexpr int kNever = std::numeric_limits<int>::max();

std::atomic<bool> isGone = false;
std::atomic<bool> isFull = false;
std::atomic<bool> waitsAreSkipped = false;
std::atomic<int> firstFailingRead = kNever;
std::atomic<int> readCount = 0;

sqlite3_vfs* real = nullptr;

/// A file of SQLite's: its own part, then the one of the real disk right behind.
struct File {
  sqlite3_file base;
  bool isStore;  ///< and no journal

  sqlite3_file* onDisk() { return reinterpret_cast<sqlite3_file*>(this + 1); }
  static File* of(sqlite3_file* file) { return reinterpret_cast<File*>(file); }
};
static_assert(sizeof(File) % alignof(std::max_align_t) == 0);

bool readFails(File* file) {
  if (isGone) return true;
  return file->isStore && ++readCount >= firstFailingRead;
}

/// Calls the method of the real file.
template <auto Method, int Failure, typename... Arguments>
int forward(sqlite3_file* file, Arguments... arguments) {
  if (Failure != SQLITE_OK && isGone) return Failure;
  sqlite3_file* const onDisk = File::of(file)->onDisk();
  return (onDisk->pMethods->*Method)(onDisk, arguments...);
}

int close(sqlite3_file* file) {
  sqlite3_file* const onDisk = File::of(file)->onDisk();
  return onDisk->pMethods->xClose(onDisk);
}

int read(sqlite3_file* file, void* buffer, int amount, sqlite3_int64 offset) {
  if (readFails(File::of(file))) return SQLITE_IOERR_READ;
  sqlite3_file* const onDisk = File::of(file)->onDisk();
  return onDisk->pMethods->xRead(onDisk, buffer, amount, offset);
}

int write(sqlite3_file* file, const void* buffer, int amount, sqlite3_int64 offset) {
  if (isGone) return SQLITE_IOERR_WRITE;
  if (isFull) return SQLITE_FULL;
  sqlite3_file* const onDisk = File::of(file)->onDisk();
  return onDisk->pMethods->xWrite(onDisk, buffer, amount, offset);
}

// Where nothing can be locked nothing is read, not even what SQLite remembers.
int lockShared(sqlite3_file* file, int first, int count, int flags) {
  if (isGone && (flags & SQLITE_SHM_LOCK) != 0) return SQLITE_IOERR_SHMLOCK;
  sqlite3_file* const onDisk = File::of(file)->onDisk();
  return onDisk->pMethods->xShmLock(onDisk, first, count, flags);
}

// Mapped pages would be read past this place.
int fetch(sqlite3_file*, sqlite3_int64, int, void** page) {
  *page = nullptr;
  return SQLITE_OK;
}

int unfetch(sqlite3_file*, sqlite3_int64, void*) { return SQLITE_OK; }

void barrier(sqlite3_file* file) {
  sqlite3_file* const onDisk = File::of(file)->onDisk();
  onDisk->pMethods->xShmBarrier(onDisk);
}

using Methods = sqlite3_io_methods;

const Methods kMethods = {
    3,
    close,
    read,
    write,
    forward<&Methods::xTruncate, SQLITE_IOERR_TRUNCATE, sqlite3_int64>,
    forward<&Methods::xSync, SQLITE_IOERR_FSYNC, int>,
    forward<&Methods::xFileSize, SQLITE_IOERR_FSTAT, sqlite3_int64*>,
    forward<&Methods::xLock, SQLITE_IOERR_LOCK, int>,
    forward<&Methods::xUnlock, SQLITE_OK, int>,
    forward<&Methods::xCheckReservedLock, SQLITE_IOERR_CHECKRESERVEDLOCK, int*>,
    forward<&Methods::xFileControl, SQLITE_OK, int, void*>,
    forward<&Methods::xSectorSize, SQLITE_OK>,
    forward<&Methods::xDeviceCharacteristics, SQLITE_OK>,
    forward<&Methods::xShmMap, SQLITE_IOERR_SHMMAP, int, int, int, void volatile**>,
    lockShared,
    barrier,
    forward<&Methods::xShmUnmap, SQLITE_OK, int>,
    fetch,
    unfetch,
};

int open(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* outFlags) {
  File* const opened = File::of(file);
  opened->base.pMethods = nullptr;
  opened->isStore = (flags & SQLITE_OPEN_MAIN_DB) != 0;
  if (isGone) return SQLITE_CANTOPEN;
  const int result = real->xOpen(real, name, opened->onDisk(), flags, outFlags);
  if (opened->onDisk()->pMethods != nullptr) opened->base.pMethods = &kMethods;
  return result;
}

int sleep(sqlite3_vfs*, int microseconds) {
  return waitsAreSkipped ? microseconds : real->xSleep(real, microseconds);
}

sqlite3_vfs faulty;

}  // namespace

FaultyDisk::FaultyDisk() {
  if (real != nullptr) throw std::logic_error("there is a faulty disk already");
  real = sqlite3_vfs_find(nullptr);
  faulty = *real;
  faulty.zName = "zntopo-faulty";
  faulty.pNext = nullptr;
  faulty.szOsFile = static_cast<int>(sizeof(File)) + real->szOsFile;
  faulty.xOpen = open;
  faulty.xSleep = sleep;
  sqlite3_vfs_register(&faulty, 1);
  repair();
}

FaultyDisk::~FaultyDisk() {
  repair();
  waitsAreSkipped = false;
  sqlite3_vfs_unregister(&faulty);
  sqlite3_vfs_register(real, 1);
  real = nullptr;
}

void FaultyDisk::unplug() { isGone = true; }

void FaultyDisk::fill() { isFull = true; }

void FaultyDisk::failReadsFrom(int number) {
  readCount = 0;
  firstFailingRead = number;
}

void FaultyDisk::repair() {
  isGone = false;
  isFull = false;
  failReadsFrom(kNever);
}

int FaultyDisk::reads() const { return readCount; }

void FaultyDisk::skipWaits() { waitsAreSkipped = true; }

}  // namespace zntopo::test
