#include <cmath>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <set>

#include "base/FileNames.h"
#include "base/WholeFile.h"
#include "clips/ClipLists.h"
#include "clips/ClipSound.h"
#include "clips/VoiceCheck.h"
#include "platform/QtChildProcesses.h"
#include "sound/WavReader.h"

#include "support/ProgramsBeside.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::AllOf;
using testing::Ge;
using testing::Le;
const std::vector<std::string> kWordClips = {
    "1",         "2",    "3",    "4",     "5",       "6",   "7",     "8",          "9",    "10",
    "11",        "12",   "13",   "14",    "15",      "16",  "17",    "18",         "19",   "20",
    "30",        "40",   "50",   "60",    "70",      "80",  "90",    "100",        "200",  "300",
    "400",       "500",  "600",  "700",   "800",     "900", "1000",  "2000",       "3000", "4000",
    "5000",      "6000", "7000", "8000",  "9000",    "and", "point", "set",        "sets", "pounds",
    "kilograms", "for",  "reps", "level", "minutes", "kph", "mph",   "kilometers", "miles"};

const std::vector<std::vector<std::string>> kInstructions = {
    {"exercise/Bench Press.WAV", "2", "sets", "50", "kilograms", "for", "10", "reps", "60",
     "kilograms", "for", "8", "reps"},
    {"exercise/Squat.WAV", "1", "set", "100", "and", "30", "5", "pounds", "for", "12", "reps"},
    {"exercise/Treadmill Run.WAV", "1", "set", "level", "8", "for", "20", "minutes"},
    {"exercise/Easy Run.WAV", "1", "set", "10", "kph", "for", "5", "kilometers"},
    {"exercise/Long Run.WAV", "1", "set", "6", "point", "5", "mph", "for", "13", "miles"},
    {"exercise/Leg Press.WAV",
     "3",
     "sets",
     "200",
     "pounds",
     "for",
     "15",
     "reps",
     "200",
     "and",
     "20",
     "pounds",
     "for",
     "12",
     "reps",
     "200",
     "and",
     "40",
     "pounds",
     "for",
     "10",
     "reps"},
    {"exercise/Plank.WAV", "3", "sets"},
    {"exercise/Rowing Machine.WAV", "2", "sets", "level", "4", "for", "10", "minutes", "level", "7",
     "for", "5", "minutes"},
    {"exercise/Deadlift.WAV", "1", "set", "1000", "200", "and", "50", "kilograms", "for", "1",
     "reps"},
    {"exercise/Push Up.WAV", "2", "sets", "7", "pounds", "for", "19", "reps", "17", "pounds", "for",
     "11", "reps"}};

/// The clips and name lists that the build has put beside the programs.
class FinishedClipsJudged : public testing::Test {
 protected:
  static std::string Folder() { return ProgramBeside("../bin/voice/"); }

  static std::vector<std::string> Names() {
    std::vector<std::string> names;
    const std::string lists = ProgramBeside("../bin/exercise/");
    for (const std::string& list : ListFiles(lists, ".lst")) {
      std::ifstream file(lists + list);
      for (std::string name; std::getline(file, name);) names.push_back(name);
    }
    return names;
  }

  static Sound Clip(const std::string& name) {
    return ReadWav(
        ReadWholeFile(Folder() + (name.ends_with(".WAV") ? name : name + ".wav"), 1 << 24));
  }

  /// The paths of all clips that an update of the listed exercises can use.
  static std::vector<std::string> Paths() {
    std::vector<std::string> paths;
    for (const std::string& clip : kWordClips) paths.push_back(Folder() + clip + ".wav");
    for (const std::string& name : Names()) {
      paths.push_back(Folder() + "exercise/" + AsFileName(name, ".WAV"));
    }
    return paths;
  }
};

/// The seconds before the first and after the last 5 ms that are louder than an eightieth of the
/// peak.
std::pair<double, double> Silence(const Sound& clip) {
  constexpr std::size_t kWindow = 80;
  constexpr std::size_t kStep = 16;
  const double loud = Peak(clip) / 80;
  std::size_t first = clip.samples.size();
  std::size_t end = 0;
  for (std::size_t i = 0; i + kWindow <= clip.samples.size(); i += kStep) {
    double sum = 0;
    for (std::size_t k = i; k < i + kWindow; ++k) sum += std::pow(clip.samples[k], 2);
    if (std::sqrt(sum / kWindow) < loud) continue;
    first = std::min(first, i);
    end = i + kWindow;
  }
  return {static_cast<double>(first) / 16000,
          static_cast<double>(clip.samples.size() - end) / 16000};
}

