#include "views/tessel_generic_notification_view.h"

namespace tessel {

void TesselGenericNotificationView::updateForFrameChange() {
  revealBackdrop();
  auto section = sectionForBundleIdentifier();
  if (section) {
    showNotificationTable(section->representedListSection());
  } else {
    showEmptyListLabel();
  }
  fadeInBackdrop();
}

// Walks the notification list's sections in order; the walk ends at the
// first match or at the first index the list has no section for.
host::Ref<host::BulletinSectionController> TesselGenericNotificationView::sectionForBundleIdentifier() const {
  auto listController = context_.state.bulletinViewController.lock();
  for (std::int64_t index = 0;; ++index) {
    auto section = listController->sectionAtIndex(index);
    if (host::isEqualToString(section->representedListSection()->sectionID(), bundleIdentifier())) return section;
    if (!section) return {};
  }
}

void TesselGenericNotificationView::showEmptyListLabel() {
  const double screenWidth = context_.screenBounds().width;
  const double height = view()->frame().height;
  auto label = context_.host.makeLabel({0, 0, screenWidth * 0.8, height});
  label->setCenter({screenWidth * 0.5, height * 0.5});
  label->setText("No new notifications");
  label->setTextColor(host::Color::whiteColor());
  label->setFont(host::Font::systemFontOfSize(36));
  label->setEnabled(false);
  label->setNumberOfLines(1);
  label->setAdjustsFontSizeToFitWidth(true);
  label->setAlpha(0.8);
  view()->addSubview(label);
}

void TesselGenericNotificationView::showNotificationTable(const host::Ref<host::BulletinListSection>& section) {
  setBulletins(section->bulletins());
  const double screenWidth = context_.screenBounds().width;
  const double height = view()->frame().height;
  // Two rows fill the panel.
  const double rowHeight = height * 0.5;

  // A scroll view that is set up and then dropped; it never shows.
  auto scrollView = context_.host.makeScrollView(view()->frame());
  scrollView->setShowsHorizontalScrollIndicator(false);
  scrollView->setShowsVerticalScrollIndicator(true);
  scrollView->setContentSize({screenWidth, rowHeight * 3 * static_cast<double>(bulletins().size())});

  setNotificationTable(
      context_.host.makeTableView({0, 0, screenWidth, height}, host::platform::kTableViewStyleGrouped));
  auto table = notificationTable();
  table->setBackgroundView(folderBlurBack());
  table->setRowHeight(rowHeight);
  table->setScrollEnabled(true);
  table->setShowsVerticalScrollIndicator(true);
  table->setUserInteractionEnabled(true);
  table->setBounces(true);
  table->setDelegate(view());
  table->setDataSource(view());
  table->registerClassForCellReuseIdentifier("UITableViewCell", kCellIdentifier);
  view()->addSubview(table);
}

std::int64_t TesselGenericNotificationView::numberOfRows(const host::Ref<host::TableView>& /*table*/,
                                                         std::int64_t /*section*/) {
  return static_cast<std::int64_t>(bulletins().size());
}

// Every row opens the application itself, whichever notification it shows.
void TesselGenericNotificationView::didSelectRow(const host::Ref<host::TableView>& /*table*/,
                                                 const host::IndexPath& /*indexPath*/) {
  auto keepAlive = shared_from_this();
  const host::String identifier = bundleIdentifier();
  if (auto delegate = delegate_.lock()) delegate->dismissPanel();
  context_.host.sharedApplication()->launchApplicationWithIdentifierSuspended(identifier, /* suspended */ false);
}

}  // namespace tessel
