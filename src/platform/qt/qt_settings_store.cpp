#include "platform/qt/qt_settings_store.h"

#include <QDir>
#include <QStandardPaths>
#include <QStringList>

#include "common/paths.h"
#include "common/talpena_error.h"
#include "platform/qt/controls.h"
#include "platform/qt/settings_file.h"

using namespace Qt::StringLiterals;

namespace talpena {
namespace {

/// A name with every character that means something to file systems or to QSettings (and the
/// sign that marks them) as "%" and four hexadecimal digits, so that no two names meet.
QString Neutre(std::string_view name) {
  QString out;
  for (const QChar c : EnQt(name)) {
    const bool plain = c.isLetterOrNumber() || u" ._-"_s.contains(c);
    if (plain) {
      out += c;
    } else {
      out += u'%' + QString::number(c.unicode(), 16).rightJustified(4, u'0');
    }
  }
  return out;
}

#ifdef Q_OS_WIN

constexpr QSettings::Format Forme = QSettings::NativeFormat;

QString CheminMagasin(const QString& name) {
  return u"HKEY_CURRENT_USER\\Software\\Talpena\\"_s + name;
}

#else

constexpr QSettings::Format Forme = QSettings::IniFormat;

QString CheminMagasin(const QString& name) {
  const QString folder =
      QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + u"/Talpena/"_s;
  const QString file = name.endsWith(u".ini"_s) ? name : name + u".ini"_s;
  return EnQt(RendNatif((folder + file).toStdString()));
}

#endif

/// The name under which a key stands in the store, in whatever case; as asked when it is absent.
QString CleExistante(const QSettings& store, std::string_view section, std::string_view key) {
  QString wanted = Neutre(section) + u'/' + Neutre(key);
  if (store.contains(wanted)) return wanted;
  const QStringList keys = store.allKeys();
  for (const QString& candidate : keys) {
    if (candidate.compare(wanted, Qt::CaseInsensitive) == 0) return candidate;
  }
  return wanted;
}

/// A text as it was written. A comma that a person typed into the file unquoted makes a list.
QString EnTexte(const QVariant& value) {
  if (value.typeId() == QMetaType::QStringList) return value.toStringList().join(u',');
  return value.toString();
}

void Synchronise(QSettings& store) {
  store.sync();
  if (store.status() != QSettings::AccessError) return;
  const std::string path = QDir::toNativeSeparators(store.fileName()).toStdString();
  throw TalpenaError(ErrorNumber::PathFileAccess, "Path/File access error: " + path,
                     {.about = {path}});
}

/// What stands there is not written anew: windows write on their way to the screen, and the disk
/// may be slow.
void Pose(QSettings& store, std::string_view section, std::string_view key, std::string_view text) {
  const QString name = CleExistante(store, section, key), wanted = EnQt(text);
  const QVariant stands = store.value(name);
  if (!stands.isValid() || EnTexte(stands) != wanted) store.setValue(name, wanted);
}

}  // namespace

QSettings* QtSettingsStore::Application(std::string_view name) {
  const QString neutral = Neutre(name).toLower();
  std::unique_ptr<QSettings>& store = applications_[neutral];
  const QString path = CheminMagasin(neutral);
  if (!store && EstLisible(path)) store = std::make_unique<QSettings>(path, Forme);
  return store.get();
}

QSettings& QtSettingsStore::PourEcrire(std::string_view name) {
  PrepareEcriture(CheminMagasin(Neutre(name).toLower()));
  QSettings& store = *Application(name);  // what can be written can be read
  store.sync();                           // another program may have written meanwhile
  return store;
}

std::string QtSettingsStore::Lit(std::string_view application, std::string_view section,
                                 std::string_view key, std::string_view defaultText) {
  const QSettings* store = Application(application);
  if (store == nullptr) return std::string(defaultText);
  const QVariant value = store->value(CleExistante(*store, section, key));
  return value.isValid() ? EnTexte(value).toStdString() : std::string(defaultText);
}

void QtSettingsStore::Ecrit(std::string_view application, std::string_view section,
                            std::string_view key, std::string_view text) {
  QSettings& store = PourEcrire(application);
  Pose(store, section, key, text);
  Synchronise(store);
}

void QtSettingsStore::EcritTout(std::string_view application,
                                std::span<const SettingEntry> entries) {
  QSettings& store = PourEcrire(application);
  for (const SettingEntry& e : entries) Pose(store, e.section, e.key, e.text);
  Synchronise(store);
}

}  // namespace talpena
