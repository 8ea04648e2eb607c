#include "ui/common/image_camera.h"

#include "render/plot_surface.h"

#include <QEventLoop>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QTimer>

namespace tarvelle {

namespace {
constexpr int kFlashMs = 100;
} // namespace

ImageCamera::ImageCamera(PlotSurface* surface, QWidget* parent) : QWidget(parent), surface_(surface) {
    setObjectName(QStringLiteral("ImageCamera"));
    setToolTip(QStringLiteral("Copy display to clipboard"));
    setFixedSize(28, 22);
    setCursor(Qt::PointingHandCursor);
}

void ImageCamera::Click() {
    // A click during the flash would only copy the same image again.
    if (border_) return;
    if (surface_) surface_->CopyToClipboard();
    border_ = true;
    repaint();
    QPointer<ImageCamera> self(this);
    QEventLoop wait;
    QTimer::singleShot(kFlashMs, &wait, &QEventLoop::quit);
    wait.exec();
    // The window may have closed while other events ran.
    if (!self) return;
    border_ = false;
    repaint();
    emit clicked();
}

void ImageCamera::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) Click();
}

void ImageCamera::paintEvent(QPaintEvent*) {
    QPainter p(this);
    const int w = width(), h = height();
    // Body, with the bump of the viewfinder on top.
    p.setPen(QColor(30, 30, 30));
    p.setBrush(QColor(70, 70, 78));
    p.drawRect(3, 7, w - 7, h - 11);
    p.drawRect(w / 2 - 4, 4, 8, 3);
    p.setBrush(QColor(220, 220, 220));
    p.drawRect(6, 9, 3, 2); // flash window
    // Lens.
    const int d = h - 13;
    const QRect lens(w / 2 - d / 2 - 1, 9, d + 1, d + 1);
    p.setBrush(QColor(20, 20, 20));
    p.drawEllipse(lens);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(90, 130, 200));
    p.drawEllipse(lens.adjusted(2, 2, -2, -2));
    if (border_) {
        p.setBrush(Qt::NoBrush);
        p.setPen(QPen(Qt::black, 1));
        p.drawRect(0, 0, w - 1, h - 1);
    }
}

} // namespace tarvelle
