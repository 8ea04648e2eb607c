// Controls made the way every window makes them: named, so that tests find them by the names
// the windows give them, and buttons that never become the default on Enter by accident.
#pragma once

class QLabel;
class QLineEdit;
class QPushButton;
class QWidget;

namespace tarvelle {

QPushButton* NamedButton(QWidget* parent, const char* name, const char* caption);
// name may be null for a label no one looks up.
QLabel* NamedLabel(QWidget* parent, const char* name, const char* text);
QLineEdit* NamedField(QWidget* parent, const char* name, int width);

} // namespace tarvelle
