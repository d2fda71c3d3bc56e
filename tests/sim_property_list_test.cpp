// Settings files read as the platform reads them: real XML and binary
// property lists, the platform's boolean and integer readings, and nothing
// at all for a file that is missing or broken.

#include <plist/plist.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <limits>

#include <gtest/gtest.h>

#include "sim/property_list.h"
#include "sim/sim_host.h"
#include "sim/string_readings.h"

namespace tessel::sim::testing {
namespace {

namespace fs = std::filesystem;
constexpr std::int32_t kMax = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kMin = std::numeric_limits<std::int32_t>::min();

class PropertyLists : public ::testing::Test {
 protected:
  void SetUp() override {
    dir_ = fs::temp_directory_path() /
           ("tessel-plist-" + std::to_string(::testing::UnitTest::GetInstance()->random_seed()) + "-" +
            ::testing::UnitTest::GetInstance()->current_test_info()->name());
    fs::create_directories(dir_);
  }
  void TearDown() override { fs::remove_all(dir_); }

  std::string write(const std::string& name, const std::string& bytes) {
    std::string path = (dir_ / name).string();
    std::ofstream(path, std::ios::binary) << bytes;
    return path;
  }

  // A dictionary of every kind of value, in the format asked for.
  static std::string sample(bool binary) {
    plist_t dict = plist_new_dict();
    plist_dict_set_item(dict, "flag", plist_new_bool(false));
    plist_dict_set_item(dict, "count", plist_new_uint(7));
    plist_dict_set_item(dict, "negative", plist_new_uint(static_cast<std::uint64_t>(-3)));
    plist_dict_set_item(dict, "wide", plist_new_uint((1ull << 32) + 5));
    plist_dict_set_item(dict, "real", plist_new_real(-2.9));
    plist_dict_set_item(dict, "huge", plist_new_real(1e12));
    plist_dict_set_item(dict, "text", plist_new_string("  +0042 apples"));
    plist_t array = plist_new_array();
    plist_array_append_item(array, plist_new_uint(1));
    plist_dict_set_item(dict, "array", array);
    plist_dict_set_item(dict, "date", plist_new_date(1000, 0));
    plist_dict_set_item(dict, "data", plist_new_data("\x01\x02", 2));
    char* out = nullptr;
    std::uint32_t length = 0;
    if (binary) {
      plist_to_bin(dict, &out, &length);
    } else {
      plist_to_xml(dict, &out, &length);
    }
    std::string bytes(out, length);
    free(out);
    plist_free(dict);
    return bytes;
  }

