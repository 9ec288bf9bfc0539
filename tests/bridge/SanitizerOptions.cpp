// A JVM handles faults of memory by itself, on which much of its work rests: no sanitizer may take
// them for errors.

extern "C" {
const char* __asan_default_options();
const char* __tsan_default_options();

const char* __asan_default_options() { return "handle_segv=0"; }
const char* __tsan_default_options() { return "handle_segv=0"; }
}
