// The machine as tests want it: scripted boxes, settings in memory, a clock that stands.
#pragma once
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "common/talpena_error.h"
#include "common/text.h"
#include "platform/platform.h"

namespace talpena::test {

/// A printer that notes its pages; a test that prints says what draws them.
class FakePrinter : public Printer {
 public:
  bool paysage = false;
  PageArea zone{540, 780};  ///< of a page that stands upright
  std::vector<PagePlace> pages;
  std::vector<double> finesses;  ///< asked of CreeCanevas
  std::function<std::unique_ptr<Canvas>()> canevas;
  std::function<void(Canvas&)> surPage;  ///< looks at what is printed
  void ChangeOrientation(bool p) override { paysage = p; }
  PageArea ZoneImprimable() const override {
    return paysage ? PageArea{zone.height, zone.width} : zone;
  }
  std::unique_ptr<Canvas> CreeCanevas(double points) override {
    finesses.push_back(points);
    return canevas();
  }
  void ImprimePage(Canvas& canvas, const PagePlace& place) override {
    pages.push_back(place);
    if (surPage) surPage(canvas);
  }
};

/// The message boxes shown, in order. A test that looks at them, if only at their number, has seen
/// all that were shown until then.
class ShownBoxes {
 public:
  using Boxes = std::vector<MessageBox>;

  void Ajoute(const MessageBox& box, bool announced) {
    boxes_.push_back(box);
    seen_.push_back(announced);
  }
  const Boxes& Vues() const {
    std::fill(seen_.begin(), seen_.end(), true);
    return boxes_;
  }
  /// The text of the first that nobody looked at.
  std::optional<std::string> PasVue() const {
    const auto first = std::find(seen_.begin(), seen_.end(), false);
    if (first == seen_.end()) return {};
    return boxes_[static_cast<std::size_t>(first - seen_.begin())].text;
  }

  std::size_t size() const { return Vues().size(); }
  bool empty() const { return Vues().empty(); }
  const MessageBox& operator[](std::size_t i) const { return Vues()[i]; }
  const MessageBox& at(std::size_t i) const { return Vues().at(i); }
  const MessageBox& front() const { return Vues().front(); }
  const MessageBox& back() const { return Vues().back(); }
  Boxes::const_iterator begin() const { return Vues().begin(); }
  Boxes::const_iterator end() const { return Vues().end(); }
  void clear() { boxes_.clear(), seen_.clear(); }

 private:
  Boxes boxes_;
  mutable std::vector<bool> seen_;
};

/// Answers boxes from a script, in order, and records every one. A box that the script did not
/// expect fails the test and is answered by its first button (Cancel for file and colour dialogs).
/// So does an answer that nobody asked for, and a box with nothing but OK that the test did not
/// look at.
class FakeDialogues : public Dialogues {
 public:
  FakeDialogues() = default;
  FakeDialogues(const FakeDialogues&) = delete;
  FakeDialogues& operator=(const FakeDialogues&) = delete;
  ~FakeDialogues() override {
    EXPECT_TRUE(answers.empty()) << answers.size() << " scripted answers were not asked for";
    EXPECT_TRUE(inputs.empty()) << "not asked for: input " << inputs.front();
    EXPECT_TRUE(paths.empty()) << "not asked for: path " << paths.front();
    EXPECT_TRUE(colours.empty()) << colours.size() << " scripted colours were not asked for";
    EXPECT_EQ(boxes.PasVue(), std::nullopt) << "a box that no test looked at";
  }

  std::deque<Answer> answers;                        ///< for message boxes with a choice
  std::deque<std::string> inputs;                    ///< for input boxes
  std::deque<std::string> paths;                     ///< for file and folder dialogs; "" is Cancel
  std::deque<std::optional<std::uint32_t>> colours;  ///< for colour dialogs; empty is Cancel
  std::deque<std::optional<Font>> polices;  ///< for font dialogs; empty is Cancel; none: no change
  std::vector<Font> policesVues;            ///< what these began at
  ShownBoxes boxes;                         ///< message boxes shown
  std::vector<InputBox> asked;              ///< input boxes shown
  std::vector<FileDialog> fileDialogs;      ///< open and save dialogs shown
  bool imprimeAnnule = false;               ///< the print dialog is left by Cancel
  FakePrinter imprimante;

