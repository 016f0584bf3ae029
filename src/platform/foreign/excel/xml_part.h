// A part of a zip file as XML.
#pragma once
#include <array>
#include <cstddef>
#include <memory>
#include <optional>
#include <string_view>

#include "platform/foreign/excel/zip_reader.h"

struct XML_ParserStruct;

namespace talpena::excel {

/// The attributes of an element, in pairs of name and value.
class XmlAttributes {
 public:
  explicit XmlAttributes(const char** pairs) : pairs_(pairs) {}
  /// By its name without the name space.
  std::optional<std::string_view> Valeur(std::string_view name) const;

 private:
  const char** pairs_;
};

/// Told what the XML holds. Names come without their name space.
class XmlHandler {
 public:
  virtual ~XmlHandler() = default;
  virtual void Debut(std::string_view name, const XmlAttributes& attributes) = 0;
  virtual void Fin(std::string_view name) { static_cast<void>(name); }
  virtual void Texte(std::string_view text) { static_cast<void>(text); }

  /// Calls it a damaged file: to be said instead of throwing.
  void Echoue() { failed_ = true; }
  bool Echec() const { return failed_; }

 private:
  bool failed_ = false;
};

/// XML that is none, has a document type, elements in more than 64 others or a name, a tag or an
/// attribute of a megabyte is a damaged file (UnrecognizedFormat, 3343).
class XmlPart {
 public:
  /// The handler and the file have to last.
  XmlPart(const ZipFile& file, std::unique_ptr<ZipPart> part, XmlHandler& handler);
  XmlPart(const XmlPart&) = delete;
  XmlPart& operator=(const XmlPart&) = delete;
  ~XmlPart();

  /// Reads on for a while; false when there is no more.
  bool Avance();
  void LitTout() {
    while (Avance()) {
    }
  }

 private:
  static void SurDebut(void* self, const char* name, const char** attributes);
  static void SurFin(void* self, const char* name);
  static void SurTexte(void* self, const char* text, int length);
  static void SurType(void* self, const char*, const char*, const char*, int);
  void Verifie();

  const ZipFile& file_;
  std::unique_ptr<ZipPart> part_;
  XmlHandler& handler_;
  XML_ParserStruct* parser_;
  std::size_t fed_ = 0;
  int depth_ = 0;
  bool ended_ = false;
};

}  // namespace talpena::excel
