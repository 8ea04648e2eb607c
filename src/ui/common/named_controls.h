// Controls made the way every window makes them: named, so that tests find them by the names
// the windows give them, and buttons that never become the default on Enter by accident.
#pragma once

#include <QString>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QWidget;

namespace tarvelle {

// Any widget, given its name.
template <typename W> W* Named(W* w, const char* name) {
    w->setObjectName(name);
    return w;
}

QPushButton* NamedButton(QWidget* parent, const char* name, const QString& caption, const QString& tip = {});
// name may be null for a label no one looks up.
QLabel* NamedLabel(QWidget* parent, const char* name, const QString& text);
QLineEdit* NamedField(QWidget* parent, const char* name, int width, const QString& tip = {});
QCheckBox* NamedCheck(QWidget* parent, const char* name, const QString& caption, const QString& tip = {});

} // namespace tarvelle
