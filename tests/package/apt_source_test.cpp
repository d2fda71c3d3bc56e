// The APT source folder: the index a phone's package manager downloads and
// the Release file that vouches for it.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <string>

#include "tests/package/built_package.h"

namespace tessel::package_test {
namespace {

// "Key: value" lines of one stanza; continuation lines are left out.
std::map<std::string, std::string> stanzaFields(const std::string& text) {
  std::map<std::string, std::string> fields;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    const auto colon = line.find(": ");
    if (line.empty() || line[0] == ' ' || colon == std::string::npos) continue;
    fields[line.substr(0, colon)] = line.substr(colon + 2);
  }
  return fields;
}

struct ListedFile {
  std::string hash;
  std::string size;
};

// Release's hash sections: section name -> file name -> hash and size.
std::map<std::string, std::map<std::string, ListedFile>> releaseHashes(const std::string& text) {
  std::map<std::string, std::map<std::string, ListedFile>> sections;
  std::string section;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    if (!line.empty() && line.back() == ':') {
      section = line.substr(0, line.size() - 1);
    } else if (!line.empty() && line[0] == ' ') {
      std::istringstream words(line);
      ListedFile listed;
      std::string name;
      words >> listed.hash >> listed.size >> name;
      sections[section][name] = listed;
    } else {
      section.clear();
    }
  }
  return sections;
}

std::string digest(const char* tool, const std::filesystem::path& file) {
  const auto result = run(std::string(tool) + " " + quoted(file));
  return result.output.substr(0, result.output.find(' '));
}

TEST(AptSource, PackagesNamesTheDebWithItsSizeAndHashes) {
  const auto& package = builtPackage();
  ASSERT_TRUE(package.built()) << package.log();
  const auto fields = stanzaFields(readFile(package.repo / "Packages"));
  const auto deb = package.repo / debName();
  ASSERT_TRUE(std::filesystem::exists(deb));

  EXPECT_EQ(fields.at("Package"), "com.orvalt.tessellite");
  EXPECT_EQ(fields.at("Version"), projectVersion());
  EXPECT_EQ(fields.at("Architecture"), "iphoneos-arm");
  EXPECT_EQ(fields.at("Filename"), "./" + debName());
  EXPECT_EQ(fields.at("Size"), std::to_string(std::filesystem::file_size(deb)));
  EXPECT_EQ(fields.at("SHA256"), digest("sha256sum", deb));
  EXPECT_EQ(fields.at("MD5sum"), digest("md5sum", deb));
  EXPECT_TRUE(readFile(deb) == readFile(package.deb)) << "the source must carry the package just built";
}

TEST(AptSource, PackagesGzIsPackagesWithoutAStoredNameOrTime) {
  const auto& package = builtPackage();
  ASSERT_TRUE(package.built()) << package.log();
  const auto unpacked = run("gzip -dc " + quoted(package.repo / "Packages.gz"));
  ASSERT_EQ(unpacked.exitStatus, 0);
  EXPECT_EQ(unpacked.output, readFile(package.repo / "Packages"));
  const std::string gz = readFile(package.repo / "Packages.gz");
  ASSERT_GE(gz.size(), 10u);
  EXPECT_EQ(gz[3] & 0x08, 0) << "a file name is stored";
  EXPECT_EQ(gz.substr(4, 4), std::string(4, '\0')) << "a time is stored";
}

