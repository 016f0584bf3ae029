// A table of another maker that is kept between openings, so that it is read once.
#pragma once
#include <memory>

#include "platform/foreign_format.h"

namespace talpena::sqlite {

/// The copy of a table, for reading; null when there is none that can be read. A damaged one is
/// taken away, also when a statement meets the damage, which then fails by UnrecognizedFormat
/// (3343): the next opening reads the maker's file anew.
std::unique_ptr<Database> OuvreCopie(const KeptTable& kept);

/// The maker's database. Its rows go into a file of the folder of copies, which becomes the copy
/// once a statement has named the table. Where there is no such folder it is read as any other.
std::unique_ptr<Database> OuvreEnGardant(std::unique_ptr<ForeignDatabase> foreign,
                                         const KeptTable& kept);

}  // namespace talpena::sqlite
