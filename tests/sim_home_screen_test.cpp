// The simulated home screen as the library meets it: its applications, the
// root folder's index paths and list views, pages and folders in the
// window, the notification list of both host generations, and the method
// tables through which the host calls the replaceable methods.

#include <gtest/gtest.h>

#include "host/hooked_methods.h"
#include "sim/home_screen.h"
#include "sim/sim_animator.h"
#include "sim/sim_runtime.h"
#include "sim_test_host.h"

namespace tessel::sim::testing {
namespace {

using host::IndexPath;
using host::Ref;

WorldConfig sampleHome() {
  WorldConfig config;
  config.pages = {{"a.one", "a.two", "a.three"}, {"b.one"}};
  config.dock = {"d.one", "d.two"};
  config.folders = {{"Tools", 0, 1, {"f.one", "f.two"}}};
  config.webClips = {"w.clip"};
  config.newsstand = {"n.paper"};
  config.notifications = {{"a.two", {{"Ana", "hi", 10}, {"Bo", "yo", 20}}}, {"a.one", {}}};
  return config;
}

class HomeScreenTest : public ::testing::Test {
 protected:
  explicit HomeScreenTest(WorldConfig config = sampleHome()) : host(config, "") {}
  void build() {
    host.runTurn([&] { host.buildHomeScreen(); });
  }
  HomeScreen& home() { return *host.homeScreen(); }
  Ref<host::IconController> controller() {
    return host::cast<host::IconController>(host.runtime()->getClass("SBIconController")->sharedInstance());
  }
  Ref<host::Icon> icon(const std::string& id) { return controller()->model()->expectedIconForDisplayIdentifier(id); }

