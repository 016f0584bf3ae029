#include "platform/foreign/jet_extract.h"

#include <sys/mman.h>
#include <sys/stat.h>

#include <array>
#include <cstring>
#include <span>
#include <stdexcept>
#include <string>

#if defined(__GNUC__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wpedantic"
#endif
#include <mdbtools.h>
#if defined(__GNUC__)
#pragma GCC diagnostic pop
#endif

namespace talpena {
namespace {

// Memory that libmdb gives is never freed here: the process ends with the answer, and freeing
// the structures of a damaged file is one more risk.

/// Ends the work: what was read makes no sense. The missing end mark tells the parent.
struct Endommage : std::runtime_error {
  Endommage() : std::runtime_error("damaged") {}
};

void Exige(bool sound) {
  if (!sound) throw Endommage();
}

/// What of a file was not yet handed on.
class Reserve {
 public:
  explicit Reserve(std::size_t octets) : reste_(octets) {}
  /// Ends the work where the file has no more.
  void Prend(std::size_t octets) {
    Exige(octets <= reste_);
    reste_ -= octets;
  }

 private:
  std::size_t reste_;
};

constexpr int effacee = 0x4000;       // of a row's offset: deleted, or moved to another page
constexpr int masqueOffset = 0x1FFF;  // what remains is the offset
constexpr std::size_t enteteMemo = 12;
constexpr std::size_t lienMemo = 4;

void EcritNombre(Tuyau& out, std::uint32_t value) {
  char bytes[sizeof value];
  std::memcpy(bytes, &value, sizeof value);
  out.Ecrit({bytes, sizeof bytes});
}

void EcritTexte(Tuyau& out, std::string_view text) {
  EcritNombre(out, static_cast<std::uint32_t>(text.size()));
  out.Ecrit(text);
}

void EcritMarque(Tuyau& out, TrameJet mark) {
  const char c = static_cast<char>(mark);
  out.Ecrit({&c, 1});
}

/// The name in an array of fixed size, whether or not its end is marked.
template <std::size_t Size>
std::string_view Nom(const char (&name)[Size]) {
  return {name, strnlen(name, Size)};
}

void DonneSigne(Tuyau& out) { out.DonneSigne(static_cast<char>(TrameJet::Vie)); }

template <typename Element>
std::span<Element*> Elements(GPtrArray* array) {
  if (array == nullptr) return {};
  return {reinterpret_cast<Element**>(array->pdata), array->len};
}

/// A file through the library, by a private view that it cannot write through.
class Base {
 public:
  explicit Base(const FichierJet& file) : taille_(file.taille) {
    struct stat now {};
    Exige(fstat(file.fd, &now) == 0 && static_cast<std::size_t>(now.st_size) >= taille_);
    vue_ = mmap(nullptr, taille_, PROT_READ, MAP_PRIVATE, file.fd, 0);
    Exige(vue_ != MAP_FAILED);
    mdb_ = mdb_open_buffer(vue_, taille_, MDB_NOFLAGS);
    Exige(mdb_ != nullptr);
  }

  MdbHandle* Mdb() const { return mdb_; }
  std::size_t Taille() const { return taille_; }
  /// Gives back the memory of what was read so far: of a large file it would all be kept.
  void Oublie() const { madvise(vue_, taille_, MADV_DONTNEED); }

