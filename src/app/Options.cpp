#include "app/Options.h"

#include <map>
#include <vector>

#include "app/SharedFile.h"
#include "base/File.h"
#include "base/FileError.h"
#include "base/ProgramFiles.h"
#include "base/Text.h"
#include "base/WholeFile.h"

namespace repvolta {
namespace {

constexpr std::size_t kLongestOptionsFile = std::size_t{1024} * 1024;

std::vector<FlagOption> Flags() {
  std::vector<FlagOption> flags = {kPlayListForPlayer, kPlayerHintShown, kRecordNextByItself};
  flags.insert(flags.end(), kUpdatesOn.begin(), kUpdatesOn.end());
  return flags;
}

OptionLines ReadOptions() {
  const Bytes file = ReadWholeFile(kOptionsFile, kLongestOptionsFile + 1);
  if (file.size() > kLongestOptionsFile) {
    throw FileError(kOptionsFile, "could not be read", "It is too long for a file of options");
  }
  return OptionLines(AsText(file));
}

}  // namespace

void LoadOptions(ProgramState& state) {
  state.OptionsAreUnread = true;
  // The stamp is taken before the content, so that a change in between is noticed later.
  const std::optional<FileStamp> stamp = StampOf(kOptionsFile);
  state.Options = FileExists(kOptionsFile) ? ReadOptions() : OptionLines();
  state.KnownOptions = {state.Options, stamp};
  state.OptionsAreUnread = false;
}

void ReloadChangedOptions(ProgramState& state) {
  const std::optional<FileStamp> stamp = StampOfOthers(kOptionsFile, state.KnownOptions.stamp);
  if (!stamp || state.OptionsAreUnread) return;
  const OptionLines theirs = ReadOptions();
  state.Options = MergeOptions(state.KnownOptions.lines, state.Options, theirs);
  state.KnownOptions = {theirs, stamp};
}

void SaveOptions(ProgramState& state) {
  MakeProgramDirectoryCurrent(state);
  SaveShared(
      {.name = kOptionsFile,
       .isUnread = state.OptionsAreUnread,
       .knownStamp = [&] { return state.KnownOptions.stamp; },
       .takeOver = [&] { ReloadChangedOptions(state); },
       .content =
           [&] {
             const std::string file = state.Options.File();
             return Bytes(file.begin(), file.end());
           },
       .remember = [&](const FileStamp& stamp) { state.KnownOptions = {state.Options, stamp}; }});
}

std::string OddOptions(const OptionLines& options) {
  std::map<std::size_t, std::string> lines;
  for (const OptionLines::OddLine& line : options.OddLines()) lines[line.number] = line.text;
  for (const FlagOption& flag : Flags()) {
    if (IsUnderstood(options, flag)) continue;
    lines[options.LineNumber(flag.key)] =
        std::string(flag.key) + " = " + options.Value(flag.key).value_or("");
  }
  std::string list;
  for (const auto& [number, text] : lines) {
    list += (list.empty() ? "" : ", ") + std::to_string(number) + " (" + ShownOnOneLine(text) + ")";
  }
  if (list.empty()) return list;
  return std::string(kOptionsFile) + " has lines that cannot be understood: " + list +
         ". They are kept and have no effect.";
}

}  // namespace repvolta
