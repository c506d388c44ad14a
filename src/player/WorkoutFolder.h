#pragma once

#include <string>

#include "base/FolderHandle.h"
#include "player/FolderOwner.h"
#include "player/Keepsakes.h"

namespace repvolta {

/// Finds, clears and creates the folder of a workout on the player.
class WorkoutFolder {
 public:
  /// What may be done in the folder.
  enum class Use { kReplace, kAddOnly, kNothing };

  /// The folder is `workoutName` in `outputPath`; both are checked only by Clear().
  WorkoutFolder(const std::string& outputPath, const std::string& workoutName);

  /// Ends with the separator. Clear() and Create() may change its last part.
  const std::string& Path() const { return path_; }

  /// The last part of the path.
  const std::string& Name() const { return name_; }

  Use WhatFor() const { return use_; }

  /// As OutputFolder::Clear.
  void Clear(const Keepsakes& keep);

  /// What Clear() does, without a deletion: throws why nothing would be deleted, and may change the
  /// last part of the path.
  void TryClear(const Keepsakes& keep);

  /// As OutputFolder::Create.
  void Create();

  /// The folder; not open, with the error in errno, when it cannot be opened.
  FolderHandle Open();

 private:
  enum class NameIs { kPlain, kChanged };
  enum class Clearing { kDone, kTried };

  /// Throws std::runtime_error.
  [[noreturn]] void Refuse(const std::string& why) const;

  std::string Folder() const { return path_.substr(0, path_.size() - 1); }
  void Rename(const std::string& name);
  bool OpenPlace();
  FolderHandle Find();
  bool IsForThis(const FolderOwners& owners, const FolderHandle& folder, std::size_t index) const;
  void ClearOneOf(const std::string& name, NameIs nameIs);
  void Empty(const FolderHandle& folder);
  int Make(const std::string& name);
  int MakeUnder(const std::string& name);
  int MakeUnderAnother(int error);

  std::string workout_;
  std::string name_;
  std::string path_;
  Keepsakes keep_;
  Clearing clearing_ = Clearing::kDone;
  Use use_ = Use::kReplace;
  FolderHandle place_;  // the output path
};

}  // namespace repvolta
