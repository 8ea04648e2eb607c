#include "ui/common/click_label.h"

#include <QKeyEvent>
#include <QMouseEvent>

#include <utility>

namespace tarvelle {

ClickLabel::ClickLabel(QWidget* parent, std::function<void()> onClick)
    : QLabel(parent), onClick_(std::move(onClick)) {
    setCursor(Qt::PointingHandCursor);
    setFocusPolicy(Qt::StrongFocus);
}

void ClickLabel::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) {
        onClick_();
        return;
    }
    QLabel::mouseReleaseEvent(event);
}

void ClickLabel::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space) {
        if (!event->isAutoRepeat()) onClick_();
        return;
    }
    QLabel::keyPressEvent(event);
}

} // namespace tarvelle
