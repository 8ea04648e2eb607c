#include "ui/common/station_window.h"

namespace tarvelle {

StationWindow::StationWindow(Station& station, QWidget* parent)
    : QWidget(parent, Qt::Window), st_(station), core_(station.core) {
    connect(&st_.model, &StationModel::closeViews, this, &QWidget::close);
}

} // namespace tarvelle
