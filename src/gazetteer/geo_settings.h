// The members Geo* of the settings as one set-up.
#pragma once
#include <array>
#include <string>
#include <string_view>

#include "gazetteer/setup_file.h"
#include "platform/foreign_format.h"
#include "platform/settings_state.h"

namespace talpena {

/// Where the settings keep the name of a list's table or field.
std::string& NomGeo(SettingsState& state, GeoList list);
PerGeoList<std::string> NomsGeo(const SettingsState& state);

/// File, connect string, datum and all names.
void PrendReglages(SettingsState& state, const SetupFile& setup);

/// The beginning of a statement over the table, whose name is put in brackets unless it has them.
std::string ToutesLesLignes(const SettingsState& settings);

/// Formats whose tables are files of one folder.
struct FolderFormat {
  std::string_view connect;
  std::string_view extension;
};
inline constexpr std::array FolderFormats{FolderFormat{Connect::DBase4, ".DBF"},
                                          FolderFormat{Connect::Paradox4, ".DB"}};
inline constexpr std::string_view AccessExtension = ".MDB";

/// An extension in capitals stands anywhere in a path.
bool ContientExtension(std::string_view path, std::string_view extension);

/// The connect string that the extension of a file asks for; `before` for any other.
std::string ConnectDuFichier(std::string_view path, const std::string& before);

}  // namespace talpena
