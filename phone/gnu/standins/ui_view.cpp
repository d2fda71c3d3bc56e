#include <algorithm>
#include <vector>

#include "phone/gnu/standins/class_definitions.h"
#include "phone/gnu/standins/stand_ins.h"
#include "phone/objc/class_builder.h"
#include "phone/objc/geometry.h"
#include "phone/objc/instance_variable.h"
#include "phone/objc/message.h"
#include "phone/objc/owned_object.h"
#include "phone/objc/runtime.h"
#include "phone/objc/selector.h"
#include "phone/objc/strong.h"

namespace tessel::objc::gnu {
namespace {

using namespace tessel::objc::literals;

struct ViewVariables {
  InstanceVariable<Rect> frame;
  InstanceVariable<long> tag;
  // Not retained: a view is kept alive by its superview, not the reverse.
  InstanceVariable<id> superview;
};

const ViewVariables& variables() {
  static const ViewVariables view{
      {objc_getClass("UIView"), "_frame"}, {objc_getClass("UIView"), "_tag"}, {objc_getClass("UIView"), "_superview"}};
  return view;
}

// The subviews, back to front, each kept alive by this list. When the view
// goes, its subviews are left without a superview.
struct Subviews {
  std::vector<Strong> views;
  Subviews() = default;
  Subviews(const Subviews&) = delete;
  Subviews& operator=(const Subviews&) = delete;
  ~Subviews() {
    for (const Strong& view : views) variables().superview.of(view.get()) = nullptr;
  }
};

Subviews& subviewList(id view) {
  if (auto* list = findOwned<Subviews>(view)) return *list;
  return *attachOwned<Subviews>(view);
}

void removeFromSuperview(id view) {
  id superview = variables().superview.of(view);
  if (superview == nullptr) return;
  variables().superview.of(view) = nullptr;
  // May deallocate `view`: nothing touches it afterwards.
  std::erase(subviewList(superview).views, view);
}

void addSubview(id view, id subview) {
  if (subview == nullptr || subview == view) return;
  Strong kept = Strong::retain(subview);
  removeFromSuperview(subview);
  variables().superview.of(subview) = view;
  subviewList(view).views.push_back(std::move(kept));
}

void addGeometryMethods(ClassBuilder& builder) {
  builder.addMethod("frame"_sel, [](id self) { return variables().frame.of(self); });
  builder.addMethod("setFrame:"_sel, [](id self, Rect frame) { variables().frame.of(self) = frame; });
  builder.addMethod("bounds"_sel, [](id self) { return Rect{{}, variables().frame.of(self).size}; });
  builder.addMethod("tag"_sel, [](id self) { return variables().tag.of(self); });
  builder.addMethod("setTag:"_sel, [](id self, long tag) { variables().tag.of(self) = tag; });
}

void addHierarchyMethods(ClassBuilder& builder) {
  builder.addMethod("superview"_sel, [](id self) { return variables().superview.of(self); });
  builder.addMethod("addSubview:"_sel, [](id self, id subview) { addSubview(self, subview); });
  builder.addMethod("removeFromSuperview"_sel, [](id self) { removeFromSuperview(self); });
  builder.addMethod("layoutSubviews"_sel, [](id) {});
}

}  // namespace

Class defineUIView(Class nsObject) {
  ClassBuilder builder("UIView", nsObject);
  builder.addInstanceVariable<Rect>("_frame");
  builder.addInstanceVariable<long>("_tag");
  builder.addInstanceVariable<id>("_superview");
  builder.addMethod("initWithFrame:"_sel, [nsObject](id self, Rect frame) {
    self = sendSuper<id>(self, nsObject, "init"_sel);
    if (self != nullptr) variables().frame.of(self) = frame;
    return self;
  });
  addGeometryMethods(builder);
  addHierarchyMethods(builder);
  return builder.registerClass();
}

std::vector<id> subviewsOf(id view) {
  std::vector<id> views;
  if (auto* list = findOwned<Subviews>(view)) {
    for (const Strong& subview : list->views) views.push_back(subview.get());
  }
  return views;
}

}  // namespace tessel::objc::gnu
