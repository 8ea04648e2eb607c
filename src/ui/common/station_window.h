// The base of the station's view windows (prediction, plane, tables, sky, log, ...): a
// top-level window over the shared Station that closes itself when the station closes its
// views.
#pragma once

#include "station/station.h"

#include <QWidget>

namespace tarvelle {

class StationWindow : public QWidget {
    Q_OBJECT
public:
    explicit StationWindow(Station& station, QWidget* parent = nullptr);

protected:
    Station& st_;
    Core& core_;
};

} // namespace tarvelle
