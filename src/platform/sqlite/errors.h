// The table engine's failures: its own numbers and texts, and SQLite's result codes as these.
#pragma once
#include <string>
#include <string_view>

#include "common/talpena_error.h"

struct sqlite3;

namespace talpena::sqlite {

TalpenaError DisquePlein(std::string_view path);  ///< 61: that of a file of the user's
TalpenaError AppelInvalide();                     ///< 5
TalpenaError Debordement();                       ///< 6
TalpenaError AccesRefuse(std::string_view path);  ///< 75
TalpenaError ArgumentInvalide();                  ///< 3001
TalpenaError TableExiste(std::string_view table);
TalpenaError SansEdition();                              ///< 3020
TalpenaError PasDeLigne();                               ///< 3021
TalpenaError CleEnDouble();                              ///< 3022
TalpenaError FichierIntrouvable(std::string_view path);  ///< 3024
TalpenaError LectureSeule();                             ///< 3027
TalpenaError PasDeTransaction();                         ///< 3034
TalpenaError TableIntrouvable(std::string_view table);
TalpenaError RequeteSansTexte(std::string_view query);
TalpenaError RequeteCirculaire(std::string_view query);  ///< 3102
TalpenaError SignetInvalide();                           ///< 3159
TalpenaError TropLong();                                 ///< 3163
TalpenaError ChampFige();                                ///< 3164
TalpenaError LigneSupprimee();                           ///< 3167
TalpenaError NonPrevu(std::string_view what);            ///< 3251
TalpenaError ChampIntrouvable();                         ///< 3265
TalpenaError NullRefuse(std::string_view table, std::string_view field);
TalpenaError VideRefuse(std::string_view table, std::string_view field);
TalpenaError FormatInconnu(std::string_view path);
TalpenaError TropComplexe();          ///< 3360
TalpenaError ConversionImpossible();  ///< 3421
TalpenaError MotifInvalide();         ///< 93

/// The failure that a result code of SQLite stands for; `db` may be null.
TalpenaError ErreurSqlite(sqlite3* db, int resultCode);

}  // namespace talpena::sqlite
