#pragma once

#include <stdexcept>
#include <string>

namespace repvolta {

/// The reason why a sound cannot be played or recorded, in words for the user.
class SoundError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// An entry of a list of outputs or inputs; without a name, the default one.
struct ChosenDevice {
  int entry = 0;
  std::string name;
};

}  // namespace repvolta
