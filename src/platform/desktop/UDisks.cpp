#include "platform/desktop/UDisks.h"

#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QTimer>
#include <atomic>
#include <filesystem>
#include <thread>
#include <utility>

#include "platform/DiskOfMount.h"

namespace repvolta {
namespace {

constexpr const char* kService = "org.freedesktop.UDisks2";
constexpr const char* kManager = "/org/freedesktop/UDisks2";
constexpr const char* kNotMounted = "org.freedesktop.UDisks2.Error.NotMounted";

int Milliseconds(std::chrono::milliseconds limit) { return static_cast<int>(limit.count()); }

std::string WithoutLinks(const std::string& path) {
  std::error_code error;
  const std::filesystem::path real = std::filesystem::canonical(path, error);
  return error ? path : real.string();
}

/// True when the program lies on the disk, or the folder that it works in.
bool HoldsProgram(const std::vector<Mount>& mounts, const Mount& disk) {
  for (const char* own : {"/proc/self/exe", "/proc/self/cwd"}) {
    const auto mount = MountOf(mounts, WithoutLinks(own));
    if (mount && mount->point == disk.point) return true;
  }
  return false;
}

/// Waits until the bus has answered, which a broken one never does.
QDBusConnection NewConnection(const QString& bus) {
  static std::atomic<int> count = 0;
  const QString name = QStringLiteral("repvolta-disks-%1").arg(++count);
  return bus.isEmpty() ? QDBusConnection::connectToBus(QDBusConnection::SystemBus, name)
                       : QDBusConnection::connectToBus(bus, name);
}

/// Calls `take` with the reply, unless `context` has ended.
void WhenFinished(const QDBusPendingCall& call, QObject& context,
                  std::function<void(const QDBusPendingCall&)> take) {
  auto* watcher = new QDBusPendingCallWatcher(call, &context);
  QObject::connect(watcher, &QDBusPendingCallWatcher::finished, &context,
                   [watcher, take = std::move(take)] {
                     watcher->deleteLater();
                     take(*watcher);
                   });
}

}  // namespace

UDisks::UDisks(UDisksSettings settings) : settings_(std::move(settings)) {
  qDBusRegisterMetaType<QMap<QString, QVariantMap>>();
  qDBusRegisterMetaType<UDisksObjects>();
}

UDisks::~UDisks() {
  if (connection_) QDBusConnection::disconnectFromBus(connection_->name());
}

void UDisks::Ask(const std::string& folder, std::function<void(const Ejection&)> tell) {
  calls_.clear();
  Plan(folder, [tell = std::move(tell)](const EjectionPlan& plan) { tell(plan.ejection); });
}

void UDisks::Eject(const std::string& folder,
                   std::function<void(const std::string& failure)> tell) {
  if (hasBegun_ && folder == folder_ && !calls_.empty()) {
    CallNext(++question_, std::move(tell));
    return;
  }
  Plan(folder, [this, folder, tell = std::move(tell)](const EjectionPlan& plan) {
    if (plan.ejection.state == Ejection::State::kPossible) {
      folder_ = folder;
      calls_ = plan.calls;
      hasBegun_ = false;
      CallNext(question_, tell);
    } else {
      tell(plan.ejection.reason);
    }
  });
}

/// Calls `take` once, after the limit at the latest.
void UDisks::Plan(const std::string& folder, TakePlan take) {
  const int question = ++question_;
  takePlan_ = std::move(take);
  const std::vector<Mount> mounts = ReadMounts(settings_.files);
  const auto mount = MountOf(mounts, WithoutLinks(folder));
  if (!mount || mount->point == "/" || !IsOnRemovableDisk(*mount, settings_.files)) {
    mailbox_.Poster()([this, question] { Answer(question, {}); });
    return;
  }
  mount_ = *mount;
  label_ = LabelOf(*mount, settings_.files);
  if (HoldsProgram(mounts, *mount)) {
    mailbox_.Poster()([this, question] {
      Answer(question,
             {{Ejection::State::kRefused, label_, "Repvolta itself works on " + label_ + "."}, {}});
    });
    return;
  }
  QTimer::singleShot(settings_.askLimit, &context_,
                     [this, question] { AnswerFailure(question, kNoReply, {}); });
  Connect(question);
}

void UDisks::Connect(int question) {
  if (connection_ && connection_->isConnected()) return AskService(question);
  std::thread([this, post = mailbox_.Poster(), bus = settings_.bus, question] {
    post([this, question, connection = NewConnection(bus)] {
      Keep(connection);
      AskService(question);
    });
  }).detach();
}

/// An older question may have got its connection meanwhile, and calls may be under way on it.
void UDisks::Keep(const QDBusConnection& connection) {
  const bool hasOne = connection_ && connection_->isConnected();
  const QString unused = hasOne ? connection.name() : connection_ ? connection_->name() : QString();
  if (!hasOne) connection_ = connection;
  if (!unused.isEmpty()) QDBusConnection::disconnectFromBus(unused);
}

void UDisks::AskService(int question) {
  if (!connection_->isConnected()) return AnswerFailure(question, kNoService, {});
  const QDBusMessage message = QDBusMessage::createMethodCall(
      kService, kManager, "org.freedesktop.DBus.ObjectManager", "GetManagedObjects");
  const auto call = connection_->asyncCall(message, Milliseconds(settings_.askLimit));
  WhenFinished(call, context_, [this, question](const QDBusPendingCall& finished) {
    const QDBusPendingReply<UDisksObjects> reply(finished);
    if (reply.isError()) {
      AnswerFailure(question, reply.error().name(), reply.error().message());
    } else {
      Answer(question, PlanEjection(reply.value(), mount_, label_));
    }
  });
}

void UDisks::Answer(int question, const EjectionPlan& plan) {
  if (question != question_ || !takePlan_) return;
  std::exchange(takePlan_, {})(plan);
}

void UDisks::AnswerFailure(int question, const QString& error, const QString& text) {
  Answer(question, {{Ejection::State::kRefused, label_, ReasonOf(error, text, label_)}, {}});
}

QDBusPendingCall UDisks::Send(const EjectionCall& call) const {
  QDBusMessage message =
      QDBusMessage::createMethodCall(kService, call.object, call.interface, call.method);
  message << QVariantMap();
  // The desktop asks for a password where one is needed.
  message.setInteractiveAuthorizationAllowed(true);
  return connection_->asyncCall(message, Milliseconds(settings_.callLimit));
}

void UDisks::CallNext(int question, std::function<void(const std::string& failure)> tell) {
  if (calls_.empty()) {
    hasBegun_ = false;
    tell({});
    return;
  }
  WhenFinished(Send(calls_.front()), context_,
               [this, question, tell = std::move(tell)](const QDBusPendingCall& finished) {
                 if (question != question_) return;
                 const QDBusError error = finished.error();
                 if (!error.isValid() || error.name() == kNotMounted) {
                   calls_.erase(calls_.begin());
                   hasBegun_ = true;
                   return CallNext(question, tell);
                 }
                 const std::string reason = ReasonOf(error.name(), error.message(), label_);
                 tell(hasBegun_ ? label_ +
                                      " is unmounted and holds all its files, but it could "
                                      "not be switched off. " +
                                      reason
                                : reason);
               });
}

}  // namespace repvolta
