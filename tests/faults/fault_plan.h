#pragma once

namespace repvolta_faults {

/// The calls of the system that are counted together.
enum Group {
  kOpen,
  kWrite,
  kFlush,
  kRename,
  kMkdir,
  kUnlink,
  kRead,
  kFork,
  kExec,
  kList,
  kMode,
  kStat,
  kClose,
  kLock,
  kAny
};

/// What may come of a call besides an errno value.
constexpr int kShort = -1;
constexpr int kKill = -2;
constexpr int kUntyped = -3;

/// Counts a call and writes it down. 0: it goes on; an errno value: it fails; kShort; kUntyped.
int Count(Group group, const char* what);

/// Counts a call; true when it has to fail, errno is then set.
bool Fails(Group group, const char* what);

/// True when folders do not say what their entries are.
bool HidesTypes();

}  // namespace repvolta_faults
