#include "sim/class_catalogue.h"

#include "sim/sim_runtime.h"

namespace tessel::sim {

void declareHostClasses(SimRuntime& rt) {
  rt.define("NSObject", "")->declareSelectors({"class", "isKindOfClass:", "respondsToSelector:", "init"});
  rt.define("NSBundle", "NSObject")->declareSelectors({"load"});
  rt.define("UIScreen", "NSObject")->declareSelectors({"bounds"});
  rt.define("UIApplication", "NSObject")->declareSelectors({"keyWindow", "launchApplicationWithIdentifier:suspended:"});

  rt.define("UIView", "NSObject")
      ->declareSelectors({"frame",
                          "setFrame:",
                          "bounds",
                          "center",
                          "setCenter:",
                          "alpha",
                          "setAlpha:",
                          "tag",
                          "setTag:",
                          "superview",
                          "subviews",
                          "addSubview:",
                          "insertSubview:atIndex:",
                          "insertSubview:belowSubview:",
                          "removeFromSuperview",
                          "convertRect:fromView:",
                          "convertRect:toView:",
                          "setBackgroundColor:",
                          "setClipsToBounds:",
                          "setUserInteractionEnabled:",
                          "layer",
                          "addGestureRecognizer:",
                          "layoutSubviews"});
  rt.define("UIWindow", "UIView");
  rt.define("UIControl", "UIView")->declareSelectors({"addTarget:action:forControlEvents:", "setEnabled:"});
  rt.define("UIButton", "UIControl");
  rt.define("UIImageView", "UIView")->declareSelectors({"image", "initWithImage:"});
  rt.define("UILabel", "UIView")
      ->declareSelectors({"text", "setText:", "setTextColor:", "setFont:", "setEnabled:", "setNumberOfLines:",
                          "setAdjustsFontSizeToFitWidth:"});
  rt.define("UIScrollView", "UIView")->declareSelectors({"setContentSize:", "setScrollEnabled:", "setBounces:"});
  rt.define("UITableView", "UIScrollView")
      ->declareSelectors({"setDelegate:", "setDataSource:", "setRowHeight:", "setBackgroundView:",
                          "registerClass:forCellReuseIdentifier:"});
  rt.define("UITableViewCell", "UIView")->declareSelectors({"textLabel", "detailTextLabel", "contentView"});
  rt.define("_UIBackdropView", "UIView")->declareSelectors({"setBlurQuality:"});
  rt.define("_UIBackdropViewSettings", "NSObject");
  rt.define("UIAlertView", "UIView")->declareSelectors({"show"});
  rt.define("UIGestureRecognizer", "NSObject")->declareSelectors({"view", "setNumberOfTouchesRequired:"});
  rt.define("UISwipeGestureRecognizer", "UIGestureRecognizer")->declareSelectors({"setDirection:"});
  rt.define("UITapGestureRecognizer", "UIGestureRecognizer")->declareSelectors({"setNumberOfTapsRequired:"});
  rt.define("UILongPressGestureRecognizer", "UIGestureRecognizer")->declareSelectors({"setNumberOfTapsRequired:"});
  rt.define("CALayer", "NSObject")->declareSelectors({"setMask:", "renderInContext:"});
  rt.define("CAShapeLayer", "CALayer")->declareSelectors({"setPath:"});

  rt.define("SBIconView", "UIView")
      ->declareSelectors(
          {"icon", "isInDock", "initWithDefaultSize", "_setIcon:animated:", "setDelegate:", "setIconLabelAlpha:"});
  rt.define("SBNewsstandItemIconView", "SBIconView");
  rt.define("SBIconListView", "UIView")
      ->declareSelectors({"visibleIcons", "setIconsNeedLayout", "layoutIconsIfNeeded:domino:"});
  rt.define("SBRootIconListView", "SBIconListView");
  rt.define("SBDockIconListView", "SBRootIconListView");
  rt.define("SBFolderIconListView", "SBIconListView");

  rt.define("SBIcon", "NSObject")->declareSelectors({"displayName"});
  rt.define("SBLeafIcon", "SBIcon");
  rt.define("SBApplicationIcon", "SBLeafIcon")->declareSelectors({"application", "initWithApplication:"});
  rt.define("SBNewsstandApplicationIcon", "SBApplicationIcon");
  rt.define("SBWebApplicationIcon", "SBLeafIcon")->declareSelectors({"webClip"});
  rt.define("SBFolderIcon", "SBIcon")->declareSelectors({"folder"});
  rt.define("SBApplication", "NSObject")->declareSelectors({"bundleIdentifier", "displayName"});

  rt.define("SBFolder", "NSObject")->declareSelectors({"allIcons", "indexPathForIcon:", "displayName"});
  rt.define("SBRootFolder", "SBFolder");
  rt.define("SBRootFolderWithDock", "SBRootFolder");

  rt.define("SBIconController", "NSObject")
      ->declareSelectors({"model", "allApplications", "isEditing", "currentRootIconList", "currentFolderIconList",
                          "valueForKeyPath:", "getListView:folder:relativePath:forIndexPath:createIfNecessary:"});
  rt.define("SBIconModel", "NSObject")->declareSelectors({"expectedIconForDisplayIdentifier:"});
  rt.define("SBIconViewMap", "NSObject")->declareSelectors({"mappedIconViewForIcon:"});
  rt.define("SBApplicationController", "NSObject")
      ->declareSelectors({"applicationWithBundleIdentifier:", "applicationsWithBundleIdentifier:"});

  rt.define("SBBulletin", "NSObject")->declareSelectors({"title", "message", "date"});
  rt.define("SBNotificationListSection", "NSObject")
      ->declareSelectors({"sectionID", "bulletins", "bulletinCount", "bulletinAtIndex:"});
  rt.define("SBNotificationSectionController", "NSObject")->declareSelectors({"representedListSection"});
  rt.define("SBBulletinViewController", "NSObject")->declareSelectors({"sectionAtIndex:"});
  rt.define("SBWidgetHandlingBulletinViewController", "SBBulletinViewController");
  rt.define("SBBulletinListController", "NSObject")->declareSelectors({"_sectionAtIndex:"});

  rt.define("SBLockScreenManager", "NSObject");
  rt.define("SBAppSwitcherController", "NSObject");
  rt.define("SBUIController", "NSObject");

  // The library's own classes, as its binding makes them known at load.
  rt.define("TesselNotificationController", "NSObject")
      ->declareSelectors({"handleIconHeldFromSender:", "removeTesselViewsFromView:", "keyboardWillShowOrHide:"});
  rt.define("TesselGenericNotificationView", "UIView")
      ->declareSelectors({"tableView:numberOfRowsInSection:", "tableView:cellForRowAtIndexPath:",
                          "tableView:didSelectRowAtIndexPath:"});
}

}  // namespace tessel::sim
