#include <QProcess>
#include <cmath>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <vector>

#include "clips/ClipSound.h"
#include "clips/VoiceLevel.h"
#include "sound/WavReader.h"

#include "support/MixedSound.h"
#include "support/ProgramsBeside.h"
#include "support/SoundServer.h"
#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

using testing::HasSubstr;

constexpr int kLimit = 30000;       // milliseconds
constexpr double kQuietRoom = -75;  // dBFS
constexpr double kUsual = -12;      // dBFS, the peak of a word
constexpr const char* kModel = "/usr/share/pocketsphinx/model/en-us/";
const WavFormat kCompactDisc{.rate = 44100, .bits = 16, .channels = 1};

void Run(const QString& program, const QStringList& arguments) {
  QProcess process;
  process.start(program, arguments);
  EXPECT_TRUE(process.waitForFinished(kLimit));
  EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
}

/// What a person says.
Sound Spoken(const std::string& words, double peak = kUsual) {
  Run("flite", {"-voice", "slt", "-t", QString::fromStdString(words), "-o", "spoken.wav"});
  return AtPeak(ReadWav(GetFile("spoken.wav")), peak);
}

void PutRecording(const std::string& file, const Sound& sound) {
  PutFile(file, EncodeWav(sound, kCompactDisc));
}

/// What a recogniser hears in clips that are joined. It accepts the given words in any order.
std::string Recognised(const std::vector<std::string>& clips, const std::string& vocabulary) {
  Bytes all;
  for (const std::string& clip : clips) {
    const Bytes file = GetFile(clip);
    all.insert(all.end(), file.begin() + kWavHeaderSize, file.end());
  }
  PutFile("clips.raw", all);
  PutFile("list", std::string("clips\n"));
  PutFile("words.gram",
          "#JSGF V1.0;\ngrammar words;\npublic <words> = ( " + vocabulary + " )+ ;\n");
  Run("pocketsphinx_batch",
      {"-hmm", QString(kModel) + "en-us", "-dict", QString(kModel) + "cmudict-en-us.dict", "-jsgf",
       "words.gram", "-adcin", "yes", "-cepdir", ".", "-cepext", ".raw", "-ctl", "list", "-hyp",
       "heard"});
  std::ifstream heard("heard");
  std::string line;
  std::getline(heard, line);
  return line.substr(0, line.find(" ("));
}

/// A sound system with a microphone in a room, and a program that records.
class RecordAloud : public testing::Test {
 protected:
  ~RecordAloud() override {
    recorder.closeWriteChannel();
    EXPECT_TRUE(recorder.state() == QProcess::NotRunning || recorder.waitForFinished(kLimit));
  }

  void Start() {
    recorder.setProcessEnvironment(server.Environment());
    recorder.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    recorder.start(QString::fromStdString(ProgramBeside("record_aloud")),
                   {QString::fromStdString(voice)});
  }

  void Say(const char* command) {
    recorder.write(QByteArray(command) + "\n");
    recorder.waitForBytesWritten(kLimit);
  }

  std::string NextLine() {
    while (!recorder.canReadLine() && recorder.waitForReadyRead(kLimit)) {
    }
    return recorder.readLine().trimmed().toStdString();
  }

  /// A microphone is open in a room that sounds like this.
  void OpenIn(const Sound& room) {
    server.PlugMicrophone("Microphone");
    PutRecording("room.wav", room);
    server.PlayTo("Microphone", "room.wav");
    Start();
    Say("open Microphone");
    EXPECT_EQ(NextLine(), "heard");
  }

  /// Says a word in a take. Returns what came out.
  std::string Take(const Sound& word, const std::string& clip) {
    PutRecording(clip + ".said", word);
    Say(("take " + clip).c_str());
    EXPECT_EQ(NextLine(), "waiting");
    server.PlayTo("Microphone", clip + ".said");
    return NextLine();
  }

  TemporaryFolder folder;
  std::string voice = ProgramBeside("../bin/voice");
  SoundServer server;
  QProcess recorder;
};

