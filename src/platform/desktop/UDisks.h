#pragma once

#include <QDBusConnection>
#include <QDBusPendingCall>
#include <QObject>
#include <chrono>
#include <optional>

#include "platform/Disks.h"
#include "platform/Mailbox.h"
#include "platform/MountTable.h"
#include "platform/desktop/EjectionPlan.h"

namespace repvolta {

struct UDisksSettings {
  SystemFiles files = {};
  QString bus = {};  // its address; empty for the system's
  std::chrono::milliseconds askLimit = std::chrono::seconds(5);
  std::chrono::milliseconds callLimit = std::chrono::minutes(2);  // unmounting writes first
};

/// The disks of this computer, ejected by the service UDisks2. Needs a QCoreApplication.
class UDisks : public Disks {
 public:
  explicit UDisks(UDisksSettings settings = {});
  ~UDisks() override;

  void Ask(const std::string& folder, std::function<void(const Ejection&)> tell) override;
  void Eject(const std::string& folder,
             std::function<void(const std::string& failure)> tell) override;

 private:
  using TakePlan = std::function<void(const EjectionPlan&)>;

  void Plan(const std::string& folder, TakePlan take);
  void Connect(int question);
  void Keep(const QDBusConnection& connection);
  void AskService(int question);
  void Answer(int question, const EjectionPlan& plan);
  void AnswerFailure(int question, const QString& error, const QString& text);
  void CallNext(int question, std::function<void(const std::string& failure)> tell);
  QDBusPendingCall Send(const EjectionCall& call) const;

  UDisksSettings settings_;
  QObject context_;  // ends what is to be called back
  Mailbox mailbox_;
  std::optional<QDBusConnection> connection_;
  int question_ = 0;  // the newest call; answers to older ones are dropped
  TakePlan takePlan_;
  Mount mount_;
  std::string label_;
  std::string folder_;               // of the ejection that has begun
  std::vector<EjectionCall> calls_;  // those that are left of it
  bool hasBegun_ = false;
};

}  // namespace repvolta
