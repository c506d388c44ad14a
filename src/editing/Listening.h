#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/Records.h"
#include "editing/EditedProgram.h"
#include "instruction/SpokenWords.h"
#include "platform/SoundPlayer.h"
#include "speech/BackgroundSpeech.h"
#include "speech/PrivateFolder.h"

namespace repvolta {

/// Lets a person hear the instruction of an exercise as an update of today would make it. Nothing
/// is changed or kept: values grow on a copy, and a name without a recording is spoken into a
/// private file.
class Listening {
 public:
  struct Services {
    SoundPlayer& player;
    BackgroundSpeech& speech;
    std::function<ChosenOutput()> output;  // the one that is chosen in AudioOutputCB
    std::function<int()> current;          // the exercise that is selected or edited
  };

  Listening(const EditedProgram& program, Services services);
  ~Listening();
  Listening(const Listening&) = delete;
  Listening& operator=(const Listening&) = delete;

  /// Plays the instruction of an exercise of the workout in memory, instead of what is heard, and
  /// returns at once. Throws SoundError, FileError or std::out_of_range when it cannot begin;
  /// what fails later is in Notice.
  void Play(int exercise);

  /// The same for the current exercise.
  void PlayCurrent() { Play(services_.current()); }

  /// The same for the exercise after the one that was heard last since another exercise became the
  /// current one, or else the one after the current; after the last comes the first.
  void PlayNext();

  void Stop();

  /// Stops if the exercise that is heard is not what it was when it began. Called after each
  /// command.
  void StopIfChanged();

  /// The exercise that is heard, or prepared to be; nothing while it is quiet.
  std::optional<int> Heard() const;

  /// What is happening or what went wrong, as a sentence; "" when there is nothing to say.
  const std::string& Notice() const { return notice_; }

  /// True when Notice says why an instruction was not heard.
  bool HasFailed() const { return hasFailed_; }

  using Watch = std::shared_ptr<const std::function<void()>>;

  /// `changed` is called after each change of Heard and Notice, until the result ends.
  [[nodiscard]] Watch OnChange(std::function<void()> changed);

 private:
  /// An exercise that must stay as it is while it is heard.
  struct Piece {
    std::string workout;
    int number = 0;
    ExerciseRecord exercise;

    bool operator==(const Piece&) const = default;
  };

  void Begin(const Piece& piece);
  void SpeakName(const std::string& name);
  void PlayJoined();
  void End(const std::string& failure);
  void Silence();
  void Tell(const std::string& notice);
  std::string Target() const;

  EditedProgram program_;
  Services services_;
  std::vector<std::weak_ptr<const std::function<void()>>> watchers_;
  std::optional<Piece> piece_;  // while it is heard or prepared
  SpokenInstruction said_;      // of today
  std::unique_ptr<PrivateFolder> folder_;
  std::string missing_;      // what could not be said
  std::optional<int> last_;  // the exercise that was heard last
  int currentAtLast_ = 0;    // the current exercise at that time
  std::string notice_;
  bool hasFailed_ = false;
};

}  // namespace repvolta
