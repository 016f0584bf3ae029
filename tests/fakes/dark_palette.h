// The colours of a dark desktop, for tests and pictures.
#pragma once
#include <QPalette>

namespace talpena::test {

inline QPalette PaletteSombre() {
  const QColor text(0xE6, 0xE6, 0xE6);
  QPalette dark(QColor(0x35, 0x37, 0x3B), QColor(0x2B, 0x2D, 0x30));
  dark.setColor(QPalette::Base, QColor(0x3B, 0x3E, 0x43));
  dark.setColor(QPalette::AlternateBase, QColor(0x41, 0x44, 0x49));
  for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText}) {
    dark.setColor(role, text);
    dark.setColor(QPalette::Disabled, role, QColor(0x80, 0x82, 0x85));
  }
  dark.setColor(QPalette::Highlight, QColor(0x2F, 0x65, 0xCA));
  dark.setColor(QPalette::HighlightedText, Qt::white);
  dark.setColor(QPalette::Link, QColor(0x6C, 0xA6, 0xFF));
  dark.setColor(QPalette::ToolTipBase, QColor(0x3C, 0x3F, 0x43));
  dark.setColor(QPalette::ToolTipText, text);
  return dark;
}

}  // namespace talpena::test
