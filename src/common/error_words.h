// What the user is told of a failure.
#pragma once
#include <cstdint>
#include <string>

#include "common/talpena_error.h"

namespace talpena {

/// In the language of the interface (see Texte): the failure's own words or those of its number,
/// with what it is about and the line of the file that it stands on. A number without words, or a
/// failure that does not tell what they are about, gives the description. Never throws
/// TalpenaError.
std::string DescriptionErreur(std::int16_t langue, const TalpenaError& error);

}  // namespace talpena
