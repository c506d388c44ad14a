#pragma once

#include <cstdint>
#include <string>

#include "mp3/Id3v1Format.h"

namespace repvolta {

/// The facts about one MP3 file. Offsets count from 0; offsets, sizes and lengths are bytes.
struct MP3Info {
  std::int32_t fileLength = 0;

  bool hasID3v1 = false;
  Id3v1Record id3v1;  // an empty tag when the file has none
  bool hasTrackNumber = false;
  Byte trackNumber = 0;

  bool hasID3v2 = false;
  std::int32_t id3v2Offset = 0;
  std::int32_t id3v2Size = 0;  // header and footer included

  std::int32_t headerOffset = 0;  // of the first frame
  float mpegVersion = 0;          // 1, 2 or 2.5; 0 is reserved
  std::int32_t layer = 0;         // 1 to 3; 0 is reserved
  bool crcProtected = false;
  bool isPrivate = false;
  Byte padding = 0;
  bool copyright = false;
  bool original = false;
  std::string channelMode;
  std::string emphasis;
  std::int32_t bitRate = 0;      // kbit/s
  std::int32_t sampleRate = 0;   // Hz
  std::int32_t frameLength = 0;  // of one frame
  std::int32_t frameCount = 0;
  std::int32_t audioBytes = 0;
  std::int32_t playTime = 0;  // seconds
  bool vbr = false;           // a Xing header was found

  /// A frame header was decoded, and a Xing header, if there is one, has a frame count.
  bool valid = false;
};

}  // namespace repvolta
