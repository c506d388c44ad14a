#include "editing/RecordingSession.h"

#include <exception>
#include <utility>

#include "app/ProgramState.h"
#include "base/Days.h"
#include "base/FileNames.h"
#include "base/ProgramFiles.h"
#include "base/WholeFile.h"
#include "clips/ClipMaker.h"
#include "clips/ClipSound.h"
#include "clips/VoiceLevel.h"
#include "clips/Word.h"
#include "editing/ChangeClips.h"

namespace repvolta {
namespace {

constexpr const char* kTakeFile = "take.wav";
constexpr const char* kNoMicrophone = "Nothing can be recorded on this computer.";
constexpr const char* kGood = "Good.";
constexpr const char* kKept = "You have recorded this one.";
constexpr const char* kNoClip = "There is no clip of it yet.";

std::string Joined(const std::string& first, const std::string& second) {
  return first.empty() || second.empty() ? first + second : first + " " + second;
}

RecordPhase PhaseOf(TakeStage stage) {
  switch (stage) {
    case TakeStage::kRoom:
      return RecordPhase::kRoom;
    case TakeStage::kWaiting:
      return RecordPhase::kWaiting;
    case TakeStage::kWord:
      return RecordPhase::kRecording;
    case TakeStage::kEnded:
      break;
  }
  return RecordPhase::kAsking;
}

}  // namespace

RecordingSession::RecordingSession(const VoiceServices& services) : services_(services) {}

RecordingSession::~RecordingSession() { Stop(); }

void RecordingSession::Open(std::vector<WordToRecord> list) {
  Quiet();
  list_ = std::move(list);
  kept_.clear();
  loudness_.reset();
  GoTo(0);
  if (!isOpen_) OpenMicrophone();
  Tell();
}

void RecordingSession::Use(const ChosenInput& input) {
  input_ = input;
  if (std::exchange(take_, std::nullopt)) GoTo(at_);
  OpenMicrophone();
  Tell();
}

void RecordingSession::Stop() {
  Quiet();
  isOpen_ = false;
  if (services_.microphone != nullptr) services_.microphone->Close();
}

/// Ends what is recorded or heard; the microphone stays open.
void RecordingSession::Quiet() {
  take_.reset();
  services_.player.Stop();
}

void RecordingSession::GoTo(std::size_t at) {
  at_ = at;
  quality_ = TakeQuality::kNone;
  clip_.reset();
  verdict_ = kept_.contains(at) ? kKept : "";
  phase_ = at < list_.size() ? RecordPhase::kReady : RecordPhase::kDone;
  if (phase_ == RecordPhase::kDone || !Word().words.empty()) return;
  clip_ = EncodeWav(WordlessClip(), kClipFormat);
  quality_ = TakeQuality::kGood;
  phase_ = RecordPhase::kAsking;
}

/// A word can be looked at without a microphone.
void RecordingSession::OpenMicrophone() {
  isOpen_ = false;
  try {
    if (services_.microphone == nullptr) throw SoundError(kNoMicrophone);
    services_.microphone->Open(
        input_, [this](std::span<const float> samples) { Hear(samples); },
        [this](const std::string& reason) { Lose(reason); });
    isOpen_ = true;
  } catch (const SoundError& error) {
    noMicrophone_ = error.what();
  }
}

void RecordingSession::StartOrStop() {
  switch (phase_) {
    case RecordPhase::kDone:
      return;
    case RecordPhase::kRoom:
    case RecordPhase::kWaiting:
      take_.reset();
      GoTo(at_);
      break;
    case RecordPhase::kRecording:
      take_->End();
      EndTake();
      break;
    case RecordPhase::kReady:
    case RecordPhase::kPlaying:
    case RecordPhase::kAsking:
      Begin();
      break;
  }
  Tell();
}

/// Without a microphone nothing that was recorded is lost.
void RecordingSession::Begin() {
  Quiet();
  if (phase_ == RecordPhase::kPlaying) phase_ = PhaseOfSilence();
  if (!isOpen_) OpenMicrophone();
  if (!isOpen_) return;
  quality_ = TakeQuality::kNone;
  clip_.reset();
  verdict_.clear();
  take_.emplace(Microphone::kRate);
  phase_ = PhaseOf(take_->Stage());
}

/// One that opens can still be broken: only what is heard shows that it is there again.
void RecordingSession::Hear(std::span<const float> samples) {
  meter_.Add(samples);
  if (level_) level_(meter_.Level().peak);
  const bool isBack = !std::exchange(noMicrophone_, {}).empty();
  if (AddToTake(samples) || isBack) Tell();
}

/// True when that changes the phase.
bool RecordingSession::AddToTake(std::span<const float> samples) {
  if (!take_) return false;
  take_->Add(samples);
  if (take_->HasEnded()) {
    EndTake();
    return true;
  }
  return PhaseOf(take_->Stage()) != std::exchange(phase_, PhaseOf(take_->Stage()));
}

void RecordingSession::Lose(const std::string& reason) {
  isOpen_ = false;
  if (level_) level_(kLowestLevel);
  const bool isNew = std::exchange(noMicrophone_, reason) != reason;
  const bool isInTake = std::exchange(take_, std::nullopt).has_value();
  if (isInTake) GoTo(at_);
  if (isNew || isInTake) Tell();
}

void RecordingSession::EndTake() {
  const Take take = *std::exchange(take_, std::nullopt);
  Judge(take.Judgement());
  phase_ = RecordPhase::kAsking;
  if (quality_ == TakeQuality::kNothingHeard) return;
  MakeClipOf(take);
  if (quality_ == TakeQuality::kGood) Play();
}

/// The most serious fault is the one to begin with.
void RecordingSession::Judge(const TakeJudgement& judgement) {
  quality_ = TakeQuality::kGood;
  verdict_ = kGood;
  if (!judgement.faults.empty()) {
    const TakeAdvice advice = AdviceOn(judgement.faults.front());
    verdict_ = Joined(advice.happened, advice.remedy);
    quality_ = TakeQuality::kFaulty;
  }
  if (!judgement.hasWord) quality_ = TakeQuality::kNothingHeard;
}

void RecordingSession::MakeClipOf(const Take& take) {
  try {
    const Sound recording = take.Recording();
    if (!loudness_) loudness_ = LoudnessOfVoice(VoiceOfClip(kClipFolder + Word().file));
    clip_ = ClipOf(WholeSound(recording), *loudness_);
  } catch (const std::exception& error) {
    quality_ = TakeQuality::kNothingHeard;
    verdict_ = error.what();
  }
}

void RecordingSession::Listen() {
  if (take_ || phase_ == RecordPhase::kDone) return;
  Quiet();
  Play();
  Tell();
}

/// The take, or else the clip that is there; "" when there is none.
std::string RecordingSession::FileToHear() {
  if (!clip_) return FindFile(kClipFolder + Word().file).value_or("");
  std::string file = folder_.Path() + kTakeFile;
  WriteWholeFile(file, *clip_);
  return file;
}

void RecordingSession::Play() {
  try {
    const std::string file = FileToHear();
    if (file.empty()) {
      verdict_ = kNoClip;
      return;
    }
    services_.player.Play(file, services_.output(),
                          [this](const std::string& failure) { EndPlaying(failure); });
    phase_ = RecordPhase::kPlaying;
  } catch (const std::exception& error) {
    EndPlaying(error.what());
  }
}

RecordPhase RecordingSession::PhaseOfSilence() const {
  return clip_ ? RecordPhase::kAsking : RecordPhase::kReady;
}

/// What cannot be heard can be kept all the same.
void RecordingSession::EndPlaying(const std::string& failure) {
  phase_ = PhaseOfSilence();
  verdict_ = Joined(verdict_, failure);
  Tell();
}

void RecordingSession::Keep() {
  if (!clip_ || take_) return;
  services_.player.Stop();
  phase_ = RecordPhase::kAsking;
  try {
    PutInPlace();
    kept_.insert(at_);
    GoTo(at_ + 1);
    if (next_ == NextWord::kStartsByItself && phase_ == RecordPhase::kReady) Begin();
  } catch (const std::exception& error) {
    verdict_ = error.what();
  }
  Tell();
}

void RecordingSession::PutInPlace() {
  const EditedProgram& program = services_.editor.program;
  const ClipOrigin origin{
      .owner = ClipOwner::kOwn, .day = IsoDate(program.clock.Today()), .text = "", .voice = ""};
  ChangeClips(program, {.clips = {{Word().file, *clip_, origin}}});
}

void RecordingSession::Next() {
  if (phase_ == RecordPhase::kDone) return;
  Quiet();
  GoTo(at_ + 1);
  Tell();
}

void RecordingSession::Back() {
  if (at_ == 0) return;
  Quiet();
  GoTo(at_ - 1);
  Tell();
}

RecordView RecordingSession::View() const {
  return ViewOf({.phase = phase_,
                 .words = phase_ == RecordPhase::kDone ? "" : Word().words,
                 .at = at_,
                 .count = list_.size(),
                 .kept = kept_.size(),
                 .take = quality_,
                 .verdict = verdict_,
                 .noMicrophone = noMicrophone_});
}

void RecordingSession::Tell() const {
  if (changed_) changed_();
}

}  // namespace repvolta
