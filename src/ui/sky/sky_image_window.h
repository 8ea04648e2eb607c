// Form5: an all-sky picture in right ascension (0 to 360 degrees across) and a second axis
// (360 at the top to 0 at the foot, declination +90 to -90), by default the 408 MHz model
// Pic408 of the picture store. A box drawn with the left mouse button zooms into that region,
// also across right ascension 0; File > Reset shows the whole sky again.
#pragma once

#include "render/plot_surface.h"
#include "sky/sky_image_view.h"
#include "station/station.h"
#include "ui/common/plot_widget.h"

#include <QImage>
#include <QWidget>

class QAction;

namespace tarvelle {

class Form8;

class Form5 : public QWidget {
    Q_OBJECT
public:
    Form5(Station& station, const Form8& pictures, QWidget* parent = nullptr);

    void ResetView();
    void DrawStuff();
    double Pix2RA(double x) const;
    double Pix2Dec(double y) const;
    void LoadBackgroundFile();
    void ZoomTo(double ra1, double ra2, double dec1, double dec2);

    // The mouse on Pic1, in its 360 x 360 units.
    void Pic1MouseDown(int button, float x, float y);
    void Pic1MouseMove(int button, float x, float y);
    void Pic1MouseUp(int button, float x, float y);

    SkyImageView view;
    PlotWidget* Pic1 = nullptr;
    PlotSurface Pic2;
    QAction *mnuLoadBackground = nullptr, *mnuResetView = nullptr;

private:
    Station& st_;
    const Form8& pictures_;
    QImage source_; // the picture zoomed into: Pic408, or the background file loaded
    RubberBand band_;
};

} // namespace tarvelle
