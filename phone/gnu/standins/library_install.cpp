#include "phone/gnu/standins/library_stand_ins.h"

namespace tessel::objc::gnu {

void installLibraryStandIns() {
  defineLibraryHomeScreen();
  installIconViewLayoutWitness();
}

void fillInLibraryStandIns() {
  fillInView();
  fillInIconView();
  fillInRecognizers();
}

}  // namespace tessel::objc::gnu