 private:
  std::size_t taille_;
  void* vue_ = nullptr;
  MdbHandle* mdb_ = nullptr;
};

std::span<MdbCatalogEntry*> Catalogue(MdbHandle* mdb) {
  GPtrArray* entries = mdb_read_catalog(mdb, MDB_ANY);
  Exige(entries != nullptr);
  return Elements<MdbCatalogEntry>(entries);
}

MdbTableDef* LitTable(MdbCatalogEntry* entry, const LimitesJet& limits) {
  MdbTableDef* table = mdb_read_table(entry);
  Exige(table != nullptr);
  Exige(table->num_cols <= limits.colonnes && table->num_rows <= limits.lignes);
  const auto columns = Elements<MdbColumn>(mdb_read_columns(table));
  Exige(columns.size() == table->num_cols);
  return table;
}

void EcritNom(const MdbCatalogEntry& entry, Tuyau& out) {
  EcritNombre(out, static_cast<std::uint32_t>(entry.table_pg));
  EcritNombre(out, static_cast<std::uint32_t>(entry.flags));
  EcritTexte(out, Nom(entry.object_name));
}

void EcritTable(const MdbCatalogEntry& entry, const MdbTableDef& table, Tuyau& out) {
  EcritMarque(out, TrameJet::Table);
  EcritNom(entry, out);
  EcritNombre(out, static_cast<std::uint32_t>(table.num_rows));
  EcritNombre(out, table.num_cols);
  for (const MdbColumn* column : Elements<MdbColumn>(table.columns)) {
    EcritNombre(out, static_cast<std::uint32_t>(column->col_type));
    EcritNombre(out, static_cast<std::uint32_t>(column->col_size));
    EcritNombre(out, static_cast<std::uint32_t>(column->col_scale));
    EcritNombre(out, column->is_long_auto);
    EcritTexte(out, Nom(column->name));
  }
}

/// One row at a time, from the page that the library has read.
class Lignes {
 public:
  Lignes(const Base& base, MdbTableDef* table, const LimitesJet& limits, Tuyau& out)
      : base_(base),
        mdb_(base.Mdb()),
        table_(table),
        columns_(Elements<MdbColumn>(table->columns)),
        pages_(base.Taille()),
        valeurs_(base.Taille()),
        limits_(limits),
        out_(out) {}

  void EcritToutes() {
    while (mdb_read_next_dpg(table_) != 0) {
      pages_.Prend(static_cast<std::size_t>(mdb_->fmt->pg_size));
      EcritPage();
      DonneSigne(out_);
      if (++lues_ % pagesGardees == 0) base_.Oublie();
    }
    // The library passes over pages that it cannot read; the table's own count tells.
    Exige(ecrites_ >= table_->num_rows);
  }

 private:
  void EcritPage() {
    const int rows = mdb_get_int16(mdb_->pg_buf, mdb_->fmt->row_count_offset);
    for (int row = 0; row < rows; ++row) {
      int start = 0;
      std::size_t size = 0;
      Exige(mdb_find_row(mdb_, row, &start, &size) != -1);
      if ((start & effacee) != 0 || size == 0) continue;
      EcritLigne(start & masqueOffset, size);
    }
  }

  void EcritLigne(int start, std::size_t size) {
    std::array<MdbField, MDB_MAX_COLS> fields{};
    Exige(mdb_crack_row(table_, start, size, fields.data()) >= 0);
    Exige(++ecrites_ <= limits_.lignes);
    ligne_.clear();
    for (std::size_t i = 0; i < columns_.size(); ++i) Ajoute(*columns_[i], fields[i]);
    EcritMarque(out_, TrameJet::Ligne);
    EcritTexte(out_, ligne_);
  }

  void Ajoute(const MdbColumn& column, const MdbField& field) {
    if (column.col_type == MDB_BOOL) {  // a bit in the file
      Ajoute(std::string_view(field.is_null != 0 ? "\0" : "\1", 1));
    } else if (field.is_null != 0) {
      AjouteLongueur(absentJet);
    } else if (column.col_type == MDB_MEMO || column.col_type == MDB_OLE) {
      AjouteValeur(Memo(Octets(field)));
    } else {
      AjouteValeur(Octets(field));
    }
  }

  void AjouteValeur(std::string_view bytes) {
    valeurs_.Prend(bytes.size());
    Ajoute(bytes);
  }

  void Ajoute(std::string_view bytes) {
    AjouteLongueur(static_cast<std::uint32_t>(bytes.size()));
    ligne_ += bytes;
  }

  void AjouteLongueur(std::uint32_t length) {
    char bytes[sizeof length];
    std::memcpy(bytes, &length, sizeof length);
    ligne_.append(bytes, sizeof bytes);
  }

  std::string_view Octets(const MdbField& field) const {
    Exige(field.start >= 0 && field.siz >= 0 && field.start + field.siz <= mdb_->fmt->pg_size);
    return Page(mdb_->pg_buf)
        .substr(static_cast<std::size_t>(field.start), static_cast<std::size_t>(field.siz));
  }

  std::string_view Page(const unsigned char* buffer) const {
    return {reinterpret_cast<const char*>(buffer), static_cast<std::size_t>(mdb_->fmt->pg_size)};
  }

