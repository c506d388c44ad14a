#include <cmath>
#include <filesystem>
#include <gmock/gmock.h>
#include <map>
#include <random>
#include <set>

#include "app/Options.h"
#include "app/RecordFormat.h"
#include "app/WorkoutFiles.h"
#include "base/ProgramFiles.h"
#include "base/Text.h"
#include "instruction/Clips.h"
#include "mp3/RepvoltaMP3v2.h"
#include "player/Keepsakes.h"
#include "player/PlayerPlayList.h"
#include "update/PlanUpdate.h"
#include "update/RandomMusicList.h"
#include "update/UpdateFixture.h"

#include "support/MemoryDisk.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using Problem = PlannedProblem;
using testing::ContainerEq;
using testing::ElementsAreArray;

/// The same numbers for the same start, whatever is asked in between.
class RepeatedNumbers : public RandomNumbers {
 public:
  explicit RepeatedNumbers(unsigned start) : engine_(start) {}
  void Seed() override {}
  double Next() override { return std::uniform_real_distribution<double>(0, 1)(engine_); }

 private:
  std::mt19937 engine_;  // NOLINT(cert-msc32-c,cert-msc51-cpp): a test repeats its numbers.
};

/// Program directories with a workout of every oddity, one after the other.
class PlanAndUpdate : private MemoryDisk, public UpdateFixture {
 protected:
  PlanAndUpdate() {
    MakeSongs();
    for (const char* word :
         {"1",         "2",    "3",     "5",     "10",         "20",    "50",     "100",
          "300",       "1000", "and",   "point", "set",        "sets",  "for",    "reps",
          "kilograms", "mph",  "miles", "kph",   "kilometers", "level", "minutes"}) {
      PutFile(std::string("voice/") + word + ".wav",
              ClipBytes(Bytes(3000 + 1000 * std::string_view(word).size(), 'w')));
    }
    PutFile("voice/6.wav", "short");
    fs::remove("lame.exe");
    encode_ = [run = processes.run, this](const ChildCommand& command) {
      wavSizes_.push_back(fs::file_size(command.arguments[0 + 1]));
      run(command);
    };
    processes.run = encode_;
  }

  void MakeSongs() {
    const Id3v2Bytes tag = Id3v2Bytes().Text("TIT2", "Old").Padding(40);
    PutFile("music/plain.mp3", SongBytes(3));
    PutFile("music/ lead.mp3", SongBytes(1));
    PutFile("music/tagged.mp3", Mp3Bytes().Id3v2(Id3v2Bytes(tag).Syncsafe()).Raw(SongBytes(2)));
    PutFile("music/old.mp3", Mp3Bytes().Raw(SongBytes(2)).Id3v1("Old"));
    PutFile(
        "music/\xC3\x9C"
        "bung, 100 %.MP3",
        SongBytes(4));
    PutFile("music/late tag.mp3", Mp3Bytes().Garbage(500).Id3v2(tag).Raw(SongBytes(2)));
    PutFile("music/large late tag.mp3",
            Mp3Bytes().Garbage(50).Id3v2(Id3v2Bytes(tag).Padding(9000)).Raw(SongBytes(1)));
    PutFile("music/two tags.mp3",
            Mp3Bytes().Id3v2(Id3v2Bytes(tag).Syncsafe()).Id3v2(Id3v2Bytes(tag)).Raw(SongBytes(2)));
    PutFile("music/no frame.mp3", "no frame at all");
    PutFile("music/empty.mp3", "");
    PutFile("music/divides by zero.mp3", Mp3Bytes().Frame().Xing(1, 0).Frames(9));
    PutFile("music/line\nbreak.mp3", SongBytes(1));
    for (const auto& entry : fs::directory_iterator("music")) songs_.push_back(entry.path());
    std::sort(songs_.begin(), songs_.end());
    songs_.emplace_back("music/gone.mp3");
  }

  int Pick(int below) { return static_cast<int>(engine_() % static_cast<unsigned>(below)); }
  bool OneIn(int count) { return Pick(count) == 0; }

  template <class Item>
  Item OneOf(std::initializer_list<Item> items) {
    return *(items.begin() + Pick(static_cast<int>(items.size())));
  }

  void Begin(unsigned number) {
    engine_.seed(number);
    for (const char* old : {"player", "workouts", "voice/exercise", "temp.wav", kEncoder}) {
      fs::remove_all(old);
    }
    fs::create_directory("player");
    if (!OneIn(4)) PutFile(kEncoder, "");
    state = {};
    state.ProgramDirectory = folder.Path();
    state.WorkoutFileName = OneOf({"Monday.RPV",
                                   "Beine & R\xC3\xBC"
                                   "cken.RPV",
                                   " Week. 1.RPV"});
    state.Settings.OutputPath = Full("player");
    state.Settings.MusicPath = Full("music");
    state.Settings.IncludeWeightValues = OneIn(3) ? kFalse : kTrue;
    Put(state.Options, kPlayListForPlayer, OneIn(2));
    ListMusic();
    const int exercises = Pick(4);
    for (int i = 0; i < exercises; ++i) FillExercise();
    SaveWorkout(state);
  }

