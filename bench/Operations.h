#pragma once

#include <string>
#include <vector>

// The program's work as it is measured and counted, each over many files.

namespace repvolta::bench {

/// The play times of the files, added up. One that is no fit for a play time counts as 0.
int PlayTimes(const std::vector<std::string>& files);

/// Copies the songs into the folder with their tags, as an update does.
void CopyAndTag(const std::vector<std::string>& songs, const std::string& folder);

/// Copies each song first and tags the copy then, in as many passes as that takes.
void CopyThenTag(const std::vector<std::string>& songs, const std::string& folder);

/// Appends the clips to the target.
void JoinClips(const std::string& target, const std::vector<std::string>& clips);

/// Draws a song from the `lines` of the music list in the current folder; none is in range.
void DrawInVain(int lines);

/// The files below a folder that have this extension, in order.
std::vector<std::string> FilesBelow(const std::string& folder, const std::string& extension);

/// The recorded clips that a long instruction would be made of, from the folder of clips.
std::vector<std::string> SixtyClips(const std::string& clipFolder);

}  // namespace repvolta::bench
