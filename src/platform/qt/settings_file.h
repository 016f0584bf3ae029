// A file of settings before QSettings touches it, which would wait for what is no file.
#pragma once
#include <QString>

namespace talpena {

/// True when the file can be read without waiting: it is there and ordinary, or absent.
bool EstLisible(const QString& file);

/// Takes away what would make the writing wait: the lock file of a process that is gone, whatever
/// it holds. PathFileAccess (75), naming the place, when a pipe, a device or a folder stands in
/// place of the file or of its lock, or when a running program has held the lock for two seconds.
void PrepareEcriture(const QString& file);

}  // namespace talpena
