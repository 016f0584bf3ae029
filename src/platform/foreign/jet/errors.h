// What keeps a table or a row out of an Access file.
#pragma once
#include <string_view>

#include "common/talpena_error.h"

namespace talpena::jet {

TalpenaError TexteTropLong(std::string_view column);  ///< 3163
TalpenaError LigneTropLongue();                       ///< 3047
TalpenaError NomRefuse(std::string_view name);        ///< 3125
TalpenaError TableExiste(std::string_view table);     ///< 3010
TalpenaError DefinitionRefusee();                     ///< 3001
TalpenaError TropDeColonnes();                        ///< 3190
TalpenaError FichierPlein(std::string_view path);     ///< 3001: at the limit of the format
TalpenaError NonEcrit(std::string_view what);         ///< 3251

}  // namespace talpena::jet
