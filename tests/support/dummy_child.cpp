// A child program for the tests, which obeys its arguments one after another:
//   say TEXT      writes the text and a line end        flood BYTES   writes that many bytes
//   complain TEXT writes the text to standard error     echo          copies standard input
//   name          writes the name it was started by
//   here          writes its current directory          exit CODE     ends with the code
//   crash         ends by a signal                      hang          stays until it is killed
//   mute          closes standard output                nap MS        stays that long
//   offspring F   starts a copy of itself that hangs, and writes the copy's number to file F
//   write F TEXT  writes the text to the file F
// Anything else is exit code 99.

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <map>
#include <string>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

class Arguments {
 public:
  explicit Arguments(std::vector<std::string> words) : words_(std::move(words)) {}

  bool Empty() const { return next_ == words_.size(); }
  std::string Next() { return Empty() ? "" : words_[next_++]; }

 private:
  std::vector<std::string> words_;
  std::size_t next_ = 0;
};

void Hang() {
  while (true) pause();
}

void Flood(long bytes) {
  const std::string block(65536, 'x');
  for (; bytes > 0; bytes -= static_cast<long>(block.size())) std::cout << block;
  std::cout.flush();
}

void Offspring(const std::string& file) {
  const pid_t child = fork();
  if (child == 0) Hang();
  std::ofstream(file) << child;
}

using Action = std::function<void(Arguments&)>;

const std::map<std::string, Action>& Actions() {
  static const std::map<std::string, Action> kActions = {
      {"say", [](Arguments& a) { std::cout << a.Next() << std::endl; }},
      {"complain", [](Arguments& a) { std::cerr << a.Next() << std::endl; }},
      {"here", [](Arguments&) { std::cout << std::filesystem::current_path().string() + "/"; }},
      {"flood", [](Arguments& a) { Flood(std::stol(a.Next())); }},
      {"echo", [](Arguments&) { std::cout << std::cin.rdbuf() << std::flush; }},
      {"exit", [](Arguments& a) { std::exit(std::stoi(a.Next())); }},
      {"crash", [](Arguments&) { std::raise(SIGKILL); }},
      {"hang", [](Arguments&) { Hang(); }},
      {"mute", [](Arguments&) { close(1); }},
      {"nap",
       [](Arguments& a) {
         std::this_thread::sleep_for(std::chrono::milliseconds(std::stol(a.Next())));
       }},
      {"offspring", [](Arguments& a) { Offspring(a.Next()); }},
      {"write",
       [](Arguments& a) {
         const std::string file = a.Next();
         std::ofstream(file, std::ios::binary) << a.Next();
       }},
  };
  return kActions;
}

}  // namespace

int main(int argc, char** argv) {
  Arguments arguments(std::vector<std::string>(argv + 1, argv + argc));
  while (!arguments.Empty()) {
    const std::string word = arguments.Next();
    if (word == "name") {
      std::cout << argv[0] << std::endl;
      continue;
    }
    const auto action = Actions().find(word);
    if (action == Actions().end()) return 99;
    action->second(arguments);
  }
  return 0;
}
