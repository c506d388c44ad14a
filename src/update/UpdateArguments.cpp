#include "update/UpdateArguments.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace repvolta {
namespace {

constexpr std::string_view kDryRun = "--dry-run";
constexpr std::string_view kJson = "--json";
constexpr std::string_view kHelp = "--help";
constexpr std::string_view kVersion = "--version";

bool IsOption(const std::string& word) { return word.starts_with('-'); }

void ExpectKnownOptions(const std::vector<std::string>& words) {
  constexpr std::array kOptions = {kDryRun, kJson, kHelp, kVersion};
  for (const std::string& word : words) {
    if (IsOption(word) && std::ranges::count(kOptions, word) == 0) {
      throw UsageError(word + " is no workout; usage: repvolta-update [WORKOUT ...]");
    }
  }
}

UpdateArguments::Task TaskOf(const std::vector<std::string>& words) {
  using Task = UpdateArguments::Task;
  const auto has = [&](std::string_view option) { return std::ranges::count(words, option) > 0; };
  if (has(kHelp)) return Task::kShowHelp;
  if (has(kVersion)) return Task::kShowVersion;
  if (has(kDryRun)) return has(kJson) ? Task::kShowPlanAsJson : Task::kShowPlan;
  // An update that somebody meant to look at first could not be taken back.
  if (has(kJson)) {
    throw UsageError(
        "--json needs --dry-run; usage: repvolta-update --dry-run --json [WORKOUT ...]");
  }
  return Task::kUpdate;
}

}  // namespace

UpdateArguments ParseUpdateArguments(const std::vector<std::string>& words) {
  ExpectKnownOptions(words);
  UpdateArguments arguments{.task = TaskOf(words)};
  std::ranges::remove_copy_if(words, std::back_inserter(arguments.workouts), IsOption);
  return arguments;
}

std::string UpdateHelp() {
  return "Usage: repvolta-update [WORKOUT ...]\n"
         "       repvolta-update --dry-run [--json] [WORKOUT ...]\n"
         "       repvolta-update --help | --version\n"
         "\n"
         "Updates the workouts, or all: increases the values that are due, draws random music,\n"
         "and writes a folder with instructions, music and a play list for each.\n"
         "\n"
         "  --dry-run  show what the update would do and what would go wrong; change nothing\n"
         "  --json     show it for programs\n"
         "  --help     show this text\n"
         "  --version  show the version\n"
         "\n"
         "Exit status: 0 without errors, 1 with errors, 2 if the update cannot start.\n";
}

}  // namespace repvolta
