#include "editing/SayDifferently.h"

#include <algorithm>
#include <exception>
#include <map>
#include <utility>

#include "base/Days.h"
#include "base/FileNames.h"
#include "base/ProgramFiles.h"
#include "base/Text.h"
#include "base/WholeFile.h"
#include "clips/ClipMaker.h"
#include "clips/VoiceLevel.h"
#include "clips/WordClips.h"
#include "editing/ChangeClips.h"
#include "editing/VoiceTexts.h"
#include "sound/WavReader.h"
#include "voices/KeptRecordings.h"

namespace repvolta {
namespace {

constexpr std::size_t kLongestSpeech = std::size_t{64} << 20;  // bytes
constexpr int kFullVolume = 100;

/// The names by their files, without regard to case.
using Names = std::map<std::u32string, SayableName>;

void Add(const std::string& name, Names& names) {
  const std::string file = kNameClipSubfolder + AsFileName(name, kNameClipExtension);
  if (!name.empty()) names.emplace(FoldCase(file), SayableName{.file = file, .name = name});
}

void AddClip(const std::string& file, Names& names) {
  const std::string words = WordsOfClip(file);
  names.emplace(FoldCase(file),
                SayableName{.file = file, .name = words.empty() ? BaseName(file) : words});
}

}  // namespace

std::vector<SayableName> SayableNames(const ProgramState& state, const std::string& clip) {
  Names names;
  for (int i = 0; i < state.NumberOfExercises; ++i) {
    Add(state.Workout[i].ExerciseName.Trimmed(), names);
  }
  for (const std::string& file : ListFiles(kNameClipFolder, kNameClipExtension)) {
    AddClip(kNameClipSubfolder + file, names);
  }
  if (!clip.empty()) AddClip(clip, names);
  std::vector<SayableName> sorted;
  sorted.reserve(names.size());
  for (auto& [key, name] : names) sorted.push_back(std::move(name));
  std::ranges::sort(sorted, {}, [](const SayableName& name) { return FoldCase(name.name); });
  return sorted;
}

SayDifferently::SayDifferently(const VoiceServices& services, std::function<void()> changed)
    : services_(services),
      changed_(std::move(changed)),
      voices_(services.editor.program.speech.VoiceNames()),
      notice_(NoticeOfNotes(Origins().Fault())) {}

SayDifferently::~SayDifferently() { Silence(); }

ClipOrigins SayDifferently::Origins() const {
  return ClipOrigins(services_.editor.State().ProgramDirectory, UnreadNotes::kAreMissed);
}

WayToSay SayDifferently::LastWayOf(const SayableName& name) const {
  const VoiceState& chosen = services_.editor.State().Voice;
  WayToSay way{.text = name.name, .voice = chosen.Voice, .rate = chosen.Rate};
  const auto last = Origins().LastSpoken(name.file);
  if (!last || last->text.empty()) return way;
  way.text = last->text;
  way.rate = last->rate;
  const auto voice = std::ranges::find(voices_, last->voice);
  if (voice != voices_.end()) way.voice = static_cast<int>(voice - voices_.begin());
  return way;
}

void SayDifferently::Listen(const SayableName& name, const WayToSay& way) {
  Begin({name, way}, &SayDifferently::Play);
}

void SayDifferently::Keep(const SayableName& name, const WayToSay& way) {
  Begin({name, way}, &SayDifferently::Put);
}

void SayDifferently::Begin(const Task& task, Next next) {
  Silence();
  task_ = task;
  task_.way.text = TrimBlanks(task.way.text);
  if (task_.way.text.empty()) return End("Type how it is to be said.");
  Attempted([&] {
    MakeProgramDirectoryCurrent(services_.editor.State());
    if (spoken_ == task_) return (this->*next)();
    Speak(next);
  });
}

void SayDifferently::Speak(Next next) {
  spoken_.reset();
  if (!folder_) folder_ = std::make_unique<PrivateFolder>();
  isBusy_ = true;
  notice_ = "\"" + task_.way.text + "\" is being spoken.";
  services_.speech.Speak({.text = task_.way.text,
                          .file = Target(),
                          .voice = task_.way.voice,
                          .rate = task_.way.rate,
                          .volume = kFullVolume,
                          .format = VoiceState().Format},
                         [this, next](const std::string& failure) {
                           isBusy_ = false;
                           if (!failure.empty()) return End(failure);
                           Attempted([&] {
                             MakeProgramDirectoryCurrent(services_.editor.State());
                             TakeSpoken();
                             (this->*next)();
                           });
                         });
  changed_();
}

void SayDifferently::TakeSpoken() {
  const Bytes speech = ReadWholeFile(Target(), kLongestSpeech);
  clip_ = ClipOf(WavSource(speech), LoudnessOfVoice(kClipFolder));
  spoken_ = task_;
}

void SayDifferently::Play() {
  WriteWholeFile(Target(), clip_);
  services_.player.Play(Target(), services_.output(), [this](const std::string& failure) {
    isBusy_ = false;
    End(failure);
  });
  isBusy_ = true;
  notice_ = "\"" + task_.way.text + "\" is heard.";
  changed_();
}

void SayDifferently::Put() {
  const auto voice = static_cast<std::size_t>(std::max(task_.way.voice, 0));
  ClipChange change;
  change.clips.push_back({.file = task_.name.file,
                          .content = clip_,
                          .origin = {.owner = ClipOwner::kComputer,
                                     .day = IsoDate(services_.editor.program.clock.Today()),
                                     .text = task_.way.text,
                                     .voice = voice < voices_.size() ? voices_[voice] : "",
                                     .rate = task_.way.rate}});
  const bool hadRecording = KeepRecordings("", change) > 0;
  ChangeClips(services_.editor.program, change);
  End("\"" + task_.name.name + "\" is said so from now on" +
      (hadRecording ? "; your recording is kept in the voice \"" + VoiceOfKept(change) + "\""
                    : ""));
}

void SayDifferently::Attempted(const std::function<void()>& step) {
  try {
    step();
  } catch (const std::exception& error) {
    Silence();
    End(error.what());
  }
}

void SayDifferently::Stop() {
  Silence();
  End("");
}

void SayDifferently::End(const std::string& notice) {
  notice_ = notice;
  if (!notice_.empty() && notice_.back() != '.') notice_ += '.';
  changed_();
}

void SayDifferently::Silence() {
  services_.speech.Stop();
  services_.player.Stop();
  isBusy_ = false;
}

std::string SayDifferently::Target() const { return folder_->Path() + kSpokenSoundFile; }

}  // namespace repvolta
