// What can be done about the record that ends the import of a list, as far as the record tells.
#pragma once
#include "common/talpena_error.h"
#include "platform/field_reader.h"

namespace talpena {

/// The failure with words of what can be done as its hint, where its record shows what is wrong: a
/// line of headings, another separator, UTF-16, quotes within quotes, fields too many or too few.
///
/// @param fields  as the failure left them
/// @param first   no record came before
TalpenaError AvecRemede(const TalpenaError& failure, const FieldReader& fields, bool first);

}  // namespace talpena
