#pragma once

#include <array>
#include <string_view>

#include "sound/WavFormat.h"

namespace repvolta {

/// A format in which speech can be written, as the settings screen lists it.
struct SoundFormat {
  std::string_view name;
  WavFormat format;
  int code;
};

inline constexpr std::array<SoundFormat, 36> kSoundFormats = {{
    {"SAFT8kHz8BitMono", {8000, 8, 1}, 4},      {"SAFT8kHz8BitStereo", {8000, 8, 2}, 5},
    {"SAFT8kHz16BitMono", {8000, 16, 1}, 6},    {"SAFT8kHz16BitStereo", {8000, 16, 2}, 7},
    {"SAFT11kHz8BitMono", {11025, 8, 1}, 8},    {"SAFT11kHz8BitStereo", {11025, 8, 2}, 9},
    {"SAFT11kHz16BitMono", {11025, 16, 1}, 10}, {"SAFT11kHz16BitStereo", {11025, 16, 2}, 11},
    {"SAFT12kHz8BitMono", {12000, 8, 1}, 12},   {"SAFT12kHz8BitStereo", {12000, 8, 2}, 13},
    {"SAFT12kHz16BitMono", {12000, 16, 1}, 14}, {"SAFT12kHz16BitStereo", {12000, 16, 2}, 15},
    {"SAFT16kHz8BitMono", {16000, 8, 1}, 16},   {"SAFT16kHz8BitStereo", {16000, 8, 2}, 17},
    {"SAFT16kHz16BitMono", {16000, 16, 1}, 18}, {"SAFT16kHz16BitStereo", {16000, 16, 2}, 19},
    {"SAFT22kHz8BitMono", {22050, 8, 1}, 20},   {"SAFT22kHz8BitStereo", {22050, 8, 2}, 21},
    {"SAFT22kHz16BitMono", {22050, 16, 1}, 22}, {"SAFT22kHz16BitStereo", {22050, 16, 2}, 23},
    {"SAFT24kHz8BitMono", {24000, 8, 1}, 24},   {"SAFT24kHz8BitStereo", {24000, 8, 2}, 25},
    {"SAFT24kHz16BitMono", {24000, 16, 1}, 26}, {"SAFT24kHz16BitStereo", {24000, 16, 2}, 27},
    {"SAFT32kHz8BitMono", {32000, 8, 1}, 28},   {"SAFT32kHz8BitStereo", {32000, 8, 2}, 29},
    {"SAFT32kHz16BitMono", {32000, 16, 1}, 30}, {"SAFT32kHz16BitStereo", {32000, 16, 2}, 31},
    {"SAFT44kHz8BitMono", {44100, 8, 1}, 32},   {"SAFT44kHz8BitStereo", {44100, 8, 2}, 33},
    {"SAFT44kHz16BitMono", {44100, 16, 1}, 34}, {"SAFT44kHz16BitStereo", {44100, 16, 2}, 35},
    {"SAFT48kHz8BitMono", {48000, 8, 1}, 36},   {"SAFT48kHz8BitStereo", {48000, 8, 2}, 37},
    {"SAFT48kHz16BitMono", {48000, 16, 1}, 38}, {"SAFT48kHz16BitStereo", {48000, 16, 2}, 39},
}};

}  // namespace repvolta