  void ListMusic() {
    std::string list;
    const int lines = OneIn(4) ? 0 : Pick(12);
    for (int i = 0; i < lines; ++i) {
      const std::string& song =
          songs_[static_cast<std::size_t>(Pick(static_cast<int>(songs_.size())))];
      if (song.find('\n') == std::string::npos) list += Full(song) + "\n";
    }
    PutFile(kMusicList, list);
    if (OneIn(6)) fs::remove(kMusicList);
    CountRandomMusicFiles(state);
    if (OneIn(8)) ++state.RandomMusicFiles;
  }

  void FillExercise() {
    const std::string name =
        OneOf({"Squat", "Bench Press", " Push/Pull ", "Kniebeuge \xC3\xBC", "Row \"3\""});
    ExerciseRecord& exercise = OneIn(4) ? AddExercise(name) : AddNamedAs(name);
    exercise.SetType = OneOf<std::int16_t>({0, 0, 1, 2, 3});
    exercise.Units = OneOf<std::int16_t>({kTrue, kFalse, 1});
    exercise.NumberOfSets = OneOf<std::int16_t>({0, 1, 2, 3});
    for (int set = 0; set < exercise.NumberOfSets; ++set) FillSet(exercise, set);
    if (OneIn(12)) exercise.NumberOfSets = OneOf<std::int16_t>({17, 18, -1, 32767});
    const int songs = Pick(5);
    for (int i = 0; i < songs; ++i) AddSong(exercise, SomeSong());
    if (OneIn(15)) exercise.NumberOfMusicFiles = OneOf<std::int16_t>({13, -3});
    if (!OneIn(3)) return;
    exercise.RandomMusic = kTrue;
    exercise.TargetExerciseTime = OneOf<std::int16_t>({0, 1, 2, 5, 9, 20000});
  }