TEST_F(FinishedClipsJudged, AreThereForEveryWordAndEveryListedName) {
  for (const std::string& path : Paths()) EXPECT_TRUE(fs::is_regular_file(path)) << path;
}

TEST_F(FinishedClipsJudged, AreOfOneFormatBehindTheSameHeader) {
  for (const std::string& path : Paths()) {
    const Bytes file = ReadWholeFile(path, 1 << 24);
    ASSERT_GT(file.size(), kWavHeaderSize) << path;
    const auto dataSize = static_cast<std::uint32_t>(file.size() - kWavHeaderSize);
    EXPECT_EQ(Bytes(file.begin(), file.begin() + kWavHeaderSize),
              WavHeader({16000, 16, 1}, dataSize))
        << path;
  }
}

TEST_F(FinishedClipsJudged, AreWhatSoxTakesThemFor) {
  QtChildProcesses processes;
  const auto ask = [&](const std::string& what) {
    return processes.Run({.program = "soxi", .arguments = {what, Folder() + "300.wav"}}).output;
  };
  EXPECT_EQ(ask("-r"), "16000\n");
  EXPECT_EQ(ask("-b"), "16\n");
  EXPECT_EQ(ask("-c"), "1\n");
  EXPECT_EQ(ask("-s"), std::to_string(Clip("300").samples.size()) + "\n");
}

TEST_F(FinishedClipsJudged, AreAWholeVoiceWithoutFaults) {
  const VoiceCheck check = CheckVoice(Folder());
  EXPECT_EQ(check.words, kWordClips.size());
  EXPECT_GE(check.names, 120U);
  EXPECT_TRUE(check.findings.empty()) << check.findings.front().file;
}

TEST_F(FinishedClipsJudged, HaveLittleSilenceAroundTheWord) {
  for (const std::string& path : Paths()) {
    const auto [before, behind] = Silence(ReadWav(ReadWholeFile(path, 1 << 24)));
    // A 5 ms window that reaches into the word may already be loud.
    EXPECT_THAT(before, AllOf(Ge(0.002), Le(0.011))) << path;
    EXPECT_THAT(behind, AllOf(Ge(0.049), Le(0.061))) << path;
  }
}

TEST_F(FinishedClipsJudged, EndInASampleOfZero) {
  for (const std::string& path : Paths()) {
    EXPECT_EQ(ReadWav(ReadWholeFile(path, 1 << 24)).samples.back(), 0.0F) << path;
  }
}

TEST_F(FinishedClipsJudged, StayBelowMinus1Decibel) {
  for (const std::string& path : Paths()) {
    EXPECT_LE(Peak(ReadWav(ReadWholeFile(path, 1 << 24))), std::pow(10, -1 / 20.0)) << path;
  }
}

TEST_F(FinishedClipsJudged, HaveTheWantedLoudnessWhenJoined) {
  for (const std::vector<std::string>& instruction : kInstructions) {
    std::vector<Sound> clips;
    for (const std::string& clip : instruction) clips.push_back(Clip(clip));
    EXPECT_NEAR(JoinedLoudness(clips), -18, 1) << instruction.front();
  }
}

TEST_F(FinishedClipsJudged, LieBesideListsOfPlainNames) {
  EXPECT_GE(ListFiles(ProgramBeside("../bin/exercise/"), ".lst").size(), 8U);
  EXPECT_GE(Names().size(), 120U);
  for (const std::string& name : Names()) {
    EXPECT_THAT(name, testing::MatchesRegex("[A-Z][A-Za-z -]*[A-Za-z]"));
    EXPECT_LE(name.size(), 64U) << name;
  }
}

TEST_F(FinishedClipsJudged, LieBesideListsWithoutDoubles) {
  const std::string lists = ProgramBeside("../bin/exercise/");
  for (const std::string& list : ListFiles(lists, ".lst")) {
    std::set<std::string> seen;
    for (const ClipWords& clip : ReadNameList(lists + list)) {
      EXPECT_TRUE(seen.insert(clip.words).second) << list << ": " << clip.words;
    }
  }
}

}  // namespace
}  // namespace repvolta
