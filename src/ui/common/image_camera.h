// The small camera every plot window carries ("Copy display to clipboard"). A click puts the
// window's main surface on the clipboard and flashes a border round the camera for a tenth of
// a second; the flash is the whole of the feedback.
#pragma once

#include <QWidget>

namespace tarvelle {

class PlotSurface;

class ImageCamera : public QWidget {
    Q_OBJECT
public:
    explicit ImageCamera(PlotSurface* surface = nullptr, QWidget* parent = nullptr);
    void SetSurface(PlotSurface* surface) { surface_ = surface; }
    // Copy, border on, repaint, a tenth of a second of other events, border off, repaint.
    void Click();
    bool HasBorder() const { return border_; }

signals:
    void clicked();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    PlotSurface* surface_;
    bool border_ = false;
};

} // namespace tarvelle
