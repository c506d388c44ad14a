#pragma once

#include <string>
#include <vector>

// The kinds of the program's work that are measured and counted, each over many files.

namespace repvolta::bench {

/// The sum of the files' play times. A file without a valid play time counts as 0.
int PlayTimes(const std::vector<std::string>& files);

/// Copies the songs into the folder with their tags, as an update does.
void CopyAndTag(const std::vector<std::string>& songs, const std::string& folder);

/// Copies each song and then tags the copy, in as many passes as that takes.
void CopyThenTag(const std::vector<std::string>& songs, const std::string& folder);

/// Plans an update of a workout with the songs, ten an exercise. The current folder is the program
/// directory.
void PlanSongs(const std::vector<std::string>& songs);

/// Appends the clips to the target.
void JoinClips(const std::string& target, const std::vector<std::string>& clips);

/// Draws a song from the `lines` of the music list in the current folder; none is in range.
void DrawInVain(int lines);

/// The files below a folder that have this extension, in order.
std::vector<std::string> FilesBelow(const std::string& folder, const std::string& extension);

/// The recorded clips of a long instruction, from the folder of clips.
std::vector<std::string> SixtyClips(const std::string& clipFolder);

}  // namespace repvolta::bench
