#include <iostream>
#include <string_view>
#include <vector>

#include "phone/signing/codesign_command.h"

int main(int argc, char** argv) {
  const std::vector<std::string_view> arguments(argv + 1, argv + argc);
  return tessel::signing::runCodesignCommand(arguments, std::cout, std::cerr);
}
