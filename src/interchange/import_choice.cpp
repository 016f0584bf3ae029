#include "interchange/import_choice.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "common/msg_id_import.h"
#include "common/numbers.h"
#include "common/paths.h"
#include "common/string_table.h"
#include "common/talpena_error.h"
#include "interchange/import_notes.h"
#include "interchange/imported_lists.h"
#include "interchange/text_import.h"
#include "interchange/text_import_reader.h"
#include "platform/commands.h"
#include "platform/import_file.h"

namespace talpena {
namespace {

/// Of a file, that is looked at in one step for its characters.
constexpr std::int64_t stepBytes = 1 << 20;

/// The French and Moroccan systems share that of x and y.
int TexteDeStructure(int index) {
  constexpr int withOwn = static_cast<int>(CoordSystem::Ifb);
  return index <= withOwn ? MsgId::PremiereStructure + index : MsgId::StructureXY;
}

/// One text per system.
template <typename Id>
ImportChoice::Texts Textes(std::int16_t langue, Id id) {
  ImportChoice::Texts texts;
  for (std::size_t i = 0; i < texts.size(); ++i) texts[i] = Texte(langue, id(static_cast<int>(i)));
  return texts;
}

/// The text file under rehearsal, opened again and again: its characters are found out once.
class TextSource {
 public:
  TextSource(const CoordState& state, FileSystem& files, std::string path)
      : state_(state), files_(files), path_(std::move(path)) {}

  bool Prepare() {
    if (!search_) search_ = std::make_unique<EncodageCherche>(files_.Ouvre(path_));
    return search_->Avance(stepBytes);
  }
  std::unique_ptr<ImportReader> Ouvre(CoordSystem system) const {
    return std::make_unique<TextImportReader>(OuvreImport(files_, path_, search_->Resultat()),
                                              system, DatumImporte(state_, system));
  }

 private:
  const CoordState& state_;
  FileSystem& files_;
  std::string path_;
  std::unique_ptr<EncodageCherche> search_;
};

}  // namespace

ImportChoice::ImportChoice(StoreState& state, InterchangeState& interchange, Platform& io)
    : state_(state),
      interchange_(interchange),
      io_(io),
      index_(std::clamp<int>(interchange.TypeImportation, 0, CoordSystemCount - 1)),
      path_(interchange.FichierImportation) {
  if (path_.empty()) return;
  stamp_ = io_.files.Empreinte(path_);
  try {
    UpdateInfoFile();
  } catch (const TalpenaError&) {  // gone since then, which the rehearsal tells
  }
}

ImportChoice::Texts ImportChoice::Systemes() const {
  return Textes(state_.Langue, [](int index) { return MsgId::PremierTypeImport + index; });
}

ImportChoice::Texts ImportChoice::StructureAttendue() const {
  return Textes(state_.Langue, TexteDeStructure);
}

bool ImportChoice::Parcourt() {
  std::string chosen;
  ExecuteCommande(state_, io_, {}, [&] {
    chosen = io_.dialogues.OuvreFichier(
        {.filter = "Fichiers texte (*.txt)|*.txt|Tous les fichiers (*.*)|*.*",
         .folder = DossierDe(state_.document.Fichier.NomFichier),
         .name = path_});
  });
  if (chosen.empty()) return false;
  path_ = chosen;
  stamp_ = io_.files.Empreinte(path_);
  ExecuteCommande(state_, io_, {}, [this] { UpdateInfoFile(); });
  return true;
}

void ImportChoice::UpdateInfoFile() {
  preview_.clear();
  preview_ = TroisPremieresLignes(io_.files, path_);
}

bool ImportChoice::FichierAChange() {
  if (path_.empty()) return false;
  const auto now = io_.files.Empreinte(path_);
  if (now == stamp_) return false;
  stamp_ = now;
  try {
    UpdateInfoFile();
  } catch (const TalpenaError&) {  // the rehearsal tells why
  }
  return true;
}

void ImportChoice::Ok() {
  interchange_.FichierImportation = path_;
  Repond(index_);
}

void ImportChoice::Annule() { Repond(-1); }

void ImportChoice::Repond(int index) {
  interchange_.TypeImportation = static_cast<std::int16_t>(index_);
  interchange_.Variable = Str(std::int64_t{index});
}

std::optional<RehearsalPlan> ImportChoice::Plan() const {
  if (path_.empty()) return std::nullopt;
  const auto source = std::make_shared<TextSource>(state_, io_.files, path_);
  return RehearsalPlan{.prepare = [source] { return source->Prepare(); },
                       .ouvre = [source, system = Systeme()] { return source->Ouvre(system); },
                       .system = Systeme(),
                       .ouvreEn = [source](CoordSystem system) { return source->Ouvre(system); },
                       .sansFiche = MsgId::RepetitionSansFiche};
}

bool ImportChoice::DejaImportee() const {
  return !path_.empty() && EstDejaImportee(interchange_, state_.document, stamp_);
}

std::vector<std::string> ImportChoice::Notes() const {
  std::vector<std::string> notes;
  if (DejaImportee()) notes.push_back(Texte(state_.Langue, MsgId::RepetitionDejaImportee));
  notes.push_back(NoteDuDatum(state_, DatumImporte(state_, Systeme())));
  const SystemDatums& datums = InfoDe(Systeme()).datums;
  if (datums.imported != datums.system) notes.push_back(Texte(state_.Langue, MsgId::NoteBelge));
  return notes;
}

}  // namespace talpena
