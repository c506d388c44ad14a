#pragma once

#include <memory>

#include "base/Descriptor.h"
#include "platform/MountTable.h"
#include "platform/VolumeAnswers.h"
#include "platform/Volumes.h"

namespace repvolta {

/// Those of the mounts that may hold a person's files, in the order of Volumes::Now. No disk has
/// been asked, so all count as ready.
std::vector<Volume> PersonalVolumes(const std::vector<Mount>& mounts,
                                    const SystemFiles& files = {});

/// The volumes in the system's table of mounts. Needs a QCoreApplication.
class MountedVolumes : public Volumes {
 public:
  explicit MountedVolumes(SystemFiles files = {});
  ~MountedVolumes() override;

  std::vector<Volume> Now() override;
  void OnChange(std::function<void()> tell) override { tell_ = std::move(tell); }

 private:
  void Tell() const;

  SystemFiles files_;
  std::function<void()> tell_;
  VolumeAnswers answers_;
  bool isStale_ = true;  // the table has changed since the disks were asked
  Descriptor table_;
  std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace repvolta
