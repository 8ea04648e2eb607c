// The station's announcements. The main window, which owns the clock and the observer, says
// here what changed; every other window listens and updates or closes itself, so that no
// window refreshes or closes another by name.
//
//   connect(&station.model, &StationModel::ticked, this, &MyWindow::Refresh);
//   connect(&station.model, &StationModel::closeViews, this, &QWidget::close);
#pragma once

#include <QObject>

namespace tarvelle {

class StationModel : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

    void Tick() { emit ticked(); }
    void ObserverChanged() { emit observerChanged(); }
    void ModesChanged() { emit modesChanged(); }
    void TimeModeChanged(bool realTime) { emit timeModeChanged(realTime); }
    void CloseViews() { emit closeViews(); }
    void ExclusionsChanged() { emit exclusionsChanged(); }

signals:
    // The live values were recomputed for the present instant (once a second in real time).
    void ticked();
    // A new observer record is in the core.
    void observerChanged();
    // A mode file was loaded or edited.
    void modesChanged();
    // The station went to real time (true) or to a fixed time (false).
    void timeModeChanged(bool realTime);
    // The instant or the way time is shown changed under the open views: they close, as the
    // station's views always have, and are opened again on the new footing.
    void closeViews();
    // The prediction's exclusions were stored anew.
    void exclusionsChanged();
};

} // namespace tarvelle
