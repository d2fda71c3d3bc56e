// The package's control data, as dpkg reads it from the built .deb.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "tests/package/built_package.h"

namespace tessel::package_test {
namespace {

std::string controlField(const std::string& name) {
  auto result = run("dpkg-deb -f " + quoted(builtPackage().deb) + " " + name);
  while (!result.output.empty() && result.output.back() == '\n') result.output.pop_back();
  return result.output;
}

// dpkg's count: each file in KiB rounded up, each directory one.
long installedSizeOf(const std::filesystem::path& root) {
  long kib = 0;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(root)) {
    if (entry.is_directory()) kib += 1;
    if (entry.is_regular_file()) kib += static_cast<long>((entry.file_size() + 1023) / 1024);
  }
  return kib;
}

TEST(Package, ControlFields) {
  const auto& package = builtPackage();
  ASSERT_TRUE(package.built()) << package.log();

  EXPECT_EQ(controlField("Package"), "com.orvalt.tessellite");
  EXPECT_EQ(controlField("Name"), "TesselLite");
  EXPECT_EQ(controlField("Version"), projectVersion());
  EXPECT_EQ(controlField("Architecture"), "iphoneos-arm");
  EXPECT_EQ(controlField("Depends"), "mobilesubstrate, preferenceloader");
  EXPECT_EQ(controlField("Section"), "Tweaks");
  EXPECT_NE(controlField("Maintainer").find('@'), std::string::npos);
  EXPECT_EQ(controlField("Installed-Size"), std::to_string(installedSizeOf(package.extracted)));
}

TEST(Package, VersionFileHoldsTheOnlyCopyOfTheVersion) {
  const std::string version = projectVersion();
  ASSERT_FALSE(version.empty());
  for (const char* file : {"phone/package/control.in", "phone/package/build-package.sh", "scripts/package.sh"}) {
    EXPECT_EQ(readFile(repoRoot() / file).find(version), std::string::npos) << file << " repeats " << version;
  }
  EXPECT_NE(readFile(repoRoot() / "phone/package/control.in").find("Version: @VERSION@"), std::string::npos);
}

TEST(Package, DescriptionTellsWhatItDoesAndWhereSettingsAre) {
  ASSERT_TRUE(builtPackage().built()) << builtPackage().log();
  const std::string description = controlField("Description");
  const auto summaryEnd = description.find('\n');
  ASSERT_NE(summaryEnd, std::string::npos) << "a summary line and a longer text";
  EXPECT_LE(summaryEnd, 80u);
  const std::string body = description.substr(summaryEnd);
  for (const char* words : {"icon", "notifications", "panel", "Settings app"}) {
    EXPECT_NE(body.find(words), std::string::npos) << words;
  }
}

TEST(Package, BadInvocationsAreRefused) {
  const auto folder = scratchFolder();
  const auto empty = folder / "empty.dylib";
  { std::ofstream touch(empty); }

  const auto missing = run(buildCommand(folder / "absent.dylib", folder / "out", "") + " 2>&1");
  EXPECT_EQ(missing.exitStatus, 1);
  EXPECT_NE(missing.output.find("no dylib at"), std::string::npos) << missing.output;

  const auto emptied = run(buildCommand(empty, folder / "out", "") + " 2>&1");
  EXPECT_EQ(emptied.exitStatus, 1);
  EXPECT_NE(emptied.output.find("is empty"), std::string::npos) << emptied.output;

  EXPECT_FALSE(std::filesystem::exists(folder / "out"));

  const auto result = run("bash " + quoted(repoRoot() / "phone/package/build-package.sh") + " only-one 2>&1");
  EXPECT_EQ(result.exitStatus, 2);
  EXPECT_NE(result.output.find("usage: build-package.sh DYLIB OUTDIR"), std::string::npos) << result.output;
}

}  // namespace
}  // namespace tessel::package_test
