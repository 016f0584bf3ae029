// The floor of a start: a bare Qt window with a table view over a few thousand numbers.
#include <QAbstractTableModel>
#include <QApplication>
#include <QMainWindow>
#include <QTableView>

namespace {

class NumberModel : public QAbstractTableModel {
 public:
  int rowCount(const QModelIndex&) const override { return 3245; }
  int columnCount(const QModelIndex&) const override { return 10; }
  QVariant data(const QModelIndex& index, int role) const override {
    return role == Qt::DisplayRole ? QVariant(index.row() * 10 + index.column()) : QVariant();
  }
};

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  NumberModel model;
  QMainWindow window;
  QTableView view;
  view.setModel(&model);
  window.setCentralWidget(&view);
  window.setWindowTitle("minimal window");
  window.showMaximized();
  return QApplication::exec();
}
