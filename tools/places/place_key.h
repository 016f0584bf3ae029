// The key that places are searched by in the gazetteer that ships.
#pragma once
#include <string>
#include <string_view>

namespace talpena {

/// A name as its plain form: capitals A to Z and digits alone, letters without their accents, no
/// blank, hyphen or apostrophe. "Łódź" gives LODZ, "Saint-Ghislain" SAINTGHISLAIN, a name in
/// another script the empty text.
std::string CleDeLieu(std::string_view nameUtf8);

}  // namespace talpena
