// A sanitized test binary reads phone/gnu/lsan.supp by default, whoever runs
// it (ctest, test discovery at build time, or a person); LSAN_OPTIONS set in
// the environment still take precedence.
#ifdef TESSEL_LSAN_SUPPRESSIONS
extern "C" const char* __lsan_default_options() {
  return "suppressions=" TESSEL_LSAN_SUPPRESSIONS ":print_suppressions=0";
}
#endif
