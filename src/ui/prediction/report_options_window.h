// formReportOptions: the span and the options of an event report. Any way out but OK counts
// as cancelling.
#pragma once

#include "prediction/event_report.h"

#include <QDialog>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace tarvelle {

struct Station;

class formReportOptions : public QDialog {
    Q_OBJECT
public:
    // firstDay is the prediction window's date (0 when it holds none); OK fills `choices`
    // and clears `reportCancelled`.
    formReportOptions(Station& station, ReportOptions& choices, bool& reportCancelled, double firstDay,
                      QWidget* parent = nullptr);

    void cmdOKClick();

    QLineEdit *txtSYear = nullptr, *txtSMonth = nullptr, *txtSDay = nullptr;
    QLineEdit *txtEYear = nullptr, *txtEMonth = nullptr, *txtEDay = nullptr;
    QLineEdit* txtMin = nullptr;
    QCheckBox *chkHeader = nullptr, *chkNoNONE = nullptr, *chkIoOnly = nullptr, *chkHA = nullptr;
    QCheckBox* chkCalendar = nullptr; // the report as a calendar file
    QPushButton *cmdOK = nullptr, *cmdCancel = nullptr;

private:
    Station& st_;
    ReportOptions& choices_;
    bool& reportCancelled_;
};

} // namespace tarvelle
