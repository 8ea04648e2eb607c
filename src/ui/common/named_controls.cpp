#include "ui/common/named_controls.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace tarvelle {

QPushButton* NamedButton(QWidget* parent, const char* name, const char* caption) {
    auto* b = new QPushButton(QString::fromUtf8(caption), parent);
    b->setObjectName(name);
    b->setAutoDefault(false);
    return b;
}

QLabel* NamedLabel(QWidget* parent, const char* name, const char* text) {
    auto* l = new QLabel(QString::fromUtf8(text), parent);
    if (name) l->setObjectName(name);
    return l;
}

QLineEdit* NamedField(QWidget* parent, const char* name, int width) {
    auto* box = new QLineEdit(parent);
    box->setObjectName(name);
    box->setFixedWidth(width);
    return box;
}

} // namespace tarvelle
