// Answers the modal windows that the code under test puts up.
#pragma once
#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QTimer>
#include <functional>

namespace talpena::test {

/// Waits in the event loop for a modal window of an object name and hands it over, once. A
/// window that does not come, or that the handler leaves open, fails the test and is closed.
class DialogDriver : public QObject {
 public:
  /// A window that is at work hears no user until its hourglass has gone.
  enum class Quand { Montree, Libre };

  using Handler = std::function<void(QDialog&)>;

  DialogDriver(const QString& objectName, Handler handler, Quand when = Quand::Montree)
      : name_(objectName), handler_(std::move(handler)), when_(when) {
    QObject::connect(&timer_, &QTimer::timeout, this, [this] { Regarde(); });
    timer_.start(5);
  }
  ~DialogDriver() override { EXPECT_TRUE(served_) << "no window " << name_.toStdString(); }

 private:
  void Regarde() {
    QWidget* window = QApplication::activeModalWidget();
    if (window == nullptr) return;
    if (++looks_ > 400) {
      ADD_FAILURE() << "left open: " << window->objectName().toStdString();
      window->close();
      return;
    }
    auto* dialog = qobject_cast<QDialog*>(window);
    if (served_ || dialog == nullptr || dialog->objectName() != name_) return;
    if (when_ == Quand::Libre && QApplication::overrideCursor() != nullptr) return;
    served_ = true;
    handler_(*dialog);
  }

  QString name_;
  Handler handler_;
  Quand when_;
  QTimer timer_;
  bool served_ = false;
  int looks_ = 0;
};

}  // namespace talpena::test
