#include <QProcess>
#include <algorithm>
#include <cmath>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/RecordFormat.h"
#include "instruction/VoiceInstruction.h"
#include "platform/QtChildProcesses.h"
#include "sound/WavFormat.h"
#include "speech/EngineSpeech.h"

#include "fakes/RecordingRun.h"
#include "support/ProgramsBeside.h"
#include "support/SoundServer.h"
#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using Samples = std::vector<std::int16_t>;

constexpr int kLimit = 20000;    // milliseconds
constexpr int kFewSamples = 32;  // 2 milliseconds
constexpr const char* kWorkout = "Monday.RPV";
constexpr const char* kNewName = "Zercher Hop";

Samples SamplesOf(const std::string& wavFile) {
  const Bytes bytes = GetFile(wavFile);
  Samples samples;
  for (std::size_t at = kWavHeaderSize; at + 1 < bytes.size(); at += 2) {
    samples.push_back(static_cast<std::int16_t>(bytes[at] | bytes[at + 1] << 8));
  }
  return samples;
}

Samples WithoutSilence(const Samples& samples) {
  const auto isHeard = [](std::int16_t sample) { return sample != 0; };
  const auto begin = std::find_if(samples.begin(), samples.end(), isHeard);
  const auto end = std::find_if(samples.rbegin(), samples.rend(), isHeard).base();
  return begin < end ? Samples(begin, end) : Samples();
}

/// 1 for the same sound, also at another loudness; about 0 for another one. `lag` is how many
/// samples later `heard` begins.
double Likeness(const Samples& heard, const Samples& expected, int lag) {
  double both = 0;
  double ofHeard = 0;
  double ofExpected = 0;
  for (std::ptrdiff_t i = std::max(0, -lag);
       i < std::ssize(expected) && i + lag < std::ssize(heard); ++i) {
    const double a = heard[static_cast<std::size_t>(i + lag)];
    const double b = expected[static_cast<std::size_t>(i)];
    both += a * b;
    ofHeard += a * a;
    ofExpected += b * b;
  }
  return both / std::sqrt(ofHeard * ofExpected);
}

/// The output runs at the rate of the clips and at full volume, so that nothing is converted: what
/// comes out must be what went in.
void ExpectSame(const Samples& heard, const Samples& expected) {
  ASSERT_GT(expected.size(), 8000U);
  EXPECT_LE(std::abs(std::ssize(heard) - std::ssize(expected)), kFewSamples);
  double likeness = 0;
  for (int lag = -kFewSamples; lag <= kFewSamples; ++lag) {
    likeness = std::max(likeness, Likeness(heard, expected, lag));
  }
  EXPECT_GT(likeness, 0.99);
}

/// A program directory with two exercises, a sound system, and a program that listens to them.
class ListenAloud : public testing::Test {
 protected:
  ListenAloud() {
    const std::filesystem::path clips = ProgramBeside("../bin/voice");
    std::filesystem::create_directories("voice/exercise");
    for (const char* clip : {"1", "set", "sets", "10", "kilograms", "for", "reps"}) {
      const std::string name = std::string(clip) + ".wav";
      copy_file(clips / name, "voice/" + name);
    }
    copy_file(clips / "exercise/Squat.WAV", "voice/exercise/Squat.WAV");
    std::filesystem::create_directory("temporary");
    state.ProgramDirectory = folder.Path();
    state.WorkoutFileName = kWorkout;
    state.Settings.IncludeWeightValues = kTrue;
    state.NumberOfExercises = 2;
    state.Workout[0].ExerciseName = "Squat";
    state.Workout[1].ExerciseName = kNewName;
  }

  ~ListenAloud() override {
    listener.closeWriteChannel();
    EXPECT_TRUE(listener.state() == QProcess::NotRunning || listener.waitForFinished(kLimit));
  }

  /// Squat grows from 5 to 10 today.
  void AddGrowingSet() {
    ExerciseRecord& exercise = state.Workout[0];
    exercise.NumberOfSets = 1;
    exercise.SetValue1[0] = 5;
    exercise.SetIncrement1[0] = 5;
    exercise.SetFrequency1[0] = 7;
  }

  void Start(const QProcessEnvironment& environment, const QString& output) {
    PutFile(std::string("workouts/") + kWorkout, EncodeWorkout(state.Workout));
    QProcessEnvironment all = environment;
    all.insert("TMPDIR", QString::fromStdString(folder.Path() + "temporary"));
    listener.setProcessEnvironment(all);
    listener.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    listener.start(QString::fromStdString(ProgramBeside("listen_aloud")),
                   {QString::fromStdString(folder.Path()), kWorkout, output});
  }

  void Say(const char* command) {
    listener.write(QByteArray(command) + "\n");
    listener.waitForBytesWritten(kLimit);
  }

  std::string NextLine() {
    while (!listener.canReadLine() && listener.waitForReadyRead(kLimit)) {
    }
    return listener.readLine().trimmed().toStdString();
  }

