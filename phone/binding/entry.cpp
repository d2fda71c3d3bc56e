#include "phone/binding/loaded_library.h"

// The loader runs a dylib's initialisers in the order they appear in its
// source: the classes, settings and hooks first, then the layout values
// that read the screen.
__attribute__((constructor)) static void firstLoadStep() { tessel::phone::runFirstLoadStep(); }

__attribute__((constructor)) static void secondLoadStep() { tessel::phone::runSecondLoadStep(); }
