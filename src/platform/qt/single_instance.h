// One running program per user.
#pragma once
#include <QString>
#include <memory>

class QFile;
class QLockFile;

namespace talpena {

/// Holds a lock that the system takes back when the process ends, in whatever way: what a
/// crashed run left behind never stands in the way of the next.
class SingleInstance {
 public:
  /// The lock lies in the private folder of the user's cache, whatever the session; where that
  /// cannot be made, in the folder of the session.
  SingleInstance();
  /// With a lock file of one's own.
  explicit SingleInstance(const QString& lockFile);
  SingleInstance(const SingleInstance&) = delete;
  SingleInstance& operator=(const SingleInstance&) = delete;
  ~SingleInstance();

  /// False while another process of this user holds the lock. True when this one has it now, and
  /// also when no lock can be made at all (a read-only disk): that must not keep the user out.
  bool Acquiert();

 private:
  QString path_;
  std::unique_ptr<QFile> file_;      ///< where the system locks open files
  std::unique_ptr<QLockFile> lock_;  ///< elsewhere
};

}  // namespace talpena
