#include "phone/gnu/standins/library_stand_ins.h"
#include "phone/objc/class_builder.h"
#include "phone/objc/message.h"
#include "phone/objc/runtime.h"
#include "phone/objc/selector.h"

namespace tessel::objc::gnu {
namespace {

using namespace tessel::objc::literals;

// One home screen per process, as the host has; its objects are named, not kept.
struct HomeScreen {
  id icon = nullptr;
  id iconView = nullptr;
  bool editing = false;
  long editingQuestions = 0;
};

HomeScreen& homeScreen() {
  static HomeScreen screen;
  return screen;
}

// A class's one instance, made on first use and kept for the life of the process.
id onlyInstanceOf(Class cls) { return sendToClass<id>(cls, "new"_sel); }

void defineIconModel(Class nsObject) {
  ClassBuilder builder("SBIconModel", nsObject);
  builder.addMethod("expectedIconForDisplayIdentifier:"_sel, [](id, id) { return homeScreen().icon; });
  builder.registerClass();
}

void defineIconController(Class nsObject) {
  ClassBuilder builder("SBIconController", nsObject);
  builder.addClassMethod("sharedInstance"_sel, [](Class self) {
    static const id controller = onlyInstanceOf(self);
    return controller;
  });
  builder.addMethod("model"_sel, [](id) {
    static const id model = onlyInstanceOf(objc_getClass("SBIconModel"));
    return model;
  });
  builder.addMethod("isEditing"_sel, [](id) -> BOOL {
    ++homeScreen().editingQuestions;
    return homeScreen().editing;
  });
  builder.registerClass();
}

void defineIconViewMap(Class nsObject) {
  ClassBuilder builder("SBIconViewMap", nsObject);
  builder.addClassMethod("homescreenMap"_sel, [](Class self) {
    static const id map = onlyInstanceOf(self);
    return map;
  });
  builder.addMethod("mappedIconViewForIcon:"_sel, [](id, id icon) {
    return icon != nullptr && icon == homeScreen().icon ? homeScreen().iconView : nullptr;
  });
  builder.registerClass();
}

}  // namespace

void defineLibraryHomeScreen() {
  Class nsObject = objc_getClass("NSObject");
  if (objc_getClass("SBIconModel") == nullptr) defineIconModel(nsObject);
  if (objc_getClass("SBIconController") == nullptr) defineIconController(nsObject);
  if (objc_getClass("SBIconViewMap") == nullptr) defineIconViewMap(nsObject);
}

void showOnlyIcon(id icon, id iconView) {
  homeScreen().icon = icon;
  homeScreen().iconView = iconView;
}

void setIconsBeingEdited(bool editing) { homeScreen().editing = editing; }

long editingQuestionsAsked() { return homeScreen().editingQuestions; }

}  // namespace tessel::objc::gnu