  SimHost host;
};

std::vector<std::string> identifiers(const std::vector<Ref<host::Application>>& apps) {
  std::vector<std::string> out;
  for (const auto& app : apps) out.push_back(app->bundleIdentifier().value_or("?"));
  return out;
}

TEST_F(HomeScreenTest, AllApplicationsArePagesThenDockThenFoldersWithoutWebClips) {
  EXPECT_FALSE(controller()) << "there is no home screen before the host builds it";
  build();
  EXPECT_EQ(
      identifiers(controller()->allApplications()),
      (std::vector<std::string>{"a.one", "a.two", "a.three", "b.one", "n.paper", "d.one", "d.two", "f.one", "f.two"}));
}

TEST_F(HomeScreenTest, RootFolderIndexPathsLeadToTheListThatHoldsTheIcon) {
  build();
  auto root = host::cast<host::Folder>(controller()->valueForKeyPath("rootFolder"));
  ASSERT_TRUE(root);
  EXPECT_EQ(root->indexPathForIcon(icon("a.three")), (IndexPath{{0, 3}})) << "after the folder at slot 1";
  EXPECT_EQ(root->indexPathForIcon(icon("w.clip")), (IndexPath{{1, 1}})) << "web clips follow the last page";
  EXPECT_EQ(root->indexPathForIcon(icon("d.two")), (IndexPath{{2, 1}})) << "the dock is the list after the pages";
  EXPECT_EQ(root->indexPathForIcon(icon("f.two")), (IndexPath{{0, 1, 0, 1}}));
  EXPECT_EQ(root->indexPathForIcon(icon("nothing")), IndexPath{});

  auto c = controller();
  auto listAt = [&](IndexPath path) {
    return idOf(c->getListViewFolderRelativePathForIndexPathCreateIfNecessary(path, true));
  };
  EXPECT_EQ(listAt({{0, 3}}), home().pageLists()[0]->id());
  EXPECT_EQ(listAt({{2, 1}}), home().dockList()->id());
  EXPECT_EQ(listAt({{0, 1, 0, 1}}), home().folderNamed("Tools")->lists()[0]->id());
  EXPECT_FALSE(c->getListViewFolderRelativePathForIndexPathCreateIfNecessary({}, true));
  const auto& calls = host.recorder().hostCalls();
  ASSERT_EQ(calls.size(), 4u);
  EXPECT_EQ(calls[0]["call"], "getListView:folder:relativePath:forIndexPath:createIfNecessary:");
  EXPECT_EQ(calls[0]["args"][0], (nlohmann::json{0, 3}));
}

TEST_F(HomeScreenTest, OnlyTheHomeScreensOwnIconViewsAreMapped) {
  build();
  auto map = host::cast<host::IconViewMap>(host.runtime()->getClass("SBIconViewMap")->homescreenMap());
  auto mapped = map->mappedIconViewForIcon(icon("d.one"));
  ASSERT_TRUE(mapped);
  EXPECT_TRUE(mapped->isInDock());
  EXPECT_EQ(mapped->frame().size(), (host::Size{60, 74}));
  EXPECT_FALSE(map->mappedIconViewForIcon(icon("unknown")));

  auto copy = host::cast<host::IconView>(host.runtime()->getClass("SBIconView")->alloc())->initWithDefaultSize();
  auto madeIcon = host::cast<host::Icon>(host.runtime()->getClass("SBApplicationIcon")->alloc());
  madeIcon = madeIcon->initWithApplication(icon("a.one")->application());
  copy->_setIconAnimated(madeIcon, true);
  EXPECT_EQ(copy->frame(), (host::Rect{0, 0, 60, 74}));
  EXPECT_EQ(copy->icon()->application(), icon("a.one")->application());
  EXPECT_FALSE(map->mappedIconViewForIcon(madeIcon)) << "a view made by hand is not the home screen's";
  EXPECT_TRUE(host.runtime()->instanceVariable(copy, "_iconImageView"));
}

TEST_F(HomeScreenTest, IconKindsAnswerAsTheirClassesDo) {
  build();
  auto rt = host.runtime();
  EXPECT_TRUE(icon("n.paper")->isKindOfClass(rt->getClass("SBApplicationIcon")));
  EXPECT_TRUE(icon("n.paper")->isKindOfClass(rt->getClass("SBNewsstandApplicationIcon")));
  EXPECT_FALSE(icon("w.clip")->isKindOfClass(rt->getClass("SBApplicationIcon")));
  EXPECT_FALSE(icon("w.clip")->respondsToSelector("application"));
  EXPECT_FALSE(icon("w.clip")->application());
  EXPECT_TRUE(icon("a.one")->application()->respondsToSelector("bundleIdentifier"));
  auto folder = home().folderNamed("Tools");
  EXPECT_TRUE(folder->respondsToSelector("allIcons"));
  EXPECT_EQ(folder->allIcons().size(), 2u);
  EXPECT_TRUE(home().rootFolder()->objectClass() == rt->getClass("SBRootFolderWithDock"));
  EXPECT_FALSE(rt->getClass("NoSuchClass"));
}

TEST_F(HomeScreenTest, PagesAndFoldersComeAndGoFromTheWindow) {
  build();
  // The lists live in the window's one content view, never in the window itself.
  auto content = home().contentView();
  ASSERT_EQ(host.window()->children().size(), 1u);
  EXPECT_EQ(host.window()->children().front(), content);
  auto first = home().pageLists()[0];
  auto second = home().pageLists()[1];
  EXPECT_TRUE(first->isInWindow());
  EXPECT_FALSE(second->isInWindow());
  EXPECT_TRUE(home().dockList()->isInWindow());
  EXPECT_EQ(idOf(controller()->currentRootIconList()), first->id());
  EXPECT_FALSE(controller()->currentFolderIconList());

  EXPECT_TRUE(home().showPage(1));
  EXPECT_EQ(idOf(controller()->currentRootIconList()), second->id());
  EXPECT_FALSE(first->isInWindow());
  EXPECT_EQ(content->children().front(), second) << "the page stays behind the dock";
  EXPECT_FALSE(home().showPage(2));

  EXPECT_FALSE(home().openFolder("Games"));
  EXPECT_TRUE(home().openFolder("Tools"));
  auto folderList = controller()->currentFolderIconList();
  ASSERT_TRUE(folderList);
  EXPECT_EQ(folderList->visibleIcons().size(), 2u);
  EXPECT_EQ(content->children().back(), home().openFolderList());
  EXPECT_FALSE(home().closeFolder("Games"));
  EXPECT_TRUE(home().closeFolder("Tools"));
  EXPECT_FALSE(controller()->currentFolderIconList());
  EXPECT_FALSE(folderList->superview());
}

TEST_F(HomeScreenTest, RelayingAListPutsEveryIconBackAtItsPlaceAtOnceAndAnimatesTheMove) {
  build();
  auto list = home().pageLists()[0];
  auto view = home().iconViewFor(home().iconFor("a.two").get());
  host::Rect place = view->frame();
  view->setFrame({place.x, place.y - 100, place.width, place.height});
  list->setIconsNeedLayout();
  list->layoutIconsIfNeededDomino(0.375, false);
  EXPECT_EQ(view->frame(), place);
  const AnimationRecord* moved = nullptr;
  for (const auto& record : host.simAnimator().records()) {
    if (record->target == view->id()) moved = record.get();
  }
  ASSERT_TRUE(moved);
  EXPECT_EQ(moved->duration, 0.375);
  EXPECT_EQ(moved->fromFrame.y, place.y - 100);
  EXPECT_EQ(moved->toFrame, place);
  const auto& calls = host.recorder().hostCalls();
  ASSERT_EQ(calls.size(), 2u);
  EXPECT_EQ(calls[0]["call"], "setIconsNeedLayout");
  EXPECT_EQ(calls[1]["args"], (nlohmann::json{0.375, false}));
}

class CurrentNotificationList : public HomeScreenTest {};

TEST_F(CurrentNotificationList, SectionsFollowTheConfigurationAndNewBulletinsComeFirst) {
  build();
  EXPECT_FALSE(host.runtime()->getClass("SBBulletinListController")->sharedInstanceIfExists());
  auto list = home().bulletinViewController();
  ASSERT_TRUE(list);
  EXPECT_EQ(list->sectionAtIndex(0)->representedListSection()->sectionID(), "a.two");
  EXPECT_EQ(list->sectionAtIndex(0)->representedListSection()->bulletins()[1]->title(), "Bo");
  EXPECT_TRUE(list->sectionAtIndex(1)->representedListSection()->bulletins().empty());
  EXPECT_FALSE(list->sectionAtIndex(2));

  home().addNotification("a.two", {"Cy", "new", 30});
  home().addNotification("z.new", {"Di", "first", 40});
  EXPECT_EQ(list->sectionAtIndex(0)->representedListSection()->bulletins()[0]->title(), "Cy");
  EXPECT_EQ(list->sectionAtIndex(2)->representedListSection()->sectionID(), "z.new");
  EXPECT_EQ(list->sectionAtIndex(2)->representedListSection()->bulletins()[0]->date(), 40);
}

WorldConfig olderHost() {
  WorldConfig config = sampleHome();
  config.coreFoundationVersion = 800.0;
  return config;
}

class OlderNotificationList : public HomeScreenTest {
 protected:
  OlderNotificationList() : HomeScreenTest(olderHost()) {}
};

TEST_F(OlderNotificationList, TheListControllerAnswersBySectionIndex) {
  auto cls = host.runtime()->getClass("SBBulletinListController");
  EXPECT_FALSE(cls->sharedInstanceIfExists()) << "none made yet";
  build();
  EXPECT_FALSE(home().bulletinViewController());
  auto list = host::cast<host::BulletinListController>(cls->sharedInstanceIfExists());
  ASSERT_TRUE(list);
  auto section = list->_sectionAtIndex(0);
  EXPECT_EQ(section->sectionID(), "a.two");
  EXPECT_EQ(section->bulletinCount(), 2u);
  EXPECT_EQ(section->bulletinAtIndex(1)->message(), "yo");
  EXPECT_FALSE(section->bulletinAtIndex(2));
  EXPECT_FALSE(list->_sectionAtIndex(2));
}

TEST_F(HomeScreenTest, TheHostCallsReplaceableMethodsThroughTheirMethodTables) {
  namespace hooked = host::hooked;
  auto& rt = *host.runtime();
  std::vector<std::string> folderClasses;
  host::replaceMethod(rt, rt.getClass("SBFolder"), hooked::folderInitWithMaxListCountMaxIconCountInLists,
                      host::PreviousRuns::first,
                      [&](const Ref<host::Folder>& self, std::uint64_t, std::uint64_t, const Ref<host::Folder>& made) {
                        EXPECT_TRUE(made == self) << "the host's own initialiser ran first";
                        folderClasses.push_back(self->objectClass()->name());
                      });
  int layouts = 0;
  host::replaceMethod(rt, rt.getClass("SBIconView"), hooked::iconViewLayoutSubviews, host::PreviousRuns::last,
                      [&](const Ref<host::IconView>&) { ++layouts; });
  bool handled = false;
  host::replaceMethod(rt, rt.getClass("SBUIController"), hooked::uiControllerClickedMenuButton,
                      host::PreviousRuns::first,
                      [&](const Ref<host::Object>&, bool hostHandled) { handled = hostHandled; });
  EXPECT_FALSE(rt.replace(nullptr, hooked::iconViewLayoutSubviews, std::any()).has_value())
      << "no class, nothing installed";

  build();
  EXPECT_EQ(folderClasses, (std::vector<std::string>{"SBRootFolderWithDock", "SBFolder"}));
  EXPECT_EQ(layouts, static_cast<int>(home().iconViews().size())) << "every icon view is laid out once";
  EXPECT_EQ(host.recorder().hooks(),
            (std::vector<std::string>{"SBFolder initWithMaxListCount:maxIconCountInLists:", "SBIconView layoutSubviews",
                                      "SBUIController clickedMenuButton"}));

  auto ui = home().uiController();
  ui->setHandlesPress(true);
  auto press = ui->simClass()->method(hooked::uiControllerClickedMenuButton);
  EXPECT_TRUE(press(Ref<host::Object>(ui)));
  EXPECT_TRUE(handled);
  ui->setHandlesPress(false);
  EXPECT_FALSE(press(Ref<host::Object>(ui)));
}

}  // namespace
}  // namespace tessel::sim::testing
