#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "update/MusicListing.h"

#include "Operations.h"

// Does one kind of work and prints its cost, one figure a line:
//
//   repvolta_operations OPERATION [ARGUMENT ...]
//
// reads, writes: system calls; read, written: their bytes; memory: the largest number of bytes that
// the process held; seconds.

namespace repvolta::bench {
namespace {

using Arguments = std::vector<std::string>;
using Figures = std::map<std::string, long>;

/// The figures of a file of "name: number" lines.
Figures ReadFigures(const char* path) {
  std::ifstream file(path);
  Figures figures;
  for (std::string line; std::getline(file, line);) {
    const std::size_t colon = line.find(':');
    if (colon != std::string::npos) {
      figures[line.substr(0, colon)] = std::strtol(line.c_str() + colon + 1, nullptr, 10);
    }
  }
  return figures;
}

Arguments Behind(const Arguments& arguments, std::size_t count) {
  return {arguments.begin() + static_cast<std::ptrdiff_t>(count), arguments.end()};
}

void JoinAll(const std::string& clipFolder, const Arguments& targets) {
  const std::vector<std::string> clips = SixtyClips(clipFolder);
  for (const std::string& target : targets) JoinClips(target, clips);
}

const std::map<std::string, std::function<void(const Arguments&)>>& Operations() {
  static const std::map<std::string, std::function<void(const Arguments&)>> operations{
      {"play-time", [](const Arguments& files) { PlayTimes(files); }},
      {"copy", [](const Arguments& all) { CopyAndTag(Behind(all, 1), all.at(0)); }},
      {"plan", [](const Arguments& songs) { PlanSongs(songs); }},
      {"list", [](const Arguments& all) { CompileMusicList(all.at(0)); }},
      {"draw", [](const Arguments& all) { DrawInVain(std::stoi(all.at(0))); }},
      {"join", [](const Arguments& all) { JoinAll(all.at(0), Behind(all, 1)); }}};
  return operations;
}

void RunAndCount(const std::string& operation, const Arguments& arguments) {
  constexpr long kKibibyte = 1024;
  const auto& run = Operations().at(operation);
  const Figures before = ReadFigures("/proc/self/io");
  const auto start = std::chrono::steady_clock::now();
  run(arguments);
  const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - start;
  const Figures after = ReadFigures("/proc/self/io");
  const long memory = ReadFigures("/proc/self/status").at("VmHWM") * kKibibyte;
  const auto grown = [&](const char* name) { return after.at(name) - before.at(name); };
  std::printf("reads %ld\nwrites %ld\nread %ld\nwritten %ld\nmemory %ld\nseconds %f\n",
              grown("syscr"), grown("syscw"), grown("rchar"), grown("wchar"), memory,
              seconds.count());
}

}  // namespace
}  // namespace repvolta::bench

int main(int argc, char** argv) {
  if (argc < 3) {
    std::fputs("usage: repvolta_operations OPERATION ARGUMENT ...\n", stderr);
    return 2;
  }
  try {
    repvolta::bench::RunAndCount(argv[1], {argv + 2, argv + argc});
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "repvolta_operations: %s\n", error.what());
    return 1;
  }
}
