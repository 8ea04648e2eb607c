#include "render/page_printer.h"

#include "station/dialogs.h"

#include <QFont>
#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <QPagedPaintDevice>

#include <algorithm>

namespace tarvelle {

namespace {

QFont PrinterFont(float points, bool bold) {
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPointSizeF(points);
    font.setBold(bold);
    return font;
}

} // namespace

PagePrinter::Item PagePrinter::Tab(int column) {
    Item item{QString()};
    item.column = std::max(column, 1);
    return item;
}

PagePrinter::PagePrinter() = default;

PagePrinter::~PagePrinter() {
    // A printout left open is still finished, as the system would at the end of the run.
    if (painter_ && painter_->isActive()) painter_->end();
}

bool PagePrinter::ChoosePrinter(Dialogs& dialogs) {
    std::unique_ptr<QPagedPaintDevice> device = dialogs.ChoosePrinter();
    if (!device) return false;
    device_ = std::move(device);
    return true;
}

void PagePrinter::SetFontSize(float points) {
    if (points > 0.0f) fontSize_ = points;
}

// Dots per inch of the device; a nominal 1200 while nothing is chosen, so that positions are
// counted the same way.
double PagePrinter::Resolution() const {
    return device_ ? std::max(device_->logicalDpiY(), 1) : 1200.0;
}

QFontMetricsF PagePrinter::Metrics() const {
    const QFont font = PrinterFont(fontSize_, bold_);
    return device_ ? QFontMetricsF(font, device_.get()) : QFontMetricsF(font);
}

double PagePrinter::AverageCharWidth() const {
    return Metrics().averageCharWidth() / Resolution();
}

double PagePrinter::LineHeight() const {
    return Metrics().lineSpacing() / Resolution();
}

double PagePrinter::TextWidth(const QString& text) const {
    return Metrics().horizontalAdvance(text) /
           Resolution();
}

// The painter of the document, started at the first output; null once the printer has failed.
QPainter* PagePrinter::Painter() {
    if (failed_ || ended_ || !device_) return nullptr;
    if (!painter_) {
        painter_ = std::make_unique<QPainter>();
        if (!painter_->begin(device_.get())) {
            failed_ = true;
            painter_.reset();
        }
    }
    return painter_.get();
}

void PagePrinter::PrintLine(const std::vector<Item>& items) {
    const double lineHeight = LineHeight();
    for (const Item& item : items) {
        if (item.column > 0) {
            const double column = (item.column - 1) * AverageCharWidth();
            // A tiny tolerance, so that text ending exactly on the column stays on the line.
            if (x_ > column + 1e-9) y_ += lineHeight;
            x_ = column;
            continue;
        }
        if (item.text.isEmpty()) continue;
        output_.push_back({page_, x_, y_, item.text});
        if (QPainter* painter = Painter()) {
            const QFont font = PrinterFont(fontSize_, bold_);
            painter->setFont(font);
            painter->setPen(Qt::black);
            const double r = Resolution();
            painter->drawText(QPointF(x_ * r, y_ * r + Metrics().ascent()),
                              item.text);
        }
        x_ += TextWidth(item.text);
    }
    x_ = 0.0;
    y_ += lineHeight;
}

void PagePrinter::PrintImage(const QImage& image) {
    if (image.isNull()) return;
    const double r = Resolution();
    const QRectF paper = device_ ? device_->pageLayout().paintRect(QPageLayout::Inch)
                                 : QPageLayout().paintRect(QPageLayout::Inch);
    const double roomX = paper.width() - x_, roomY = paper.height() - y_;
    if (roomX <= 0.0 || roomY <= 0.0) return;
    const double scale = std::min(roomX / image.width(), roomY / image.height()); // inches per pixel
    const double w = image.width() * scale, h = image.height() * scale;
    if (QPainter* painter = Painter()) {
        painter->setRenderHint(QPainter::SmoothPixmapTransform, true);
        painter->drawImage(QRectF(x_ * r, y_ * r, w * r, h * r), image);
    }
    x_ = 0.0;
    y_ += h;
}

void PagePrinter::NewPage() {
    if (ended_) return;
    if (QPainter* painter = Painter(); painter && !device_->newPage()) failed_ = true;
    ++page_;
    x_ = 0.0;
    y_ = 0.0;
}

void PagePrinter::EndDocument() {
    if (ended_) return;
    if (QPainter* painter = Painter()) painter->end();
    painter_.reset();
    ended_ = true;
}

} // namespace tarvelle
