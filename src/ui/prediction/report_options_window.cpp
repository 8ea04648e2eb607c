#include "ui/prediction/report_options_window.h"
#include "ui/common/named_controls.h"

#include "core/date_value.h"
#include "core/numeric.h"
#include "station/station.h"
#include "core/text_forms.h"
#include "station/time_entry.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <cmath>

namespace tarvelle {

namespace {

QString Q(const std::string& s) { return QString::fromStdString(s); }
double Number(const QLineEdit* box) { return ValueOfText(box->text().toStdString()); }

// Year, month and day fields side by side in the order of the date format.
QHBoxLayout* DateRow(int choice, QLineEdit* y, QLineEdit* m, QLineEdit* d) {
    auto* row = new QHBoxLayout;
    for (QLineEdit* box : InDateOrder(choice, y, m, d)) row->addWidget(box);
    row->addStretch(1);
    return row;
}

} // namespace

formReportOptions::formReportOptions(Station& station, ReportOptions& choices, bool& reportCancelled,
                                     double firstDay, QWidget* parent)
    : QDialog(parent), st_(station), choices_(choices), reportCancelled_(reportCancelled) {
    setObjectName("formReportOptions");
    setWindowTitle("Report Options");
    auto field = [this](const char* name, int width) { return NamedField(this, name, width); };
    txtSYear = field("txtSYear", 56);
    txtSMonth = field("txtSMonth", 36);
    txtSDay = field("txtSDay", 36);
    txtEYear = field("txtEYear", 56);
    txtEMonth = field("txtEMonth", 36);
    txtEDay = field("txtEDay", 36);
    txtMin = field("txtMin", 48);
    txtMin->setToolTip("Minimum duration for an event before it is included in the report.");
    auto check = [this](const char* name, const char* caption, const char* tip) {
        auto* box = new QCheckBox(caption, this);
        box->setObjectName(name);
        box->setToolTip(tip);
        return box;
    };
    chkHeader = check("chkHeader", "Include Report Header", "Include header information relevant to the report.");
    chkNoNONE = check("chkNoNONE", "Exclude NONE Entries", "Do not include mode entries for which there is no activity.");
    chkIoOnly = check("chkIoOnly", "Io Related Events Only", "Only include events that are Io influenced.");
    chkHA = check("chkHA", "Include Hour Angle", "Include hour angle information.");
    chkCalendar = check("chkCalendar", "Calendar (.ics)", "Write the events as a calendar file for a calendar program.");
    cmdOK = new QPushButton("OK", this);
    cmdOK->setObjectName("cmdOK");
    cmdOK->setDefault(true);
    cmdCancel = new QPushButton("Cancel", this);
    cmdCancel->setObjectName("cmdCancel");

    const int choice = st_.core.DateFormatChoice;
    auto* dates = new QGridLayout;
    dates->addWidget(new QLabel(Q(DateFieldsFor(choice).heading), this), 0, 1);
    dates->addWidget(new QLabel("Report Starts", this), 1, 0);
    dates->addLayout(DateRow(choice, txtSYear, txtSMonth, txtSDay), 1, 1);
    dates->addWidget(new QLabel("Report Ends", this), 2, 0);
    dates->addLayout(DateRow(choice, txtEYear, txtEMonth, txtEDay), 2, 1);
    auto* minimum = new QHBoxLayout;
    minimum->addWidget(new QLabel("Report events that are at least", this));
    minimum->addWidget(txtMin);
    minimum->addWidget(new QLabel("mins.", this));
    minimum->addStretch(1);
    auto* note = new QLabel("Note: Report will be restricted by altitude options set for Jupiter and the Sun on the "
                            "main prediction page.",
                            this);
    note->setWordWrap(true);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdCancel);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(dates);
    layout->addLayout(minimum);
    for (QCheckBox* box : {chkHeader, chkNoNONE, chkIoOnly, chkHA, chkCalendar}) layout->addWidget(box);
    layout->addWidget(note);
    layout->addLayout(buttons);

    // Loading: the first day and the next, the stored options, and cancelled until OK.
    const double start = firstDay > 0.0 ? std::floor(firstDay) : std::floor(st_.clock.LocalNow());
    txtSYear->setText(Q(FormatDateMask(start, "yyyy")));
    txtSMonth->setText(Q(FormatDateMask(start, "mm")));
    txtSDay->setText(Q(FormatDateMask(start, "dd")));
    txtEYear->setText(Q(FormatDateMask(start + 1.0, "yyyy")));
    txtEMonth->setText(Q(FormatDateMask(start + 1.0, "mm")));
    txtEDay->setText(Q(FormatDateMask(start + 1.0, "dd")));
    auto stored = [this](const char* key, const char* fallback) {
        return StoredBool(st_.settings.get("Settings", key, fallback).toStdString());
    };
    chkIoOnly->setChecked(stored("ReportIoOnly", "0"));
    chkNoNONE->setChecked(stored("ReportNoNONE", "0"));
    chkHeader->setChecked(stored("ReportHeader", "1"));
    choices_.ReportIoOnly = chkIoOnly->isChecked();
    choices_.ReportNoNONE = chkNoNONE->isChecked();
    choices_.ReportHeader = chkHeader->isChecked();
    chkCalendar->setChecked(stored("ReportCalendar", "0"));
    choices_.ReportCalendar = chkCalendar->isChecked();
    reportCancelled_ = true;
    chkHA->setChecked(choices_.ReportIncludeHA);
    txtMin->setText(st_.settings.get("Settings", "ReportMinDuration", "0"));
    choices_.ReportMinDuration = static_cast<float>(Number(txtMin));

    connect(cmdOK, &QPushButton::clicked, this, &formReportOptions::cmdOKClick);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

void formReportOptions::cmdOKClick() {
    const ReportSpanNumbers span{Number(txtSYear), Number(txtSMonth), Number(txtSDay),
                                 Number(txtEYear), Number(txtEMonth), Number(txtEDay)};
    double start = 0.0, end = 0.0;
    const std::string refusal = CheckReportSpan(span, start, end);
    // A negative minimum duration is made 0 once the fields have passed their checks.
    if ((refusal.empty() || refusal == kReportSpanReversed) && Number(txtMin) < 0.0) txtMin->setText("0");
    if (!refusal.empty()) {
        st_.dialogs.Message(QString::fromStdString(refusal));
        return;
    }
    choices_.ReportStart = start;
    choices_.ReportEnd = end;
    reportCancelled_ = false;
    choices_.ReportHeader = chkHeader->isChecked();
    choices_.ReportIncludeHA = chkHA->isChecked();
    choices_.ReportIoOnly = chkIoOnly->isChecked();
    choices_.ReportNoNONE = chkNoNONE->isChecked();
    choices_.ReportCalendar = chkCalendar->isChecked();
    choices_.ReportMinDuration = static_cast<float>(Number(txtMin));
    auto flag = [](bool b) { return QString(b ? "1" : "0"); };
    st_.settings.save("Settings", "ReportMinDuration", txtMin->text());
    st_.settings.save("Settings", "ReportHeader", flag(choices_.ReportHeader));
    st_.settings.save("Settings", "ReportIncludeHA", flag(choices_.ReportIncludeHA));
    st_.settings.save("Settings", "ReportIoOnly", flag(choices_.ReportIoOnly));
    st_.settings.save("Settings", "ReportNoNONE", flag(choices_.ReportNoNONE));
    st_.settings.save("Settings", "ReportCalendar", flag(choices_.ReportCalendar));
    accept();
}

} // namespace tarvelle
