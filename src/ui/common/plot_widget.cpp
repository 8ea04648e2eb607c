#include "ui/common/plot_widget.h"

#include <QMouseEvent>
#include <QPainter>
#include <QResizeEvent>

namespace tarvelle {

namespace {

int ButtonCode(Qt::MouseButtons buttons) {
    int code = 0;
    if (buttons & Qt::LeftButton) code |= 1;
    if (buttons & Qt::RightButton) code |= 2;
    if (buttons & Qt::MiddleButton) code |= 4;
    return code;
}

} // namespace

PlotWidget::PlotWidget(int widthPx, int heightPx, QWidget* parent)
    : QWidget(parent), surface_(widthPx, heightPx) {
    setFixedSize(surface_.PixelWidth(), surface_.PixelHeight());
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    surface_.SetRefreshHandler([this] { update(); });
}

void PlotWidget::ResizeSurface(int widthPx, int heightPx) {
    surface_.ResizeImage(widthPx, heightPx);
    setFixedSize(surface_.PixelWidth(), surface_.PixelHeight());
}

void PlotWidget::FollowWindowSize(int minWidthPx, int minHeightPx, bool tall) {
    follows_ = true;
    setMinimumSize(minWidthPx, minHeightPx);
    setMaximumSize(QWIDGETSIZE_MAX, tall ? QWIDGETSIZE_MAX : minHeightPx);
    setSizePolicy(QSizePolicy::Expanding, tall ? QSizePolicy::Expanding : QSizePolicy::Fixed);
}

void PlotWidget::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (!follows_ || (width() == surface_.PixelWidth() && height() == surface_.PixelHeight())) return;
    surface_.ResizeImage(width(), height());
    emit resized();
}

void PlotWidget::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QImage& shown = surface_.Shown();
    if (shown.width() < width() || shown.height() < height())
        painter.fillRect(rect(), QColor(ToQRgb(surface_.BackColour())));
    painter.drawImage(0, 0, shown);
}

void PlotWidget::mousePressEvent(QMouseEvent* event) {
    const ScaleFrame f = surface_.Frame();
    emit mouseDown(ButtonCode(event->button()), static_cast<float>(f.FromPixelX(event->position().x())),
                   static_cast<float>(f.FromPixelY(event->position().y())));
}

void PlotWidget::mouseMoveEvent(QMouseEvent* event) {
    const ScaleFrame f = surface_.Frame();
    emit mouseMove(ButtonCode(event->buttons()), static_cast<float>(f.FromPixelX(event->position().x())),
                   static_cast<float>(f.FromPixelY(event->position().y())));
}

void PlotWidget::mouseReleaseEvent(QMouseEvent* event) {
    const ScaleFrame f = surface_.Frame();
    emit mouseUp(ButtonCode(event->button()), static_cast<float>(f.FromPixelX(event->position().x())),
                 static_cast<float>(f.FromPixelY(event->position().y())));
}

} // namespace tarvelle
