#include <cmath>
#include <fstream>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "clips/ClipMaker.h"
#include "clips/Take.h"
#include "sound/WavFormat.h"

#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::Gt;
using testing::Le;

constexpr std::uint32_t kMebibyte = 1024 * 1024;

/// The most memory that this process has held, in bytes.
long MostHeld() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return usage.ru_maxrss * 1024;
}

/// How many bytes more than now a deed holds at its height; -1 when it fails. It runs in a child,
/// whose own height begins at what it holds when it starts.
long HeldBy(const std::function<void()>& deed) {
  void* const shared =
      mmap(nullptr, sizeof(long), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  auto* const held = static_cast<long*>(shared);
  *held = -1;
  const pid_t child = fork();
  if (child == 0) {
    const long before = MostHeld();
    deed();
    if (!testing::Test::HasFailure()) *held = MostHeld() - before;
    _exit(0);
  }
  waitpid(child, nullptr, 0);
  const long result = *held;
  munmap(shared, sizeof(long));
  return result;
}

/// The sanitizer's allocator holds on to what was freed, to notice its use, and that counts here.
#ifdef __SANITIZE_ADDRESS__
constexpr long kHeldByAllocator = 3;
#else
constexpr long kHeldByAllocator = 1;
#endif

/// Seconds in a recording.
struct Span {
  double begin;
  double end;
};

/// Writes a recording of `size` bytes of samples, a tone within `word` and silence around it.
void PutRecording(const WavFormat& format, std::uint32_t size, const Span& word) {
  std::ofstream file("recording.wav", std::ios::binary);
  const Bytes header = WavHeader(format, size);
  file.write(reinterpret_cast<const char*>(header.data()),
             static_cast<std::streamsize>(header.size()));
  const std::uint32_t sampleSize = format.bits / 8U;
  std::string sample(sampleSize, '\0');
  for (std::uint32_t i = 0; i < size / sampleSize; ++i) {
    const std::uint32_t frame = i / format.channels;
    const double second = static_cast<double>(frame) / format.rate;
    const bool sounds = second >= word.begin && second < word.end;
    const int level = sounds ? (frame % 4 < 2 ? 20 : -20) : 0;
    sample.back() = static_cast<char>(format.bits == 8 ? level + 128 : level);
    file << sample;
  }
}

void Convert() { MakeClipOfRecording("recording.wav", "clip.wav"); }

struct RecordingMemory : testing::TestWithParam<WavFormat> {};

TEST_P(RecordingMemory, IsASmallMultipleOfTheRecording) {
  TemporaryFolder folder;
  PutRecording(GetParam(), 2 * kMebibyte, {.begin = 0.2, .end = 0.7});
  EXPECT_THAT(HeldBy(Convert), AllOf(Gt(0), Le(8 * 2 * long{kMebibyte})));
  EXPECT_GT(GetFile("clip.wav").size(), kWavHeaderSize + 16000);
}

INSTANTIATE_TEST_SUITE_P(OfAnyFormat, RecordingMemory,
                         testing::Values(WavFormat{.rate = 1000, .bits = 8, .channels = 1},
                                         WavFormat{.rate = 1000, .bits = 16, .channels = 1},
                                         WavFormat{.rate = 16000, .bits = 16, .channels = 1},
                                         WavFormat{.rate = 44100, .bits = 24, .channels = 2},
                                         WavFormat{.rate = 384000, .bits = 8, .channels = 1}));

TEST(RecordingMemory, IsASmallMultipleAlsoOfARecordingThatIsRefused) {
  TemporaryFolder folder;
  PutRecording({.rate = 1000, .bits = 8, .channels = 1}, 2 * kMebibyte, {.begin = 0, .end = 9999});
  const auto convert = [] { EXPECT_THROW(Convert(), ClipError); };
  EXPECT_THAT(HeldBy(convert), AllOf(Gt(0), Le(8 * 2 * long{kMebibyte})));
}

/// As a microphone gives it, with a word that does not end.
void TakeTheLongest() {
  Take take(48000);
  std::vector<float> block(960);
  for (int i = 0; !take.HasEnded(); ++i) {
    for (std::size_t k = 0; k < block.size(); ++k) block[k] = i < 100 || k % 48 < 24 ? 0.1F : -0.1F;
    take.Add(block);
  }
  EXPECT_THAT(take.Judgement().faults, ElementsAre(TakeFault::kTooLong));
  const Sound recording = take.Recording();
  EXPECT_GT(ClipOf(WholeSound(recording), -18).size(), 2 * 12 * 16000U);
}

TEST(RecordingMemory, IsASmallMultipleOfATake) {
  EXPECT_THAT(HeldBy(TakeTheLongest), AllOf(Gt(0), Le(kHeldByAllocator * 8 * 15 * 48000L * 2)));
}

TEST(RecordingMemory, IsThatOfTheLongestWordAtMost) {
  TemporaryFolder folder;
  PutRecording({.rate = 1000, .bits = 8, .channels = 1}, 121000, {.begin = 0.5, .end = 119.5});
  EXPECT_THAT(HeldBy(Convert), AllOf(Gt(0), Le(32 * long{kMebibyte})));
  EXPECT_GT(GetFile("clip.wav").size(), 2 * 119 * 16000U);
}

}  // namespace
}  // namespace repvolta
