#include <memory>

#include "phone/binding/library_objects.h"
#include "phone/objc/geometry.h"
#include "phone/objc/selector.h"
#include "phone/objc/strong.h"
#include "views/tessel_generic_notification_view.h"

namespace tessel::phone {
namespace {

using namespace objc::literals;
using Panel = TesselGenericNotificationView;

std::shared_ptr<host::ViewDelegate> delegateOfView(id self) { return delegateOf<OwnedViewDelegate>(self); }

std::shared_ptr<Panel> panelOf(id self) { return std::dynamic_pointer_cast<Panel>(delegateOfView(self)); }

// The panel lays out its own layers; the view's own layout does not run.
void addLayoutAndTableMethods(objc::ClassBuilder& builder) {
  builder.addMethod("layoutSubviews"_sel, [](id self) {
    callIntoLibrary([&] {
      if (auto delegate = delegateOfView(self)) delegate->layoutSubviews();
    });
  });
  builder.addMethod("tableView:numberOfRowsInSection:"_sel, [](id self, id table, NSInteger section) -> NSInteger {
    return callIntoLibrary([&]() -> NSInteger {
      auto delegate = delegateOfView(self);
      if (!delegate) return 0;
      return static_cast<NSInteger>(
          delegate->tableViewNumberOfRowsInSection(referenceTo<host::TableView>(table), section));
    });
  });
  // The table does not own the cell it is handed: it outlives the wrapper
  // here by the autorelease pool.
  builder.addMethod("tableView:cellForRowAtIndexPath:"_sel, [](id self, id table, id indexPath) -> id {
    return callIntoLibrary([&]() -> id {
      auto delegate = delegateOfView(self);
      if (!delegate) return nullptr;
      auto cell = delegate->tableViewCellForRowAtIndexPath(referenceTo<host::TableView>(table), indexPathOf(indexPath));
      return objc_autorelease(objc_retain(objectOf(cell)));
    });
  });
  builder.addMethod("tableView:didSelectRowAtIndexPath:"_sel, [](id self, id table, id indexPath) {
    callIntoLibrary([&] {
      if (auto delegate = delegateOfView(self))
        delegate->tableViewDidSelectRowAtIndexPath(referenceTo<host::TableView>(table), indexPathOf(indexPath));
    });
  });
}

// The library builds the panel and its view, so the object that was
// allocated for this message is let go and the panel's view answered in its
// place, owned by the caller, as an initialiser's answer is.
void addInitialiser(objc::ClassBuilder& builder) {
  builder.addMethod("initWithFrame:bundleIdentifier:"_sel, [](id self, objc::Rect frame, id bundleIdentifier) -> id {
    objc::Strong allocated = objc::Strong::adopt(self);
    return callIntoLibrary([&]() -> id {
      Library* library = loadedLibrary();
      if (library == nullptr) return nullptr;
      auto made = Panel::initWithFrameBundleIdentifier(library->context(), library->sharedController().weak_from_this(),
                                                       toHost(frame), stringOf(bundleIdentifier));
      return objc_retain(objectOf(made.view));
    });
  });
}

void addProperties(objc::ClassBuilder& builder) {
  addProperty<panelOf, &Panel::bundleIdentifier, &Panel::setBundleIdentifier>(builder, "bundleIdentifier"_sel,
                                                                              "setBundleIdentifier:"_sel);
  addProperty<panelOf, &Panel::folderBlurBackSettings, &Panel::setFolderBlurBackSettings>(
      builder, "folderBlurBackSettings"_sel, "setFolderBlurBackSettings:"_sel);
  addProperty<panelOf, &Panel::folderBlurBack, &Panel::setFolderBlurBack>(builder, "folderBlurBack"_sel,
                                                                          "setFolderBlurBack:"_sel);
  addProperty<panelOf, &Panel::folderBlurArrowBackground, &Panel::setFolderBlurArrowBackground>(
      builder, "folderBlurArrowBackground"_sel, "setFolderBlurArrowBackground:"_sel);
  addProperty<panelOf, &Panel::folderBlurArrowView, &Panel::setFolderBlurArrowView>(builder, "folderBlurArrowView"_sel,
                                                                                    "setFolderBlurArrowView:"_sel);
  addProperty<panelOf, &Panel::fullBackBlurSettings, &Panel::setFullBackBlurSettings>(
      builder, "fullBackBlurSettings"_sel, "setFullBackBlurSettings:"_sel);
  addProperty<panelOf, &Panel::fullBackBlur, &Panel::setFullBackBlur>(builder, "fullBackBlur"_sel,
                                                                      "setFullBackBlur:"_sel);
  addProperty<panelOf, &Panel::notificationTable, &Panel::setNotificationTable>(builder, "notificationTable"_sel,
                                                                                "setNotificationTable:"_sel);
  addProperty<panelOf, &Panel::backBezierPath, &Panel::setBackBezierPath>(builder, "backBezierPath"_sel,
                                                                          "setBackBezierPath:"_sel);
  addProperty<panelOf, &Panel::whitenUpBackBlurImage, &Panel::setWhitenUpBackBlurImage>(
      builder, "whitenUpBackBlurImage"_sel, "setWhitenUpBackBlurImage:"_sel);
  addProperty<panelOf, &Panel::whitenUpBackBlurImageView, &Panel::setWhitenUpBackBlurImageView>(
      builder, "whitenUpBackBlurImageView"_sel, "setWhitenUpBackBlurImageView:"_sel);
  addProperty<panelOf, &Panel::bulletins, &Panel::setBulletins>(builder, "bulletins"_sel, "setBulletins:"_sel);
  addProperty<panelOf, &Panel::verticalOffset, &Panel::setVerticalOffset>(builder, "verticalOffset"_sel,
                                                                          "setVerticalOffset:"_sel);
  addProperty<panelOf, &Panel::arrowOffset, &Panel::setArrowOffset>(builder, "arrowOffset"_sel, "setArrowOffset:"_sel);
}

}  // namespace

Class registerViewClass() {
  Class superclass = objc_getClass("UIView");
  if (superclass == nullptr) return nullptr;
  objc::ClassBuilder builder(kViewClassName, superclass);
  addLayoutAndTableMethods(builder);
  addInitialiser(builder);
  addProperties(builder);
  return builder.registerClass();
}

}  // namespace tessel::phone
