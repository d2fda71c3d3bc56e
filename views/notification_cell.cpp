#include "views/relative_age.h"
#include "views/tessel_generic_notification_view.h"

namespace tessel {
namespace {

// The message and age greys are single-precision fractions of 255.
constexpr double kDarkMessageGrey = static_cast<double>(200.0f / 255.0f);
constexpr double kLightMessageGrey = static_cast<double>(100.0f / 255.0f);
constexpr double kLightAgeGrey = static_cast<double>(180.0f / 255.0f);

host::Color grey(double level) { return host::Color::colorWithRedGreenBlueAlpha(level, level, level, 1.0); }

// A missing object formats as the platform's "(null)".
std::string described(const host::String& text) { return text ? *text : "(null)"; }

}  // namespace

// Cells are never reused: every row asked for is a new cell with a new age,
// so an age is as old as the moment its row came into view.
host::Ref<host::TableViewCell> TesselGenericNotificationView::cellForRow(const host::Ref<host::TableView>& /*table*/,
                                                                         const host::IndexPath& indexPath) {
  const bool dark = context_.state.darkMode;
  auto cell = context_.host.makeTableViewCell(host::platform::kTableViewCellStyleSubtitle, kCellIdentifier);
  cell->setBackgroundView(context_.host.makeView({}));
  cell->setBackgroundColor(host::Color::clearColor());
  auto bulletin = host::objectAtIndex(bulletins(), static_cast<std::size_t>(indexPath.row()));

  auto title = cell->textLabel();
  title->setText(bulletin->title());
  title->setFont(host::Font::systemFontOfSize(16));
  title->setTextColor(dark ? host::Color::whiteColor() : host::Color::blackColor());

  auto detail = cell->detailTextLabel();
  detail->setText("    " + described(bulletin->message()));
  detail->setTextColor(grey(dark ? kDarkMessageGrey : kLightMessageGrey));
  detail->setAlpha(1.0);
  detail->setFont(host::Font::systemFontOfSize(14));

  const std::string age = relativeAgeText(context_.host.now() - bulletin->date());
  const double screenWidth = context_.screenBounds().width;
  // The fresh cell's own height, not the table's row height.
  const double cellHeight = cell->frame().height;
  auto ageLabel = context_.host.makeLabel({0, 0, screenWidth * 0.5, cellHeight * 0.5});
  ageLabel->setCenter({screenWidth * 0.9, cellHeight / 3.0});
  ageLabel->setText(age);
  ageLabel->setTextColor(dark ? host::Color::grayColor() : grey(kLightAgeGrey));
  ageLabel->setFont(host::Font::systemFontOfSize(12));
  ageLabel->setNumberOfLines(1);
  ageLabel->setAdjustsFontSizeToFitWidth(true);
  cell->contentView()->addSubview(ageLabel);
  return cell;
}

}  // namespace tessel
