#include <array>

#include "controller/host_lookup.h"
#include "controller/tessel_notification_controller.h"
#include "imaging/color_category.h"
#include "views/tessel_generic_notification_view.h"

namespace tessel {
namespace {

constexpr std::int64_t kRoundedRectButton = 1;
constexpr std::uint64_t kTouchUpInside = 64;
constexpr std::int64_t kIconCopyTag = 1333;
constexpr std::int64_t kArrowTag = 1334;
// Releases from this one answer a single application for an identifier.
constexpr double kSingleApplicationLookupRelease = 1140.1;

using Triangle = std::array<host::Point, 3>;

// The arrow's corners: the middle one is the tip. `icon` is the held icon's
// frame in its list, `panel` the panel's frame.
Triangle arrowTriangle(const host::Ref<host::IconView>& sender, const host::Rect& icon, const host::Rect& panel) {
  const auto& state = shared();
  double top = panel.y;
  double bottom = panel.maxY();
  double cx = icon.x + icon.width * 0.5;
  if (!sender->isInDock() && !state.iconExistsInFolder) {
    if (state.arrowPosition == 0) return {{{cx - 12.5, top}, {cx, top - 20}, {cx + 12.5, top}}};
    return {{{cx - 12.5, bottom}, {cx, bottom + 20}, {cx + 12.5, bottom}}};
  }
  if (state.iconExistsInFolder) {
    host::Rect inWindow = keyWindow()->convertRectFromView(icon, sender->superview());
    double fx = inWindow.x + inWindow.width * 0.5;
    return {{{fx - 12.5, top}, {fx, top - 20}, {fx + 12.5, top}}};
  }
  // The dock's arrow is narrower and leans to the right of the icon.
  return {{{cx - 2.5, bottom}, {cx + 7.5, bottom + 20}, {cx + 17.5, bottom}}};
}

// A full-window surface like the panel's: blurred when dark, white when light.
host::Ref<host::View> makeArrowView(const host::Rect& windowFrame, const PanelLink& panel) {
  auto& host = hostRef();
  auto arrow = host.makeView(windowFrame);
  if (shared().darkMode) {
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

void maskToTriangle(const host::Ref<host::View>& arrow, const Triangle& corners) {
  auto& host = hostRef();
  auto mask = host.makeShapeLayer();
  mask->setFrame(arrow->frame());
  auto path = host.makeBezierPath();
  path->moveToPoint(corners[0]);
  path->addLineToPoint(corners[1]);
  path->addLineToPoint(corners[2]);
  path->closePath();
  mask->setPath(path->CGPath());
  arrow->layer()->setMask(mask);
  arrow->setTag(kArrowTag);
}

host::Ref<host::Application> applicationForBundleIdentifier(const host::String& bundleIdentifier) {
  auto registry = host::cast<host::ApplicationController>(classNamed("SBApplicationController")->sharedInstance());
  if (hostRef().coreFoundationVersionNumber() >= kSingleApplicationLookupRelease) {
    return registry->applicationWithBundleIdentifier(bundleIdentifier);
  }
  return host::objectAtIndex(registry->applicationsWithBundleIdentifier(bundleIdentifier), 0);
}

// A second icon view showing the application's icon, centred over the held
// icon, its label hidden.
host::Ref<host::IconView> makeIconCopy(const host::Ref<host::Application>& application,
                                       const host::Ref<host::IconView>& sender, const host::Rect& icon) {
  auto applicationIcon =
      host::cast<host::Icon>(classNamed("SBApplicationIcon")->alloc())->initWithApplication(application);
  auto copy = host::cast<host::IconView>(classNamed("SBIconView")->alloc())->initWithDefaultSize();
  copy->_setIconAnimated(applicationIcon, true);
  copy->setDelegate(iconController());
  if (sender->isInDock() || shared().iconExistsInFolder) {
    host::Rect inWindow = keyWindow()->convertRectFromView(icon, sender->superview());
    copy->setCenter({inWindow.x + inWindow.width * 0.5, inWindow.y + inWindow.height * 0.5 - 8});
  } else {
    host::Point center = sender->center();
    copy->setCenter({center.x, center.y + icon.height * 0.25});
  }
  copy->setIconLabelAlpha(0);
  copy->setTag(kIconCopyTag);
  return copy;
}

}  // namespace

void TesselNotificationController::showGenericNotificationViewForBundleIdentifier(
    const host::String& bundleIdentifier) {
  auto& state = shared();
  auto window = keyWindow();
  host::Rect windowFrame = window->frame();
  host::Rect screen = screenBounds();

  dismissButton_ = hostRef().buttonWithType(kRoundedRectButton);
  dismissButton_->setFrame(windowFrame);
  dismissButton_->addTargetActionForControlEvents(weak_from_this(), "removeTesselViewsFromView:", kTouchUpInside);

  // Asked once more and not used; the host sees the same questions as at placement.
  (void)iconViewForBundleIdentifier(bundleIdentifier);

  host::Rect panelFrame{0, state.originToStartFrom, screen.width, screen.height / 3.5 - 20};
  genericView_ = TesselGenericNotificationView::initWithFrameBundleIdentifier(panelFrame, bundleIdentifier);

  auto arrow = makeArrowView(windowFrame, genericPanel());
  state.arrowView = arrow;
  window->addSubview(arrow);

  auto sender = state.globalViewSender.lock();
  host::Rect icon = sender->frame();
  maskToTriangle(arrow, arrowTriangle(sender, icon, genericView_->frame()));

  auto application = applicationForBundleIdentifier(bundleIdentifier);
  // Without an application the arrow stays alone: no copy, no button, no panel.
  if (!application) return;

  auto copy = makeIconCopy(application, sender, icon);
  state.iconView = copy;
  window->addSubview(copy);
  window->addSubview(dismissButton_);
  if (sender->isInDock()) {
    window->insertSubviewBelowSubview(genericView_, sender->superview());
  } else {
    window->addSubview(genericView_);
  }
}

}  // namespace tessel
