#include "tests/package/built_package.h"

#include <stdlib.h>

#include <fstream>
#include <vector>

namespace tessel::package_test {

namespace {

// Removes every scratch folder when the test program ends.
struct ScratchFolders {
  std::vector<std::filesystem::path> made;
  ~ScratchFolders() {
    std::error_code ignored;
    for (const auto& folder : made) std::filesystem::remove_all(folder, ignored);
  }
};

void writePlaceholderDylib(const std::filesystem::path& path) {
  // Over 4 KiB and not a multiple of 1 KiB, so size rounding shows.
  std::string bytes = "\xcf\xfa\xed\xfe placeholder for TesselLite.dylib\n";
  for (int i = 0; bytes.size() < 5000; ++i) bytes += static_cast<char>((i * 31) % 251);
  std::ofstream(path, std::ios::binary) << bytes;
}

BuiltPackage build() {
  BuiltPackage package;
  const auto folder = scratchFolder();
  package.dylib = folder / "TesselLite.dylib";
  package.firstOut = folder / "first";
  package.secondOut = folder / "second";
  package.deb = package.firstOut / debName();
  package.repo = package.firstOut / "repo";
  package.extracted = folder / "extracted";
  writePlaceholderDylib(package.dylib);

  const std::string epoch = "SOURCE_DATE_EPOCH=" + std::to_string(kSourceDateEpoch) + " ";
  package.firstBuild = run(buildCommand(package.dylib, package.firstOut, epoch) + " 2>&1");
  package.secondBuild = run(buildCommand(package.dylib, package.secondOut, epoch) + " 2>&1");
  if (package.built()) run("dpkg-deb -x " + quoted(package.deb) + " " + quoted(package.extracted));
  return package;
}

}  // namespace

const BuiltPackage& builtPackage() {
  static const BuiltPackage package = build();
  return package;
}

std::filesystem::path repoRoot() { return TESSEL_REPO_ROOT; }

std::filesystem::path scratchFolder() {
  static ScratchFolders folders;
  std::string name = (std::filesystem::temp_directory_path() / "tessel-package-test-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) return {};
  folders.made.emplace_back(name);
  return name;
}

std::string projectVersion() {
  std::string version = readFile(repoRoot() / "VERSION");
  while (!version.empty() && (version.back() == '\n' || version.back() == ' ')) version.pop_back();
  return version;
}

std::string debName() { return "com.orvalt.tessellite_" + projectVersion() + "_iphoneos-arm.deb"; }

std::string buildCommand(const std::filesystem::path& dylib, const std::filesystem::path& outdir,
                         const std::string& environment) {
  return "env -u SOURCE_DATE_EPOCH " + environment + "TESSEL_SETTINGS_PANE=" + quoted(TESSEL_SETTINGS_PANE_EXE) +
         " bash " + quoted(repoRoot() / "phone/package/build-package.sh") + " " + quoted(dylib) + " " + quoted(outdir);
}

}  // namespace tessel::package_test