  Answer Demande(const MessageBox& box) override {
    boxes.Ajoute(box, box.buttons != Buttons::Ok);
    if (box.buttons == Buttons::Ok) return Answer::Ok;
    if (answers.empty()) {
      ADD_FAILURE() << "unexpected question: " << box.text;
      return box.buttons == Buttons::OkCancel ? Answer::Ok : Answer::Yes;
    }
    const Answer answer = answers.front();
    answers.pop_front();
    return answer;
  }
  std::string Saisie(const InputBox& box) override {
    asked.push_back(box);
    if (inputs.empty()) {
      ADD_FAILURE() << "unexpected input box: " << box.prompt;
      return {};
    }
    std::string text = inputs.front();
    inputs.pop_front();
    return text;
  }
  std::string OuvreFichier(const FileDialog& dialog) override { return Chemin(dialog); }
  std::string EnregistreFichier(const FileDialog& dialog) override { return Chemin(dialog); }
  std::string ChoisitDossier(const std::string& title, const std::string& start) override {
    return Chemin({.title = title, .filter = {}, .folder = start});
  }
  std::uint32_t ChoisitCouleur(std::uint32_t) override {
    std::optional<std::uint32_t> colour;
    if (colours.empty()) {
      ADD_FAILURE() << "unexpected colour dialog";
    } else {
      colour = colours.front();
      colours.pop_front();
    }
    if (!colour) throw TalpenaError(ErrorNumber::Cancelled, "Cancel was selected.");
    return *colour;
  }
  Font ChoisitPolice(const Font& start) override {
    policesVues.push_back(start);
    if (polices.empty()) return start;
    const std::optional<Font> font = polices.front();
    polices.pop_front();
    if (!font) throw TalpenaError(ErrorNumber::Cancelled, "Cancel was selected.");
    return *font;
  }
  void Imprime() override {
    if (imprimeAnnule) throw TalpenaError(ErrorNumber::Cancelled, "Cancel was selected.");
  }
  Printer& Imprimante() override { return imprimante; }
  void Apercu(const std::function<void(Printer&)>& dessine) override { dessine(imprimante); }

 private:
  std::string Chemin(const FileDialog& dialog) {
    fileDialogs.push_back(dialog);
    std::string path;
    if (paths.empty()) {
      ADD_FAILURE() << "unexpected file dialog: " << dialog.title << ' ' << dialog.filter;
    } else {
      path = paths.front();
      paths.pop_front();
    }
    if (path.empty()) throw TalpenaError(ErrorNumber::Cancelled, "Cancel was selected.");
    return path;
  }
};

class FakeSettings : public SettingsStore {
 public:
  std::map<std::string, std::string> values;  ///< "application/section/key", upper case
  std::vector<std::string> read;              ///< keys in the order they were asked for
  std::vector<std::string> written;

  static std::string Cle(std::string_view a, std::string_view s, std::string_view k) {
    return Majuscules(std::string(a) + "/" + std::string(s) + "/" + std::string(k));
  }
  std::string Lit(std::string_view a, std::string_view s, std::string_view k,
                  std::string_view defaultText) override {
    read.push_back(Cle(a, s, k));
    const auto it = values.find(Cle(a, s, k));
    return it == values.end() ? std::string(defaultText) : it->second;
  }
  void Ecrit(std::string_view a, std::string_view s, std::string_view k,
             std::string_view text) override {
    written.push_back(Cle(a, s, k));
    values[Cle(a, s, k)] = std::string(text);
  }
};

class FakeClock : public Clock {
 public:
  int annee = 2011, mois = 7, jour = 4;
  int AnneeCourante() override { return annee; }
  DayTime heure{8, 30, 0};
  CalendarDate DateCourante() override { return {annee, mois, jour}; }
  DayTime HeureCourante() override { return heure; }
};

class FakeEnvironment : public Environment {
 public:
  std::map<std::string, std::string> variables;
  std::string cd = "D:\\";
  std::vector<std::string> dossiers;               ///< folders the process changed to
  bool changePossible = true;                      ///< false: those folders do not exist
  std::string prive = "/home/ann/.cache/Talpena";  ///< "": it cannot be made
  std::optional<std::int64_t> memoire, place;      ///< bytes that are free
  std::optional<std::int64_t> MemoireLibre() override { return memoire; }
  std::optional<std::int64_t> PlaceLibre(const std::string&) override { return place; }
  std::string Variable(std::string_view name) override { return variables[std::string(name)]; }
  std::string DossierTemporaire() override { return variables["TEMP"]; }
  std::string DossierPrive() override {
    if (prive.empty()) throw TalpenaError(ErrorNumber::PathFileAccess, "no cache");
    return prive;
  }
  std::string LecteurCD() override { return cd; }
  bool ChangeDossier(const std::string& folder) override {
    dossiers.push_back(folder);
    return changePossible;
  }
};

class FakeSound : public Sound {
 public:
  int bips = 0;
  void Bip() override { ++bips; }
};

/// Everything of a machine but its tables and files.
struct FakeServices {
  FakeSettings settings;
  FakeDialogues dialogues;
  FakeClock clock;
  FakeEnvironment environment;
  FakeSound sound;
};

}  // namespace talpena::test
