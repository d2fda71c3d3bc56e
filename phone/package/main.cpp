// tessel-settings-pane: writes the package's generated property lists.
#include <iostream>
#include <string_view>

#include "phone/package/loader_filter.h"
#include "phone/package/settings_pane.h"

namespace {

constexpr std::string_view kUsage =
    "usage: tessel-settings-pane pane|filter\n"
    "  pane    the Settings app entry (Library/PreferenceLoader/Preferences/TesselLite.plist)\n"
    "  filter  the loader filter (Library/MobileSubstrate/DynamicLibraries/TesselLite.plist)\n"
    "Writes the XML property list to standard output.\n";

}  // namespace

int main(int argc, char** argv) {
  const std::string_view what = argc == 2 ? argv[1] : "";
  if (what == "--help" || what == "-h") {
    std::cout << kUsage;
    return 0;
  }
  tessel::package::OwnedPlist tree;
  if (what == "pane") {
    tree = tessel::package::makeSettingsPane();
  } else if (what == "filter") {
    tree = tessel::package::makeLoaderFilter();
  } else {
    std::cerr << "tessel-settings-pane: expected one argument, pane or filter\n" << kUsage;
    return 2;
  }
  std::cout << tessel::package::toXml(tree);
  std::cout.flush();
  if (!std::cout) {
    std::cerr << "tessel-settings-pane: could not write standard output\n";
    return 1;
  }
  return 0;
}
