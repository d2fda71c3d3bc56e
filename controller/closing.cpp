#include "controller/tessel_notification_controller.h"
#include "controller/timings.h"
#include "views/view_tags.h"

namespace tessel {
namespace {

// Asks the host to lay out again the icon list that holds `icon`.
void relayoutListOf(Context& context, const host::Ref<host::Icon>& icon) {
  auto controller = context.iconController();
  auto root = host::cast<host::Folder>(controller->valueForKeyPath("rootFolder"));
  auto list = controller->getListViewFolderRelativePathForIndexPathCreateIfNecessary(root->indexPathForIcon(icon),
                                                                                     /*create*/ true);
  list->setIconsNeedLayout();
  list->layoutIconsIfNeededDomino(0.375, /*domino*/ false);
}

// The panel folds to nothing at the held icon's height below its rest top,
// and the arrow folds with it.
void fold(SharedState& state, const host::Ref<host::View>& handled) {
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
void returnHomeScreen(Context& context, const PanelLink& panel) {
  auto& state = context.state;
  auto iconViews = state.iconViews;  // the host may lay out (and add) icon views meanwhile
  for (const auto& view : iconViews) view->setAlpha(1.0);
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
    relayoutListOf(context, sender->icon());
  } else {
    for (const auto& view : iconViews) relayoutListOf(context, view->icon());
  }

  host::Rect icon = sender->frame();
  if (pageIcon) {
    state.iconView->setCenter({icon.x + icon.width * 0.5, icon.y + icon.height + icon.height / -3});
  } else {
    host::Rect r = context.keyWindow()->convertRectFromView(icon, sender->superview());
    // The centre's coordinates go into the frame's size, as the phone has it.
    state.iconView->setFrame({r.x, r.y, r.x + r.width * 0.5, r.y + r.height + r.height / -3});
  }
}

void sweep(Context& context, const host::Ref<host::View>& container) {
  auto& state = context.state;
  auto panelClass = context.classNamed("TesselGenericNotificationView");
  auto controllerClass = context.classNamed("TesselNotificationController");
  for (const auto& subview : container->subviews()) {
    if (subview->isKindOfClass(panelClass)) subview->removeFromSuperview();
    if (subview->isKindOfClass(controllerClass)) subview->removeFromSuperview();
    for (auto swept : tag::kAllSwept) {
      if (subview->tag() == swept) subview->removeFromSuperview();
    }
    state.iconView->removeFromSuperview();
    state.iconView = {};
  }
}

}  // namespace

void TesselNotificationController::removeTesselViewsFromView(const host::Ref<host::View>& view) {
  auto center = context_.host.defaultCenter();
  center->removeObserverNameObject(object(), host::platform::kKeyboardWillShowNotification, {});
  center->removeObserverNameObject(object(), host::platform::kKeyboardWillHideNotification, {});

  // Only a plain view is swept itself; the button, a window or nothing mean the key window.
  auto viewClass = view->objectClass();
  host::Ref<host::View> container =
      viewClass && viewClass == context_.classNamed("UIView") ? view : context_.keyWindow();
  dismissButton_->removeFromSuperview();

  auto handled = genericView_;
  context_.host.mainQueue()->async([self = shared_from_this(), container, handled] {
    self->performClosingAnimationOnViewWithHandledView(container, handled);
  });
}

void TesselNotificationController::performClosingAnimationOnViewWithHandledView(const host::Ref<host::View>& container,
                                                                                const host::Ref<host::View>& handled) {
  auto self = shared_from_this();
  auto animator = context_.host.animator();
  animator->animateWithDuration(0.275, [self] { self->state_.arrowView->setAlpha(0); });
  animator->animateWithDuration(0.425, [self, handled] {
    handled->setAlpha(0);
    self->state_.arrowView->setAlpha(0);
  });
  context_.host.mainQueue()->after(timing::kIconCopyFadeDelayNanoseconds, [self] {
    self->context_.host.animator()->animateWithDuration(timing::kIconCopyFade,
                                                        [self] { self->state_.iconView->setAlpha(0); });
  });
  animator->animateWithDuration(0.3, [self, handled] { fold(self->state_, handled); });
  animator->animateWithDuration(
      0.375, [self] { returnHomeScreen(self->context_, self->genericPanel()); },
      [self, container](bool) { sweep(self->context_, container); });
}

}  // namespace tessel
