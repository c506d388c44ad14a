#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/ClipOrigins.h"
#include "base/Bytes.h"
#include "editing/VoiceServices.h"
#include "speech/PrivateFolder.h"

namespace repvolta {

/// A name, or a word, that can be said in another way.
struct SayableName {
  std::string file;  // its clip, below the clip folder: "exercise/OHP.WAV"
  std::string name;  // as it is written

  bool operator==(const SayableName&) const = default;
};

/// The names of the workout in memory and of all clips, in name order, each once without regard to
/// case; also `clip`, a file below the clip folder, unless that is "". The program directory must
/// be current. Throws FileError.
std::vector<SayableName> SayableNames(const ProgramState& state, const std::string& clip);

/// How the computer is to say a name.
struct WayToSay {
  std::string text;
  int voice = 0;          // position in the list of voices
  std::int16_t rate = 0;  // -10 .. 10

  bool operator==(const WayToSay&) const = default;
};

/// "Say It Differently": has a name spoken in the background and puts that in the place of its
/// clip. Until Keep, nothing is changed.
class SayDifferently {
 public:
  /// `services` must outlive this. `changed` is called when something begins or ends.
  SayDifferently(const VoiceServices& services, std::function<void()> changed);
  ~SayDifferently();
  SayDifferently(const SayDifferently&) = delete;
  SayDifferently& operator=(const SayDifferently&) = delete;

  const std::vector<std::string>& Voices() const { return voices_; }

  /// How the computer spoke the name last; where that is not known, the name itself with the chosen
  /// voice and rate.
  WayToSay LastWayOf(const SayableName& name) const;

  /// Has it spoken, unless it just was, and plays it as it would be kept. Does not throw: Notice
  /// says what failed.
  void Listen(const SayableName& name, const WayToSay& way);

  /// Has it spoken, unless it just was, and puts it in the place of the clip, as loud as the
  /// others; a person's own recording is kept as a clip of another voice. Does not throw.
  void Keep(const SayableName& name, const WayToSay& way);

  void Stop();

  /// True while it is spoken or heard.
  bool IsBusy() const { return isBusy_; }

  /// What is happening or what went wrong, as a sentence; "" when there is nothing to say.
  const std::string& Notice() const { return notice_; }

 private:
  struct Task {
    SayableName name;
    WayToSay way;

    bool operator==(const Task&) const = default;
  };
  using Next = void (SayDifferently::*)();

  ClipOrigins Origins() const;
  void Begin(const Task& task, Next next);
  void Speak(Next next);
  void TakeSpoken();
  void Play();
  void Put();
  void Attempted(const std::function<void()>& step);
  void End(const std::string& notice);
  void Silence();
  std::string Target() const;

  const VoiceServices& services_;
  std::function<void()> changed_;
  std::vector<std::string> voices_;
  std::unique_ptr<PrivateFolder> folder_;
  Task task_;
  std::optional<Task> spoken_;  // what clip_ says
  Bytes clip_;
  std::string notice_;
  bool isBusy_ = false;
};

}  // namespace repvolta
