#include <array>

#include "controller/host_lookup.h"
#include "controller/shielded.h"
#include "controller/tessel_notification_controller.h"
#include "views/tessel_generic_notification_view.h"

namespace tessel {
namespace {

constexpr std::int64_t kIconFadeDelayNanoseconds = 200000000;
// Every tag that the panel and its companions leave in the window.
constexpr std::array<std::int64_t, 5> kPanelTags{1337, 1336, 1335, 1334, 1333};

// Asks the host to lay out again the icon list that holds `icon`.
void relayoutListOf(const host::Ref<host::Icon>& icon) {
  auto controller = iconController();
  auto root = host::cast<host::Folder>(controller->valueForKeyPath("rootFolder"));
  auto list = controller->getListViewFolderRelativePathForIndexPathCreateIfNecessary(root->indexPathForIcon(icon),
                                                                                     /*create*/ true);
  list->setIconsNeedLayout();
  list->layoutIconsIfNeededDomino(0.375, /*domino*/ false);
}

// The panel folds to nothing at the held icon's height below its rest top,
// and the arrow folds with it.
void fold(const host::Ref<host::View>& handled) {
  auto& state = shared();
  double iconHeight = state.globalViewSender->frame().height;
  const host::Rect& rest = state.oldTesselFrame;
  handled->setFrame({rest.x, rest.y + iconHeight, rest.width, 0});
  double k = iconHeight + 7.5;
  auto arrow = state.arrowView.lock();
  host::Rect a = arrow->frame();
  if (state.arrowPosition != 0) {
    arrow->setFrame({a.x, a.y + (k + 12.5) * -0.5, a.width, a.height});
  } else {
    const host::Rect& collapsed = state.intermediateArrowFrame;
    // The height takes away the panel's y, not a height.
    arrow->setFrame({collapsed.x, a.y + k, collapsed.width, collapsed.height - handled->frame().y});
  }
  handled->setAlpha(0);
  arrow->setAlpha(0);
}

// The page comes back: icons at full opacity and laid out again, the icon
// copy back over the held icon.
void returnHomeScreen(const TesselNotificationController& controller) {
  auto& state = shared();
  auto iconViews = state.iconViews;  // the host may lay out (and add) icon views meanwhile
  for (const auto& view : iconViews) view->setAlpha(1.0);
  auto panel = controller.genericPanel();
  panel.fullBackBlur()->setAlpha(0);
  panel.whitenUpBackBlurImageView()->setAlpha(0);

  auto sender = state.globalViewSender.lock();
  bool dock = sender->isInDock();
  if (dock) {
    auto arrow = state.arrowView.lock();
    host::Rect a = arrow->frame();
    arrow->setFrame({a.x, a.y - state.oldTesselFrame.height + state.intermediateTesselFrame.height, a.width, a.height});
  }

  bool pageIcon = !state.iconExistsInFolder && !dock;
  if (pageIcon) {
    relayoutListOf(sender->icon());
  } else {
    for (const auto& view : iconViews) relayoutListOf(view->icon());
  }

  host::Rect icon = sender->frame();
  if (pageIcon) {
    state.iconView->setCenter({icon.x + icon.width * 0.5, icon.y + icon.height + icon.height / -3});
  } else {
    host::Rect r = keyWindow()->convertRectFromView(icon, sender->superview());
    // The centre's coordinates go into the frame's size, as the phone has it.
    state.iconView->setFrame({r.x, r.y, r.x + r.width * 0.5, r.y + r.height + r.height / -3});
  }
}

void sweep(const host::Ref<host::View>& container) {
  auto& state = shared();
  auto panelClass = classNamed("TesselGenericNotificationView");
  auto controllerClass = classNamed("TesselNotificationController");
  for (const auto& subview : container->subviews()) {
    if (subview->isKindOfClass(panelClass)) subview->removeFromSuperview();
    if (subview->isKindOfClass(controllerClass)) subview->removeFromSuperview();
    for (auto tag : kPanelTags) {
      if (subview->tag() == tag) subview->removeFromSuperview();
    }
    state.iconView->removeFromSuperview();
    state.iconView = {};
  }
}

}  // namespace

void TesselNotificationController::removeTesselViewsFromView(const host::Ref<host::View>& view) {
  auto center = hostRef().defaultCenter();
  center->removeObserverNameObject(this, "UIKeyboardWillShowNotification", {});
  center->removeObserverNameObject(this, "UIKeyboardWillHideNotification", {});

  // Only a plain view is swept itself; the button, a window or nothing mean the key window.
  auto viewClass = view->objectClass();
  host::Ref<host::View> container = viewClass && viewClass == classNamed("UIView") ? view : keyWindow();
  dismissButton_->removeFromSuperview();

  auto handled = genericView_;
  hostRef().mainQueue()->async(shieldedBlock([self = shared_from_this(), container, handled] {
    self->performClosingAnimationOnViewWithHandledView(container, handled);
  }));
}

void TesselNotificationController::performClosingAnimationOnViewWithHandledView(const host::Ref<host::View>& container,
                                                                                const host::Ref<host::View>& handled) {
  auto animator = hostRef().animator();
  animator->animateWithDuration(0.275, shieldedBlock([] { shared().arrowView->setAlpha(0); }));
  animator->animateWithDuration(0.425, shieldedBlock([handled] {
                                  handled->setAlpha(0);
                                  shared().arrowView->setAlpha(0);
                                }));
  hostRef().mainQueue()->after(kIconFadeDelayNanoseconds, shieldedBlock([] {
                                 hostRef().animator()->animateWithDuration(
                                     0.25, shieldedBlock([] { shared().iconView->setAlpha(0); }));
                               }));
  animator->animateWithDuration(0.3, shieldedBlock([handled] { fold(handled); }));
  animator->animateWithDuration(0.375, shieldedBlock([self = shared_from_this()] { returnHomeScreen(*self); }),
                                shieldedBlock([container](bool) { sweep(container); }));
}

}  // namespace tessel