  fs::path dir_;
};

void expectSampleReadings(const std::shared_ptr<SimDictionary>& d) {
  ASSERT_TRUE(d);
  EXPECT_EQ(d->objectForKey("flag")->boolValue(), false);
  EXPECT_EQ(d->objectForKey("flag")->intValue(), 0);
  EXPECT_EQ(d->objectForKey("count")->boolValue(), true);
  EXPECT_EQ(d->objectForKey("count")->intValue(), 7);
  EXPECT_EQ(d->objectForKey("negative")->intValue(), -3);
  EXPECT_EQ(d->objectForKey("wide")->intValue(), 5) << "an integer keeps its low 32 bits";
  EXPECT_EQ(d->objectForKey("real")->intValue(), -2) << "toward zero";
  EXPECT_EQ(d->objectForKey("real")->boolValue(), true);
  EXPECT_EQ(d->objectForKey("huge")->intValue(), kMax);
  EXPECT_EQ(d->objectForKey("text")->boolValue(), true);
  EXPECT_EQ(d->objectForKey("text")->intValue(), 42);
  for (const char* opaque : {"array", "date", "data"}) {
    SCOPED_TRACE(opaque);
    ASSERT_TRUE(d->objectForKey(opaque)) << "present";
    EXPECT_EQ(d->objectForKey(opaque)->boolValue(), std::nullopt);
    EXPECT_EQ(d->objectForKey(opaque)->intValue(), std::nullopt);
  }
  EXPECT_FALSE(d->objectForKey("absent"));
}

TEST_F(PropertyLists, XmlAndBinaryFilesGiveTheSameReadings) {
  {
    SCOPED_TRACE("xml");
    expectSampleReadings(readDictionaryFile(write("settings.plist", sample(false))));
  }
  {
    SCOPED_TRACE("binary");
    expectSampleReadings(readDictionaryFile(write("settings.plist", sample(true))));
  }
}

TEST_F(PropertyLists, AFileThatIsNotAWholeDictionaryGivesNothing) {
  std::string xml = sample(false);
  std::string binary = sample(true);
  EXPECT_FALSE(readDictionaryFile((dir_ / "missing.plist").string()));
  EXPECT_FALSE(readDictionaryFile(write("empty.plist", "")));
  EXPECT_FALSE(readDictionaryFile(write("half.plist", xml.substr(0, xml.size() / 2))));
  EXPECT_FALSE(readDictionaryFile(write("cut.plist", binary.substr(0, binary.size() - 10))));
  EXPECT_FALSE(readDictionaryFile(write("garbage.plist", "bplist00" + std::string(40, '\xff'))));
  EXPECT_FALSE(readDictionaryFile(write("text.plist", "enabled = 1;")));
  EXPECT_FALSE(readDictionaryFile(
      write("array.plist", "<?xml version=\"1.0\"?><plist version=\"1.0\"><array><true/></array></plist>")));
  // Every binary file cut at any length is refused without harm.
  for (std::size_t length = 1; length < binary.size(); ++length) {
    EXPECT_FALSE(readDictionaryFile(write("prefix.plist", binary.substr(0, length)))) << length;
  }
}

TEST_F(PropertyLists, AStringHoldingANulByteIsReadWholeNotFatally) {
  using namespace std::string_literals;
  auto settings = readDictionaryFile(
      write("nul.plist",
            "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict><key>darkMode</key><string>N\0YES</string>"
            "<key>activationMethod</key><string>3\0"
            "9</string></dict></plist>"s));
  ASSERT_TRUE(settings);
  EXPECT_EQ(settings->objectForKey("darkMode")->boolValue(), false);
  EXPECT_EQ(settings->objectForKey("activationMethod")->intValue(), 3);
}

TEST(StringReadings, AsThePlatformReadsThem) {
  struct Case {
    const char* text;
    bool boolean;
    std::int32_t integer;
  };
  const Case cases[] = {
      {"", false, 0},
      {"1", true, 1},
      {"0", false, 0},
      {"000", false, 0},
      {" \t-0009 left", true, -9},
      {"+12", true, 12},
      {"yes", true, 0},
      {"YES", true, 0},
      {"true", true, 0},
      {"T", true, 0},
      {"no", false, 0},
      {"false", false, 0},
      {"0x1F", false, 0},
      {"-", false, 0},
      {"00y", true, 0},
      {"\xC2\xA0"
       "5",
       true, 5},          // a no-break space is white space
      {"\n5", false, 0},  // a newline is not
      {"99999999999", true, kMax},
      {"-99999999999", true, kMin},
      {"2147483647", true, kMax},
      {"-2147483648", true, kMin},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    EXPECT_EQ(stringBoolValue(c.text), c.boolean);
    EXPECT_EQ(stringIntValue(c.text), c.integer);
  }
}

TEST_F(PropertyLists, TheSettingsPaneFileRoundTripsThroughThePhonesFileSystem) {
  WorldConfig config;
  SimHost host(config, dir_.string());
  std::string phonePath = "/User/Library/Preferences/test.plist";
  ASSERT_TRUE(writeSettingsFile(host.localPath(phonePath), {/*enabled*/ false, /*darkMode*/ true, -1}));
  EXPECT_TRUE(fs::exists(dir_ / "User/Library/Preferences/test.plist"));
  auto settings = host.dictionaryWithContentsOfFile(phonePath);
  ASSERT_TRUE(settings);
  EXPECT_EQ(settings->objectForKey("enabled")->boolValue(), false);
  EXPECT_EQ(settings->objectForKey("darkMode")->boolValue(), true);
  EXPECT_EQ(settings->objectForKey("activationMethod")->intValue(), -1);
  EXPECT_FALSE(host.dictionaryWithContentsOfFile("/User/Library/Preferences/other.plist"));
}

}  // namespace
}  // namespace tessel::sim::testing