  /// The instruction of an exercise as it is in `state`, made as an update makes it.
  Samples Instruction(std::int16_t exercise) {
    QtChildProcesses processes;
    EngineSpeech speech(InstalledEngines(processes));
    RecordingRun run;
    GenerateHumanVoiceInstruction(state, exercise, "expected.wav", speech, run);
    return WithoutSilence(SamplesOf("expected.wav"));
  }

  bool IsClean() { return std::filesystem::is_empty("temporary"); }

  TemporaryFolder folder;
  ProgramState state;
  QProcess listener;
};

TEST_F(ListenAloud, TheChosenOutputPlaysTheInstructionOfToday) {
  AddGrowingSet();
  SoundServer server;
  const auto headphones = server.Record("Headphones");
  const auto loudspeaker = server.Record("Loudspeaker");
  Start(server.Environment(), "Headphones");

  Say("play 0");
  headphones->AwaitSound();
  EXPECT_EQ(NextLine(), "heard 0: \"Squat\" is heard.");
  EXPECT_EQ(NextLine(), "quiet:");
  headphones->AwaitQuiet();

  state.Workout[0].SetValue1[0] = 10;
  ExpectSame(WithoutSilence(headphones->Samples()), Instruction(0));
  loudspeaker->Await(1);
  EXPECT_THAT(loudspeaker->Samples(), Each(0));
  EXPECT_TRUE(IsClean());
}

TEST_F(ListenAloud, AStoppedInstructionIsCutAndTheNextIsHeardWhole) {
  AddGrowingSet();
  SoundServer server;
  const auto recording = server.Record("Loudspeaker");
  Start(server.Environment(), "Loudspeaker");

  Say("play 0");
  recording->AwaitSound();
  EXPECT_EQ(NextLine(), "heard 0: \"Squat\" is heard.");
  Say("stop");
  EXPECT_EQ(NextLine(), "quiet:");
  recording->AwaitQuiet();
  const Samples cut = WithoutSilence(recording->Samples());
  const std::size_t begin = recording->Samples().size();
  Say("next");
  recording->AwaitSound();
  EXPECT_THAT(NextLine(), HasSubstr("heard 1: The name \"Zercher Hop\" has no recording"));
  EXPECT_EQ(NextLine(), "heard 1: \"Zercher Hop\" is heard.");
  EXPECT_EQ(NextLine(), "quiet:");
  recording->AwaitQuiet();

  const Samples all = recording->Samples();
  EXPECT_FALSE(std::filesystem::exists("voice/exercise/Zercher Hop.WAV"));
  ExpectSame(WithoutSilence(Samples(all.begin() + static_cast<std::ptrdiff_t>(begin), all.end())),
             Instruction(1));
  state.Workout[0].SetValue1[0] = 10;
  EXPECT_LT(cut.size(), Instruction(0).size() / 2);
  EXPECT_TRUE(IsClean());
}

TEST_F(ListenAloud, AnOutputThatIsUnpluggedEndsTheSound) {
  AddGrowingSet();
  SoundServer server;
  const auto loudspeaker = server.Record("Loudspeaker");
  const auto headphones = server.Record("Headphones");
  Start(server.Environment(), "Headphones");
  Say("play 0");
  headphones->AwaitSound();
  EXPECT_EQ(NextLine(), "heard 0: \"Squat\" is heard.");
  server.Unplug("Headphones");
  EXPECT_EQ(NextLine(), "quiet: The audio output \"Headphones\" is not there any more.");
  Say("play 0");
  EXPECT_EQ(NextLine(), "quiet:");
  EXPECT_EQ(NextLine(), "refused: The audio output \"Headphones\" is not there any more.");
}

TEST_F(ListenAloud, ASoundSystemThatEndsIsTold) {
  AddGrowingSet();
  SoundServer server;
  const auto recording = server.Record("Loudspeaker");
  Start(server.Environment(), "Loudspeaker");
  Say("play 0");
  recording->AwaitSound();
  EXPECT_EQ(NextLine(), "heard 0: \"Squat\" is heard.");
  server.Kill();
  EXPECT_THAT(NextLine(), HasSubstr("quiet: The audio output \"Loudspeaker\""));
}

TEST_F(ListenAloud, ASoundSystemThatRefusesAPieceHoldsUpNothing) {
  AddGrowingSet();
  SoundServer server;
  QProcessEnvironment environment = server.Environment();
  environment.insert("REPVOLTA_SOUND_PIECES", "20");
  Start(environment, "Loudspeaker");
  Say("play 0");
  EXPECT_EQ(NextLine(), "heard 0: \"Squat\" is heard.");
  EXPECT_EQ(NextLine(), "quiet: The audio output \"Loudspeaker\" is not there any more.");
  Say("play 0");
  EXPECT_EQ(NextLine(), "quiet:");
}

TEST_F(ListenAloud, AComputerWithoutSoundSaysSo) {
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert("PULSE_SERVER", "unix:" + QString::fromStdString(folder.Path()) + "none");
  environment.insert("XDG_RUNTIME_DIR", QString::fromStdString(folder.Path()));
  Start(environment, "Loudspeaker");
  Say("play 0");
  EXPECT_EQ(NextLine(), "refused: This computer has no audio output.");
  EXPECT_TRUE(IsClean());
}

}  // namespace
}  // namespace repvolta
