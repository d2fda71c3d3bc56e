#pragma once

#include <functional>

#include "phone/objc/runtime.h"

// Stand-ins for what the library's own path through the binding reaches:
// CoreFoundation's arrays, the home screen's icon controller, model and
// icon view map, and a witness beneath SBIconView's own layout.
namespace tessel::objc::gnu {

// With the other stand-ins, once per process: the array functions' class,
// the home-screen classes and the layout witness.
void installLibraryStandIns();

// Adds to the shared stand-in classes the selectors that the library's path
// sends and they may not answer yet: only what is missing, so that what
// other stand-ins define stays theirs. Call before the library loads.
void fillInLibraryStandIns();

// The stand-in home screen shows one icon: every identifier's expected icon
// is `icon`, and the icon view map shows it with `iconView` (neither kept).
void showOnlyIcon(id icon, id iconView);
// Whether the icon controller answers that icons are being edited, and how
// many times it has been asked.
void setIconsBeingEdited(bool editing);
long editingQuestionsAsked();

// Runs `witness` with the view each time an SBIconView's own layoutSubviews
// is about to run (nothing: no witness).
void setIconViewLayoutWitness(std::function<void(id iconView)> witness);

// The parts, one file each.
void defineLibraryHomeScreen();
void installIconViewLayoutWitness();
void fillInIconView();
void fillInView();
void fillInRecognizers();

}  // namespace tessel::objc::gnu
