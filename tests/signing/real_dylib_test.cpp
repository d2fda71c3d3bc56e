#include <sys/wait.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <string>

#include "phone/signing/macho_layout.h"
#include "phone/signing/verifier.h"
#include "tests/signing/scratch_directory.h"

namespace tessel::signing {
namespace {

bool onPath(const std::string& tool) { return std::system(("command -v " + tool + " >/dev/null 2>&1").c_str()) == 0; }

int exitStatus(const std::string& command) {
  const int status = std::system(command.c_str());
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST(CodeSigning, RealLinkedDylibSignsAndVerifies) {
  if (!onPath("clang-14") || !onPath("ld64.lld-14")) GTEST_SKIP() << "clang-14 or ld64.lld-14 is not installed";
  testing::ScratchDirectory scratch;
  const auto source = scratch.path() / "probe.c";
  std::ofstream(source) << "int tessel_probe(int x) { return x * 3 + 1; }\n";
  const auto dylib = scratch.path() / "probe.dylib";
  ASSERT_EQ(exitStatus("clang-14 -target arm64-apple-ios7.0 -dynamiclib -fuse-ld=lld -nostdlib "
                       "-Wl,-adhoc_codesign " +
                       source.string() + " -o " + dylib.string()),
            0);

  const auto linked = testing::readBytes(dylib);
  EXPECT_FALSE(verifyImage(linked).valid) << "the linker's own signature is SHA-256";

  const std::string tool = TESSEL_CODESIGN_EXE;
  ASSERT_EQ(exitStatus(tool + " sign " + dylib.string() + " >/dev/null"), 0);
  EXPECT_EQ(exitStatus(tool + " verify " + dylib.string() + " >/dev/null"), 0);

  const auto signedOnce = testing::readBytes(dylib);
  // The signature still ends __LINKEDIT, which still ends the file.
  const MachOLayout layout = readMachOLayout(signedOnce);
  EXPECT_EQ(layout.linkeditFileOffset + layout.linkeditFileSize, signedOnce.size());
  EXPECT_LT(signedOnce.size(), linked.size()) << "20-byte page hashes take less room than the linker's 32-byte ones";
  ASSERT_EQ(exitStatus(tool + " sign " + dylib.string() + " >/dev/null"), 0);
  EXPECT_EQ(testing::readBytes(dylib), signedOnce) << "re-signing changes nothing";
}

}  // namespace
}  // namespace tessel::signing
