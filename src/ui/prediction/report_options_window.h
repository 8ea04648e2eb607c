// formReportOptions: the span and the options of an event report. Any way out but OK counts
// as cancelling.
#pragma once

#include <QDialog>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace tarvelle {

struct Station;

// The report's module values, kept by the prediction window between reports.
struct ReportChoices {
    double ReportStart = 0.0, ReportEnd = 0.0; // first and last day
    float ReportMinDuration = 0.0f;            // minutes
    bool ReportHeader = true;
    bool ReportIncludeHA = false;
    bool ReportIoOnly = false;
    bool ReportNoNONE = false;
};

class formReportOptions : public QDialog {
    Q_OBJECT
public:
    // firstDay is the prediction window's date (0 when it holds none); OK fills `choices`
    // and clears `reportCancelled`.
    formReportOptions(Station& station, ReportChoices& choices, bool& reportCancelled, double firstDay,
                      QWidget* parent = nullptr);

    void cmdOKClick();

    QLineEdit *txtSYear = nullptr, *txtSMonth = nullptr, *txtSDay = nullptr;
    QLineEdit *txtEYear = nullptr, *txtEMonth = nullptr, *txtEDay = nullptr;
    QLineEdit* txtMin = nullptr;
    QCheckBox *chkHeader = nullptr, *chkNoNONE = nullptr, *chkIoOnly = nullptr, *chkHA = nullptr;
    QPushButton *cmdOK = nullptr, *cmdCancel = nullptr;

private:
    Station& st_;
    ReportChoices& choices_;
    bool& reportCancelled_;
};

} // namespace tarvelle
