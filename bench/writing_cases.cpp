#include <filesystem>
#include <taglib/fileref.h>
#include <taglib/tag.h>

#include "base/File.h"
#include "update/ProcessMP3tag.h"

#include "Operations.h"
#include "Suite.h"
#include "limits/Limits.h"

namespace repvolta::bench {
namespace {

namespace fs = std::filesystem;
using Files = std::vector<std::string>;

constexpr const char* kTarget = "copies";
constexpr int kJoinRounds = 20;

void EmptyTarget() {
  fs::remove_all(kTarget);
  fs::create_directory(kTarget);
}

std::string CopyOf(const std::string& song) {
  return std::string(kTarget) + "/" + fs::path(song).filename().string();
}

/// The limit only copies: it gets the start of each song's audio from these plans.
std::vector<TaggedCopy> PlansOf(const Files& songs) {
  std::vector<TaggedCopy> plans;
  for (const std::string& song : songs) {
    plans.push_back(PlanTaggedCopy(song, CopyOf(song), "Squats", "Monday.RPV").value());
  }
  return plans;
}

void CopyByLimit(const Files& songs, const std::vector<TaggedCopy>& plans) {
  for (std::size_t i = 0; i < songs.size(); ++i) {
    limits::CopyBehind(plans[i].tag, songs[i], plans[i].audioOffset, CopyOf(songs[i]));
  }
}

void CopyByTagLib(const Files& songs) {
  for (const std::string& song : songs) {
    fs::copy_file(song, CopyOf(song));
    TagLib::FileRef copy(CopyOf(song).c_str(), false);
    copy.tag()->setArtist("Repvolta");
    copy.tag()->setAlbum("Monday.RPV");
    copy.tag()->setTitle("RV002- Squats, 3 sets");
    copy.save();
  }
}

void CopyByCp(const Files& songs) {
  std::vector<std::string> command{"cp", "-t", kTarget};
  command.insert(command.end(), songs.begin(), songs.end());
  limits::RunProgram(command);
}

void RegisterKind(const Places& places, const std::string& kind) {
  const std::string folder = places.collection + "/copy/" + kind;
  const Files songs = FilesBelow(folder, ".mp3");
  const std::string row = "copy and tag, " + kind;
  const auto plans = PlansOf(songs);
  Register({row, "ours", EmptyTarget, Timed([=] { CopyAndTag(songs, kTarget); })});
  Register({row, "limit", EmptyTarget, Timed([=] { CopyByLimit(songs, plans); })});
  if (kind != "small") return;
  Register({row, "in two steps", EmptyTarget, Timed([=] { CopyThenTag(songs, kTarget); })});
  Register({row, "cp alone", EmptyTarget, Timed([=] { CopyByCp(songs); })});
  Register({row, "copy, TagLib", EmptyTarget, Timed([=] { CopyByTagLib(songs); })});
  Register({row, "copy, mutagen", EmptyTarget,
            SelfTimed({"/usr/bin/python3", places.peers + "/tag_files.py", folder, kTarget})});
}

std::string JoinTarget(int round) { return "joined" + std::to_string(round) + ".wav"; }

}  // namespace

void RegisterCopies(const Places& places) {
  for (const char* kind : {"none", "small", "picture", "footer", "id3v1"}) {
    RegisterKind(places, kind);
  }
}

void RegisterJoining(const Places& places) {
  const Files clips = SixtyClips(places.programs + "/voice");
  const auto begin = [=] {
    for (int i = 0; i < kJoinRounds; ++i) CopyFileOver(clips.front(), JoinTarget(i));
  };
  const auto rounds = [](const std::function<void(const std::string&)>& join) {
    return Timed([=] {
      for (int i = 0; i < kJoinRounds; ++i) join(JoinTarget(i));
    });
  };
  const std::string row = "joining 60 clips";
  Register(
      {row, "ours", begin, rounds([=](const std::string& target) { JoinClips(target, clips); })});
  Register({row, "limit", begin,
            rounds([=](const std::string& target) { limits::Join(target, clips); })});
  Register({row, "sox", begin, rounds([=](const std::string& target) {
              std::vector<std::string> command{"sox"};
              command.insert(command.end(), clips.begin(), clips.end());
              command.push_back(target);
              limits::RunProgram(command);
            })});
}

}  // namespace repvolta::bench