  ExerciseRecord& AddNamedAs(const std::string& name) {
    PutFile(ClipFile({Clip::Kind::kName, std::string(TrimBlanks(name))}),
            OneIn(20) ? Bytes(20) : ClipBytes(Bytes(20'000 + 3000 * name.size(), '#')));
    return AddExercise(name);
  }

  std::string SomeSong() {
    const std::string song =
        Full(songs_[static_cast<std::size_t>(Pick(static_cast<int>(songs_.size())))]);
    return OneIn(8) ? " " + song : song;
  }

  void FillSet(ExerciseRecord& exercise, int set) {
    exercise.SetValue1[set] = OneOf({0.0F, 1.0F, 2.5F, 50.0F, 120.0F, 1300.5F, 12000.0F, 3e38F});
    exercise.SetValue2[set] = OneOf({0.0F, 1.0F, 10.0F, 26.0F, -3.0F});
    exercise.SetIncrement1[set] = OneOf({0.0F, 2.5F, 3e38F});
    exercise.SetIncrement2[set] = OneOf({0.0F, 1.0F, -1.0F});
    exercise.SetFrequency1[set] = OneOf({0.0F, 1.0F, 7.0F, -1.0F});
    exercise.SetFrequency2[set] = OneOf({0.0F, 1.0F, 2.5F});
    exercise.NextUpdate1[set] = kToday + OneOf({-400, -8, -7, -2, -1, 0, 5, 4000});
    exercise.NextUpdate2[set] = kToday + OneOf({-3, -2, -1, 0, 1});
  }

  fs::path Player(const std::string& name) const { return fs::path(plan_.folder) / name; }

  void PlanAndRun(unsigned number) {
    Begin(number);
    RepeatedNumbers forPlan(number);
    plan_ = PlanUpdate(state, kToday, forPlan);
    RepeatedNumbers forUpdate(number);
    Program same{state, clock, forUpdate, processes, speech};
    run.log.clear();
    wavSizes_.clear();
    UpdateCurrentWorkout(same, run, run);
  }

  std::vector<PlannedFile> Files() const {
    std::vector<PlannedFile> files;
    for (const PlannedExercise& exercise : plan_.exercises) {
      files.insert(files.end(), exercise.files.begin(), exercise.files.end());
    }
    return files;
  }

  void ComparePlayList() const {
    std::string expected;
    for (const PlannedFile& file : Files()) {
      const std::string path = plan_.folder + file.name;
      if (path.find('\n') == std::string::npos) expected += path + "\r\n";
    }
    EXPECT_EQ(plan_.playList.empty(), expected.empty());
    if (expected.empty()) return;
    EXPECT_EQ(GetTextFile(Player(plan_.playList)), expected);
  }

  void CompareNames() const {
    std::set<std::string> planned;
    for (const PlannedFile& file : Files()) planned.insert(file.name);
    std::set<std::string> written;
    for (const auto& entry : fs::directory_iterator(plan_.folder)) {
      const std::string name = entry.path().filename();
      if (IsNumberedName(name)) written.insert(name);
    }
    EXPECT_THAT(written, ContainerEq(planned));
  }

  void CompareTags() const {
    for (const PlannedFile& file : Files()) {
      if (file.title.empty()) continue;
      cMP3ID3v2 tag;
      tag.SetFileName(Player(file.name));
      EXPECT_EQ(tag.Title(), file.title) << file.name;
      EXPECT_EQ(tag.Album(), plan_.workout);
    }
  }

  void CompareSizesAndTimes() const {
    std::size_t encoded = 0;
    std::uint64_t bytes = 0;
    bool isExact = true;
    for (const PlannedFile& file : Files()) {
      const std::uint64_t size = fs::file_size(Player(file.name));
      bytes += size;
      const bool isSong = file.kind == PlannedFile::Kind::kSong;
      const bool isFileExact = file.figures == PlannedFile::Figures::kExact;
      if (isFileExact) {
        EXPECT_EQ(size, file.bytes) << file.name;
      }
      isExact = isExact && isFileExact;
      if (isSong) {
        EXPECT_TRUE(isFileExact);
        EXPECT_EQ(file.seconds, SecondsOf(file.source)) << file.name;
        continue;
      }
      const std::uint64_t wav = fs::exists(kEncoder) ? wavSizes_.at(encoded++) : size;
      if (!IsSpoken(file)) {
        EXPECT_EQ(file.seconds, std::lround((double(wav) - 46) / 32000));
      }
    }
    if (!isExact) return;
    for (const auto& entry : fs::directory_iterator(plan_.folder)) {
      if (!IsNumberedName(entry.path().filename().string())) bytes += entry.file_size();
    }
    EXPECT_EQ(plan_.bytes, bytes);
  }

  /// True when the file begins with a name that the update had spoken.
  bool IsSpoken(const PlannedFile& file) const {
    for (const PlannedExercise& exercise : plan_.exercises) {
      if (!exercise.files.empty() && exercise.files[0] == file) {
        const Bytes clip = GetFile(ClipFile(exercise.clips.at(0)));
        return clip.size() < 46 || clip.back() == 's';
      }
    }
    return false;
  }

  void CompareGrowth() const {
    std::vector<std::string> expected;
    const ExerciseSlots saved = DecodeWorkout(GetFile("workouts/" + plan_.workout));
    for (std::size_t i = 0; i < plan_.exercises.size(); ++i) {
      const ExerciseRecord& exercise = saved[static_cast<int>(i)];
      for (const SetGrowth& growth : plan_.exercises[i].growth) {
        expected.push_back("Updated Field " + std::to_string(growth.field) + " in exercise - " +
                           exercise.ExerciseName.Text());
        const bool isFirst = growth.field == 1;
        EXPECT_EQ((isFirst ? exercise.SetValue1 : exercise.SetValue2)[growth.set], growth.to);
        EXPECT_EQ((isFirst ? exercise.NextUpdate1 : exercise.NextUpdate2)[growth.set], kToday);
      }
    }
    EXPECT_EQ(LinesWith("Updated Field"), expected);
  }

  std::vector<std::string> LinesWith(const std::string& beginning) const {
    std::vector<std::string> lines;
    for (const std::string& line : run.log) {
      if (line.starts_with(beginning)) lines.push_back(line);
    }
    return lines;
  }

  void CompareErrors() const {
    std::set<std::string> foreseen;
    std::size_t spoken = 0;
    for (const Problem& problem : plan_.problems) {
      if (problem.severity == Problem::Severity::kError) foreseen.insert(problem.line);
      if (problem.severity == Problem::Severity::kWarning) {
        spoken += problem.kind == Problem::Kind::kNoRecording ? 1 : 0;
      }
    }
    const std::vector<std::string> logged = LinesWith("ERROR");
    EXPECT_THAT(std::set<std::string>(logged.begin(), logged.end()), ContainerEq(foreseen));
    EXPECT_EQ(LinesWith("WARNING: Exercise Instruction file NOT FOUND").size(), spoken);
  }

  UpdatePlan plan_;
  std::vector<std::string> songs_;
  std::vector<std::uint64_t> wavSizes_;
  std::function<void(const ChildCommand&)> encode_;
  std::mt19937 engine_;  // NOLINT(cert-msc32-c,cert-msc51-cpp): a test repeats its numbers.
};

TEST_F(PlanAndUpdate, AgreeForHundredsOfWorkouts) {
  for (unsigned number = 1; number <= 400; ++number) {
    SCOPED_TRACE("workout " + std::to_string(number));
    PlanAndRun(number);
    ComparePlayList();
    CompareNames();
    CompareTags();
    CompareSizesAndTimes();
    CompareGrowth();
    CompareErrors();
    if (HasFailure()) return;
  }
}

class PlannedUpdate : public UpdateFixture {
 protected:
  UpdatePlan Plan() { return PlanUpdate(state, kToday, random); }

  /// Every file with the time of its last change, and its content.
  static std::map<std::string, std::pair<fs::file_time_type, std::string>> FilesNow() {
    std::map<std::string, std::pair<fs::file_time_type, std::string>> files;
    for (const auto& entry : fs::recursive_directory_iterator(".")) {
      files[entry.path()] = {entry.last_write_time(),
                             entry.is_regular_file() ? GetTextFile(entry.path()) : ""};
    }
    return files;
  }

  ExerciseRecord& AddGrowing() {
    ExerciseRecord& exercise = AddExercise("Unheard of");
    AddSet(exercise, 50, 10);
    exercise.SetIncrement1[0] = 2.5F;
    exercise.SetFrequency1[0] = 7;
    exercise.NextUpdate1[0] = kToday - 8;
    return exercise;
  }

  void DrawFrom(const std::string& song, ExerciseRecord& exercise) {
    PutFile(kMusicList, song + "\n");
    state.RandomMusicFiles = 1;
    exercise.RandomMusic = kTrue;
    exercise.TargetExerciseTime = 5;
  }
};

TEST_F(PlannedUpdate, IsEmptyWithoutAWorkout) {
  AddGrowing();
  state.WorkoutFileName = " ";
  const UpdatePlan plan = Plan();
  EXPECT_TRUE(plan.exercises.empty());
  EXPECT_EQ(plan.folder, "");
}

TEST_F(PlannedUpdate, ChangesNothing) {
  PutFile("music/song.mp3", SongBytes(3));
  PutFile("player/Monday/RV001-Old.mp3", "old");
  DrawFrom(Full("music/song.mp3"), AddGrowing());
  SaveWorkout(state);
  const ExerciseSlots workout = state.Workout;
  const auto files = FilesNow();

  Plan();

  EXPECT_EQ(FilesNow(), files);
  EXPECT_EQ(state.Workout, workout);
  EXPECT_TRUE(speech.requests.empty());
  EXPECT_TRUE(processes.started.empty());
}

TEST_F(PlannedUpdate, SaysWhatGrows) {
  AddGrowing();
  const UpdatePlan plan = Plan();
  ASSERT_EQ(plan.exercises.size(), 1U);
  EXPECT_EQ(plan.exercises[0].growth, GrowthOn(state.Workout[0], kToday));
  EXPECT_EQ(plan.exercises[0].sentence, "Unheard of - 1 set, 52.5kg for 10reps");
}

TEST_F(PlannedUpdate, MarksDrawnSongsAsExamples) {
  PutFile("music/song.mp3", SongBytes(3));
  AddSong(AddGrowing(), Full("music/song.mp3"));
  DrawFrom(Full("music/song.mp3"), AddGrowing());
  const UpdatePlan plan = Plan();
  EXPECT_EQ(plan.exercises[0].files.at(1).choice, PlannedFile::Choice::kSet);
  EXPECT_EQ(plan.exercises[1].files.at(1).choice, PlannedFile::Choice::kExample);
}

TEST_F(PlannedUpdate, HasTheTimeOfItsFiles) {
  PutFile("music/song.mp3", SongBytes(3));
  PutFile("voice/exercise/Squat.WAV", ClipBytes(Bytes(128'000, '#')));
  AddSong(AddExercise("Squat"), Full("music/song.mp3"));
  const UpdatePlan plan = Plan();
  EXPECT_EQ(plan.exercises[0].files.at(0).seconds, 4);
  EXPECT_EQ(plan.seconds, 7);
}

TEST_F(PlannedUpdate, EstimatesAnInstructionThatIsYetToBeEncodedOrSpoken) {
  AddNamed("Squat");
  EXPECT_EQ(Plan().exercises[0].files.at(0).figures, PlannedFile::Figures::kEstimated);
  fs::remove(kEncoder);
  EXPECT_EQ(Plan().exercises[0].files.at(0).figures, PlannedFile::Figures::kExact);
  fs::remove("voice/exercise/Squat.WAV");
  EXPECT_EQ(Plan().exercises[0].files.at(0).figures, PlannedFile::Figures::kEstimated);
}

}  // namespace
}  // namespace repvolta
