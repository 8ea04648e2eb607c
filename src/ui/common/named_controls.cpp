#include "ui/common/named_controls.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace tarvelle {

QPushButton* NamedButton(QWidget* parent, const char* name, const QString& caption, const QString& tip) {
    auto* b = new QPushButton(caption, parent);
    b->setObjectName(name);
    b->setAutoDefault(false);
    b->setToolTip(tip);
    return b;
}

QLabel* NamedLabel(QWidget* parent, const char* name, const QString& text) {
    auto* l = new QLabel(text, parent);
    if (name) l->setObjectName(name);
    return l;
}

QLineEdit* NamedField(QWidget* parent, const char* name, int width, const QString& tip) {
    auto* box = new QLineEdit(parent);
    box->setObjectName(name);
    box->setFixedWidth(width);
    box->setToolTip(tip);
    return box;
}

QCheckBox* NamedCheck(QWidget* parent, const char* name, const QString& caption, const QString& tip) {
    auto* c = new QCheckBox(caption, parent);
    c->setObjectName(name);
    c->setToolTip(tip);
    return c;
}

} // namespace tarvelle