TEST_F(RecordAloud, SpokenWordsBecomeClipsThatAreUnderstoodAndAsLoudAsTheirNeighbours) {
  OpenIn(Noise(40, kQuietRoom));
  const std::vector<std::string> clips = {"3.wav", "sets.wav", "50.wav", "kilograms.wav"};
  EXPECT_EQ(Take(Spoken("three"), clips[0]), "taken:");
  EXPECT_EQ(Take(Spoken("sets"), clips[1]), "taken:");
  EXPECT_EQ(Take(Spoken("fifty", -20), clips[2]), "taken:");
  EXPECT_EQ(Take(Spoken("kilograms", -4), clips[3]), "taken:");
  for (const std::string& clip : clips) {
    const std::vector<Sound> sound = {ReadWav(GetFile(clip))};
    EXPECT_NEAR(JoinedLoudness(sound), LoudnessOfVoice(voice), 1) << clip;
  }
  EXPECT_EQ(Recognised(clips, "three | five | sets | set | fifty | fifteen | kilograms | pounds"),
            "three sets fifty kilograms");
}

TEST_F(RecordAloud, AMutedMicrophoneIsTold) {
  server.PlugMicrophone("Microphone");
  Start();
  Say("open Microphone");
  EXPECT_EQ(NextLine(), "heard");
  Say("take nothing.wav");
  EXPECT_EQ(NextLine(), "waiting");
  EXPECT_EQ(NextLine(), "taken: The microphone gives no sound at all.");
}

TEST_F(RecordAloud, ANoisyRoomIsTold) {
  OpenIn(Noise(10, -38));
  EXPECT_EQ(Take(Spoken("kilograms"), "clip.wav"), "taken: The room is too noisy.");
}

TEST_F(RecordAloud, AHumIsTold) {
  Sound room = Noise(10, kQuietRoom);
  Mix(room, Hum(10, 50, -38), 0);
  OpenIn(room);
  EXPECT_EQ(Take(Spoken("kilograms"), "clip.wav"),
            "taken: A hum of the mains is heard behind the word.");
}

TEST_F(RecordAloud, AWordThatIsTooLoudIsTold) {
  OpenIn(Noise(10, kQuietRoom));
  EXPECT_EQ(Take(Spoken("kilograms", 9), "clip.wav"),
            "taken: It was too loud, so that it is distorted.");
}

TEST_F(RecordAloud, TheInputsAreMicrophonesOnly) {
  server.PlugMicrophone("Microphone");
  server.PlugMicrophone("Headset");
  Start();
  Say("inputs");
  EXPECT_EQ(NextLine(), "inputs: Microphone Headset");
}

TEST_F(RecordAloud, AMicrophoneThatIsUnpluggedIsToldAlthoughThereIsAnother) {
  server.PlugMicrophone("Headset");
  OpenIn(Noise(10, kQuietRoom));
  server.Unplug("Microphone");
  EXPECT_EQ(NextLine(), "lost: The microphone \"Microphone\" is not there any more.");
  Say("open Microphone");
  EXPECT_EQ(NextLine(), "refused: The microphone \"Microphone\" is not there any more.");
  Say("open Headset");
  EXPECT_EQ(NextLine(), "heard");
}

TEST_F(RecordAloud, AMicrophoneWithoutAnySoundIsTold) {
  server.PlugDeadMicrophone("Microphone");
  Start();
  Say("open Microphone");
  EXPECT_EQ(NextLine(), "lost: The microphone \"Microphone\" does not give any sound.");
}

TEST_F(RecordAloud, ASoundSystemThatEndsIsTold) {
  OpenIn(Noise(10, kQuietRoom));
  server.Kill();
  EXPECT_THAT(NextLine(), HasSubstr("lost: The microphone \"Microphone\""));
}

TEST_F(RecordAloud, ASoundSystemThatHangsIsToldAndHoldsUpNothing) {
  OpenIn(Noise(10, kQuietRoom));
  server.Hang();
  EXPECT_EQ(NextLine(), "lost: The microphone \"Microphone\" is not there any more.");
}

TEST_F(RecordAloud, AComputerWithoutAMicrophoneSaysSo) {
  Start();
  Say("open Microphone");
  EXPECT_EQ(NextLine(), "refused: This computer has no microphone.");
}

}  // namespace
}  // namespace repvolta
