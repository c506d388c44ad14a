#pragma once

#include <QDBusObjectPath>
#include <QMap>
#include <QString>
#include <QVariantMap>
#include <string>
#include <vector>

#include "platform/Disks.h"
#include "platform/MountTable.h"

namespace repvolta {

/// The objects of UDisks2: for each path its interfaces with their properties.
using UDisksObjects = QMap<QDBusObjectPath, QMap<QString, QVariantMap>>;

/// A call of UDisks2. Its only argument are options.
struct EjectionCall {
  QString object;
  QString interface;
  QString method;

  bool operator==(const EjectionCall&) const = default;
};

/// What can be done about a disk, and how.
struct EjectionPlan {
  Ejection ejection;
  std::vector<EjectionCall> calls;  // in this order; empty unless ejection is possible
};

/// How to eject the removable disk with this mount, which people call `label`.
EjectionPlan PlanEjection(const UDisksObjects& objects, const Mount& mount,
                          const std::string& label);

/// As a sentence why a call failed: by the name of its error, and the service's own text for an
/// unknown one.
std::string ReasonOf(const QString& error, const QString& text, const std::string& label);

/// The name of the error of a service that answers too late, or that nobody can start.
inline constexpr const char* kNoReply = "org.freedesktop.DBus.Error.NoReply";
inline constexpr const char* kNoService = "org.freedesktop.DBus.Error.ServiceUnknown";

}  // namespace repvolta
