#include "editing/Listening.h"

#include <algorithm>
#include <exception>
#include <stdexcept>
#include <utility>

#include "base/File.h"
#include "editing/MissingWords.h"
#include "instruction/Clips.h"
#include "instruction/VoiceInstruction.h"
#include "update/Growth.h"

namespace repvolta {
namespace {

ExerciseRecord Grown(ExerciseRecord exercise, double today) {
  for (const SetGrowth& growth : GrowthOn(exercise, today)) Apply(growth, exercise);
  return exercise;
}

const Clip* NameOf(const SpokenInstruction& said) {
  const auto name = std::find_if(said.clips.begin(), said.clips.end(),
                                 [](const Clip& clip) { return clip.kind == Clip::Kind::kName; });
  return name == said.clips.end() ? nullptr : &*name;
}

std::string WithEnd(std::string sentence) {
  if (!sentence.empty() && sentence.back() != '.') sentence += '.';
  return sentence;
}

}  // namespace

Listening::Listening(const EditedProgram& program, Services services)
    : program_(program), services_(std::move(services)) {}

Listening::~Listening() { Silence(); }

std::optional<int> Listening::Heard() const {
  return piece_ ? std::optional(piece_->number) : std::nullopt;
}

void Listening::Play(int exercise) {
  Stop();
  const ProgramState& state = program_.state;
  if (exercise < 0 || exercise >= state.NumberOfExercises) {
    throw std::out_of_range("There is no exercise that could be heard.");
  }
  try {
    Begin({state.WorkoutFileName, exercise, state.Workout[exercise]});
  } catch (...) {
    Silence();
    throw;
  }
}

void Listening::Begin(const Piece& piece) {
  MakeProgramDirectoryCurrent(program_.state);
  said_ = ClipsFor(program_.state.Settings, Grown(piece.exercise, program_.clock.Today()));
  missing_.clear();
  folder_ = std::make_unique<PrivateFolder>();
  piece_ = piece;
  last_ = piece.number;
  currentAtLast_ = services_.current();
  const Clip* name = NameOf(said_);
  const std::string clip = name ? ClipFile(*name) : "";
  if (name && !FileExists(clip)) {
    SpeakName(name->text);
  } else {
    if (name) CopyFileOver(clip, Target());
    PlayJoined();
  }
}

void Listening::SpeakName(const std::string& name) {
  services_.speech.Speak(SpeechOf(program_.state.Voice, name, Target()),
                         [this](const std::string& failure) {
                           if (!failure.empty()) return End(failure);
                           try {
                             PlayJoined();
                           } catch (const std::exception& error) {
                             End(error.what());
                           }
                         });
  Tell("The name \"" + name + "\" has no recording; it is being spoken.");
}

/// The target begins with the name already.
void Listening::PlayJoined() {
  MissingWords missing;
  JoinClips(said_.clips, Target(), [](const Clip&) {}, missing);
  missing_ = missing.Text();
  if (!said_.failure.empty()) missing_ += (missing_.empty() ? "" : " ") + WithEnd(said_.failure);
  services_.player.Play(Target(), services_.output(),
                        [this](const std::string& failure) { End(failure); });
  const std::string name = piece_->exercise.ExerciseName.Trimmed();
  Tell("\"" + name + "\" is heard." + (missing_.empty() ? "" : " " + missing_));
}

void Listening::End(const std::string& failure) {
  Silence();
  hasFailed_ = !failure.empty();
  Tell(hasFailed_ ? WithEnd(failure) : missing_);
}

void Listening::PlayNext() {
  const int current = services_.current();
  const int after = (last_ && currentAtLast_ == current ? *last_ : current) + 1;
  Play(after < program_.state.NumberOfExercises ? after : 0);
}

void Listening::Stop() {
  const bool hadSomething = piece_ || !notice_.empty();
  Silence();
  hasFailed_ = false;
  if (hadSomething) Tell("");
}

void Listening::StopIfChanged() {
  if (!piece_) return;
  const ProgramState& state = program_.state;
  const bool isThere = piece_->number < state.NumberOfExercises;
  if (!isThere || piece_->workout != state.WorkoutFileName ||
      piece_->exercise != state.Workout[piece_->number]) {
    Stop();
  }
}

void Listening::Silence() {
  services_.speech.Stop();
  services_.player.Stop();
  piece_.reset();
  folder_.reset();
}

void Listening::Tell(const std::string& notice) {
  notice_ = notice;
  std::erase_if(watchers_, [](const auto& watcher) { return watcher.expired(); });
  for (const auto& watcher : std::vector(watchers_)) {
    if (const Watch watch = watcher.lock()) (*watch)();
  }
}

Listening::Watch Listening::OnChange(std::function<void()> changed) {
  Watch watch = std::make_shared<const std::function<void()>>(std::move(changed));
  watchers_.emplace_back(watch);
  return watch;
}

std::string Listening::Target() const { return folder_->Path() + kSpokenSoundFile; }

}  // namespace repvolta
