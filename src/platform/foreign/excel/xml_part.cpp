#include "platform/foreign/excel/xml_part.h"

#include <expat.h>

#include <utility>

namespace talpena::excel {
namespace {

constexpr char spaceEnd = '|';  // between the name space and the name

std::string_view SansEspaceDeNoms(std::string_view name) {
  const std::size_t end = name.rfind(spaceEnd);
  return end == std::string_view::npos ? name : name.substr(end + 1);
}

}  // namespace

std::optional<std::string_view> XmlAttributes::Valeur(std::string_view name) const {
  for (const char** pair = pairs_; *pair != nullptr; pair += 2) {
    if (SansEspaceDeNoms(pair[0]) == name) return pair[1];
  }
  return {};
}

XmlPart::XmlPart(const ZipFile& file, std::unique_ptr<ZipPart> part, XmlHandler& handler)
    : file_(file),
      part_(std::move(part)),
      handler_(handler),
      parser_(XML_ParserCreateNS(nullptr, spaceEnd)) {
  if (part_ == nullptr || parser_ == nullptr) {
    XML_ParserFree(parser_);
    file_.Refuse();
  }
  XML_SetUserData(parser_, this);
  XML_SetElementHandler(parser_, SurDebut, SurFin);
  XML_SetCharacterDataHandler(parser_, SurTexte);
  XML_SetStartDoctypeDeclHandler(parser_, SurType);
}

XmlPart::~XmlPart() { XML_ParserFree(parser_); }

bool XmlPart::Avance() {
  constexpr int block = 32768;
  if (ended_) return false;
  void* const buffer = XML_GetBuffer(parser_, block);
  if (buffer == nullptr) file_.Refuse();
  const std::size_t read = part_->Lit({static_cast<char*>(buffer), block});
  ended_ = read == 0;
  const XML_Status status =
      XML_ParseBuffer(parser_, static_cast<int>(read), ended_ ? XML_TRUE : XML_FALSE);
  fed_ += read;
  if (status != XML_STATUS_OK || handler_.Echec()) file_.Refuse();
  Verifie();
  return true;
}

/// That the parser does not keep more and more of something that does not end.
void XmlPart::Verifie() {
  constexpr std::size_t most = std::size_t{1} << 20;
  const XML_Index at = XML_GetCurrentByteIndex(parser_);
  if (!ended_ && at >= 0 && fed_ > most && static_cast<std::size_t>(at) < fed_ - most) {
    file_.Refuse();
  }
}

void XmlPart::SurDebut(void* self, const char* name, const char** attributes) {
  constexpr int deepest = 64;
  auto& part = *static_cast<XmlPart*>(self);
  if (++part.depth_ > deepest) part.handler_.Echoue();
  if (!part.handler_.Echec()) {
    part.handler_.Debut(SansEspaceDeNoms(name), XmlAttributes(attributes));
  }
  if (part.handler_.Echec()) XML_StopParser(part.parser_, XML_FALSE);
}

void XmlPart::SurFin(void* self, const char* name) {
  auto& part = *static_cast<XmlPart*>(self);
  --part.depth_;
  if (!part.handler_.Echec()) part.handler_.Fin(SansEspaceDeNoms(name));
  if (part.handler_.Echec()) XML_StopParser(part.parser_, XML_FALSE);
}

void XmlPart::SurTexte(void* self, const char* text, int length) {
  auto& part = *static_cast<XmlPart*>(self);
  if (!part.handler_.Echec()) part.handler_.Texte({text, static_cast<std::size_t>(length)});
}

void XmlPart::SurType(void* self, const char*, const char*, const char*, int) {
  auto& part = *static_cast<XmlPart*>(self);
  part.handler_.Echoue();
  XML_StopParser(part.parser_, XML_FALSE);
}

}  // namespace talpena::excel
