#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sstream>

#include "base/FileNames.h"
#include "clips/ClipLists.h"
#include "clips/VoiceCheck.h"
#include "clips/VoiceCommand.h"
#include "instruction/VoiceInstruction.h"
#include "platform/QtChildProcesses.h"
#include "sound/WavFormat.h"
#include "speech/EspeakEngine.h"
#include "voices/ChangeOfVoice.h"
#include "voices/VoiceStage.h"

#include "fakes/RecordingLog.h"
#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

using testing::Each;
using testing::Field;
using testing::IsEmpty;

constexpr const char* kWords[] = {"3", "sets", "50", "kilograms", "for"};

/// Some words in German, as one command makes them of lines of the shipped list.
void MakeGerman(const std::string& folder) {
  std::string lines;
  for (const ClipWords& clip : ReadWordList(REPVOLTA_DATA "words/german.txt")) {
    const std::string name = BaseName(clip.file);
    if (std::ranges::find(kWords, name) != std::end(kWords)) {
      lines += name + "\t" + clip.words + "\n";
    }
  }
  PutFile("words.txt", lines);
  QtChildProcesses processes;
  EspeakEngine espeak(EngineProgram(processes, "espeak-ng"));
  std::ostringstream output;
  ASSERT_EQ(RunVoiceCommand({"make", "--voice", "de", "words.txt", folder},
                            {{"espeak-ng", &espeak}}, output, output),
            0)
      << output.str();
}

/// What follows the header.
std::string SoundOf(const std::string& file) { return GetTextFile(file).substr(kWavHeaderSize); }

TEST(WholeVoiceJudged, InAnotherLanguageIsTakenInChosenAndJoined) {
  const TemporaryFolder folder;
  MakeGerman("german");
  {
    VoiceStage stage;
    const auto add = [&](const std::string& clip, std::span<const Byte> content) {
      stage.Add(clip, content);
    };
    EXPECT_THAT(ReadVoiceFolder("german", {.take = add}), IsEmpty());
    stage.Commit("Deutsch", {});
  }
  const VoiceCheck check = CheckVoice("voices/Deutsch");
  EXPECT_EQ(check.words, std::size(kWords));
  EXPECT_THAT(check.findings, Each(Field(&ClipFinding::fault, ClipFault::kMissing)));

  const VoicesHere here{.programVoice = "", .inUse = ""};
  PutClips(
      "",
      PlanChangeOfVoice(here, {.voice = "Deutsch", .day = "2026-11-22", .loudness = {}}).change);
  const std::vector<Clip> words = {{Clip::Kind::kWord, "3"}, {Clip::Kind::kWord, "sets"}};
  PutFile("joined.wav", GetFile("german/50.wav"));
  RecordingLog log;
  JoinClips(words, "joined.wav", {}, log);
  EXPECT_THAT(log.lines, IsEmpty());

  std::string sounds;
  for (const char* word : {"50", "3", "sets"}) {
    sounds += SoundOf("german/" + std::string(word) + ".wav");
  }
  EXPECT_TRUE(SoundOf("joined.wav") == sounds);
}

}  // namespace
}  // namespace repvolta
