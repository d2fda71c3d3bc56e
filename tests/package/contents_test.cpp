// What the built .deb holds, and that building it again gives the same bytes.
#include <gtest/gtest.h>

#include <ctime>
#include <sstream>
#include <string>
#include <vector>

#include "tests/package/built_package.h"

namespace tessel::package_test {
namespace {

struct ArchiveEntry {
  std::string mode;
  std::string owner;
  std::string time;  // YYYY-MM-DD HH:MM in UTC
  std::string path;
};

std::vector<ArchiveEntry> listing(const std::filesystem::path& deb) {
  const auto result = run("TZ=UTC dpkg-deb -c " + quoted(deb));
  std::vector<ArchiveEntry> entries;
  std::istringstream lines(result.output);
  for (std::string line; std::getline(lines, line);) {
    std::istringstream words(line);
    ArchiveEntry entry;
    std::string size, day, minute;
    words >> entry.mode >> entry.owner >> size >> day >> minute >> entry.path;
    entry.time = day + " " + minute;
    entries.push_back(entry);
  }
  return entries;
}

std::string utcMinute(long seconds) {
  const std::time_t time = seconds;
  std::tm utc{};
  gmtime_r(&time, &utc);
  char text[32];
  std::strftime(text, sizeof text, "%Y-%m-%d %H:%M", &utc);
  return text;
}

TEST(Package, FileListOwnersAndModes) {
  const auto& package = builtPackage();
  ASSERT_TRUE(package.built()) << package.log();

  std::vector<std::string> seen;
  for (const auto& entry : listing(package.deb)) seen.push_back(entry.mode + " " + entry.owner + " " + entry.path);
  const std::vector<std::string> expected = {
      "drwxr-xr-x root/root ./",
      "drwxr-xr-x root/root ./Library/",
      "drwxr-xr-x root/root ./Library/MobileSubstrate/",
      "drwxr-xr-x root/root ./Library/MobileSubstrate/DynamicLibraries/",
      "-rwxr-xr-x root/root ./Library/MobileSubstrate/DynamicLibraries/TesselLite.dylib",
      "-rw-r--r-- root/root ./Library/MobileSubstrate/DynamicLibraries/TesselLite.plist",
      "drwxr-xr-x root/root ./Library/PreferenceLoader/",
      "drwxr-xr-x root/root ./Library/PreferenceLoader/Preferences/",
      "-rw-r--r-- root/root ./Library/PreferenceLoader/Preferences/TesselLite.plist",
  };
  EXPECT_EQ(seen, expected);
}

struct ArMember {
  std::string name;
  std::string time;
};

// The members of the .deb's outer ar archive, in order.
std::vector<ArMember> arMembers(const std::string& archive) {
  std::vector<ArMember> members;
  if (archive.rfind("!<arch>\n", 0) != 0) return members;
  for (size_t header = 8; header + 60 <= archive.size();) {
    auto field = [&](size_t offset, size_t width) {
      std::string text = archive.substr(header + offset, width);
      return text.substr(0, text.find_last_not_of(' ') + 1);
    };
    members.push_back({field(0, 16), field(16, 12)});
    const size_t size = std::stoul(field(48, 10));
    header += 60 + size + size % 2;
  }
  return members;
}

TEST(Package, ArchiveIsGzipCompressedForOldPhones) {
  const auto& package = builtPackage();
  ASSERT_TRUE(package.built()) << package.log();
  const auto members = arMembers(readFile(package.deb));
  std::vector<std::string> names;
  for (const auto& member : members) {
    names.push_back(member.name);
    EXPECT_EQ(member.time, std::to_string(kSourceDateEpoch)) << member.name;
  }
  EXPECT_EQ(names, (std::vector<std::string>{"debian-binary", "control.tar.gz", "data.tar.gz"}));
}

TEST(Package, DylibIsCarriedUnchanged) {
  const auto& package = builtPackage();
  ASSERT_TRUE(package.built()) << package.log();
  const auto carried = package.extracted / "Library/MobileSubstrate/DynamicLibraries/TesselLite.dylib";
  ASSERT_TRUE(std::filesystem::exists(carried));
  EXPECT_TRUE(readFile(carried) == readFile(package.dylib));
}

TEST(Package, EveryTimeStampIsTheSourceDate) {
  const auto& package = builtPackage();
  ASSERT_TRUE(package.built()) << package.log();
  const auto entries = listing(package.deb);
  ASSERT_FALSE(entries.empty());
  for (const auto& entry : entries) EXPECT_EQ(entry.time, utcMinute(kSourceDateEpoch)) << entry.path;
}

TEST(Package, TwoBuildsAreByteIdentical) {
  const auto& package = builtPackage();
  ASSERT_TRUE(package.built()) << package.log();
  const std::vector<std::string> files = {debName(), "repo/" + debName(), "repo/Packages", "repo/Packages.gz",
                                          "repo/Release"};
  for (const auto& file : files) {
    const std::string first = readFile(package.firstOut / file);
    ASSERT_FALSE(first.empty()) << file;
    EXPECT_TRUE(first == readFile(package.secondOut / file)) << file << " differs between the two builds";
  }
}

TEST(Package, SourceDateDefaultsToTheLastCommit) {
  const auto commit = run("git -C " + quoted(repoRoot()) + " log -1 --format=%ct 2>/dev/null");
  if (commit.exitStatus != 0 || commit.output.empty()) GTEST_SKIP() << "the tree has no commit history";
  const long commitTime = std::stol(commit.output);

  const auto& package = builtPackage();
  const auto out = scratchFolder() / "out";
  const auto result = run(buildCommand(package.dylib, out, "") + " 2>&1");
  ASSERT_EQ(result.exitStatus, 0) << result.output;
  EXPECT_NE(result.output.find("from the last commit"), std::string::npos) << result.output;
  for (const auto& entry : listing(out / debName())) EXPECT_EQ(entry.time, utcMinute(commitTime)) << entry.path;
}

}  // namespace
}  // namespace tessel::package_test
