#include <array>

#include "controller/tessel_notification_controller.h"
#include "imaging/color_category.h"
#include "views/tessel_generic_notification_view.h"
#include "views/view_tags.h"

namespace tessel {
namespace {

using Triangle = std::array<host::Point, 3>;

// The arrow's corners: the middle one is the tip. `icon` is the held icon's
// frame in its list, `panel` the panel's frame.
Triangle arrowTriangle(Context& context, const host::Ref<host::IconView>& sender, const host::Rect& icon,
                       const host::Rect& panel) {
  const auto& state = context.state;
  double top = panel.y;
  double bottom = panel.maxY();
  double cx = icon.x + icon.width * 0.5;
  if (!sender->isInDock() && !state.iconExistsInFolder) {
    if (state.arrowPosition == 0) return {{{cx - 12.5, top}, {cx, top - 20}, {cx + 12.5, top}}};
    return {{{cx - 12.5, bottom}, {cx, bottom + 20}, {cx + 12.5, bottom}}};
  }
  if (state.iconExistsInFolder) {
    host::Rect inWindow = context.keyWindow()->convertRectFromView(icon, sender->superview());
    double fx = inWindow.x + inWindow.width * 0.5;
    return {{{fx - 12.5, top}, {fx, top - 20}, {fx + 12.5, top}}};
  }
  // The dock's arrow is narrower and leans to the right of the icon.
  return {{{cx - 2.5, bottom}, {cx + 7.5, bottom + 20}, {cx + 17.5, bottom}}};
}

// A full-window surface like the panel's: blurred when dark, white when light.
host::Ref<host::View> makeArrowView(Context& context, const host::Rect& windowFrame, const PanelLink& panel) {
  auto& host = context.host;
  auto arrow = host.makeView(windowFrame);
  if (context.state.darkMode) {
    auto backdrop = host.makeBackdropView(arrow->frame(), true, panel.folderBlurBackSettings());
    backdrop->setBlurQuality("default");
    arrow->setAlpha(0.7);
    arrow->addSubview(backdrop);
  } else {
    host::Rect frame = arrow->frame();
    auto white = imageWithColorAndFrame(host, host::Color::whiteColor(), {0, 0, frame.width, frame.height});
    arrow->addSubview(host.makeImageView(white));
  }
  return arrow;
}

void maskToTriangle(host::Host& host, const host::Ref<host::View>& arrow, const Triangle& corners) {
  auto mask = host.makeShapeLayer();
  mask->setFrame(arrow->frame());
  auto path = host.makeBezierPath();
  path->moveToPoint(corners[0]);
  path->addLineToPoint(corners[1]);
  path->addLineToPoint(corners[2]);
  path->closePath();
  mask->setPath(path->CGPath());
  arrow->layer()->setMask(mask);
  arrow->setTag(tag::kArrow);
}

host::Ref<host::Application> applicationForBundleIdentifier(Context& context, const host::String& bundleIdentifier) {
  auto registry =
      host::cast<host::ApplicationController>(context.classNamed("SBApplicationController")->sharedInstance());
  if (context.host.coreFoundationVersionNumber() >= host::platform::kWebKitSeparateRelease) {
    return registry->applicationWithBundleIdentifier(bundleIdentifier);
  }
  return host::objectAtIndex(registry->applicationsWithBundleIdentifier(bundleIdentifier), 0);
}

// A second icon view showing the application's icon, centred over the held
// icon, its label hidden.
host::Ref<host::IconView> makeIconCopy(Context& context, const host::Ref<host::Application>& application,
                                       const host::Ref<host::IconView>& sender, const host::Rect& icon) {
  auto applicationIcon =
      host::cast<host::Icon>(context.classNamed("SBApplicationIcon")->alloc())->initWithApplication(application);
  auto copy = host::cast<host::IconView>(context.classNamed("SBIconView")->alloc())->initWithDefaultSize();
  copy->_setIconAnimated(applicationIcon, true);
  copy->setDelegate(context.iconController());
  if (sender->isInDock() || context.state.iconExistsInFolder) {
    host::Rect inWindow = context.keyWindow()->convertRectFromView(icon, sender->superview());
    copy->setCenter({inWindow.x + inWindow.width * 0.5, inWindow.y + inWindow.height * 0.5 - 8});
  } else {
    host::Point center = sender->center();
    copy->setCenter({center.x, center.y + icon.height * 0.25});
  }
  copy->setIconLabelAlpha(0);
  copy->setTag(tag::kIconCopy);
  return copy;
}

}  // namespace

void TesselNotificationController::showGenericNotificationViewForBundleIdentifier(
    const host::String& bundleIdentifier) {
  auto window = context_.keyWindow();
  host::Rect windowFrame = window->frame();
  host::Rect screen = context_.screenBounds();

  dismissButton_ = context_.host.buttonWithType(host::platform::kButtonTypeRoundedRect);
  dismissButton_->setFrame(windowFrame);
  dismissButton_->addTargetActionForControlEvents(object(), host::action::removeTesselViewsFromView,
                                                  host::platform::kControlEventTouchUpInside);

  // Asked once more and not used; the host sees the same questions as at placement.
  (void)context_.iconViewForBundleIdentifier(bundleIdentifier);

  host::Rect panelFrame{0, state_.originToStartFrom, screen.width, screen.height / 3.5 - 20};
  auto made = TesselGenericNotificationView::initWithFrameBundleIdentifier(context_, weak_from_this(), panelFrame,
                                                                           bundleIdentifier);
  genericView_ = made.view;
  panel_ = made.panel;

  auto arrow = makeArrowView(context_, windowFrame, genericPanel());
  state_.arrowView = arrow;
  window->addSubview(arrow);

  auto sender = state_.globalViewSender.lock();
  host::Rect icon = sender->frame();
  maskToTriangle(context_.host, arrow, arrowTriangle(context_, sender, icon, genericView_->frame()));

  auto application = applicationForBundleIdentifier(context_, bundleIdentifier);
  // Without an application the arrow stays alone: no copy, no button, no panel.
  if (!application) return;

  auto copy = makeIconCopy(context_, application, sender, icon);
  state_.iconView = copy;
  window->addSubview(copy);
  window->addSubview(dismissButton_);
  if (sender->isInDock()) {
    window->insertSubviewBelowSubview(genericView_, sender->superview());
  } else {
    window->addSubview(genericView_);
  }
}

}  // namespace tessel
