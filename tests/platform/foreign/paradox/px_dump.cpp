// Prints a Paradox table as an unrelated library reads it, for the tests to hold ours against.
//
//   px_dump table.db
//
// One line a column: "=", its name and its type as a number, then one line a value, row after row:
// "-" for Null, "i" and a whole number, "d" and the bits of a double, "t" and bytes, both in
// hexadecimal, "?" for values that stand in a memo file, of which the library makes nothing.
#include <cinttypes>
#include <cstdint>
#include <cstdio>
#include <cstring>

extern "C" {
#include <paradox.h>
}

namespace {

void Octets(const char* bytes, int count) {
  std::putchar('t');
  for (int i = 0; i < count; ++i) std::printf("%02x", static_cast<unsigned>(bytes[i]) & 0xFFU);
  std::putchar('\n');
}

void Double(double value) {
  std::uint64_t bits = 0;
  std::memcpy(&bits, &value, sizeof bits);
  std::printf("d%016" PRIx64 "\n", bits);
}

int OctetsDe(const pxfield_t& field) { return field.px_ftype == pxfBCD ? 17 : field.px_flen; }

void EcritDecimal(pxdoc_t* table, char* bytes, const pxfield_t& field) {
  char* digits = nullptr;
  const auto found = PX_get_data_bcd(table, reinterpret_cast<unsigned char*>(bytes),
                                     field.px_fdc != 0 ? field.px_fdc : field.px_flen, &digits);
  if (found <= 0) {
    std::puts("-");
  } else {
    Octets(digits, static_cast<int>(std::strlen(digits)));
  }
}

void EcritValeur(pxdoc_t* table, char* bytes, const pxfield_t& field) {
  double real = 0;
  long whole = 0;
  short small = 0;
  char byte = 0;
  char* text = nullptr;
  switch (field.px_ftype) {
    case pxfAlpha:
      if (PX_get_data_alpha(table, bytes, field.px_flen, &text) <= 0) break;
      return Octets(text, static_cast<int>(std::strlen(text)));
    case pxfShort:
      if (PX_get_data_short(table, bytes, field.px_flen, &small) <= 0) break;
      return static_cast<void>(std::printf("i%d\n", small));
    case pxfDate:
    case pxfLong:
    case pxfTime:
    case pxfAutoInc:
      if (PX_get_data_long(table, bytes, field.px_flen, &whole) <= 0) break;
      return static_cast<void>(std::printf("i%ld\n", whole));
    case pxfCurrency:
    case pxfNumber:
    case pxfTimestamp:
      if (PX_get_data_double(table, bytes, field.px_flen, &real) <= 0) break;
      return Double(real);
    case pxfLogical:
      if (PX_get_data_byte(table, bytes, field.px_flen, &byte) <= 0) break;
      return static_cast<void>(std::printf("i%d\n", byte));
    case pxfBCD:
      return EcritDecimal(table, bytes, field);
    case pxfBytes:
      return Octets(bytes, field.px_flen);
    default:
      std::puts("?");
      return;
  }
  std::puts("-");
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  PX_boot();
  pxdoc_t* const table = PX_new();
  if (table == nullptr || PX_open_file(table, argv[1]) < 0) return 1;
  const int columns = PX_get_num_fields(table);
  for (int i = 0; i < columns; ++i) {
    const pxfield_t* const field = PX_get_field(table, i);
    std::printf("=%s %d\n", field->px_fname, field->px_ftype);
  }
  static char record[65536];
  const int rows = PX_get_num_records(table);
  for (int row = 0; row < rows; ++row) {
    if (PX_get_record(table, row, record) == nullptr) return 1;
    char* place = record;
    for (int i = 0; i < columns; ++i) {
      const pxfield_t* const field = PX_get_field(table, i);
      EcritValeur(table, place, *field);
      place += OctetsDe(*field);
    }
  }
  PX_close(table);
  PX_delete(table);
  PX_shutdown();
  return 0;
}
