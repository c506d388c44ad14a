#include <algorithm>

#include "app/RecordFormat.h"
#include "app/Settings.h"
#include "base/ProgramFiles.h"
#include "base/Text.h"

#include "support/Cost.h"
#include "support/Fuzz.h"

// The input is a settings file. It is loaded, saved and loaded again without a change.

namespace repvolta {
namespace {

constexpr std::size_t kAudioFormatOffset = 526;

std::size_t At(std::span<const Byte> file, std::size_t offset) {
  return LoadLittleEndian<std::uint16_t>(file.subspan(offset));
}

/// The length of AudioFormat, as far as the file goes.
std::size_t FormatLength(std::span<const Byte> file) {
  if (file.size() < kAudioFormatOffset + 2) return 0;
  return std::min(At(file, kAudioFormatOffset), file.size() - kAudioFormatOffset - 2);
}

void RequireNumbersKept(std::span<const Byte> file, std::span<const Byte> saved) {
  const std::size_t behind = kAudioFormatOffset + 2 + FormatLength(file);
  if (file.size() < kSettingsFileSize + FormatLength(file)) return;
  Require(std::ranges::equal(file.subspan(512, 14), saved.subspan(512, 14)), "numbers are kept");
  const std::size_t rest = kSettingsFileSize - kAudioFormatOffset - 2;
  Require(std::ranges::equal(file.subspan(kAudioFormatOffset, behind - kAudioFormatOffset + rest),
                             saved.subspan(kAudioFormatOffset)),
          "the audio format and all behind it are kept");
}

void LoadSaveLoad(ProgramState& state, std::span<const Byte> file) {
  LoadSettings(state);
  const SettingsRecord first = state.Settings;
  for (const std::string& text :
       {first.MusicPath.Text(), first.OutputPath.Text(), first.AudioFormat}) {
    Require(IsUtf8(text), "texts are UTF-8");
  }
  SaveSettings(state);
  const Bytes saved = GetFile(kSettingsFile);
  Require(saved.size() == kSettingsFileSize + FormatLength(file), "a saved file has its size");
  RequireNumbersKept(file, saved);
  LoadSettings(state);
  Require(state.Settings == first, "load, save, load gives the same settings");
  SaveSettings(state);
  Require(GetFile(kSettingsFile) == saved, "and the same file");
}

}  // namespace
}  // namespace repvolta

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace repvolta;
  static const FuzzFolder folder;
  static ProgramState state;
  state.ProgramDirectory = folder.Path();
  const std::span<const Byte> file(data, size);
  PutFile(kSettingsFile, file);
  const LinearCost cost(size);
  LoadSaveLoad(state, file);
  return 0;
}
