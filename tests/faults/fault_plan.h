#pragma once

namespace repvolta_faults {

/// The groups in which system calls are counted.
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

/// The results of a call besides an errno value.
constexpr int kShort = -1;
constexpr int kKill = -2;
constexpr int kUntyped = -3;

/// Counts and traces a call. Returns 0 when it may go on, an errno value when it must fail, or
/// kShort or kUntyped.
int Count(Group group, const char* what);

/// Counts a call; true, with errno set, when it must fail.
bool Fails(Group group, const char* what);

/// True when folders must not report the types of their entries.
bool HidesTypes();

}  // namespace repvolta_faults
