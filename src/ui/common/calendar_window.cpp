#include "ui/common/calendar_window.h"

#include "core/date_value.h"

#include <QCalendarWidget>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include <cmath>

namespace tarvelle {

namespace {

QDate ToQDate(double t) {
    const CalendarFields f = FieldsOf(t);
    return QDate(f.year, f.month, f.day);
}

} // namespace

FormCalendar::FormCalendar(double& calendarDate, bool& calendarCancelled, double today, QWidget* parent)
    : QDialog(parent), calendarDate_(calendarDate), calendarCancelled_(calendarCancelled) {
    setObjectName("FormCalendar");
    setWindowTitle("Select Date");
    Calendar1 = new QCalendarWidget(this);
    Calendar1->setObjectName("Calendar1");
    Calendar1->setGridVisible(true);
    Calendar1->setSelectedDate(ToQDate(calendarDate_ == 0.0 ? today : calendarDate_));
    calendarCancelled_ = false;

    cmdOK = new QPushButton("OK", this);
    cmdOK->setObjectName("cmdOK");
    cmdOK->setDefault(true);
    cmdCancel = new QPushButton("Cancel", this);
    cmdCancel->setObjectName("cmdCancel");
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdCancel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(Calendar1);
    layout->addLayout(buttons);

    connect(cmdOK, &QPushButton::clicked, this, &FormCalendar::TakeDate);
    connect(Calendar1, &QCalendarWidget::activated, this, &FormCalendar::TakeDate);
    connect(cmdCancel, &QPushButton::clicked, this, [this] {
        calendarCancelled_ = true;
        reject();
    });
}

void FormCalendar::TakeDate() {
    const QDate d = Calendar1->selectedDate();
    calendarDate_ = DateSerial(d.year(), d.month(), d.day());
    accept();
}

} // namespace tarvelle
