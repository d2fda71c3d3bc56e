#include <algorithm>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "controller/tessel_notification_controller.h"
#include "controller_world_support.h"
#include "sim/sim_backdrop_view.h"
#include "sim/sim_custom_view.h"
#include "sim/sim_host.h"
#include "sim/sim_image_view.h"
#include "sim/sim_label.h"
#include "sim/sim_table_view.h"
#include "sim/sim_table_view_cell.h"
#include "views/tessel_generic_notification_view.h"

// The panel on the simulated phone of 320 x 568 points: built directly for
// its layers and layout, and opened from an icon for its list.
namespace tessel {
namespace {

using host::Color;
using host::Rect;
using host::Ref;
using testing::json;
using testing::kMail;
using testing::kMaps;
using testing::kNotes;
using testing::Phone;

// The phone opens its panel one second after start: these notifications are
// then 45 s, 150 s and 2 h old.
sim::WorldConfig phoneWithMail(bool dark) {
  auto config = testing::smallPhone();
  config.settings.darkMode = dark;
  const double opening = config.clockEpoch + 1;
  config.notifications = {{kMail,
                           {{"Ana", "Lunch at one?", opening - 45},
                            {"Ben", "Running late", opening - 150},
                            {"Cy", "Invoice", opening - 7200}}},
                          {kNotes, {}}};
  return config;
}

std::shared_ptr<TesselGenericNotificationView> openPanel(Phone& phone) {
  return phone.library().sharedController().panel();
}

// A panel made as the controller makes one, with no one to tell of a chosen row.
Ref<host::View> makePanel(Phone& phone, const Rect& frame, const char* bundleIdentifier) {
  return TesselGenericNotificationView::initWithFrameBundleIdentifier(phone.library().context(), {}, frame,
                                                                      bundleIdentifier)
      .view;
}

// The panel object behind one of its views.
std::shared_ptr<TesselGenericNotificationView> panelOf(const Ref<host::View>& view) {
  auto* custom = dynamic_cast<sim::SimCustomView*>(view.get());
  return custom ? std::dynamic_pointer_cast<TesselGenericNotificationView>(custom->delegate()) : nullptr;
}

template <class T>
const T* as(const Ref<host::View>& view) {
  return dynamic_cast<const T*>(view.get());
}

Color grey(double level) { return {level, level, level, 1}; }

std::vector<std::string> windowSubviews(const json& dump) {
  return dump.at("views").at(dump.at("window").get<std::string>()).at("subviews").get<std::vector<std::string>>();
}

// The id of the key window's direct subview with that tag.
std::string windowSubviewTagged(const json& dump, int tag) {
  for (const auto& id : windowSubviews(dump))
    if (dump.at("views").at(id).at("tag") == tag) return id;
  return {};
}

TEST(PanelLayers, DarkBodyIsABlurAndNoLayerIsAttachedYet) {
  Phone phone(phoneWithMail(/*dark*/ true), /*unlock*/ false);
  auto view = makePanel(phone, {20, 300, 280, 160}, kMail);
  auto panel = panelOf(view);
  ASSERT_TRUE(panel);
  EXPECT_EQ(panel->view(), view);
  EXPECT_EQ(panel->bundleIdentifier(), kMail);
  EXPECT_TRUE(sim::simView(view)->clipsToBounds());
  EXPECT_NEAR(panel->arrowOffset(), 12.77361319216, 1e-9);

  auto body = panel->folderBlurBack();
  EXPECT_EQ(body->frame(), (Rect{0, 0, 280, 160}));
  EXPECT_EQ(body->tag(), 1337);
  ASSERT_EQ(body->subviews().size(), 1u);
  auto* fill = as<sim::SimBackdropView>(body->subviews()[0]);
  ASSERT_TRUE(fill);
  EXPECT_EQ(fill->style(), 1);
  EXPECT_EQ(fill->blurQuality(), "default");

  auto* stripBlur = as<sim::SimBackdropView>(panel->folderBlurArrowBackground());
  EXPECT_EQ(stripBlur->frame(), (Rect{0, 160, 280, panel->arrowOffset()}));
  EXPECT_EQ(stripBlur->tag(), 1334);
  EXPECT_EQ(stripBlur->style(), 1);
  EXPECT_EQ(panel->folderBlurArrowView()->frame(), (Rect{0, 160, 280, panel->arrowOffset()}));

  // Made with the frame as passed, origin included.
  auto* dimming = as<sim::SimBackdropView>(panel->fullBackBlur());
  EXPECT_EQ(dimming->frame(), (Rect{20, 300, 280, 160}));
  EXPECT_EQ(dimming->tag(), 1335);
  EXPECT_EQ(dimming->style(), 2);
  EXPECT_EQ(dimming->blurQuality(), "default");
  EXPECT_TRUE(dimming->autosizes());

  auto* whitening = as<sim::SimImageView>(panel->whitenUpBackBlurImageView());
  EXPECT_EQ(whitening->tag(), 1337);
  EXPECT_EQ(whitening->image()->size(), (host::Size{320, 568}));
  EXPECT_EQ(whitening->simImage()->uniformColor(), Color::whiteColor());

  for (const auto& layer :
       {panel->folderBlurBack(), panel->folderBlurArrowView(), Ref<host::View>(panel->fullBackBlur()),
        Ref<host::View>(panel->folderBlurArrowBackground()), panel->whitenUpBackBlurImageView()})
    EXPECT_FALSE(layer->superview());
  EXPECT_TRUE(view->subviews().empty());
}

TEST(PanelLayers, LightBodyIsAWhiteImageOfThePanelsSize) {
  Phone phone(phoneWithMail(/*dark*/ false), /*unlock*/ false);
  auto panel = panelOf(makePanel(phone, {0, 100, 300, 120}, kMail));
  auto body = panel->folderBlurBack();
  ASSERT_EQ(body->subviews().size(), 1u);
  auto* fill = as<sim::SimImageView>(body->subviews()[0]);
  ASSERT_TRUE(fill);
  EXPECT_EQ(fill->image()->size(), (host::Size{300, 120}));
  EXPECT_EQ(fill->simImage()->uniformColor(), Color::whiteColor());
}

class PanelLayout : public ::testing::Test {
 protected:
  PanelLayout() {
    view = makePanel(phone, {0, 100, 320, 160}, kMail);
    panel = panelOf(view);
    window()->addSubview(view);
  }
  Ref<host::View> window() { return Ref<host::View>(phone->host().window()); }
  std::size_t windowCount() { return window()->subviews().size(); }

