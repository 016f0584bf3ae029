// The main window while a command is at work.
#pragma once
#include "platform/table_engine.h"
#include "store/command_context.h"

namespace talpena {

/// The hourglass, for as long as it lives.
class Sablier {
 public:
  explicit Sablier(MainWindowView& vue) : vue_(vue) { vue_.ChangeSablier(true); }
  Sablier(const Sablier&) = delete;
  Sablier& operator=(const Sablier&) = delete;
  ~Sablier() { vue_.ChangeSablier(false); }

 private:
  MainWindowView& vue_;
};

/// The wait window under the hourglass.
class Attente {
 public:
  Attente(MainWindowView& vue, const std::string& text) : vue_(vue), sablier_(vue) {
    vue_.AfficheMessage(text);
  }
  Attente(const Attente&) = delete;
  Attente& operator=(const Attente&) = delete;
  ~Attente() { vue_.FermeMessage(); }

 private:
  MainWindowView& vue_;
  Sablier sablier_;
};

/// Hourglass and ProgressBar1, with the grid not drawn; the grid shows the new values afterwards.
class Occupe {
 public:
  explicit Occupe(CommandContext c) : c_(c) {
    c_.vue.GeleGrille(true);
    c_.vue.ChangeSablier(true);
    c_.vue.MontreBarre(true);
  }
  Occupe(const Occupe&) = delete;
  Occupe& operator=(const Occupe&) = delete;
  ~Occupe() {
    c_.vue.MontreProgression(0);
    c_.vue.MontreBarre(false);
    c_.vue.ChangeSablier(false);
    c_.vue.GeleGrille(false);
    c_.state.Data1.SignaleValeurs();
  }

 private:
  CommandContext c_;
};

/// How far a command came, in ProgressBar1.
class Avancement {
 public:
  explicit Avancement(MainWindowView& vue) : vue_(vue) {}
  void Montre(std::int64_t done, std::int64_t total);

 private:
  MainWindowView& vue_;
  int shown_ = -1;  ///< percent
};

/// A change of rows that shows how far it came.
class RowWalk : public RowChange {
 public:
  explicit RowWalk(MainWindowView& vue) : avancement_(vue) {}
  void Avance(std::int64_t done, std::int64_t total) final { avancement_.Montre(done, total); }

 private:
  Avancement avancement_;
};

}  // namespace talpena
