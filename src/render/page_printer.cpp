#include "render/page_printer.h"

#include "platform/dialogs.h"

#include <QFont>
#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <QPrinter>
#include <QWidget>

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

PagePrinter::PagePrinter() : printer_(std::make_unique<QPrinter>(QPrinter::HighResolution)) {}

PagePrinter::~PagePrinter() {
    // A printout left open is still finished, as the system would at the end of the run.
    if (painter_ && painter_->isActive()) painter_->end();
}

bool PagePrinter::ChoosePrinter(Dialogs& dialogs) {
    return dialogs.ChoosePrinter(*printer_);
}

void PagePrinter::SetScaleMode(int) {}

void PagePrinter::SetFontSize(float points) {
    if (points > 0.0f) fontSize_ = points;
}

double PagePrinter::Resolution() const {
    return std::max(printer_->resolution(), 1);
}

double PagePrinter::AverageCharWidth() const {
    return QFontMetricsF(PrinterFont(fontSize_, bold_), printer_.get()).averageCharWidth() / Resolution();
}

double PagePrinter::LineHeight() const {
    return QFontMetricsF(PrinterFont(fontSize_, bold_), printer_.get()).lineSpacing() / Resolution();
}

double PagePrinter::TextWidth(const QString& text) const {
    return QFontMetricsF(PrinterFont(fontSize_, bold_), printer_.get()).horizontalAdvance(text) /
           Resolution();
}

// The painter of the document, started at the first output; null once the printer has failed.
QPainter* PagePrinter::Painter() {
    if (failed_ || ended_) return nullptr;
    if (!painter_) {
        painter_ = std::make_unique<QPainter>();
        if (!painter_->begin(printer_.get())) {
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
            painter->drawText(QPointF(x_ * r, y_ * r + QFontMetricsF(font, printer_.get()).ascent()),
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
    const QRectF paper = printer_->pageRect(QPrinter::Inch);
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
    if (QPainter* painter = Painter(); painter && !printer_->newPage()) failed_ = true;
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

void PrintWidgetImage(QWidget& widget, PagePrinter& printer) {
    printer.PrintImage(widget.grab().toImage());
}

} // namespace tarvelle
