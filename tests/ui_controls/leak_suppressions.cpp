// leak_suppressions.cpp: fontconfig keeps its font caches for the life of the process (pango
// never frees them), which the leak checker of sanitized runs would report as ours.
extern "C" __attribute__((visibility("default"), used)) const char* __lsan_default_suppressions() {
  return "leak:libfontconfig.so\n";
}
