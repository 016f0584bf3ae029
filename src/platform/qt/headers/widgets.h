// Compiled once for all libraries of windows. Every source still includes what it uses.
#pragma once
#include <QAction>
#include <QApplication>
#include <QBoxLayout>
#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QMenu>
#include <QPainter>
#include <QPushButton>
#include <QTableView>
#include <QTimer>
#include <QToolButton>

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>
