// FormCalendar: a month calendar to pick a date. OK or a double click on a day takes it.
#pragma once

#include <QDialog>

class QCalendarWidget;
class QPushButton;

namespace tarvelle {

class FormCalendar : public QDialog {
    Q_OBJECT
public:
    // Opens on `calendarDate`, or on `today` when that date is empty (0). On OK the chosen date
    // goes back to `calendarDate`; `calendarCancelled` tells whether it was cancelled.
    FormCalendar(double& calendarDate, bool& calendarCancelled, double today, QWidget* parent = nullptr);

    QCalendarWidget* Calendar1 = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;

private:
    void TakeDate();
    double& calendarDate_;
    bool& calendarCancelled_;
};

} // namespace tarvelle
