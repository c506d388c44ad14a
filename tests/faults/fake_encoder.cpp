// Replaces the encoder in tests that do not need its sound: writes a short MP3 file that differs
// for every different WAV file.

#include <cstdint>
#include <cstdio>
#include <string>

namespace {

/// A hash of the whole file.
std::uint64_t FigureOf(std::FILE* file) {
  std::uint64_t figure = 14695981039346656037U;  // FNV-1a, 64 bits
  for (int byte = std::fgetc(file); byte != EOF; byte = std::fgetc(file)) {
    figure = (figure ^ static_cast<std::uint64_t>(byte)) * 1099511628211U;
  }
  return figure;
}

}  // namespace

int main(int argc, char** argv) {
  std::FILE* const source = argc == 4 ? std::fopen(argv[2], "rb") : nullptr;
  std::FILE* const target = source != nullptr ? std::fopen(argv[3], "wb") : nullptr;
  if (target == nullptr) return 1;
  std::string frame = std::string("\xFF\xFB\x10\xC0", 4) + std::to_string(FigureOf(source));
  frame.resize(417, 'm');
  for (int i = 0; i < 3; ++i) std::fwrite(frame.data(), 1, frame.size(), target);
  std::fclose(source);
  return std::fclose(target) == 0 ? 0 : 1;
}