  Phone phone{phoneWithMail(/*dark*/ true), /*unlock*/ false};
  Ref<host::View> view;
  std::shared_ptr<TesselGenericNotificationView> panel;
};

TEST_F(PanelLayout, AttachesBodyAndStripAndAddsOneEmptyBlackViewPerPass) {
  auto elsewhere = phone->host().makeView({});
  elsewhere->addSubview(panel->fullBackBlur());
  const auto before = windowCount();

  panel->layoutSubviews();
  EXPECT_EQ(panel->folderBlurBack()->superview(), view);
  EXPECT_EQ(panel->folderBlurArrowView()->superview(), window());
  EXPECT_EQ(panel->folderBlurArrowView()->frame(), (Rect{0, 160, 320, panel->arrowOffset()}));
  EXPECT_FALSE(panel->fullBackBlur()->superview());
  ASSERT_EQ(windowCount(), before + 2);
  auto* spacer = sim::simView(window()->subviews().back());
  EXPECT_EQ(spacer->frame(), Rect{});
  EXPECT_EQ(spacer->backgroundColor(), Color::blackColor());

  panel->layoutSubviews();
  EXPECT_EQ(windowCount(), before + 3);
}

TEST_F(PanelLayout, StopsOnceTheWindowHoldsATag1337OrABlur) {
  auto blur = phone->host().makeBackdropView({}, false, phone->host().backdropSettingsForPrivateStyle(1));
  for (const auto& blocker : {Ref<host::View>(blur), panel->whitenUpBackBlurImageView()}) {
    window()->insertSubviewAtIndex(blocker, 0);
    const auto before = window()->subviews();
    panel->layoutSubviews();
    EXPECT_EQ(window()->subviews(), before);
    EXPECT_FALSE(panel->folderBlurBack()->superview());
    blocker->removeFromSuperview();
  }
}

TEST(PanelList, WithoutASectionTheEmptyListLabelShowsAndTheBackdropFadesIn) {
  Phone phone(phoneWithMail(/*dark*/ false));
  phone.open(kMaps);
  auto dump = phone.dump();
  EXPECT_EQ(dump.at("panel").at("emptyLabel"), "No new notifications");
  EXPECT_EQ(dump.at("panel").at("rows"), 0);
  auto panel = openPanel(phone);
  EXPECT_FALSE(panel->notificationTable());

  const double height = panel->view()->frame().height;
  const auto* label = as<sim::SimLabel>(panel->view()->subviews().back());
  ASSERT_TRUE(label);
  EXPECT_EQ(label->frame(), (Rect{320 * 0.5 - 320 * 0.4, 0, 320 * 0.8, height}));
  EXPECT_EQ(label->textColor(), Color::whiteColor());
  EXPECT_EQ(label->font().pointSize, 36);
  EXPECT_FALSE(label->enabled());
  EXPECT_EQ(label->numberOfLines(), 1);
  EXPECT_TRUE(label->adjustsFontSizeToFitWidth());
  EXPECT_DOUBLE_EQ(label->alpha(), 0.8);

  // The dimming blur lies just below the arrow, the whitening layer behind
  // everything; both fade in over half a second.
  auto order = windowSubviews(dump);
  auto arrow = std::find(order.begin(), order.end(), windowSubviewTagged(dump, 1334));
  ASSERT_NE(arrow, order.begin());
  const std::string dimming = *(arrow - 1);
  EXPECT_EQ(dump.at("views").at(dimming).at("tag"), 1335);
  const std::string whitening = order.front();
  EXPECT_EQ(dump.at("views").at(whitening).at("tag"), 1337);
  for (const auto& [id, alpha] : {std::pair{dimming, 1.0}, std::pair{whitening, 0.3}}) {
    auto fades = testing::animationsOf(dump, id, "alpha");
    auto fade = std::find_if(fades.begin(), fades.end(), [](const json& a) { return a.at("duration") == 0.5; });
    ASSERT_NE(fade, fades.end()) << id;
    EXPECT_EQ(fade->at("from"), 0);
    EXPECT_EQ(fade->at("to"), alpha);
  }
}

TEST(PanelList, DarkModeKeepsTheWhiteningLayerOutOfTheWindow) {
  Phone phone(phoneWithMail(/*dark*/ true));
  phone.open(kMaps);
  auto panel = openPanel(phone);
  EXPECT_TRUE(sim::simView(panel->fullBackBlur())->isInWindow());
  EXPECT_FALSE(panel->whitenUpBackBlurImageView()->superview());
}

TEST(PanelList, AnEmptySectionGetsAnEmptyTableNotTheLabel) {
  Phone phone(phoneWithMail(/*dark*/ true));
  phone.open(kNotes);
  auto dump = phone.dump();
  EXPECT_TRUE(dump.at("panel").at("emptyLabel").is_null());
  EXPECT_EQ(dump.at("panel").at("rows"), 0);
  EXPECT_TRUE(openPanel(phone)->notificationTable());
}

// A notification list whose sections are given outright, gaps included.
class GivenList : public host::BulletinViewController {
 public:
  struct Section : host::BulletinSectionController, host::BulletinListSection {
    Section(host::String id = {}, std::size_t count = 0) : id(std::move(id)), count(count) {}
    Ref<host::BulletinListSection> representedListSection() const override {
      return id ? Ref<host::BulletinListSection>(std::make_shared<Section>(*this)) : nullptr;
    }
    host::String sectionID() const override { return id; }
    host::BulletinArray bulletins() const override { return host::BulletinArray(count, host::make<host::Bulletin>()); }
    host::String id;
    std::size_t count;
  };
  Ref<host::BulletinSectionController> sectionAtIndex(std::int64_t index) const override {
    return index < std::int64_t(sections.size()) ? host::make<Section>(sections[index]) : nullptr;
  }
  std::vector<Section> sections;
};

TEST(PanelList, TheSectionWalkPassesSectionsWithNothingBehindThemAndStopsAtTheFirstMatch) {
  Phone phone(phoneWithMail(/*dark*/ true), /*unlock*/ false);
  auto list = host::make<GivenList>();
  list->sections = {{}, {kMaps, 4}, {kMail, 2}, {kMail, 5}};
  phone.library().context().state.bulletinViewController = Ref<host::BulletinViewController>(list);
  auto view = makePanel(phone, {0, 100, 320, 160}, kMail);
  phone->host().window()->addSubview(view);
  auto panel = panelOf(view);
  panel->updateForFrameChange();
  EXPECT_EQ(panel->bulletins().size(), 2u);
  EXPECT_TRUE(panel->notificationTable());
}

TEST(PanelList, ThreeNotificationsMakeATableOfHalfHeightRows) {
  Phone phone(phoneWithMail(/*dark*/ true));
  phone.open(kMail);
  auto dump = phone.dump();
  EXPECT_EQ(dump.at("panel").at("rows"), 3);
  EXPECT_TRUE(dump.at("panel").at("emptyLabel").is_null());

  auto panel = openPanel(phone);
  const auto* table = as<sim::SimTableView>(panel->notificationTable());
  ASSERT_TRUE(table);
  const double height = panel->view()->frame().height;
  EXPECT_EQ(table->superview(), panel->view());
  EXPECT_EQ(table->frame(), (Rect{0, 0, 320, height}));
  EXPECT_EQ(table->style(), 1);
  EXPECT_DOUBLE_EQ(table->rowHeight(), height * 0.5);
  EXPECT_EQ(Ref<host::View>(table->backgroundView()), panel->folderBlurBack());
}

void expectRow(const sim::SimTableViewCell& cell, const std::string& title, const std::string& detail,
               const std::string& age, bool dark) {
  SCOPED_TRACE(title);
  EXPECT_EQ(cell.style(), 3);
  EXPECT_EQ(cell.reuseIdentifier(), "notificationCell");
  EXPECT_EQ(cell.backgroundColor(), Color::clearColor());
  EXPECT_EQ(cell.titleLabel()->text(), title);
  EXPECT_EQ(cell.titleLabel()->textColor(), dark ? Color::whiteColor() : Color::blackColor());
  EXPECT_EQ(cell.titleLabel()->font().pointSize, 16);
  EXPECT_EQ(cell.subtitleLabel()->text(), detail);
  EXPECT_EQ(cell.subtitleLabel()->textColor(), grey(dark ? 0.7843137383460999 : 0.3921568691730499));
  EXPECT_EQ(cell.subtitleLabel()->font().pointSize, 14);

  const sim::SimLabel* ageLabel = nullptr;
  for (const auto& child : sim::simView(cell.contentView())->children())
    if (auto* label = dynamic_cast<const sim::SimLabel*>(child.get()))
      if (label != cell.titleLabel().get() && label != cell.subtitleLabel().get()) ageLabel = label;
  ASSERT_TRUE(ageLabel);
  EXPECT_EQ(ageLabel->text(), age);
  EXPECT_EQ(ageLabel->textColor(), dark ? Color::grayColor() : grey(0.7058823704719543));
  EXPECT_EQ(ageLabel->font().pointSize, 12);
  EXPECT_TRUE(ageLabel->adjustsFontSizeToFitWidth());
  // Sized and centred by the fresh cell's own 44 points, not the row height.
  EXPECT_EQ(ageLabel->frame().size(), (host::Size{160, 22}));
  EXPECT_DOUBLE_EQ(ageLabel->center().x, 320 * 0.9);
  EXPECT_DOUBLE_EQ(ageLabel->center().y, 44 / 3.0);
}

TEST(PanelList, RowsShowTitleIndentedMessageAndAgeInBothModes) {
  for (bool dark : {true, false}) {
    SCOPED_TRACE(dark ? "dark" : "light");
    Phone phone(phoneWithMail(dark));
    phone.open(kMail);
    auto panel = openPanel(phone);
    const auto* table = as<sim::SimTableView>(panel->notificationTable());
    ASSERT_EQ(table->cells().size(), 2u);  // the two rows that fit
    expectRow(*table->cells()[0], "Ana", "    Lunch at one?", "45 seconds ago", dark);
    expectRow(*table->cells()[1], "Ben", "    Running late", "2 minutes ago", dark);

    // Scrolling asks for the third row; every request makes a new cell.
    auto third =
        panel->tableViewCellForRowAtIndexPath(panel->notificationTable(), host::IndexPath::forRowInSection(2, 0));
    ASSERT_TRUE(as<sim::SimTableViewCell>(third));
    expectRow(*as<sim::SimTableViewCell>(third), "Cy", "    Invoice", "2 hours ago", dark);
    EXPECT_NE(third, panel->tableViewCellForRowAtIndexPath(panel->notificationTable(),
                                                           host::IndexPath::forRowInSection(2, 0)));
  }
}

TEST(PanelList, AnyRowClosesThePanelThenLaunchesTheApplication) {
  for (long long row : {0, 1}) {
    Phone phone(phoneWithMail(/*dark*/ true));
    phone.open(kMail);
    const auto traced = phone->trace().size();
    auto open = phone.dump();
    ASSERT_TRUE(phone->tapRow(row));

    auto dump = phone.dump();
    EXPECT_EQ(dump.at("launched"), json::array({kMail}));
    EXPECT_TRUE(testing::viewOf(dump, open.at("controller").at("dismissButton")).at("superview").is_null());
    // Closing queues its animation before the launch is asked for.
    const auto& trace = phone->trace();
    auto queued = std::find_if(trace.begin() + traced, trace.end(),
                               [](const json& line) { return line.at("kind") == "dispatch"; });
    auto launched = std::find_if(trace.begin() + traced, trace.end(), [](const json& line) {
      return line.value("call", "") == "launchApplicationWithIdentifier:suspended:";
    });
    ASSERT_NE(launched, trace.end());
    EXPECT_LT(queued, launched);
    EXPECT_EQ(launched->at("args"), json::array({kMail, false}));

    phone.settle();
    EXPECT_FALSE(testing::panelIsOpen(phone.dump()));
  }
}

}  // namespace
}  // namespace tessel
