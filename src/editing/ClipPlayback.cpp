#include "editing/ClipPlayback.h"

#include <exception>
#include <utility>

#include "base/ProgramFiles.h"
#include "editing/MissingWords.h"
#include "editing/SpokenSentence.h"

namespace repvolta {
namespace {

std::string UnsaidText(const std::vector<std::string>& unsaid) {
  std::string text;
  for (const std::string& word : unsaid) text += (text.empty() ? "\"" : ", \"") + word + "\"";
  return text.empty() ? "" : "There is no clip for " + text + ".";
}

std::string Joined(const std::string& first, const std::string& second) {
  return first + (first.empty() || second.empty() ? "" : " ") + second;
}

}  // namespace

ClipPlayback::ClipPlayback(const VoiceServices& services, std::function<void()> changed)
    : services_(services), changed_(std::move(changed)) {}

ClipPlayback::~ClipPlayback() { Silence(); }

void ClipPlayback::PlayClip(const std::string& file, const std::string& said) {
  Silence();
  remark_.clear();
  try {
    MakeProgramDirectoryCurrent(services_.editor.State());
    Begin(kClipFolder + file, file, "\"" + said + "\" is heard.");
  } catch (const std::exception& error) {
    Tell(error.what());
  }
}

void ClipPlayback::PlaySentence(const std::vector<Clip>& clips,
                                const std::vector<std::string>& unsaid) {
  Silence();
  remark_ = UnsaidText(unsaid);
  if (clips.empty()) {
    Tell(Joined(remark_, unsaid.empty() ? "Type the words that are to be heard." : ""));
    return;
  }
  try {
    MakeProgramDirectoryCurrent(services_.editor.State());
    folder_ = std::make_unique<PrivateFolder>();
    const std::string target = folder_->Path() + kSpokenSoundFile;
    MissingWords missing;
    JoinSentence(clips, target, missing);
    remark_ = Joined(remark_, missing.Text());
    Begin(target, "", Joined("The sentence is heard.", remark_));
  } catch (const std::exception& error) {
    Silence();
    Tell(error.what());
  }
}

void ClipPlayback::Begin(const std::string& file, const std::string& heard,
                         const std::string& notice) {
  services_.player.Play(file, services_.output(), [this](const std::string& failure) {
    Silence();
    Tell(failure.empty() ? remark_ : failure);
  });
  isPlaying_ = true;
  heard_ = heard;
  Tell(notice);
}

void ClipPlayback::Stop() {
  Silence();
  Tell("");
}

void ClipPlayback::Silence() {
  services_.player.Stop();
  isPlaying_ = false;
  heard_.clear();
  folder_.reset();
}

void ClipPlayback::Tell(const std::string& notice) {
  notice_ = notice;
  changed_();
}

}  // namespace repvolta
