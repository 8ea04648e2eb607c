// A plot surface shown in a window.
#pragma once

#include "render/plot_surface.h"

#include <QWidget>

namespace tarvelle {

// A surface on the screen at 1:1. Mouse events come out in the surface's coordinates of the
// moment: button 1 left, 2 right, 4 middle; for a move, the buttons held, added together.
class PlotWidget : public QWidget {
    Q_OBJECT
public:
    PlotWidget(int widthPx, int heightPx, QWidget* parent = nullptr);
    PlotSurface& Surface() { return surface_; }
    const PlotSurface& Surface() const { return surface_; }
    // New size of the image and of the widget with it.
    void ResizeSurface(int widthPx, int heightPx);
    // From now on the widget grows with its window, down to the given size (and across only,
    // unless tall), and the image takes every new size of the widget; resized() then asks
    // the window to draw it again.
    void FollowWindowSize(int minWidthPx, int minHeightPx, bool tall);

signals:
    void resized();
    void mouseDown(int button, float x, float y);
    void mouseMove(int button, float x, float y);
    void mouseUp(int button, float x, float y);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    PlotSurface surface_;
    bool follows_ = false;
};

} // namespace tarvelle
