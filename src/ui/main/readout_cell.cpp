#include "ui/main/readout_cell.h"

#include <QPainter>

#include <algorithm>

namespace tarvelle {

namespace {

constexpr int kGap = 8;             // between the caption and the value
constexpr double kHeadlineScale = 2.2; // a headline value against the panel's font
constexpr const char* kWidestValue = "-000:00:00.0"; // room kept so values never jostle
const QColor kCaptionColour(143, 163, 192);
const QColor kHeadlineColour(255, 207, 122);

} // namespace

ReadoutCell::ReadoutCell(QWidget* parent, const char* name, bool headline) : QLabel(parent), headline_(headline) {
    setObjectName(name);
    setTextFormat(Qt::PlainText);
    setTextInteractionFlags(Qt::NoTextInteraction);
}

std::pair<QString, QString> ReadoutCell::Split(const QString& text) {
    const qsizetype colon = text.indexOf(':');
    if (colon < 0) return {QString(), text.trimmed()};
    return {text.left(colon + 1).trimmed(), text.mid(colon + 1).trimmed()};
}

void ReadoutCell::SetValueColumn(int px) {
    valueColumn_ = px;
    updateGeometry();
    update();
}

QFont ReadoutCell::CaptionFont() const { return font(); }

QFont ReadoutCell::ValueFont() const {
    QFont f = font();
    if (headline_) {
        f.setPointSizeF(f.pointSizeF() * kHeadlineScale);
        f.setBold(true);
    }
    return f;
}

QSize ReadoutCell::sizeHint() const {
    const QFontMetrics caption(CaptionFont()), value(ValueFont());
    const int valueWidth = std::max(value.horizontalAdvance(Split(text()).second), value.horizontalAdvance(kWidestValue));
    if (headline_)
        return {std::max(caption.horizontalAdvance(Split(text()).first), valueWidth), caption.height() + value.height()};
    return {valueColumn_ + valueWidth, std::max(caption.height(), value.height())};
}

void ReadoutCell::paintEvent(QPaintEvent*) {
    QPainter p(this);
    const auto [caption, value] = Split(text());
    const QRect r = contentsRect();
    const QFontMetrics captionMetrics(CaptionFont());
    p.setFont(CaptionFont());
    p.setPen(kCaptionColour);
    if (headline_) {
        p.drawText(QRect(r.left(), r.top(), r.width(), captionMetrics.height()), Qt::AlignLeft | Qt::AlignVCenter,
                   caption);
        p.setFont(ValueFont());
        p.setPen(kHeadlineColour);
        p.drawText(QRect(r.left(), r.top() + captionMetrics.height(), r.width(), r.height() - captionMetrics.height()),
                   Qt::AlignLeft | Qt::AlignTop, value);
        return;
    }
    p.drawText(r, Qt::AlignLeft | Qt::AlignVCenter, caption);
    p.setFont(ValueFont());
    p.setPen(palette().color(QPalette::WindowText));
    p.drawText(r.adjusted(valueColumn_, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter, value);
}

void AlignValues(const std::vector<ReadoutCell*>& cells, const QStringList& captions) {
    if (cells.empty()) return;
    const QFontMetrics metrics(cells.front()->font());
    int widest = 0;
    for (const QString& c : captions) widest = std::max(widest, metrics.horizontalAdvance(c));
    for (ReadoutCell* cell : cells) cell->SetValueColumn(widest + kGap);
}

} // namespace tarvelle
