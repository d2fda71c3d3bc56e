#include "phone/signing/codesign_command.h"

#include <exception>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "phone/signing/code_directory.h"
#include "phone/signing/file_replace.h"
#include "phone/signing/input_error.h"
#include "phone/signing/signer.h"
#include "phone/signing/verifier.h"

namespace tessel::signing {
namespace {

constexpr std::string_view kUsage =
    "usage: tessel-codesign sign FILE [--identifier ID]\n"
    "       tessel-codesign verify FILE\n"
    "\n"
    "sign    replaces FILE's code signature (LC_CODE_SIGNATURE) with an ad-hoc one: a SHA-1\n"
    "        code directory of 4096-byte pages and an empty requirement set.\n"
    "        The identifier defaults to com.orvalt.tessellite.\n"
    "verify  recomputes every hash of such a signature and prints the CDHash.\n"
    "\n"
    "exit status: 0 done (verify: valid), 1 verify: the signature does not match,\n"
    "             2 bad command line or unusable file (the file is left untouched)\n";

int usageError(std::ostream& err, const std::string& problem) {
  err << "tessel-codesign: " << problem << "\n" << kUsage;
  return kExitBadInput;
}

std::string describeDirectory(const Verification& verification) {
  return std::to_string(verification.codeSlots) + " pages, code limit " + std::to_string(verification.codeLimit);
}

int sign(const std::filesystem::path& file, std::string_view identifier, std::ostream& out) {
  const std::vector<std::uint8_t> image = readWholeFile(file);
  const std::vector<std::uint8_t> signedImage = signImage(image, identifier);
  const Verification check = verifyImage(signedImage);
  if (!check.valid) throw std::runtime_error("the new signature does not verify: " + check.problem);
  replaceFileContents(file, signedImage);
  out << file.string() << ": signed " << identifier << ", " << describeDirectory(check) << "\n"
      << "CDHash: " << toHex(check.cdHash) << "\n";
  return kExitValid;
}

int verify(const std::filesystem::path& file, std::ostream& out, std::ostream& err) {
  const Verification verification = verifyImage(readWholeFile(file));
  if (!verification.valid) {
    err << "tessel-codesign: " << file.string() << ": invalid signature: " << verification.problem << "\n";
    return kExitInvalidSignature;
  }
  out << file.string() << ": valid ad-hoc SHA-1 signature\n"
      << "Identifier: " << verification.identifier << "\n"
      << "CodeDirectory: " << describeDirectory(verification) << "\n"
      << "CDHash: " << toHex(verification.cdHash) << "\n";
  return kExitValid;
}

}  // namespace

int runCodesignCommand(std::span<const std::string_view> arguments, std::ostream& out, std::ostream& err) {
  if (arguments.empty()) return usageError(err, "missing command");
  const std::string_view command = arguments[0];
  if (command == "--help" || command == "-h" || command == "help") {
    out << kUsage;
    return kExitValid;
  }
  if (command != "sign" && command != "verify")
    return usageError(err, "unknown command '" + std::string(command) + "'");

  std::optional<std::string_view> file;
  std::string_view identifier = kDefaultIdentifier;
  for (std::size_t i = 1; i < arguments.size(); ++i) {
    const std::string_view argument = arguments[i];
    if (command == "sign" && argument == "--identifier") {
      if (++i == arguments.size()) return usageError(err, "--identifier needs a value");
      identifier = arguments[i];
    } else if (argument.starts_with("-")) {
      return usageError(err, "unknown option '" + std::string(argument) + "'");
    } else if (file) {
      return usageError(err, "more than one FILE");
    } else {
      file = argument;
    }
  }
  if (!file) return usageError(err, "missing FILE");
  if (command == "sign" && !isValidIdentifier(identifier)) {
    return usageError(err, "invalid identifier '" + std::string(identifier) + "': use printable ASCII without spaces");
  }

  try {
    return command == "sign" ? sign(*file, identifier, out) : verify(*file, out, err);
  } catch (const std::exception& error) {
    err << "tessel-codesign: " << *file << ": " << error.what() << "\n";
    return kExitBadInput;
  }
}

}  // namespace tessel::signing
