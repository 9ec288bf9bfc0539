#pragma once

#include "bench/support/Setting.h"

/// @file
/// One operation for each file of benchmarks: it registers those that fit the setting.
///
/// A benchmark is named "Question/who": the library, its floor, and whoever else answers the
/// same question. bench/report.py sets the answers beside each other. A benchmark with a counter
/// "bytes" is measured in bytes, all others in time: in the processor's, unless it measures its
/// own.

namespace zntopo::bench {

void registerBulkRead(const Setting& setting);
void registerDump(const Setting& setting);
void registerEvents(const Setting& setting);
void registerExport(const Setting& setting);
void registerFilters(const Setting& setting);
void registerGroupRead(const Setting& setting);
void registerLog(const Setting& setting);
void registerMemory(const Setting& setting);
void registerSubnetWalk(const Setting& setting);
void registerWarmGroups(const Setting& setting);
void registerWarmLookup(const Setting& setting);
void registerWarmWalk(const Setting& setting);

}  // namespace zntopo::bench
