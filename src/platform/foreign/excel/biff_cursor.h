// Walks over the records of a workbook stream.
#pragma once
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "platform/foreign/excel/biff_records.h"
#include "platform/foreign/excel/byte_source.h"

namespace talpena::excel {

/// Stands on a record or, at first and after Va, ahead of one. Reading behind the end of the stream
/// or of a record's bytes is a damaged file (ByteSource::Refuse).
class BiffCursor {
 public:
  BiffCursor(std::shared_ptr<ByteSource> stream, std::size_t place);

  /// Goes to the next record.
  void Avance();
  /// The number of the record behind this one, on which it does not go; Eof at the end.
  Biff Prochain();
  /// Puts it ahead of the record at a place.
  void Va(std::size_t place);

  Biff Numero() const { return number_; }
  std::size_t Place() const { return place_; }  ///< of the record in the stream
  std::string_view Donnees() const { return data_; }
  std::uint8_t Octet(std::size_t at) const;
  std::uint16_t Mot16(std::size_t at) const;
  std::uint32_t Mot32(std::size_t at) const;
  double Reel(std::size_t at) const;
  std::string_view Octets(std::size_t at, std::size_t count) const;

  [[noreturn]] void Refuse() const { stream_->Refuse(); }

 private:
  const char* Vers(std::size_t place, std::size_t bytes);

  std::shared_ptr<ByteSource> stream_;
  std::size_t next_;
  std::size_t place_ = 0;
  Biff number_ = Biff::Eof;
  std::string_view data_;
  std::vector<char> window_;  ///< a part of the stream
  std::size_t windowPlace_ = 0, windowBytes_ = 0;
};

/// The same over one substream, from its BOF to its EOF, past the substreams (charts) within.
class SubstreamCursor {
 public:
  /// Anything but a substream of that kind is a damaged file.
  SubstreamCursor(std::shared_ptr<ByteSource> stream, std::size_t place, int kind);

  /// False at the end of the substream.
  bool Avance();
  BiffCursor& Fiche() { return cursor_; }
  int Version() const { return version_; }  ///< versionBiff5, versionBiff8

 private:
  void Passe();

  BiffCursor cursor_;
  int version_ = 0;
};

}  // namespace talpena::excel
