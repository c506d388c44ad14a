// Takes the place of the encoder where its sound does not matter: writes a short MP3 file.

#include <cstdio>
#include <string>

int main(int argc, char** argv) {
  std::FILE* const target = argc == 4 ? std::fopen(argv[3], "wb") : nullptr;
  if (target == nullptr) return 1;
  std::string frame("\xFF\xFB\x10\xC0", 4);
  frame.resize(417, 'm');
  for (int i = 0; i < 3; ++i) std::fwrite(frame.data(), 1, frame.size(), target);
  return std::fclose(target) == 0 ? 0 : 1;
}
