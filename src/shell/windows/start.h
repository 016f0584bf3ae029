// Start: the splash, which brings the main window up.
#pragma once
#include <QWidget>
#include <functional>
#include <string>

#include "platform/dialogues.h"
#include "platform/settings_state.h"

class QLabel;

namespace talpena {

/// A click on the window, on Image1 or on Label2 closes it; so does Escape. A click on Label1
/// shows the about box. It is a window of its own to the rule that the last one to close ends the
/// process, so a load that went wrong leaves nothing behind.
class Start : public QWidget {
  Q_OBJECT

 public:
  /// `state` outlives the splash: its credits are in the language that it names, which the load of
  /// the main window finds out.
  explicit Start(const SharedState& state, QWidget* parent = nullptr);

  /// Credits in the current language.
  void AppliqueLangue();

  /// Centres and shows itself and lets the message loop run once.
  void Montre();

 protected:
  void changeEvent(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  const SharedState& state_;
  QLabel* Image1;
  QLabel* Label1;  ///< credits
  QLabel* Label2;  ///< version and date
};

/// False when another instance is up: the message is shown and the process has to end.
bool EstSeuleInstance(const std::function<bool()>& acquiert, Dialogues& dialogues);

}  // namespace talpena
