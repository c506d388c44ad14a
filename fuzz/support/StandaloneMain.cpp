#include <clocale>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include "support/Fuzz.h"

// Runs a target on each file of the named folders, without a fuzzer, so that any compiler can
// replay a corpus. Fails when there is no file or a rule is broken.

namespace {

namespace fs = std::filesystem;

std::vector<fs::path> FilesOf(const std::vector<std::string>& folders) {
  std::vector<fs::path> files;
  for (const std::string& folder : folders) {
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
      if (entry.is_regular_file()) files.push_back(fs::absolute(entry.path()));
    }
  }
  return files;
}

}  // namespace

int main(int argc, char** argv) {
  std::setlocale(LC_ALL, "");
  const std::vector<fs::path> files = FilesOf({argv + 1, argv + argc});
  for (const fs::path& path : files) {
    std::ifstream file(path, std::ios::binary);
    const repvolta::Bytes content{std::istreambuf_iterator<char>(file), {}};
    std::printf("%s\n", path.c_str());
    std::fflush(stdout);
    LLVMFuzzerTestOneInput(content.data(), content.size());
  }
  std::printf("%zu inputs\n", files.size());
  return files.empty() ? 1 : 0;
}
