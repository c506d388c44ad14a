// A speech engine for the tests. It takes the arguments of the real ones and notes them in the file
// "arguments" of the current directory. The first word of the text says what it does:
//   crash, hang, fail   instead of speaking     mute     speaks, but writes no file
//   silence, nothing    a file without a sound  garbage  a file that is no WAV
//   flood               a sound, and more behind it than anybody would speak
// Any other text is a tone of a tenth of a second a letter, half of full scale.

#include <cmath>
#include <csignal>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <numbers>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

constexpr unsigned kRate = 8000;
constexpr std::uintmax_t kTooMuch = 64 * 1024 * 1024 + 1;  // bytes

struct Task {
  std::string text;
  std::string sound;
};

void List(const std::string& argument) {
  if (argument == "-lv") std::cout << "Voices available: kal awb_time kal16 rms slt \n";
  if (argument != "--voices") return;
  std::cout << "Pty Language       Age/Gender VoiceName          File       Other Languages\n"
               " 5  af              --/M      Afrikaans          gmw/af\n"
               " 2  en-us           --/M      English_(America)  gmw/en-US  (en 3)\n"
               " 7  af              --/M      afrikaans-mbrola-1 mb/mb-af1\n"
               " 5  variant         --/F      anika              !v/anika\n";
}

std::string Content(std::istream&& file) { return {std::istreambuf_iterator<char>(file), {}}; }

Task ReadTask(const std::vector<std::string>& arguments) {
  Task task;
  std::ofstream note("arguments");
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    note << arguments[i] << "\n";
    List(arguments[i]);
    if (arguments[i] == "--stdin") task.text = Content(std::ifstream("/dev/stdin"));
    if (i + 1 == arguments.size()) break;
    if (arguments[i] == "-f") task.text = Content(std::ifstream(arguments[i + 1]));
    if (arguments[i] == "-o" || arguments[i] == "-w") task.sound = arguments[i + 1];
  }
  return task;
}

void Put(std::ostream& file, std::uint32_t value, int bytes) {
  for (int i = 0; i < bytes; ++i) file.put(static_cast<char>(value >> 8 * i & 0xFF));
}

/// With the shorter header of 44 bytes that engines write.
void WriteSound(const std::string& path, std::size_t samples, int level) {
  std::ofstream file(path, std::ios::binary);
  const auto size = static_cast<std::uint32_t>(samples * 2);
  file << "RIFF";
  Put(file, size + 36, 4);
  file << "WAVEfmt ";
  Put(file, 16, 4);
  Put(file, 1, 2);
  Put(file, 1, 2);
  Put(file, kRate, 4);
  Put(file, kRate * 2, 4);
  Put(file, 2, 2);
  Put(file, 16, 2);
  file << "data";
  Put(file, size, 4);
  for (std::size_t i = 0; i < samples; ++i) {
    const double phase = std::numbers::pi / 8 * static_cast<double>(i);
    Put(file, static_cast<std::uint32_t>(std::lround(level * std::sin(phase))), 2);
  }
}

int Speak(const Task& task) {
  const std::string word = task.text.substr(0, task.text.find_first_of(" \n"));
  if (word == "crash") std::raise(SIGKILL);
  while (word == "hang") pause();
  if (word == "fail") return 3;
  if (word == "mute") return 0;
  if (word == "garbage") {
    std::ofstream(task.sound) << "RIFFxxxxWAVEfmt \1";
  } else {
    const bool silent = word == "silence";
    const std::size_t letters = word == "nothing" ? 0 : task.text.size() - 1;
    WriteSound(task.sound, letters * kRate / 10, silent ? 0 : 16384);
    // The rest of the file is a hole, which takes no space on the disk.
    if (word == "flood") std::filesystem::resize_file(task.sound, kTooMuch);
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  const Task task = ReadTask({argv + 1, argv + argc});
  return task.sound.empty() ? 0 : Speak(task);
}