TEST(AptSource, ReleaseListsTheIndexHashes) {
  const auto& package = builtPackage();
  ASSERT_TRUE(package.built()) << package.log();
  const std::string release = readFile(package.repo / "Release");
  const auto fields = stanzaFields(release);
  EXPECT_EQ(fields.at("Architectures"), "iphoneos-arm");
  EXPECT_EQ(fields.at("Date"), "Tue, 14 Nov 2023 22:13:20 UTC");
  for (const char* name : {"Origin", "Label", "Suite", "Codename", "Components"}) {
    EXPECT_FALSE(fields.at(name).empty()) << name;
  }

  const auto sections = releaseHashes(release);
  const std::map<std::string, const char*> tools = {{"MD5Sum", "md5sum"}, {"SHA1", "sha1sum"}, {"SHA256", "sha256sum"}};
  for (const auto& [section, tool] : tools) {
    ASSERT_TRUE(sections.contains(section)) << section;
    ASSERT_EQ(sections.at(section).size(), 2u) << section;
    for (const char* index : {"Packages", "Packages.gz"}) {
      const auto file = package.repo / index;
      ASSERT_TRUE(sections.at(section).contains(index)) << section << " " << index;
      const auto& listed = sections.at(section).at(index);
      EXPECT_EQ(listed.hash, digest(tool, file)) << section << " " << index;
      EXPECT_EQ(listed.size, std::to_string(std::filesystem::file_size(file))) << section << " " << index;
    }
  }
}

TEST(AptSource, RebuildLeavesOnlyTheCurrentPackage) {
  const auto& package = builtPackage();
  const auto out = scratchFolder() / "out";
  std::filesystem::create_directories(out / "repo");
  std::filesystem::copy_file(package.deb, out / "repo/com.orvalt.tessellite_0.1_iphoneos-arm.deb");

  const auto result = run(buildCommand(package.dylib, out, "SOURCE_DATE_EPOCH=1 ") + " 2>&1");
  ASSERT_EQ(result.exitStatus, 0) << result.output;
  EXPECT_FALSE(std::filesystem::exists(out / "repo/com.orvalt.tessellite_0.1_iphoneos-arm.deb"));
  const std::string packages = readFile(out / "repo/Packages");
  EXPECT_EQ(packages.find("Package:"), packages.rfind("Package:")) << packages;
}

// The strongest check available here: APT itself fetches the index, checks it
// against Release, and downloads the package checking it against the index.
TEST(AptSource, AptAcceptsTheSourceAndDownloadsThePackage) {
  if (run("command -v apt-get").exitStatus != 0) GTEST_SKIP() << "apt-get is not installed";
  const auto& package = builtPackage();
  ASSERT_TRUE(package.built()) << package.log();

  const auto apt = scratchFolder();
  std::filesystem::create_directories(apt / "state/lists/partial");
  std::filesystem::create_directories(apt / "cache/archives/partial");
  std::filesystem::create_directories(apt / "download");
  std::ofstream(apt / "sources.list") << "deb [trusted=yes] file:" << package.repo.string() << " ./\n";
  const std::string options = " -o Dir::State=" + quoted(apt / "state") + " -o Dir::Cache=" + quoted(apt / "cache") +
                              " -o Dir::Etc::SourceList=" + quoted(apt / "sources.list") +
                              " -o Dir::Etc::SourceParts=/dev/null -o Dir::Etc::Preferences=/dev/null"
                              " -o Dir::Etc::PreferencesParts=/dev/null -o Dir::State::status=/dev/null"
                              " -o APT::Architecture=iphoneos-arm -o APT::Architectures::=iphoneos-arm"
                              " -o Debug::NoLocking=1 -o APT::Sandbox::User=root";

  const auto update = run("apt-get -q" + options + " update 2>&1");
  ASSERT_EQ(update.exitStatus, 0) << update.output;
  EXPECT_EQ(update.output.find("\nE:"), std::string::npos) << update.output;
  EXPECT_EQ(update.output.find("\nW:"), std::string::npos) << update.output;

  const auto download =
      run("cd " + quoted(apt / "download") + " && apt-get -q" + options + " download com.orvalt.tessellite 2>&1");
  ASSERT_EQ(download.exitStatus, 0) << download.output;
  EXPECT_TRUE(readFile(apt / "download" / debName()) == readFile(package.deb));
}

}  // namespace
}  // namespace tessel::package_test
