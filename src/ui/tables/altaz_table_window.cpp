#include "ui/tables/altaz_table_window.h"

#include "core/date_value.h"
#include "ui/tables/table_controls.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <QVBoxLayout>

namespace tarvelle {

namespace {

std::string S(const QLineEdit* box) {
    return box->text().toStdString();
}

} // namespace

FormAltAzTable::FormAltAzTable(Station& station, QTimer* mainTimer, QWidget* parent)
    : StationWindow(station, parent), mainTimer_(mainTimer) {
    setObjectName("FormAltAzTable");
    setWindowTitle("Alt Az Table File Creator");
    BuildControls();
    const CalendarFields today = FieldsOf(core_.CurrentUT);
    for (auto [y, m, d] : {std::tuple{txtYS, txtMS, txtDS}, {txtYE, txtME, txtDE}}) {
        y->setText(QString::number(today.year));
        m->setText(QString::number(today.month));
        d->setText(QString::number(today.day));
    }
    if (mainTimer_) mainTimer_->stop();
}

void FormAltAzTable::BuildControls() {
    auto dateBox = [this](const char* title, const char* y, const char* m, const char* d,
                          std::array<QLineEdit**, 3> fields) {
        auto* box = new QGroupBox(title, this);
        auto* grid = new QGridLayout(box);
        const char* names[] = {y, m, d};
        const char* captions[] = {"Year", "Month", "Day"};
        for (int i = 0; i < 3; ++i) {
            *fields[static_cast<size_t>(i)] = NamedField(box, names[i], i == 0 ? 56 : 36);
            grid->addWidget(new QLabel(captions[i], box), 0, i);
            grid->addWidget(*fields[static_cast<size_t>(i)], 1, i);
        }
        return box;
    };
    QGroupBox* start = dateBox("Start", "txtYS", "txtMS", "txtDS", {&txtYS, &txtMS, &txtDS});
    QGroupBox* end = dateBox("End", "txtYE", "txtME", "txtDE", {&txtYE, &txtME, &txtDE});

    Combo1 = new QComboBox(this);
    Combo1->setObjectName("Combo1");
    Combo1->setEditable(true);
    Combo1->addItems({"10", "15", "20", "30", "60", "90", "120", "240"});
    Combo1->setCurrentIndex(0);
    chkRandomAccess = NamedCheck(this, "chkRandomAccess", "Make Table Random Access",
                                 "Fixed 18-byte records; off: a readable text table.");
    chkRandomAccess->setChecked(true);
    ChkIncludeDate = NamedCheck(this, "ChkIncludeDate", "Include Date in Table");
    chkIncludeTime = NamedCheck(this, "chkIncludeTime", "Include Time in Table");
    ChkIncludeDate->setChecked(true);
    chkIncludeTime->setChecked(true);
    OptJup = new QRadioButton("Jupiter", this);
    OptJup->setObjectName("OptJup");
    OptSun = new QRadioButton("Sun", this);
    OptSun->setObjectName("OptSun");
    OptBoth = new QRadioButton("Both", this);
    OptBoth->setObjectName("OptBoth");
    OptBoth->setChecked(true);
    LBLS = NamedLabel(this, "LBLS", "");
    LBLS->setMinimumWidth(160);
    cmdCreate = NamedButton(this, "cmdCreate", "Create");
    cmdCreate->setDefault(true);

    auto* dates = new QHBoxLayout;
    dates->addWidget(start);
    dates->addWidget(end);
    auto* step = new QHBoxLayout;
    step->addWidget(new QLabel("Time Increment", this));
    step->addWidget(Combo1);
    step->addWidget(new QLabel("minutes", this));
    step->addStretch(1);
    auto* bodies = new QHBoxLayout;
    for (QWidget* w : std::initializer_list<QWidget*>{OptJup, OptSun, OptBoth}) bodies->addWidget(w);
    auto* columns = new QHBoxLayout;
    columns->addWidget(ChkIncludeDate);
    columns->addWidget(chkIncludeTime);
    auto* bottom = new QHBoxLayout;
    bottom->addWidget(LBLS, 1);
    bottom->addWidget(cmdCreate);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(dates);
    layout->addLayout(step);
    layout->addWidget(chkRandomAccess);
    layout->addLayout(columns);
    layout->addLayout(bodies);
    layout->addLayout(bottom);

    connect(cmdCreate, &QPushButton::clicked, this, &FormAltAzTable::cmdCreateClick);
    connect(chkRandomAccess, &QCheckBox::toggled, this, &FormAltAzTable::ShowTextTableChoices);
    ShowTextTableChoices();
}

// The date, time and body choices shape only the text table.
void FormAltAzTable::ShowTextTableChoices() {
    const bool text = !chkRandomAccess->isChecked();
    for (QWidget* w : std::initializer_list<QWidget*>{ChkIncludeDate, chkIncludeTime, OptJup, OptSun, OptBoth})
        w->setEnabled(text);
}

AltAzTableInput FormAltAzTable::Input() const {
    AltAzTableInput in{S(txtYS), S(txtMS), S(txtDS), S(txtYE), S(txtME), S(txtDE), Combo1->currentText().toStdString()};
    in.randomAccess = chkRandomAccess->isChecked();
    in.includeDate = ChkIncludeDate->isChecked();
    in.includeTime = chkIncludeTime->isChecked();
    in.bodies = OptJup->isChecked() ? AltAzBodies::Jupiter : OptSun->isChecked() ? AltAzBodies::Sun : AltAzBodies::Both;
    return in;
}

void FormAltAzTable::cmdCreateClick() {
    if (busy_) return;
    const QString path = st_.dialogs.SaveFile("Save Alt Az Table", "Any|*.*", st_.programDir + "*.*");
    if (path.isEmpty()) return;
    busy_ = true;
    cmdCreate->setEnabled(false);
    AltAzTableResult r;
    {
        const MainTimerPause pause(mainTimer_);
        r = WriteAltAzTable(core_, Input(), path.toStdString(), [this](const std::string& text) {
            LBLS->setText(QString::fromStdString(text));
            QCoreApplication::processEvents();
        });
    }
    cmdCreate->setEnabled(true);
    busy_ = false;
    if (!r.message.empty()) {
        st_.dialogs.Message(QString::fromStdString(r.message), "Alt Az Table", MsgButtons::OK, MsgIcon::Exclamation);
        return;
    }
    // A file that could not be opened is told about rather than passed over in silence.
    if (!r.written) {
        st_.dialogs.Message("The table could not be written to " + path, "Alt Az Table", MsgButtons::OK,
                            MsgIcon::Exclamation);
        return;
    }
    LBLS->setText("Done");
}

void FormAltAzTable::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow() && mainTimer_ && !busy_) mainTimer_->stop();
}

} // namespace tarvelle
