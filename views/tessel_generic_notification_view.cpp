#include "views/tessel_generic_notification_view.h"

#include "controller/host_lookup.h"
#include "controller/module.h"
#include "controller/shielded.h"
#include "imaging/color_category.h"

namespace tessel {
namespace {

constexpr std::int64_t kBodyTag = 1337;
constexpr std::int64_t kArrowStripBlurTag = 1334;
constexpr std::int64_t kDimmingBlurTag = 1335;
constexpr std::int64_t kWhiteningTag = 1337;
// The arrow strip's height as a share of the screen's height.
constexpr double kArrowOffsetPerScreenHeight = 0.02248875562;

host::Ref<host::BackdropView> makeBlur(const host::Rect& frame, const host::Ref<host::BackdropSettings>& settings) {
  auto blur = hostRef().makeBackdropView(frame, /* autosizesToFitSuperview */ true, settings);
  blur->setBlurQuality("default");
  return blur;
}

// Draws the held icon's image into a throwaway context; the drawing is not
// kept, but it is part of building every panel.
void renderHeldIconImage() {
  auto sender = host::Ref<host::Object>(shared().globalViewSender.lock());
  auto iconImageView = host::cast<host::View>(hostRef().runtime()->instanceVariable(sender, "_iconImageView"));
  auto context = hostRef().beginImageContextWithOptions(iconImageView->bounds().size(), iconImageView->isOpaque(),
                                                        /* scale */ 0.0);
  iconImageView->layer()->renderInContext(context);
  context->end();
}

}  // namespace

host::Ref<host::View> TesselGenericNotificationView::initWithFrameBundleIdentifier(
    const host::Rect& frame, const host::String& bundleIdentifier) {
  auto panel = std::make_shared<TesselGenericNotificationView>();
  auto view = hostRef().makeCustomView(classNamed("TesselGenericNotificationView"), frame, panel);
  if (!view) return {};
  panel->view_ = view;

  panel->setBundleIdentifier(bundleIdentifier);
  view->setClipsToBounds(true);
  panel->setArrowOffset(screenBounds().height * kArrowOffsetPerScreenHeight);
  renderHeldIconImage();
  panel->buildBackdropLayers(frame);
  return view;
}

std::shared_ptr<TesselGenericNotificationView> TesselGenericNotificationView::of(const host::Ref<host::View>& view) {
  return std::dynamic_pointer_cast<TesselGenericNotificationView>(view->viewDelegate());
}

// The five layers are made here and left unattached; layout and the reveal
// put them in place.
void TesselGenericNotificationView::buildBackdropLayers(const host::Rect& frame) {
  const host::Rect own = view()->frame();
  const double width = own.width;
  const double height = own.height;

  setFolderBlurBackSettings(hostRef().backdropSettingsForPrivateStyle(1));
  setFolderBlurBack(hostRef().makeView({0, 0, width, height}));
  if (shared().darkMode) {
    // The blur stops short of the body's bottom edge.
    folderBlurBack()->addSubview(makeBlur({0, 0, width, height - 20}, folderBlurBackSettings()));
  } else {
    auto white = imageWithColorAndFrame(hostRef(), host::Color::whiteColor(), {0, 0, width, height});
    folderBlurBack()->addSubview(hostRef().makeImageView(white));
  }

  const double bodyHeight = folderBlurBack()->frame().height;
  setFolderBlurArrowBackground(makeBlur({0, bodyHeight, width, arrowOffset()}, folderBlurBackSettings()));
  setFolderBlurArrowView(hostRef().makeView({0, bodyHeight, width, arrowOffset()}));
  folderBlurBack()->setTag(kBodyTag);
  folderBlurArrowBackground()->setTag(kArrowStripBlurTag);

  setFullBackBlurSettings(hostRef().backdropSettingsForPrivateStyle(2));
  // Made with the frame as passed in, origin included.
  setFullBackBlur(makeBlur(frame, fullBackBlurSettings()));
  fullBackBlur()->setTag(kDimmingBlurTag);

  setWhitenUpBackBlurImage(imageWithColorAndFrame(hostRef(), host::Color::whiteColor(), keyWindow()->frame()));
  setWhitenUpBackBlurImageView(hostRef().makeImageView(whitenUpBackBlurImage()));
  whitenUpBackBlurImageView()->setTag(kWhiteningTag);
}

void TesselGenericNotificationView::layoutSubviews() noexcept {
  shielded([this] {
    auto window = keyWindow();
    // Once a panel body, the whitening layer or any blur sits directly in the
    // key window, layout leaves everything as it is.
    auto backdropClass = classNamed("_UIBackdropView");
    bool settled = false;
    for (const auto& subview : window->subviews()) {
      if (subview->tag() == kBodyTag || subview->isKindOfClass(backdropClass)) settled = true;
    }
    if (settled) return;

    auto self = view();
    folderBlurArrowView()->setFrame({0, folderBlurBack()->frame().height, self->frame().width, arrowOffset()});
    self->superview()->addSubview(folderBlurArrowView());
    fullBackBlur()->removeFromSuperview();
    self->addSubview(folderBlurBack());

    // Sized by the body's origin, which is (0, 0): an empty black view, one
    // more on every pass that gets this far.
    const host::Rect body = folderBlurBack()->frame();
    auto spacer = hostRef().makeView({0, 0, body.x, body.y});
    spacer->setBackgroundColor(host::Color::blackColor());
    window->addSubview(spacer);
  });
}

}  // namespace tessel
