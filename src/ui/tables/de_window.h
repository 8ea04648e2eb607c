// FormDe, the graph of the Jovicentric declination of the Earth over whole years, with a line
// at the start of each year and a read-out of the date and De under the mouse.
#pragma once

#include "tables/de_graph.h"
#include "ui/common/station_window.h"

class QLabel;
class QLineEdit;
class QPushButton;

namespace tarvelle {

class PlotWidget;
class PlotSurface;

// Draws the graph's frame and points on a surface; the surface takes the graph's scale.
void DrawDeGraph(PlotSurface& s, const DeGraph& g);

class FormDe : public StationWindow {
    Q_OBJECT
public:
    explicit FormDe(Station& station, QWidget* parent = nullptr);

    void cmdGraphClick();
    void Pic1MouseMove(float x, float y);
    bool DeNoGraph() const { return noGraph_; }

    QLineEdit *TxtY1 = nullptr, *TxtY2 = nullptr;
    QPushButton* cmdGraph = nullptr;
    QLabel *LBLDe = nullptr, *LBLDate = nullptr;
    PlotWidget* Pic1 = nullptr;

private:
    bool noGraph_ = true;
    bool busy_ = false;
    double DeStart_ = 0.0;
};

} // namespace tarvelle
