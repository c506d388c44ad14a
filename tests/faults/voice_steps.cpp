#include <cstdio>
#include <exception>
#include <map>
#include <string>

#include "base/Text.h"
#include "update/RestoreAtStart.h"
#include "voices/ChangeOfVoice.h"
#include "voices/ReadVoice.h"
#include "voices/VoiceStage.h"
#include "voices/WriteVoice.h"

// Does one step with whole voices in the current folder, a program directory, so that the tests can
// let its calls fail: voice_steps STEP. "../own/" has the program's voice.

namespace repvolta {
namespace {

const VoicesHere kHere{.programVoice = "../own/", .inUse = ""};

void TakeIn() {
  VoiceStage stage;
  const auto add = [&](const std::string& clip, std::span<const Byte> content) {
    stage.Add(clip, content);
  };
  static_cast<void>(ReadVoiceArchive("../new.zip", {.take = add}));
  stage.Commit("Sam", {});
}

void Use() {
  ChangeOfVoice plan =
      PlanChangeOfVoice(kHere, {.voice = "Kim", .day = "2026-11-22", .loudness = {}});
  const std::string options = "voice-in-use = Kim\n";
  plan.change.files.push_back({"options.conf", Bytes(options.begin(), options.end())});
  PutClips("", plan.change);
}

/// More than a small disk has room for.
void Keep() {
  PutClips("", {.clips = {{.file = "1.wav",
                           .content = Bytes(std::size_t{1} << 20, 'r'),
                           .origin = {.owner = ClipOwner::kOwn}}}});
}

void WriteArchive() {
  static_cast<void>(
      WriteVoiceArchive(ClipsOfVoice(kHere, "Kim", ClipsToWrite::kOwn), "Kim", "../out/k.zip", {}));
}

void WriteFolder() {
  WriteVoiceFolder(ClipsOfVoice(kHere, "Kim", ClipsToWrite::kOwn), "../out/k", {});
}

void Finish() { FinishInterruptedRestore(""); }

void Run(const std::string& step) {
  const std::map<std::string, void (*)()> steps = {{"take-in", TakeIn},
                                                   {"use", Use},
                                                   {"keep", Keep},
                                                   {"write-archive", WriteArchive},
                                                   {"write-folder", WriteFolder},
                                                   {"finish", Finish}};
  steps.at(step)();
}

}  // namespace
}  // namespace repvolta

int main(int argc, char** argv) {
  try {
    if (argc != 2) return 2;
    repvolta::Run(argv[1]);
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "voice_steps: %s\n", repvolta::ShownOnOneLine(error.what()).c_str());
    return 1;
  }
}
