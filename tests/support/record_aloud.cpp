#include <QGuiApplication>
#include <QSocketNotifier>
#include <exception>
#include <iostream>
#include <memory>
#include <sstream>
#include <string>

#include "base/WholeFile.h"
#include "clips/ClipMaker.h"
#include "clips/Take.h"
#include "clips/VoiceLevel.h"
#include "platform/desktop/DesktopMicrophone.h"

// Records words by the machine's sound system:
//   record_aloud VOICE
// Obeys the lines "inputs", "open INPUT" and "take CLIP", and prints a line for each thing that
// happens; a clip is as loud as those in the folder VOICE. Ends with its standard input.

namespace repvolta {
namespace {

void Print(const std::string& line) { std::cout << line << std::endl; }

class Recorder {
 public:
  explicit Recorder(std::string voice) : voice_(std::move(voice)) {}

  void Obey(const std::string& line) {
    std::istringstream words(line);
    std::string command;
    std::string name;
    words >> command >> name;
    try {
      if (command == "inputs") PrintInputs();
      if (command == "open") Open(name);
      if (command == "take") Start(name);
    } catch (const std::exception& error) {
      Print(std::string("refused: ") + error.what());
    }
  }

 private:
  void PrintInputs() {
    std::string line = "inputs:";
    for (const std::string& name : microphone_.Inputs()) line += " " + name;
    Print(line);
  }

  void Open(const std::string& name) {
    hasHeard_ = false;
    microphone_.Open(
        {.entry = 0, .name = name}, [this](std::span<const float> samples) { Hear(samples); },
        [](const std::string& reason) { Print("lost: " + reason); });
  }

  void Start(const std::string& clip) {
    clip_ = clip;
    take_ = std::make_unique<Take>(Microphone::kRate);
  }

  void Hear(std::span<const float> samples) {
    if (!hasHeard_) Print("heard");
    hasHeard_ = true;
    if (!take_) return;
    const TakeStage before = take_->Stage();
    take_->Add(samples);
    if (before == TakeStage::kRoom && take_->Stage() == TakeStage::kWaiting) Print("waiting");
    if (take_->HasEnded()) Finish(*std::exchange(take_, nullptr));
  }

  void Finish(const Take& take) const {
    const TakeJudgement judgement = take.Judgement();
    std::string line = "taken:";
    for (const TakeFault fault : judgement.faults) line += " " + AdviceOn(fault).happened;
    if (judgement.hasWord) {
      const Sound recording = take.Recording();
      WriteWholeFile(clip_, ClipOf(WholeSound(recording), LoudnessOfVoice(voice_)));
    }
    Print(line);
  }

  std::string voice_;
  DesktopMicrophone microphone_;
  bool hasHeard_ = false;
  std::string clip_;
  std::unique_ptr<Take> take_;
};

int Run(const std::string& voice) {
  Recorder recorder(voice);
  QSocketNotifier input(0, QSocketNotifier::Read);
  QObject::connect(&input, &QSocketNotifier::activated, [&recorder] {
    std::string line;
    if (std::getline(std::cin, line)) return recorder.Obey(line);
    QCoreApplication::quit();
  });
  return QCoreApplication::exec();
}

}  // namespace
}  // namespace repvolta

int main(int argc, char** argv) {
  QGuiApplication application(argc, argv);
  return argc == 2 ? repvolta::Run(argv[1]) : 2;
}
