#include "views/tessel_generic_notification_view.h"

#include "imaging/color_category.h"
#include "views/view_tags.h"

namespace tessel {
namespace {

// The arrow strip's height as a share of the screen's height.
constexpr double kArrowOffsetPerScreenHeight = 0.02248875562;

host::Ref<host::BackdropView> makeBlur(host::Host& host, const host::Rect& frame,
                                       const host::Ref<host::BackdropSettings>& settings) {
  auto blur = host.makeBackdropView(frame, /* autosizesToFitSuperview */ true, settings);
  blur->setBlurQuality("default");
  return blur;
}

}  // namespace

// The drawing is not kept, but it is part of building every panel.
void TesselGenericNotificationView::renderHeldIconImage() {
  auto sender = host::Ref<host::Object>(context_.state.globalViewSender.lock());
  auto iconImageView = host::cast<host::View>(context_.runtime().instanceVariable(sender, "_iconImageView"));
  auto imageContext = context_.host.beginImageContextWithOptions(iconImageView->bounds().size(),
                                                                 iconImageView->isOpaque(), /* scale */ 0.0);
  iconImageView->layer()->renderInContext(imageContext);
  imageContext->end();
}

TesselGenericNotificationView::Made TesselGenericNotificationView::initWithFrameBundleIdentifier(
    Context& context, std::weak_ptr<PanelDelegate> delegate, const host::Rect& frame,
    const host::String& bundleIdentifier) {
  auto panel = std::make_shared<TesselGenericNotificationView>(context, std::move(delegate));
  auto view = context.host.makeCustomView(context.classNamed("TesselGenericNotificationView"), frame, panel);
  if (!view) return {};
  panel->view_ = view;

  panel->setBundleIdentifier(bundleIdentifier);
  view->setClipsToBounds(true);
  panel->setArrowOffset(context.screenBounds().height * kArrowOffsetPerScreenHeight);
  panel->renderHeldIconImage();
  panel->buildBackdropLayers(frame);
  return Made{view, panel};
}

// The five layers are made here and left unattached; layout and the reveal
// put them in place.
void TesselGenericNotificationView::buildBackdropLayers(const host::Rect& frame) {
  const host::Rect own = view()->frame();
  const double width = own.width;
  const double height = own.height;

  setFolderBlurBackSettings(context_.host.backdropSettingsForPrivateStyle(1));
  setFolderBlurBack(context_.host.makeView({0, 0, width, height}));
  if (context_.state.darkMode) {
    // The blur stops short of the body's bottom edge.
    folderBlurBack()->addSubview(makeBlur(context_.host, {0, 0, width, height - 20}, folderBlurBackSettings()));
  } else {
    auto white = imageWithColorAndFrame(context_.host, host::Color::whiteColor(), {0, 0, width, height});
    folderBlurBack()->addSubview(context_.host.makeImageView(white));
  }

  const double bodyHeight = folderBlurBack()->frame().height;
  setFolderBlurArrowBackground(
      makeBlur(context_.host, {0, bodyHeight, width, arrowOffset()}, folderBlurBackSettings()));
  setFolderBlurArrowView(context_.host.makeView({0, bodyHeight, width, arrowOffset()}));
  folderBlurBack()->setTag(tag::kPanelBody);
  folderBlurArrowBackground()->setTag(tag::kArrow);

  setFullBackBlurSettings(context_.host.backdropSettingsForPrivateStyle(2));
  // Made with the frame as passed in, origin included.
  setFullBackBlur(makeBlur(context_.host, frame, fullBackBlurSettings()));
  fullBackBlur()->setTag(tag::kDimmingBlur);

  setWhitenUpBackBlurImage(
      imageWithColorAndFrame(context_.host, host::Color::whiteColor(), context_.keyWindow()->frame()));
  setWhitenUpBackBlurImageView(context_.host.makeImageView(whitenUpBackBlurImage()));
  whitenUpBackBlurImageView()->setTag(tag::kPanelBody);
}

void TesselGenericNotificationView::layout() {
  auto window = context_.keyWindow();
  // Once a panel body, the whitening layer or any blur sits directly in the
  // key window, layout leaves everything as it is.
  auto backdropClass = context_.classNamed("_UIBackdropView");
  bool settled = false;
  for (const auto& subview : window->subviews()) {
    if (subview->tag() == tag::kPanelBody || subview->isKindOfClass(backdropClass)) settled = true;
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
  auto spacer = context_.host.makeView({0, 0, body.x, body.y});
  spacer->setBackgroundColor(host::Color::blackColor());
  window->addSubview(spacer);
}

}  // namespace tessel
