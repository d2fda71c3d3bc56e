#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "controller/context.h"
#include "host/host.h"
#include "views/panel_delegate.h"

namespace tessel {

// The panel: its backdrop layers and the table of the application's
// notifications. The host view (of the class "TesselGenericNotificationView")
// keeps this object alive; this object names its view without keeping it.
class TesselGenericNotificationView : public host::ViewDelegate,
                                      public std::enable_shared_from_this<TesselGenericNotificationView> {
 public:
  TesselGenericNotificationView(Context& context, std::weak_ptr<PanelDelegate> delegate)
      : context_(context), delegate_(std::move(delegate)) {}

  struct Made {
    host::Ref<host::View> view;
    std::weak_ptr<TesselGenericNotificationView> panel;
  };
  // `alloc` + `initWithFrame:bundleIdentifier:`: the panel's view, or nothing
  // when the base initialiser fails. `delegate` hears of a chosen row.
  static Made initWithFrameBundleIdentifier(Context& context, std::weak_ptr<PanelDelegate> delegate,
                                            const host::Rect& frame, const host::String& bundleIdentifier);

  void updateForFrameChange();

  // The view this panel draws into.
  host::Ref<host::View> view() const { return view_.lock(); }

  // Properties, in declaration order.
  const host::String& bundleIdentifier() const { return bundleIdentifier_; }
  void setBundleIdentifier(host::String value) { bundleIdentifier_ = std::move(value); }
  const host::Ref<host::BackdropSettings>& folderBlurBackSettings() const { return folderBlurBackSettings_; }
  void setFolderBlurBackSettings(host::Ref<host::BackdropSettings> v) { folderBlurBackSettings_ = std::move(v); }
  const host::Ref<host::View>& folderBlurBack() const { return folderBlurBack_; }
  void setFolderBlurBack(host::Ref<host::View> v) { folderBlurBack_ = std::move(v); }
  const host::Ref<host::BackdropView>& folderBlurArrowBackground() const { return folderBlurArrowBackground_; }
  void setFolderBlurArrowBackground(host::Ref<host::BackdropView> v) { folderBlurArrowBackground_ = std::move(v); }
  const host::Ref<host::View>& folderBlurArrowView() const { return folderBlurArrowView_; }
  void setFolderBlurArrowView(host::Ref<host::View> v) { folderBlurArrowView_ = std::move(v); }
  const host::Ref<host::BackdropSettings>& fullBackBlurSettings() const { return fullBackBlurSettings_; }
  void setFullBackBlurSettings(host::Ref<host::BackdropSettings> v) { fullBackBlurSettings_ = std::move(v); }
  const host::Ref<host::BackdropView>& fullBackBlur() const { return fullBackBlur_; }
  void setFullBackBlur(host::Ref<host::BackdropView> v) { fullBackBlur_ = std::move(v); }
  const host::Ref<host::TableView>& notificationTable() const { return notificationTable_; }
  void setNotificationTable(host::Ref<host::TableView> v) { notificationTable_ = std::move(v); }
  const host::Ref<host::BezierPath>& backBezierPath() const { return backBezierPath_; }
  void setBackBezierPath(host::Ref<host::BezierPath> v) { backBezierPath_ = std::move(v); }
  const host::Ref<host::Image>& whitenUpBackBlurImage() const { return whitenUpBackBlurImage_; }
  void setWhitenUpBackBlurImage(host::Ref<host::Image> v) { whitenUpBackBlurImage_ = std::move(v); }
  const host::Ref<host::View>& whitenUpBackBlurImageView() const { return whitenUpBackBlurImageView_; }
  void setWhitenUpBackBlurImageView(host::Ref<host::View> v) { whitenUpBackBlurImageView_ = std::move(v); }
  const host::BulletinArray& bulletins() const { return bulletins_; }
  void setBulletins(host::BulletinArray v) { bulletins_ = std::move(v); }
  double verticalOffset() const { return verticalOffset_; }
  void setVerticalOffset(double v) { verticalOffset_ = v; }
  double arrowOffset() const { return arrowOffset_; }
  void setArrowOffset(double v) { arrowOffset_ = v; }

 protected:
  // |host::ViewDelegate|
  void layout() override;
  std::int64_t numberOfRows(const host::Ref<host::TableView>& table, std::int64_t section) override;
  host::Ref<host::TableViewCell> cellForRow(const host::Ref<host::TableView>& table,
                                            const host::IndexPath& indexPath) override;
  void didSelectRow(const host::Ref<host::TableView>& table, const host::IndexPath& indexPath) override;

 private:
  static constexpr const char* kCellIdentifier = "notificationCell";

  // Steps of building, revealing and filling the panel.
  void buildBackdropLayers(const host::Rect& frame);
  void revealBackdrop();
  void fadeInBackdrop();
  host::Ref<host::BulletinSectionController> sectionForBundleIdentifier() const;
  void showEmptyListLabel();
  void showNotificationTable(const host::Ref<host::BulletinListSection>& section);

  // Draws the held icon's image into a throwaway context.
  void renderHeldIconImage();

  Context& context_;
  std::weak_ptr<PanelDelegate> delegate_;
  host::Weak<host::View> view_;
  host::String bundleIdentifier_;
  host::Ref<host::BackdropSettings> folderBlurBackSettings_;
  host::Ref<host::View> folderBlurBack_;
  host::Ref<host::BackdropView> folderBlurArrowBackground_;
  host::Ref<host::View> folderBlurArrowView_;
  host::Ref<host::BackdropSettings> fullBackBlurSettings_;
  host::Ref<host::BackdropView> fullBackBlur_;
  host::Ref<host::TableView> notificationTable_;
  host::Ref<host::BezierPath> backBezierPath_;
  host::Ref<host::Image> whitenUpBackBlurImage_;
  host::Ref<host::View> whitenUpBackBlurImageView_;
  host::BulletinArray bulletins_;
  double verticalOffset_ = 0;
  double arrowOffset_ = 0;
};

}  // namespace tessel
