// A JVM handles faults of memory by itself, on which much of its work rests: no sanitizer may take
// them for errors. What it does under its own locks, which no sanitizer knows, is its own affair.
#include "zntopo/platform/Export.h"

extern "C" {
ZNTOPO_EXPORT const char* __asan_default_options();
ZNTOPO_EXPORT const char* __tsan_default_options();
ZNTOPO_EXPORT const char* __tsan_default_suppressions();

const char* __asan_default_options() { return "handle_segv=0"; }
const char* __tsan_default_options() { return "handle_segv=0"; }
const char* __tsan_default_suppressions() { return "race:libjvm.so\n"; }
}
