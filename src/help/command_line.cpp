#include "help/command_line.h"

#include "help/program_info.h"

namespace kestrava {

namespace {

constexpr std::string_view kHelp =
    "Usage: kestrava [OPTION]\n"
    "Watch which of your machines can be reached.\n"
    "\n"
    "  --help     print this text and end\n"
    "  --version  print the version and end\n";

}  // namespace

std::optional<std::string> AnswerTo(std::string_view argument, std::string_view moreHelp) {
  if (argument == "--help") return std::string(kHelp).append(moreHelp);
  if (argument == "--version") return std::string(kProgramTitle) + ' ' + kProgramVersion + '\n';
  return std::nullopt;
}

std::string RefusalOf(std::string_view argument) {
  return std::string(kProgramName).append(": unknown argument ").append(argument) + '\n';
}

}  // namespace kestrava
