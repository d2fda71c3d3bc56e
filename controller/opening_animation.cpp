#include "controller/tessel_notification_controller.h"
#include "controller/timings.h"
#include "controller/truncation.h"
#include "controller/view_motion.h"

namespace tessel {
namespace {

struct Shifts {
  double rise = 0;  // icons at or above the held icon's row move up by this
  double drop = 0;  // icons below it move down by this
};

// `icon` is the held icon's frame in its list, `inWindow` the same frame in
// the key window, `panel` the panel's frame as built.
Shifts shiftsOutOfPanel(bool folder, bool dock, const host::Rect& icon, const host::Rect& inWindow,
                        const host::Rect& panel) {
  auto lowerMiddle = [](const host::Rect& r) { return r.y + r.height + r.width * 0.5; };
  Shifts shifts;
  if (!folder && !dock) {
    shifts.rise = lowerMiddle(icon) - panel.y + 20;
    shifts.drop = panel.maxY() - lowerMiddle(icon) + 20;
  } else {
    shifts.rise = folder ? lowerMiddle(inWindow) - panel.y : panel.height + 20;
    shifts.drop = panel.maxY() - lowerMiddle(inWindow) + 20;
  }
  return shifts;
}

// Moves an icon view of the page by `dy`; an open folder's icons move
// through window coordinates.
void moveIconView(Context& context, const host::Ref<host::IconView>& view, const host::Rect& frame, double dy) {
  if (!context.state.iconExistsInFolder) {
    view->setFrame({frame.x, frame.y + dy, frame.width, frame.height});
    return;
  }
  auto window = context.keyWindow();
  auto list = view->superview();
  host::Rect inWindow = window->convertRectFromView(frame, list);
  inWindow.y += dy;
  view->setFrame(list->convertRectFromView(inWindow, window));
}

}  // namespace

void TesselNotificationController::performOpeningAnimation() {
  auto center = context_.host.defaultCenter();
  center->addObserverSelectorNameObject(object(), host::action::keyboardWillShowOrHide,
                                        host::platform::kKeyboardWillShowNotification, {});
  center->addObserverSelectorNameObject(object(), host::action::keyboardWillShowOrHide,
                                        host::platform::kKeyboardWillHideNotification, {});

  auto& state = state_;
  auto panelView = genericView_;
  auto panel = genericPanel();
  auto sender = state.globalViewSender.lock();
  auto arrow = state.arrowView.lock();
  bool folder = state.iconExistsInFolder;
  bool dock = sender->isInDock();
  host::Rect icon = sender->frame();
  host::Rect iconInWindow = context_.keyWindow()->convertRectFromView(icon, sender->superview());
  host::Rect built = panelView->frame();
  Shifts shifts = shiftsOutOfPanel(folder, dock, icon, iconInWindow, built);

  panelView->setAlpha(0);
  panel.fullBackBlur()->setAlpha(0);
  panel.whitenUpBackBlurImageView()->setAlpha(0);
  arrow->setAlpha(0);

  // Page and folder panels settle 5 points higher than built, dock panels 5 lower.
  double nudge = dock ? -5 : 5;
  host::Rect arrowBuilt = arrow->frame();
  state.oldTesselFrame = {built.x, built.y - nudge, built.width, built.height};
  state.oldArrowFrame = {arrowBuilt.x, arrowBuilt.y - nudge, arrowBuilt.width, arrowBuilt.height};
  host::Rect screen = context_.screenBounds();
  state.newTesselFrame = {0, built.y + built.height * 0.5 + 10, screen.width, screen.height / 20};
  double arrowY = dock ? state.oldArrowFrame.y - state.newTesselFrame.height
                       : state.oldArrowFrame.y + (state.newTesselFrame.y - state.oldTesselFrame.y);
  state.intermediateArrowFrame = {state.oldArrowFrame.x, arrowY, state.oldArrowFrame.width, state.oldArrowFrame.height};
  panelView->setFrame(state.newTesselFrame);
  arrow->setFrame(state.intermediateArrowFrame);

  auto self = shared_from_this();
  context_.host.mainQueue()->after(timing::kIconCopyFadeDelayNanoseconds, [self] {
    self->context_.host.animator()->animateWithDuration(timing::kIconCopyFade,
                                                        [self] { self->state_.iconView->setAlpha(1.0); });
  });

  auto grow = [self, panelView, shifts] {
    auto& state = self->state_;
    self->context_.host.mainQueue()->async([self] { self->genericPanel().updateForFrameChange(); });
    auto sender = state.globalViewSender.lock();
    if (!sender->isInDock()) moveViewVertically(state.iconView.lock(), -shifts.rise);
    panelView->setAlpha(1.0);
    state.arrowView->setAlpha(1.0);
    for (const auto& view : self->gatherIconViews()) {
      host::Rect frame = view->frame();
      if (view != sender) view->setAlpha(0.5);
      if (view->isInDock()) continue;
      bool rises = truncateToInt32(frame.y) <= state.checkIconOriginY;
      moveIconView(self->context_, view, frame, rises ? -shifts.rise : shifts.drop);
    }
    const host::Rect& rest = state.oldTesselFrame;
    state.intermediateTesselFrame = {0, rest.y, state.newTesselFrame.width, state.newTesselFrame.height};
    panelView->setFrame({0, rest.y, rest.width, rest.height});
    state.arrowView->setFrame(state.oldArrowFrame);
    self->genericPanel().fullBackBlur()->setAlpha(1.0);
  };
  auto settle = [self, panelView](bool) {
    self->context_.host.animator()->animateWithDuration(
        0.25, [self, panelView] { panelView->setFrame(self->state_.oldTesselFrame); },
        [self, panelView](bool finished) {
          if (finished) self->keepPanelInsideWindow(panelView);
        });
  };
  context_.host.animator()->animateWithDuration(0.325, grow, settle);
}

void TesselNotificationController::keepPanelInsideWindow(const host::Ref<host::View>& panelView) {
  auto& state = state_;
  auto sender = state.globalViewSender.lock();
  auto window = context_.keyWindow();
  host::Rect icon = sender->frame();
  bool pageIcon = !state.iconExistsInFolder && !sender->isInDock();
  host::Rect measured = pageIcon ? icon : sender->superview()->convertRectToView(icon, window);
  double threshold = pageIcon ? -15 : 0;
  auto views = gatherIconViews();
  host::Rect panel = panelView->frame();
  double windowHeight = window->frame().height;

  double dy = 0;
  if (measured.y <= threshold) {
    dy = panel.y + icon.height * 1.5;
  } else if (panel.maxY() >= windowHeight) {
    dy = -(measured.height * 0.5 + (panel.maxY() - windowHeight));
  } else {
    return;
  }
  context_.host.animator()->animateWithDuration(0.375, [self = shared_from_this(), views, panelView, dy] {
    auto& state = self->state_;
    for (const auto& view : views) moveViewVertically(view, dy);
    moveViewVertically(panelView, dy);
    moveViewVertically(state.arrowView.lock(), dy);
    if (!state.globalViewSender->isInDock()) moveViewVertically(state.iconView.lock(), dy);
  });
}

}  // namespace tessel
