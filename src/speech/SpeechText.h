#pragma once

#include <string>
#include <string_view>

namespace repvolta {

// What an engine is given to read: one line of words, numbers and plain punctuation, at most
// kLongestSpokenText bytes. Whatever an engine could take for a command of its own, and what has no
// sound, is left out.

inline constexpr std::size_t kLongestSpokenText = 1000;

/// For an engine that reads every script. "" when nothing can be said.
std::string SpokenText(std::string_view text);

/// For an engine that reads only ASCII: letters lose their accents ("Café" is "Cafe"), letters of
/// other scripts are left out. "" when nothing can be said.
std::string SpokenAscii(std::string_view text);

}  // namespace repvolta
