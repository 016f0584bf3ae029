// Pictures of the windows, for machines without a display.
#pragma once
#include <QObject>
#include <QString>
#include <memory>

#include "platform/platform.h"
#include "shell/process_state.h"

namespace talpena {

class Form1;

/// Saves PNG pictures of every window into a folder, in each language, in light and in dark:
/// "main_en.png", "main_en_dark.png", ... False when one could not be written.
bool PrendImages(Form1& form, const QString& folder);

/// For as long as it is kept, every box that comes up is pictured and closed, so that nobody has
/// to answer it.
std::unique_ptr<QObject> FermeBoites(const QString& folder);

}  // namespace talpena