  /// A long value: in the row itself, in one row of another page, or in a chain of such rows.
  std::string Memo(std::string_view head) {
    if (head.empty()) return {};
    Exige(head.size() >= enteteMemo);
    constexpr std::uint32_t inRow = 0x80000000, inOneRow = 0x40000000, kinds = 0xC0000000;
    const std::uint32_t word = Mot(head);
    const std::size_t length = word & ~kinds;
    Exige(length <= limits_.octetsMemo);
    if ((word & inRow) != 0) return std::string(head.substr(enteteMemo, length));
    std::uint32_t place = Mot(head.substr(4));
    if ((word & inOneRow) != 0) return std::string(LigneMemo(place).substr(0, length));
    std::string whole;
    while (place != 0 && whole.size() < length) {
      const std::string_view part = LigneMemo(place);
      Exige(part.size() > lienMemo);
      place = Mot(part);
      whole += part.substr(lienMemo);
    }
    Exige(whole.size() >= length);
    whole.resize(length);
    return whole;
  }

  std::string_view LigneMemo(std::uint32_t place) {
    void* buffer = nullptr;
    int start = 0;
    std::size_t size = 0;
    Exige(mdb_find_pg_row(mdb_, static_cast<int>(place), &buffer, &start, &size) == 0);
    const auto from = static_cast<std::size_t>(start & masqueOffset);
    const std::string_view page = Page(static_cast<const unsigned char*>(buffer));
    Exige(from + size <= page.size());
    return page.substr(from, size);
  }

  static std::uint32_t Mot(std::string_view bytes) {
    std::uint32_t value = 0;
    for (std::size_t i = 4; i-- > 0;) value = value << 8 | static_cast<unsigned char>(bytes[i]);
    return value;
  }

  static constexpr std::size_t pagesGardees = 2048;

  const Base& base_;
  MdbHandle* mdb_;
  MdbTableDef* table_;
  std::span<MdbColumn*> columns_;
  Reserve pages_;
  Reserve valeurs_;
  const LimitesJet& limits_;
  Tuyau& out_;
  std::size_t lues_ = 0;  ///< pages
  std::size_t ecrites_ = 0;
  std::string ligne_;
};

}  // namespace

void ExtraitTables(const FichierJet& file, const LimitesJet& limits, Tuyau& out) {
  const Base base(file);
  MdbHandle* mdb = base.Mdb();
  Reserve pages(file.taille);
  std::size_t tables = 0;
  std::size_t others = 0;
  for (MdbCatalogEntry* entry : Catalogue(mdb)) {
    DonneSigne(out);
    if (mdb_is_user_table(entry) != 0) {
      Exige(++tables <= limits.tables);
      pages.Prend(static_cast<std::size_t>(mdb->fmt->pg_size));  // that of its definition
      EcritTable(*entry, *LitTable(entry, limits), out);
    } else if (entry->object_type == MDB_TABLE || entry->object_type == MDB_QUERY) {
      Exige(++others <= limits.autres);
      EcritMarque(out, entry->object_type == MDB_QUERY ? TrameJet::Requete : TrameJet::Systeme);
      EcritNom(*entry, out);
    }
  }
  EcritMarque(out, TrameJet::Fin);
}

namespace {

/// A table by its page: the catalogue itself is not read anew for each of its tables.
MdbCatalogEntry EntreeDe(MdbHandle* mdb, std::uint32_t page) {
  MdbCatalogEntry entry{};
  entry.mdb = mdb;
  entry.object_type = MDB_TABLE;
  entry.table_pg = page;
  return entry;
}

}  // namespace

void ExtraitLignes(const FichierJet& file, std::uint32_t page, const LimitesJet& limits,
                   Tuyau& out) {
  const Base base(file);
  MdbCatalogEntry entry = EntreeDe(base.Mdb(), page);
  Lignes(base, LitTable(&entry, limits), limits, out).EcritToutes();
  EcritMarque(out, TrameJet::Fin);
}

void ExtraitTable(const FichierJet& file, std::uint32_t page, const LimitesJet& limits,
                  Tuyau& out) {
  const Base base(file);
  MdbCatalogEntry entry = EntreeDe(base.Mdb(), page);
  entry.object_name[0] = '?';
  MdbTableDef* table = LitTable(&entry, limits);
  EcritTable(entry, *table, out);
  Lignes(base, table, limits, out).EcritToutes();
  EcritMarque(out, TrameJet::Fin);
}

}  // namespace talpena
