#include "phone/signing/codesign_command.h"

#include <sys/stat.h>

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "phone/signing/sha1.h"
#include "phone/signing/verifier.h"
#include "tests/signing/scratch_directory.h"
#include "tests/signing/test_dylib.h"

namespace tessel::signing {
namespace {

using testing::makeTestDylib;
using testing::readBytes;
using testing::ScratchDirectory;

struct CommandResult {
  int status;
  std::string out;
  std::string err;
};

CommandResult runTool(std::vector<std::string_view> arguments) {
  std::ostringstream out;
  std::ostringstream err;
  const int status = runCodesignCommand(arguments, out, err);
  return {status, out.str(), err.str()};
}

TEST(CodesignCommand, SignThenVerifySucceedsAndPrintsTheCdHash) {
  ScratchDirectory scratch;
  const auto file = scratch.write("probe.dylib", makeTestDylib());
  const CommandResult signing = runTool({"sign", file.c_str()});
  ASSERT_EQ(signing.status, 0) << signing.err;

  const CommandResult verifying = runTool({"verify", file.c_str()});
  EXPECT_EQ(verifying.status, 0) << verifying.err;
  const Verification expected = verifyImage(readBytes(file));
  ASSERT_TRUE(expected.valid);
  EXPECT_NE(verifying.out.find("\nCDHash: " + toHex(expected.cdHash) + "\n"), std::string::npos) << verifying.out;
  EXPECT_NE(verifying.out.find("Identifier: com.orvalt.tessellite\n"), std::string::npos) << verifying.out;
  EXPECT_EQ(scratch.fileNames(), std::vector<std::string>{"probe.dylib"}) << "no temporary file left behind";
}

TEST(CodesignCommand, SigningKeepsTheFilePermissions) {
  ScratchDirectory scratch;
  const auto file = scratch.write("probe.dylib", makeTestDylib());
  ASSERT_EQ(::chmod(file.c_str(), 0751), 0);
  ASSERT_EQ(runTool({"sign", file.c_str()}).status, 0);
  struct stat status {};
  ASSERT_EQ(::stat(file.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 07777, 0751u);
}

TEST(CodesignCommand, IdentifierOptionIsRecorded) {
  ScratchDirectory scratch;
  const auto file = scratch.write("probe.dylib", makeTestDylib());
  ASSERT_EQ(runTool({"sign", file.c_str(), "--identifier", "org.example.probe"}).status, 0);
  EXPECT_EQ(verifyImage(readBytes(file)).identifier, "org.example.probe");
}

TEST(CodesignCommand, TamperedFileExitsOneNamingThePage) {
  ScratchDirectory scratch;
  const auto file = scratch.write("probe.dylib", makeTestDylib());
  ASSERT_EQ(runTool({"sign", file.c_str()}).status, 0);
  auto bytes = readBytes(file);
  bytes[2 * 4096 + 7] ^= 0x80;
  scratch.write("probe.dylib", bytes);

  const CommandResult verifying = runTool({"verify", file.c_str()});
  EXPECT_EQ(verifying.status, 1);
  EXPECT_NE(verifying.err.find("page 2 (bytes 8192-12287) does not match its hash"), std::string::npos)
      << verifying.err;
  EXPECT_EQ(verifying.out.find("CDHash"), std::string::npos);
}

TEST(CodesignCommand, UnsignedLinkerOutputFailsVerification) {
  ScratchDirectory scratch;
  const auto file = scratch.write("probe.dylib", makeTestDylib());
  EXPECT_EQ(runTool({"verify", file.c_str()}).status, 1);
}

TEST(CodesignCommand, BadInputsExitTwoAndLeaveTheFileUntouched) {
  const auto good = makeTestDylib();
  auto thirtyTwoBit = good;
  thirtyTwoBit[0] = 0xce;
  const std::vector<std::pair<std::string, std::vector<std::uint8_t>>> inputs = {
      {"not Mach-O", {'#', '!', '/', 'b', 'i', 'n', '/', 's', 'h', '\n'}},
      {"32-bit", thirtyTwoBit},
      {"fat", {0xca, 0xfe, 0xba, 0xbe, 0, 0, 0, 1, 0, 0, 0, 0}},
      {"truncated", std::vector<std::uint8_t>(good.begin(), good.end() - 100)},
      {"no LC_CODE_SIGNATURE", makeTestDylib({.withCodeSignatureCommand = false})},
  };
  for (const auto& [name, bytes] : inputs) {
    ScratchDirectory scratch;
    const auto file = scratch.write("input", bytes);
    for (const char* command : {"sign", "verify"}) {
      const CommandResult result = runTool({command, file.c_str()});
      EXPECT_EQ(result.status, 2) << name << ", " << command;
      EXPECT_NE(result.err.find(file.string()), std::string::npos) << name << ": " << result.err;
      EXPECT_EQ(readBytes(file), bytes) << name << ", " << command;
      EXPECT_EQ(scratch.fileNames(), std::vector<std::string>{"input"}) << name << ", " << command;
    }
  }
}

TEST(CodesignCommand, CommandLineMistakesExitTwoWithoutTouchingTheFile) {
  ScratchDirectory scratch;
  const auto bytes = makeTestDylib();
  const auto file = scratch.write("probe.dylib", bytes);
  const std::vector<std::vector<std::string_view>> mistakes = {
      {},
      {"frobnicate", file.c_str()},
      {"sign"},
      {"sign", file.c_str(), "--identifier"},
      {"sign", file.c_str(), "--identifier", "two words"},
      {"sign", file.c_str(), "--force"},
      {"sign", file.c_str(), file.c_str()},
      {"verify", file.c_str(), "--identifier", "x"},
  };
  for (const auto& arguments : mistakes) {
    const CommandResult result = runTool(arguments);
    EXPECT_EQ(result.status, 2) << arguments.size() << " arguments";
    EXPECT_NE(result.err.find("usage:"), std::string::npos) << result.err;
  }
  EXPECT_EQ(readBytes(file), bytes);
  EXPECT_EQ(runTool({"verify", (scratch.path() / "missing.dylib").c_str()}).status, 2);
  EXPECT_EQ(runTool({"sign", scratch.path().c_str()}).status, 2) << "a directory";
}

}  // namespace
}  // namespace tessel::signing
