#pragma once

#include <string>
#include <string_view>

namespace repvolta {

// The text that an engine gets: one line of words, numbers and plain punctuation, at most
// kLongestSpokenText bytes. Characters without a sound, and those that an engine could read as a
// command, are left out.

inline constexpr std::size_t kLongestSpokenText = 1000;

/// For an engine that reads every script. "" when nothing can be said.
std::string SpokenText(std::string_view text);

/// For an engine that reads only ASCII: letters lose their accents ("Café" is "Cafe"), letters of
/// other scripts are left out. "" when nothing can be said.
std::string SpokenAscii(std::string_view text);

}  // namespace repvolta
