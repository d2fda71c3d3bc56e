// The smallest dylib the phone build makes: built right it passes every
// check, and each variant breaks exactly what its check looks for.
extern "C" __attribute__((visibility("default"))) int tesselCheckedEntry() { return 1; }

#ifdef TESSEL_CALL_OUTSIDE_THE_STUBS
extern "C" int symbolInNoStub();
extern "C" __attribute__((visibility("default"))) int tesselCallsOutside() { return symbolInNoStub(); }
#endif
