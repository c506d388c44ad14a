#include <QCoreApplication>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cstdio>
#include <exception>
#include <fstream>
#include <memory>
#include <string>
#include <unistd.h>

#include "Suite.h"
#include "limits/Limits.h"

//   repvolta_bench COLLECTION PROGRAMS PEERS WORK [options of Google Benchmark]

namespace repvolta::bench {

std::function<double()> Timed(std::function<void()> work) {
  return [work = std::move(work)] {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  };
}

std::function<double()> SelfTimed(std::vector<std::string> command) {
  return [command = std::move(command)] {
    limits::RunProgram(command, "seconds.txt");
    double seconds = 0;
    std::ifstream("seconds.txt") >> seconds;
    return seconds;
  };
}

void Register(const Way& way) {
  const auto isWarm = std::make_shared<bool>(false);
  const auto run = [way] {
    if (way.prepare) way.prepare();
    return way.measure();
  };
  benchmark::RegisterBenchmark((way.row + "/" + way.name).c_str(),
                               [run, isWarm](auto& state) {
                                 if (!std::exchange(*isWarm, true)) run();
                                 for ([[maybe_unused]] auto iteration : state)
                                   state.SetIterationTime(run());
                               })
      ->UseManualTime()
      ->Iterations(1)
      ->Unit(benchmark::kMillisecond);
}

}  // namespace repvolta::bench

int main(int argc, char** argv) {
  using namespace repvolta::bench;
  if (argc < 5) {
    std::fputs("usage: repvolta_bench COLLECTION PROGRAMS PEERS WORK [OPTION ...]\n", stderr);
    return 2;
  }
  QCoreApplication application(argc, argv);
  const Places places{argv[1], argv[2], argv[3], argv[4]};
  if (chdir(places.work.c_str()) != 0) return 2;
  argv[4] = argv[0];
  argc -= 4;
  argv += 4;
  benchmark::Initialize(&argc, argv);
  try {
    RegisterPlayTimes(places);
    RegisterListing(places);
    RegisterCopies(places);
    RegisterJoining(places);
    RegisterUpdate(places);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "repvolta_bench: %s\n", error.what());
    return 1;
  }
}
