// What keeps a table or a row out of another maker's file, and what is wrong with one.
#pragma once
#include <string_view>

#include "common/talpena_error.h"

namespace talpena::foreign {

TalpenaError TexteTropLong(std::string_view column);  ///< 3163
TalpenaError LigneTropLongue();                       ///< 3047
TalpenaError NomRefuse(std::string_view name);        ///< 3125
TalpenaError TableExiste(std::string_view table);     ///< 3010
TalpenaError DefinitionRefusee();                     ///< 3001
TalpenaError TropDeColonnes();                        ///< 3190
TalpenaError FichierPlein(std::string_view path);     ///< 3001: at the limit of the format
TalpenaError NonEcrit(std::string_view what);         ///< 3251

TalpenaError TableIntrouvable(std::string_view table);  ///< 3078
TalpenaError FormatInconnu(std::string_view path);      ///< 3343

}  // namespace talpena::foreign
