#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

#include "base/Bytes.h"
#include "mp3/MP3Info.h"

namespace repvolta {

class FileWindow;

/// A file's figures would make the program divide by zero.
class DivisionByZero : public std::domain_error {
 public:
  using std::domain_error::domain_error;
};

/// Examines one MP3 file at a time: its tags, its first frame, and its play time, which follows
/// from both. Reading throws FileError, std::overflow_error (a figure does not fit 32 bits) and
/// DivisionByZero.
class RepvoltaMP3 {
 public:
  enum class EmbeddedTags { kIgnored, kSearched };
  enum class AfterReset { kKeepsFileName, kEmptiesFileName };
  enum class FileTimes { kKept, kNew };

  /// Nothing asks for the search for an ID3v2 tag inside the audio, so it is dormant (quirk 88).
  explicit RepvoltaMP3(EmbeddedTags embeddedTags = EmbeddedTags::kIgnored)
      : embeddedTags_(embeddedTags) {}

  /// Makes `path` the current file and reads it.
  void SetFileName(const std::string& path);

  /// Reads the current file again. False when no frame was found; all info is then reset, and there
  /// is no current file any more.
  bool ReadMP3Header();

  /// Decodes the four bytes at a position that counts from 1, given as a little-endian number.
  /// False when no frame starts there; some fields may then have changed.
  bool DecodeFrameHeader(std::uint32_t header, std::int32_t position);

  void ResetMP3Info(AfterReset after);

  /// Removes everything before the first frame, all or nothing, and reads the file again; if that
  /// divides by zero, all info is reset. kKept restores the times of last access and last change.
  /// Throws FileError.
  void RemoveLeadingData(FileTimes times);

  bool HasID3v2() const { return info_.hasID3v2; }
  std::int32_t PlayTimeSeconds() const { return info_.playTime; }
  const std::string& FileName() const { return fileName_; }
  const MP3Info& Info() const { return info_; }

  static bool IsFrameSync(std::uint32_t header);

  /// The big-endian number in the first four bytes. Throws std::out_of_range when there are fewer.
  static std::int32_t ReadBigEndianLong(std::span<const Byte> bytes);

  /// The number that consists of the low seven bits of each byte of `bigEndian`.
  static std::int32_t DecodeSyncsafe(std::int32_t bigEndian);

 private:
  class FileTail;

  void ReadID3v1(const FileTail& tail);
  std::int64_t ReadID3v2(FileWindow& window, const FileTail& tail);
  void ReadID3v2Footer(const FileTail& tail);
  void AcceptID3v2(std::span<const Byte> header, std::int64_t offset);
  bool FindFirstFrame(FileWindow& window, std::int64_t position);
  std::int64_t SkipEmbeddedTag(FileWindow& window, std::int64_t position);
  void MeasureAudio(std::int32_t position);
  void DescribeFrame(std::uint32_t header);
  void ReadXing(FileWindow& window);
  std::int32_t AverageBitRate() const;
  std::int32_t SecondsOfAudio() const;
  std::int32_t Checked(std::int64_t value) const;
  std::int32_t Divide(std::int32_t dividend, std::int32_t divisor) const;

  EmbeddedTags embeddedTags_;
  std::string fileName_;
  MP3Info info_;
};

}  // namespace repvolta
