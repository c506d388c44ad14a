#include "app/RecordFormat.h"

#include <algorithm>
#include <bit>

namespace repvolta {
namespace {

/// Appends fields to a file's bytes.
class FieldWriter {
 public:
  void operator()(std::int16_t value) { Put(std::bit_cast<std::uint16_t>(value)); }
  void operator()(float value) { Put(std::bit_cast<std::uint32_t>(value)); }
  void operator()(double value) { Put(std::bit_cast<std::uint64_t>(value)); }

  template <std::size_t Size>
  void operator()(const FixedText<Size>& text) {
    EncodeField(text.Text(), Grow(Size));
  }

  void operator()(const std::string& text) {
    const std::string bytes = ToWindows1252(text).substr(0, 0xFFFF);
    Put(static_cast<std::uint16_t>(bytes.size()));
    std::copy(bytes.begin(), bytes.end(), Grow(bytes.size()).begin());
  }

  template <class Item, std::size_t Size>
  void operator()(const Slots<Item, Size>& slots) {
    for (const Item& item : slots) (*this)(item);
  }

  template <std::size_t Size, Byte Initial>
  void operator()(const Reserved<Size, Initial>& reserved) {
    std::copy(reserved.bytes.begin(), reserved.bytes.end(), Grow(Size).begin());
  }

  Bytes Take() { return std::move(bytes_); }

 private:
  template <class Unsigned>
  void Put(Unsigned value) {
    StoreLittleEndian(Grow(sizeof value), value);
  }

  std::span<Byte> Grow(std::size_t size) {
    bytes_.resize(bytes_.size() + size);
    return std::span(bytes_).last(size);
  }

  Bytes bytes_;
};

/// Reads fields from a file's bytes. In a field that runs past the end of the file, the missing
/// bytes keep their initial values.
class FieldReader {
 public:
  explicit FieldReader(std::span<const Byte> bytes) : rest_(bytes) {}

  void operator()(std::int16_t& value) {
    value = std::bit_cast<std::int16_t>(Get<std::uint16_t>());
  }
  void operator()(float& value) { value = std::bit_cast<float>(Get<std::uint32_t>()); }
  void operator()(double& value) { value = std::bit_cast<double>(Get<std::uint64_t>()); }

  template <std::size_t Size>
  void operator()(FixedText<Size>& text) {
    text = DecodeField(Take<Size>(' '));
  }

  void operator()(std::string& text) {
    const std::size_t claimed = Get<std::uint16_t>();
    const std::size_t size = std::min(claimed, rest_.size());
    text = FromWindows1252(AsText(rest_.first(size)));
    rest_ = rest_.subspan(size);
  }

  template <class Item, std::size_t Size>
  void operator()(Slots<Item, Size>& slots) {
    for (Item& item : slots) (*this)(item);
  }

  template <std::size_t Size, Byte Initial>
  void operator()(Reserved<Size, Initial>& reserved) {
    reserved.bytes = Take<Size>(Initial);
  }

 private:
  template <class Unsigned>
  Unsigned Get() {
    return LoadLittleEndian<Unsigned>(Take<sizeof(Unsigned)>(0));
  }

  template <std::size_t Size>
  std::array<Byte, Size> Take(Byte padding) {
    std::array<Byte, Size> field;
    field.fill(padding);
    const auto part = rest_.first(std::min(Size, rest_.size()));
    std::copy(part.begin(), part.end(), field.begin());
    rest_ = rest_.subspan(part.size());
    return field;
  }

  std::span<const Byte> rest_;
};

/// Visits the fields of an exercise in the order of the file.
template <class Record, class Visitor>
void VisitExercise(Record& record, Visitor& visit) {
  visit(record.MusicFile);
  visit(record.MusicFilePlayTime);
  visit(record.TargetExerciseTime);
  visit(record.TotalMusicTime);
  visit(record.NumberOfMusicFiles);
  visit(record.NumberOfSets);
  visit(record.SetValue1);
  visit(record.SetValue2);
  visit(record.SetIncrement1);
  visit(record.SetIncrement2);
  visit(record.SetFrequency1);
  visit(record.SetFrequency2);
  visit(record.NextUpdate1);
  visit(record.NextUpdate2);
  visit(record.SetType);
  visit(record.UserField1Name);
  visit(record.UserField2Name);
  visit(record.Units);
  visit(record.RandomMusic);
  visit(record.ExerciseName);
  visit(record.ReservedTexts);
  visit(record.ReservedTail);
}

/// Visits the fields of the settings in the order of the file, each in all the records at once.
template <class Visitor, class... Records>
void VisitSettings(Visitor& visit, Records&... records) {
  visit(records.MusicPath...);
  visit(records.OutputPath...);
  visit(records.DefaultExerciseTime...);
  visit(records.ReservedIntegers...);
  visit(records.VoiceIndex...);
  visit(records.VoiceRate...);
  visit(records.VoiceVolume...);
  visit(records.AudioFormat...);
  visit(records.AutoLoadPlaylist...);
  visit(records.IncludeWeightValues...);
  visit(records.ReservedInteger...);
  visit(records.LastWorkoutIndex...);
  visit(records.ReservedBlock...);
  visit(records.ReservedTexts...);
}

/// Takes over a field that was changed.
struct FieldMerger {
  template <class Field>
  void operator()(const Field& base, const Field& ours, Field& theirs) const {
    if (!(ours == base)) theirs = ours;
  }
};

}  // namespace

Bytes EncodeWorkout(const ExerciseSlots& workout) {
  FieldWriter writer;
  for (const ExerciseRecord& exercise : workout) VisitExercise(exercise, writer);
  return writer.Take();
}

ExerciseSlots DecodeWorkout(std::span<const Byte> file) {
  ExerciseSlots workout;
  FieldReader reader(file);
  for (ExerciseRecord& exercise : workout) VisitExercise(exercise, reader);
  return workout;
}

Bytes EncodeSettings(const SettingsRecord& settings) {
  FieldWriter writer;
  VisitSettings(writer, settings);
  return writer.Take();
}

SettingsRecord DecodeSettings(std::span<const Byte> file) {
  SettingsRecord settings;
  FieldReader reader(file);
  VisitSettings(reader, settings);
  return settings;
}

SettingsRecord MergeSettings(const SettingsRecord& base, const SettingsRecord& ours,
                             SettingsRecord theirs) {
  const FieldMerger merger;
  VisitSettings(merger, base, ours, theirs);
  return theirs;
}

}  // namespace repvolta
