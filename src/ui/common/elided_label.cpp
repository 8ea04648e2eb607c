#include "ui/common/elided_label.h"

#include <QPainter>
#include <QStyle>

namespace tarvelle {

ElidedLabel::ElidedLabel(const QString& text, Qt::TextElideMode mode, QWidget* parent)
    : QLabel(text, parent), mode_(mode) {
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

QSize ElidedLabel::sizeHint() const { return {minimumWidth(), fontMetrics().height()}; }

QSize ElidedLabel::minimumSizeHint() const { return sizeHint(); }

QString ElidedLabel::ShownText() const {
    return fontMetrics().elidedText(text(), mode_, contentsRect().width());
}

void ElidedLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QString shown = ShownText();
    setToolTip(shown == text() ? QString() : text());
    style()->drawItemText(&painter, contentsRect(), static_cast<int>(alignment()), palette(), isEnabled(), shown,
                          foregroundRole());
}

} // namespace tarvelle
