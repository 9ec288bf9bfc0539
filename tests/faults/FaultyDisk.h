#pragma once

#include <functional>
#include <string>

/// @file
/// A disk under SQLite that fails when a test says so.

namespace zntopo::test {

/// The place between SQLite and the files of this process, for the life of this object: every
/// connection that is opened meanwhile, by whatever driver, goes through it. One at a time in a
/// process. All operations may be called by several threads at once.
class FaultyDisk {
 public:
  FaultyDisk();
  ~FaultyDisk();
  FaultyDisk(const FaultyDisk&) = delete;
  FaultyDisk& operator=(const FaultyDisk&) = delete;

  /// From now on nothing can be read, written, opened or locked: the disk is gone.
  void unplug();
  /// Each reading of the store's file from the one of this number on, which counts from 1, fails.
  void failReadsFrom(int number);
  /// From now on nothing more can be written: there is no room.
  void fill();
  /// Everything works again.
  void repair();

  /// The number of readings since the last call of failReadsFrom() or repair().
  int reads() const;

  /// Lets SQLite's waits for a lock pass in no time. They count what they were to sleep, not what
  /// they slept, so that nothing else changes.
  void skipWaits();
};

}  // namespace zntopo::test
