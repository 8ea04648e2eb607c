#include "ui/main/main_window.h"

#include "prediction/next_window.h"

#include "ui/common/about_window.h"
#include "render/artwork.h"
#include "ui/common/calendar_window.h"
#include "ui/prediction/cmio_plane_window.h"
#include "server/jis_server.h"
#include "ui/common/date_format_window.h"
#include "core/date_value.h"
#include "station/help_commands.h"
#include "ui/prediction/mode_commands.h"
#include "formats/mode_file.h"
#include "render/picture_store.h"
#include "prediction/prediction.h"
#include "ui/prediction/prediction_window.h"
#include "ui/tables/altaz_table_window.h"
#include "ui/tables/de_window.h"
#include "ui/tables/ephemeris_window.h"
#include "ui/tables/visibility_window.h"
#include "ui/sky/alt_az_window.h"
#include "ui/sky/sky_image_window.h"
#include "ui/sky/sky_map_window.h"
#include "prediction/prob_table.h"
#include "core/numeric.h"
#include "station/file_messages.h"
#include "ui/observer/observer_window.h"
#include "ui/main/readout_cell.h"
#include "station/readout.h"
#include "core/text_forms.h"
#include "station/time_entry.h"
#include "station/version.h"
#include "ui/scripting/parameters_window.h"
#include "ui/scripting/script_builder_window.h"
#include "ui/scripting/script_runner.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QFile>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPainter>
#include <QPointer>
#include <QPushButton>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

#include <cmath>
#include <vector>

namespace tarvelle {

namespace {

constexpr int kUnitsPerPixel = 15; // window positions are given in units of 1/15 pixel
constexpr int kButtonSize = 40;
constexpr int kIconSize = 32;

int Px(int units) {
    return (units + kUnitsPerPixel / 2) / kUnitsPerPixel;
}

QString Q(const std::string& s) {
    return QString::fromStdString(s);
}

struct PictureButton {
    const char* name;
    const char* tip;
};

// In the order PlaceButtons lays them out; the stop button shares the run button's place.
constexpr PictureButton kPictureButtons[] = {
    {"cmdObserver", "Set your latitude, longitude, and time zone."},
    {"CmdPredict", "Run Jupiter noise storm prediction routine."},
    {"cmdCMLiOPlane", "Displays a plot of CML and Io phase."},
    {"cmdSkyMap", "Displays a skymap with antenna patterns."},
    {"cmdAltAz", "Displays a graph of Sun and Jupiter altitude and azimuth."},
    {"cmdEphemeris", "Displays an ephemeris of Jupiter and Sun parameters."},
    {"cmdDsubE", "Plots the Jovicentric declination of the Earth."},
    {"cmdVisibility", "Charts when Jupiter and the Sun are visible throughout the year."},
    {"cmdObserverlog", "Open the Observer Log"},
    {"CmdAutomation", "Set Automation Parameters."},
    {"cmdRunAutomation", "Activate Automation."},
    {"cmdStopAutomation", "Deactivate Automation."},
};

QLabel* ReadoutLabel(QWidget* parent, const char* name) {
    auto* label = new QLabel(parent);
    label->setObjectName(name);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

QLineEdit* DateBox(QWidget* parent, const char* name, int width) {
    auto* box = new QLineEdit(parent);
    box->setObjectName(name);
    box->setFixedWidth(width);
    box->setAlignment(Qt::AlignCenter);
    box->setReadOnly(true); // edited only in fixed time
    return box;
}

} // namespace

Form1::Form1(Station& station, QWidget* parent) : QMainWindow(parent), st_(station), core_(station.core) {
    setObjectName("Form1");
    setWindowIcon(IconFromSvg(":/icons/tarvelle.svg"));
    timer1_ = new QTimer(this);
    timer1_->setObjectName("Timer1");
    connect(timer1_, &QTimer::timeout, this, &Form1::Timer1Tick);

    BuildMenus();
    auto* central = new QWidget(this);
    central->setObjectName("Form1Body");
    auto* layout = new QVBoxLayout(central);
    layout->setContentsMargins(0, 0, 0, 6);
    buttonRow_ = new QWidget(central);
    buttonRow_->setObjectName("ButtonRow");
    BuildButtons(buttonRow_);
    layout->addWidget(buttonRow_);
    layout->addWidget(BuildTimePanel());
    layout->addWidget(BuildReadoutPanel(), 1);
    auto* status = new QHBoxLayout;
    status->setContentsMargins(8, 2, 8, 2);
    PicJupIcon = new QLabel(central);
    PicJupIcon->setObjectName("PicJupIcon");
    PicJupIcon->setPixmap(IconFromSvg(":/icons/CmdPredict.svg").pixmap(20, 20));
    PicJupIcon->hide();
    status->addWidget(PicJupIcon);
    LBLQ = ReadoutLabel(central, "LBLQ");
    status->addWidget(LBLQ, 1);
    ConnectNextWindow(status);
    layout->addLayout(status);
    setCentralWidget(central);
    PlaceButtons();
    ArrangeDateBoxes();
    ConnectCommands();
    ConnectServerAndLog();
    ConnectSkyWindows();
    ConnectScriptingWindows();
}

Form1::~Form1() = default;

QAction* Form1::AddAction(QMenu* menu, const char* name, const char* caption, bool checkable) {
    QAction* action = menu->addAction(QString::fromUtf8(caption));
    action->setObjectName(name);
    action->setCheckable(checkable);
    action->setEnabled(false); // each command is enabled as its window or routine is built
    return action;
}

void Form1::BuildMenus() {
    auto* bar = menuBar();
    auto menu = [bar](const char* name, const char* caption) {
        QMenu* m = bar->addMenu(QString::fromUtf8(caption));
        m->setObjectName(name);
        m->menuAction()->setObjectName(name);
        return m;
    };
    QMenu* file = menu("MnuFile", "&File");
    MnuLoadModeFile = AddAction(file, "MnuLoadModeFile", "&Load Mode File");
    MnuSaveModeFile = AddAction(file, "MnuSaveModeFile", "&Save Mode File");
    MnuEditModeFile = AddAction(file, "MnuEditModeFile", "&Edit Mode File");
    MnuFileExit = AddAction(file, "MnuFileExit", "E&xit");
    MnuFileExit->setEnabled(true);
    connect(MnuFileExit, &QAction::triggered, this, [this] {
        core_.ShuttingDown = true;
        close();
    });

    QMenu* options = menu("MnuOptions", "&Options");
    mnuDateFormat = AddAction(options, "mnuDateFormat", "&Date Format");
    mnuObserver = AddAction(options, "mnuObserver", "&Observer");

    QMenu* display = menu("MnuDisplay", "&Display");
    MnuRealTime = AddAction(display, "MnuRealTime", "&RealTime", true);
    MnuUseGMT = AddAction(display, "MnuUseGMT", "Use &GMT", true);
    MnuPrediction = AddAction(display, "MnuPrediction", "&Predict");
    AddAction(display, "MnuEphemeris", "&Ephemeris");
    AddAction(display, "MnuSkyMap", "S&ky Map");
    MnuCMIOPlaneMap = AddAction(display, "MnuCMIOPlaneMap", "&CM Io Plane Map");
    AddAction(display, "MnuAltAzDisplay", "&Alt/Az Display");
    AddAction(display, "mnuYearlyRiseSet", "&Yearly Visibility");
    AddAction(display, "MnuDe", "&D sub e");

    QMenu* tools = menu("mnuTools", "&Tools");
    QMenu* automation = tools->addMenu("&Automation");
    automation->setObjectName("MnuAutomation");
    automation->menuAction()->setObjectName("MnuAutomation");
    AddAction(automation, "MnuParameters", "&Parameters");
    AddAction(automation, "MnuActivate", "&Activate");
    AddAction(automation, "MnuRunScript", "&RunScript");
    AddAction(automation, "mnuStepThroughScript", "&Step Through Script");
    AddAction(automation, "MnuLoadEditScript", "&Load/Edit Script");
    mnuCalendar = AddAction(tools, "mnuCalendar", "&Calendar");
    mnuObserverLog = AddAction(tools, "mnuObserverLog", "&Observer Log");
    mnuJIS = AddAction(tools, "mnuJIS", "&Jupiter Information Server");
    AddAction(tools, "mnuAltAzTable", "&Alt Az Table");

    QMenu* window = menu("MnuWindow", "&Window");
    MnuWindowPredict = AddAction(window, "MnuWindowPredict", "&Predict");
    AddAction(window, "MnuWindowEphemeris", "&Ephemeris");
    MnuWindowCMIOPlane = AddAction(window, "MnuWindowCMIOPlane", "&CM-Io Plane");
    AddAction(window, "MnuWindowSkyMap", "&Sky Map");
    AddAction(window, "MnuWindowAltazDisplay", "&Alt/Az Display");

    QMenu* help = menu("MnuHelp", "&Help");
    mnuHTMLHelp = AddAction(help, "mnuHTMLHelp", "&HTML Help");
    mnuOnLineHelp = AddAction(help, "mnuOnLineHelp", "&Quillmere");
    mnuAbout = AddAction(help, "mnuAbout", "&About");
}

QToolButton* Form1::AddPictureButton(QWidget* row, const char* name, const char* tip) {
    auto* button = new QToolButton(row);
    button->setObjectName(name);
    button->setToolTip(QString::fromUtf8(tip));
    button->setIcon(IconFromSvg(QString(":/icons/") + name + ".svg"));
    button->setIconSize(QSize(kIconSize, kIconSize));
    button->setFixedSize(kButtonSize, kButtonSize);
    button->setAutoRaise(true);
    button->setEnabled(false); // enabled as the window it opens is built
    return button;
}

void Form1::BuildButtons(QWidget* row) {
    QToolButton** targets[] = {&cmdObserver,    &CmdPredict,    &cmdCMLiOPlane,    &cmdSkyMap,
                               &cmdAltAz,       &cmdEphemeris,  &cmdDsubE,         &cmdVisibility,
                               &cmdObserverlog, &CmdAutomation, &cmdRunAutomation, &cmdStopAutomation};
    for (size_t i = 0; i < std::size(kPictureButtons); ++i)
        *targets[i] = AddPictureButton(row, kPictureButtons[i].name, kPictureButtons[i].tip);
    cmdStopAutomation->hide(); // the automation task is off after start-up
    row->setFixedHeight(Px(95) + kButtonSize + 4);
}

QWidget* Form1::BuildTimePanel() {
    auto* panel = new QWidget(this);
    panel->setObjectName("TimePanel");
    auto* grid = new QGridLayout(panel);
    grid->setContentsMargins(10, 4, 10, 4);
    grid->setHorizontalSpacing(10);

    datePanel_ = new QWidget(panel);
    datePanel_->setObjectName("DatePanel");
    LBLDate = new QLabel("Date", datePanel_);
    LBLDate->setObjectName("LBLDate");
    LBLDateFormat = new QLabel(datePanel_);
    LBLDateFormat->setObjectName("LBLDateFormat");
    txtY = DateBox(datePanel_, "txtY", 52);
    txtM = DateBox(datePanel_, "txtM", 34);
    txtD = DateBox(datePanel_, "txtD", 34);
    auto* lblTime = new QLabel("Time", datePanel_);
    lblTime->setObjectName("LBLTime");
    auto* lblTimeFormat = new QLabel("HH  MM  SS", datePanel_);
    lblTimeFormat->setObjectName("LBLTimeFormat");
    txtH = DateBox(datePanel_, "txtH", 34);
    txtN = DateBox(datePanel_, "txtN", 34);
    txtS = DateBox(datePanel_, "txtS", 34);
    // The time boxes stand under the date boxes, in a fixed order.
    const int rowH = txtH->sizeHint().height();
    const int labelW = std::max(LBLDate->sizeHint().width(), lblTime->sizeHint().width());
    const int timeTop = 2 * rowH + 6;
    lblTime->move(0, timeTop + (rowH - lblTime->sizeHint().height()) / 2);
    lblTime->setFixedWidth(labelW);
    LBLDate->setFixedWidth(labelW);
    int x = labelW + Px(50);
    lblTimeFormat->move(x, timeTop - lblTimeFormat->sizeHint().height());
    for (QLineEdit* box : {txtH, txtN, txtS}) {
        box->move(x, timeTop);
        x += box->width() + Px(50);
    }
    datePanel_->setFixedSize(labelW + Px(50) + 52 + 34 + 34 + 2 * Px(50) + 4, timeTop + rowH + 2);
    grid->addWidget(datePanel_, 0, 0, 3, 1);

    cmdReal = new QPushButton("Using Real Time", panel);
    cmdReal->setObjectName("cmdReal");
    cmdReal->setToolTip("Toggles between real time and a fixed time you set.");
    cmdGMT = new QPushButton("GMT", panel);
    cmdGMT->setObjectName("cmdGMT");
    cmdGMT->setToolTip("Toggles between local and GMT times.");
    cmdUpdateTime = new QPushButton("update", panel);
    cmdUpdateTime->setObjectName("cmdUpdateTime");
    cmdUpdateTime->setToolTip("Applies date and time set by user.");
    cmdUpdateTime->hide(); // shown in fixed time only
    cmdCal = new QPushButton("cal", panel);
    cmdCal->setObjectName("cmdCal");
    cmdCal->setToolTip("Show Calendar");
    grid->addWidget(cmdReal, 0, 1);
    grid->addWidget(cmdGMT, 0, 2);
    grid->addWidget(cmdCal, 1, 1);
    grid->addWidget(cmdUpdateTime, 1, 2);

    Label3 = ReadoutLabel(panel, "Label3");
    grid->addWidget(Label3, 2, 1, 1, 2);
    LBLOB = ReadoutLabel(panel, "LBLOB");
    grid->addWidget(LBLOB, 0, 3, 3, 1, Qt::AlignVCenter | Qt::AlignLeft);
    grid->setColumnStretch(3, 1);
    return panel;
}

QWidget* Form1::BuildReadoutPanel() {
    auto* panel = new QWidget(this);
    panel->setObjectName("ReadoutPanel");
    panel->setAttribute(Qt::WA_StyledBackground, true);
    panel->setStyleSheet(
        "#ReadoutPanel { background: #0e1726; border-radius: 6px; }"
        "#ReadoutPanel QLabel { color: #e6eefc; font-family: 'DejaVu Sans Mono', monospace; font-size: 11pt; }"
        "#ReadoutPanel QLabel#LBLJupiter { color: #e7b27a; font-weight: bold; font-size: 12pt; }"
        "#ReadoutPanel QLabel#LBLSun { color: #ffd54a; font-weight: bold; font-size: 12pt; }");
    // The readout stays one block in the middle of an enlarged window.
    auto* centred = new QHBoxLayout(panel);
    centred->setContentsMargins(14, 10, 14, 10);
    auto* grid = new QGridLayout;
    centred->addStretch(1);
    centred->addLayout(grid, 6);
    centred->addStretch(1);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(28);
    grid->setVerticalSpacing(3);

    // CML III and Io phase lead, large; then each body's place on the sky (left) and in the
    // local sky and day (right), values aligned in columns.
    auto cell = [panel](const char* name, bool headline = false) { return new ReadoutCell(panel, name, headline); };
    auto* cml = cell("LBlCMIII", true);
    auto* io = cell("LbLSGC", true);
    LBlCMIII = cml;
    LbLSGC = io;
    grid->addWidget(cml, 1, 0, 1, 2);
    grid->addWidget(io, 1, 2, 1, 2);

    auto* jupiter = new QLabel("Jupiter", panel);
    jupiter->setObjectName("LBLJupiter");
    auto* sun = new QLabel("Sun", panel);
    sun->setObjectName("LBLSun");
    grid->addWidget(jupiter, 2, 0, 1, 2);
    grid->addWidget(sun, 2, 2, 1, 2);

    std::vector<ReadoutCell*> cells;
    auto place = [&](QLabel*& member, const char* name, int row, int column) {
        auto* c = cell(name);
        member = c;
        cells.push_back(c);
        grid->addWidget(c, row, column);
    };
    const struct {
        QLabel** jupiterCell;
        const char* jupiterName;
        QLabel** sunCell;
        const char* sunName;
        int row, column;
    } places[] = {
        {&LbLJupRA, "LbLJupRA", &LbLSunRA, "LbLSunRA", 3, 0},       {&LbLJupDec, "LbLJupDec", &LbLSunDec, "LbLSunDec", 4, 0},
        {&LBLJupHA, "LBLJupHA", &LBLSunHA, "LBLSunHA", 5, 0},       {&LBLJupAlt, "LBLJupAlt", &LBLSunAlt, "LBLSunAlt", 3, 1},
        {&LBLJupAz, "LBLJupAz", &LBLSunAz, "LBLSunAz", 4, 1},       {&LbLJupRise, "LbLJupRise", &LbLSunRise, "LbLSunRise", 5, 1},
        {&LbLJupSet, "LbLJupSet", &LbLSunSet, "LbLSunSet", 6, 1},
    };
    for (const auto& p : places) {
        place(*p.jupiterCell, p.jupiterName, p.row, p.column);
        place(*p.sunCell, p.sunName, p.row, p.column + 2);
    }
    // The stylesheet gives the cells their font on polish; measure with it.
    panel->ensurePolished();
    for (ReadoutCell* c : cells) c->ensurePolished();
    AlignValues(cells, {"RA:", "DEC:", "HA:", "ALT:", "AZ:", "Rise:", "Set:"});
    for (int column = 0; column < 4; ++column) grid->setColumnStretch(column, 1);
    // Spare height above and below, so that an enlarged window keeps the readout together.
    grid->setRowStretch(0, 1);
    grid->setRowStretch(7, 1);
    return panel;
}

void Form1::PlaceButtons() {
    int left = Px(15);
    const int top = Px(95);
    for (QToolButton* b : {cmdObserver, CmdPredict, cmdCMLiOPlane, cmdSkyMap, cmdAltAz, cmdEphemeris,
                           cmdDsubE, cmdVisibility, cmdObserverlog, CmdAutomation, cmdRunAutomation}) {
        b->move(left, top);
        left += b->width() + Px(15);
    }
    cmdStopAutomation->move(cmdRunAutomation->pos());
}

void Form1::ArrangeDateBoxes() {
    const int choice = core_.DateFormatChoice;
    const auto order = InDateOrder(choice, txtY, txtM, txtD);
    if (const std::string heading = DateFieldsFor(choice).heading; !heading.empty()) LBLDateFormat->setText(Q(heading));
    LBLDateFormat->adjustSize();
    const int rowH = txtY->sizeHint().height();
    const int top = LBLDateFormat->sizeHint().height();
    LBLDate->move(0, top + (rowH - LBLDate->sizeHint().height()) / 2);
    int x = LBLDate->width() + Px(50);
    LBLDateFormat->move(x, 0);
    for (QLineEdit* box : order) {
        box->move(x, top);
        x += box->width() + Px(50);
    }
    // Tab goes through the date in the order it is shown, then the time.
    setTabOrder(order[0], order[1]);
    setTabOrder(order[1], order[2]);
    setTabOrder(order[2], txtH);
    setTabOrder(txtH, txtN);
    setTabOrder(txtN, txtS);
}

void Form1::Load() {
    core_.YieldToEvents = [] { QCoreApplication::processEvents(); };
    core_.DetectedTZ = -st_.clock.ClockTimeZoneBias();
    const QString staleProbabilities = st_.programDir + "Io-CMLProb.csv";
    if (QFile::exists(staleProbabilities)) QFile::remove(staleProbabilities);
    LoadProbTable();
    st_.settings.save("Settings", "AppPath", st_.programDir);
    titleText_ = "Tarvelle";
    versionText_ = std::to_string(kVersionMajor) + "." + std::to_string(kVersionMinor) + "." +
                   std::to_string(kVersionPatch);
    st_.VersionText = versionText_;
    core_.DateFormatChoice = static_cast<int>(
        RoundHalfEven(PlainNumber(st_.settings.get("Settings", "DFormat", "0").toStdString())));
    // Settings are checked as read: a value out of its range goes back to its default.
    QStringList reset;
    if (core_.DateFormatChoice < 0 || core_.DateFormatChoice > 2) {
        core_.DateFormatChoice = 0;
        reset << "Settings/DFormat";
    }

    st_.modes.ModeFileName =
        st_.settings.get("Startup", "ModeFileName", st_.programDir + "UFMODES.JMF").toStdString();
    core_.UseGMT = StoredBool(st_.settings.get("Startup", "UseGMT", "True").toStdString());
    core_.ObFileName = st_.settings.get("Startup", "ObFileName", st_.programDir + "viewer.obs").toStdString();
    core_.UseDetectedTZ = StoredBool(st_.settings.get("Startup", "UseDetectedTZ", "True").toStdString());
    core_.DisplayWest = st_.settings.get("Startup", "DisplayWest", "W").toStdString();

    cmdGMT->setText(core_.UseGMT ? "GMT" : "Local");
    core_.RealTimeMode = true;
    MnuRealTime->setChecked(true);
    MnuUseGMT->setChecked(core_.UseGMT);
    LoadPictureStore();
    LoadModeFile();
    LoadObserverFile(core_, st_.dialogs);

    const std::string obsTZText = Trim(StrForm(core_.ObsTZ));
    core_.SystemClockTZ =
        PlainNumber(st_.settings.get("Startup", "SystemClockTZ", Q(obsTZText)).toStdString());
    if (!(core_.SystemClockTZ >= -24.0 && core_.SystemClockTZ <= 24.0)) {
        core_.SystemClockTZ = core_.ObsTZ;
        reset << "Startup/SystemClockTZ";
    }
    if (core_.UseDetectedTZ) core_.SystemClockTZ = core_.DetectedTZ;
    core_.UpdateClockOffset();
    st_.ReadClock();
    lastDay_ = FieldsOf(core_.CurrentUT).day;
    core_.UpdateSiderealTime();
    core_.BuildDayTables(core_.CurrentUT);
    LoadAutomationParameters();
    if (st_.modes.ModesLoaded) UpdateTodayActivity();
    LoadJISParameters();
    if (st_.server.RunJIS != 0) StartJIS();
    timer1_->setInterval(1000);
    timer1_->start();
    DisplayCaption();
    PlaceButtons();
    ArrangeDateBoxes();
    FillObLabel();
    titleText_ =
        TitleWithVersion(titleText_, kVersionMajor, kVersionMinor, kVersionPatch);
    TellOfSettings(reset + st_.settings.Refused());
}

// Told once at start: settings that were out of range or absurd, and a store that keeps nothing.
void Form1::TellOfSettings(const QStringList& reset) {
    QString text;
    if (!reset.isEmpty())
        text += "These settings were out of range and are back to their defaults: " + reset.join(", ") + ".\n";
    if (!st_.settings.Writable())
        text += "The settings file " + st_.settings.fileName() +
                " cannot be written: changes made in this session will not be kept.\n";
    if (!text.isEmpty()) st_.dialogs.Message(text.trimmed(), "Settings", MsgButtons::OK, MsgIcon::Exclamation);
}

void Form1::Timer1Tick() {
    timer1_->stop(); // a tick never overlaps itself; ticks lost meanwhile are not made up
    st_.ReadClock();
    const CalendarFields now = FieldsOf(core_.CurrentUT);
    if (now.day != lastDay_) {
        core_.UpdateSiderealTime();
        core_.BuildDayTables(core_.CurrentUT);
        lastDay_ = now.day;
        st_.automation.DoneToday = false;
    }
    if (lastMinute_ != now.minute && st_.modes.ModesLoaded) {
        if (now.day != st_.activity.ActivityDayOfMonth) UpdateTodayActivity();
        const AutomationLimits& a = st_.automation;
        if (!a.UseJupAlt || (core_.JupAlt > a.JupAlt1 && !(core_.JupAlt > a.JupAlt2))) VisualAlert();
        AutomationMonitor();
        lastMinute_ = now.minute;
    }
    core_.UpdateSiderealTime();
    DisplayTimes();
    core_.UpdatePositions();
    DisplayInfo();
    st_.model.Tick();
    if (st_.server.PushJIS != 0 && st_.clock.LocalNow() > st_.server.LastJISSend + st_.server.JISMin / 1440.0)
        SendJISInfo();
    if (!core_.ShuttingDown) timer1_->start();
}

void Form1::PutDateInBox(double t) {
    txtY->setText(Q(FormatDateMask(t, "yyyy")));
    txtM->setText(Q(FormatDateMask(t, "mm")));
    txtD->setText(Q(FormatDateMask(t, "dd")));
}

void Form1::PutTimeInBox(double t) {
    txtH->setText(Q(FormatDateMask(t, "hh")));
    txtN->setText(Q(FormatDateMask(t, "nn")));
    txtS->setText(Q(FormatDateMask(t, "ss")));
}

void Form1::DisplayTimes() {
    const TimeTexts t = BuildTimeTexts(core_, st_.fixed, st_.clock.LocalNow());
    PutDateInBox(t.shown);
    PutTimeInBox(t.shown);
    Label3->setText(Q(t.Label3));
}

void Form1::DisplayInfo() {
    const InfoTexts i = BuildInfoTexts(core_, st_.fixed);
    const std::pair<QLabel*, const std::string*> cells[] = {
        {LbLSunRise, &i.LbLSunRise}, {LbLSunSet, &i.LbLSunSet}, {LbLJupRise, &i.LbLJupRise},
        {LbLJupSet, &i.LbLJupSet},   {LBLJupHA, &i.LBLJupHA},   {LBLSunHA, &i.LBLSunHA},
        {LbLJupRA, &i.LbLJupRA},     {LbLJupDec, &i.LbLJupDec}, {LBlCMIII, &i.LBlCMIII},
        {LbLSGC, &i.LbLSGC},         {LBLJupAlt, &i.LBLJupAlt}, {LBLJupAz, &i.LBLJupAz},
        {LbLSunRA, &i.LbLSunRA},     {LbLSunDec, &i.LbLSunDec}, {LBLSunAlt, &i.LBLSunAlt},
        {LBLSunAz, &i.LBLSunAz},
    };
    for (const auto& [label, text] : cells) label->setText(Q(*text));
}

void Form1::FillObLabel() {
    LBLOB->setText(Q(ObserverLabelText(core_)));
}

void Form1::DisplayCaption() {
    setWindowTitle(Q(CaptionText(titleText_, core_.UseGMT)));
}

void Form1::closeEvent(QCloseEvent* event) {
    core_.ShuttingDown = true;
    timer1_->stop();
    socket1_->Disconnect();
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (qsizetype i = windows.size() - 1; i >= 0; --i) {
        QWidget* w = windows[i];
        if (w != this && w->isVisible() && w->isWindow()) w->close();
    }
    event->accept();
}

// A resize puts the bare title back; the next change of GMT or local writes the suffix again.
void Form1::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    if (!titleText_.empty()) setWindowTitle(Q(titleText_));
}

void Form1::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow() && core_.RealTimeMode &&
        !core_.ShuttingDown)
        timer1_->start();
}

} // namespace tarvelle

namespace tarvelle {

void Form1::ConnectCommands() {
    MnuRealTime->setEnabled(true);
    MnuUseGMT->setEnabled(true);
    mnuCalendar->setEnabled(true);
    mnuDateFormat->setEnabled(true);
    mnuObserver->setEnabled(true);
    cmdObserver->setEnabled(true);
    connect(MnuRealTime, &QAction::triggered, this, &Form1::MnuRealTimeClick);
    connect(cmdReal, &QPushButton::clicked, this, &Form1::MnuRealTimeClick);
    connect(MnuUseGMT, &QAction::triggered, this, &Form1::MnuUseGMTClick);
    connect(cmdGMT, &QPushButton::clicked, this, &Form1::MnuUseGMTClick);
    connect(cmdUpdateTime, &QPushButton::clicked, this, &Form1::cmdUpdateTimeClick);
    // Enter in a date or time box applies it, as the update button does in fixed time.
    for (QLineEdit* box : {txtY, txtM, txtD, txtH, txtN, txtS})
        connect(box, &QLineEdit::returnPressed, this, [this] {
            if (!core_.RealTimeMode) cmdUpdateTimeClick();
        });
    connect(mnuCalendar, &QAction::triggered, this, &Form1::mnuCalendarClick);
    connect(cmdCal, &QPushButton::clicked, this, &Form1::mnuCalendarClick);
    connect(mnuDateFormat, &QAction::triggered, this, &Form1::mnuDateFormatClick);
    connect(mnuObserver, &QAction::triggered, this, &Form1::mnuObserverClick);
    connect(cmdObserver, &QToolButton::clicked, this, &Form1::mnuObserverClick);
    for (QAction* a : {mnuHTMLHelp, mnuOnLineHelp, mnuAbout, MnuPrediction, MnuLoadModeFile, MnuSaveModeFile,
                       MnuEditModeFile})
        a->setEnabled(true);
    CmdPredict->setEnabled(true);
    MnuCMIOPlaneMap->setEnabled(true);
    cmdCMLiOPlane->setEnabled(true);
    connect(MnuCMIOPlaneMap, &QAction::triggered, this, &Form1::MnuCMIOPlaneMapClick);
    connect(cmdCMLiOPlane, &QToolButton::clicked, this, &Form1::MnuCMIOPlaneMapClick);
    connect(MnuPrediction, &QAction::triggered, this, &Form1::MnuPredictionClick);
    connect(CmdPredict, &QToolButton::clicked, this, &Form1::MnuPredictionClick);
    connect(MnuLoadModeFile, &QAction::triggered, this, [this] { MnuLoadModeFileClick(st_); });
    connect(MnuSaveModeFile, &QAction::triggered, this, [this] { MnuSaveModeFileClick(st_); });
    connect(MnuEditModeFile, &QAction::triggered, this, [this] { MnuEditModeFileClick(st_, this); });
    connect(mnuHTMLHelp, &QAction::triggered, this, [this] { ShowHtmlHelp(st_); });
    connect(mnuOnLineHelp, &QAction::triggered, this, [this] { ShowOnlineHelp(st_); });
    connect(mnuAbout, &QAction::triggered, this, [this] {
        FormAbout about(st_, Q(versionText_), this);
        about.exec();
    });
    ConnectTablesWindows();
    connect(&st_.model, &StationModel::observerChanged, this, &Form1::ObserverChanged);
}

double Form1::ComputerDate() const { return std::floor(st_.clock.LocalNow()); }

void Form1::SetBoxesEditable(bool editable) {
    for (QLineEdit* box : {txtY, txtM, txtD, txtH, txtN, txtS}) box->setReadOnly(!editable);
}

void Form1::MnuRealTimeClick() {
    const bool real = !core_.RealTimeMode;
    MnuRealTime->setChecked(real);
    core_.RealTimeMode = real;
    CloseForms();
    if (real) {
        st_.ReadClock();
        core_.BuildDayTables(core_.CurrentUT);
        // The tables leave the sidereal time of the old instant behind: the readout shows the
        // real instant at once, not a tick later.
        core_.UpdateSiderealTime();
        core_.UpdatePositions();
        DisplayTimes();
        DisplayInfo();
        LBLQ->clear();
        cmdReal->setText("Using Real Time");
        cmdUpdateTime->hide();
        SetBoxesEditable(false);
        timer1_->start();
    } else {
        // The instant on show is the one that stays, in GMT and local display alike.
        firstFix_ = true;
        st_.ReadClock();
        core_.UpdateSiderealTime();
        core_.UpdatePositions();
        SwitchToFixedTime();
    }
    DisplayCaption();
}

void Form1::SwitchToFixedTime() {
    timer1_->stop();
    LBLQ->setText(core_.UseGMT ? "Enter GMT Date and Time  -  Press Update when finished."
                               : "Enter Local Date and Time  -  Press Update when finished.");
    cmdUpdateTime->show();
    cmdReal->setText("Using Fixed Time");
    cmdCal->show();
    SetBoxesEditable(true);
    if (!firstFix_) {
        NewTime();
        core_.BuildDayTables(core_.CurrentUT);
        // The tables leave the live values at their last minute: the readout is of the instant.
        core_.UpdateSiderealTime();
        core_.UpdatePositions();
    }
    st_.fixed.FixedUT = core_.CurrentUT;
    SetFixedTime();
    firstFix_ = false;
    DisplayTimes();
    DisplayInfo();
    DisplayCaption();
    MnuRealTime->setChecked(false);
}

void Form1::SetFixedTime() { tarvelle::SetFixedTime(core_, st_.fixed); }

void Form1::NewTime() {
    core_.UpdateSiderealTime();
    st_.fixed.FixedUT = core_.CurrentUT;
    core_.UpdatePositions();
    SetFixedTime();
    DisplayTimes();
    DisplayInfo();
}

void Form1::cmdUpdateTimeClick() {
    CloseForms();
    double time = 0.0;
    GetTimeFromBox(time);
    if (ParseTimeText(Q(FormatDateMask(time, "hh:nn:ss"))).isEmpty()) return;
    GetTimeFromBox(time);
    double date = 0.0;
    GetDateFromBox(date);
    core_.CurrentUT = date + time;
    PutDateInBox(core_.CurrentUT);
    PutTimeInBox(core_.CurrentUT);
    // The boxes keep the local time the user typed; the clock goes to GMT.
    if (!core_.UseGMT) core_.CurrentUT = core_.CurrentUT - (core_.ObsTZ / 24.0 - core_.ClockOffset / 24.0);
    NewTime();
    core_.BuildDayTables(st_.fixed.FixedUT);
}

void Form1::MnuUseGMTClick() {
    const bool gmt = !core_.UseGMT;
    MnuUseGMT->setChecked(gmt);
    core_.UseGMT = gmt;
    st_.settings.save("Startup", "UseGMT", gmt ? "True" : "False");
    cmdGMT->setText(gmt ? "GMT" : "Local");
    CloseForms();
    DisplayTimes();
    DisplayInfo();
    DisplayCaption();
}

void Form1::mnuCalendarClick() {
    calendarDate_ = core_.CurrentUT;
    FormCalendar calendar(calendarDate_, calendarCancelled_, ComputerDate(), this);
    calendar.exec();
    if (core_.RealTimeMode) return; // the calendar has only been shown
    double time = 0.0;
    GetTimeFromBox(time);
    if (calendarCancelled_) {
        core_.CurrentUT = std::floor(core_.CurrentUT) + time;
        return;
    }
    core_.CurrentUT = calendarDate_ + time;
    PutDateInBox(core_.CurrentUT);
    PutTimeInBox(core_.CurrentUT);
    if (!core_.UseGMT) core_.CurrentUT = core_.CurrentUT - core_.ObsTZ / 24.0;
    SwitchToFixedTime();
}

void Form1::mnuDateFormatClick() {
    FormDateFormat dialog(core_.DateFormatChoice, st_.settings, this);
    dialog.exec();
    ArrangeDateBoxes();
}

// A new observer: the readout shows the new place at once, in fixed time as in real time.
void Form1::ObserverChanged() {
    FillObLabel();
    if (!core_.RealTimeMode) {
        core_.CurrentUT = st_.fixed.FixedUT;
        core_.UpdateSiderealTime();
        core_.UpdatePositions();
        SetFixedTime();
    }
    DisplayTimes();
    DisplayInfo();
}

void Form1::mnuObserverClick() {
    FormObserver observer(st_, this);
    observer.exec();
    FillObLabel();
}

namespace {

DateTimeBoxes ReadBoxes(const Form1& f) {
    return {f.txtY->text().toStdString(), f.txtM->text().toStdString(), f.txtD->text().toStdString(),
            f.txtH->text().toStdString(), f.txtN->text().toStdString(), f.txtS->text().toStdString()};
}

void WriteBoxes(Form1& f, const DateTimeBoxes& b) {
    const std::pair<QLineEdit*, const std::string*> cells[] = {{f.txtY, &b.Y}, {f.txtM, &b.M}, {f.txtD, &b.D},
                                                                {f.txtH, &b.H}, {f.txtN, &b.N}, {f.txtS, &b.S}};
    for (const auto& [box, text] : cells)
        if (box->text() != Q(*text)) box->setText(Q(*text));
}

} // namespace

bool Form1::GetDateFromBox(double& t) {
    DateTimeBoxes boxes = ReadBoxes(*this);
    std::vector<std::string> messages;
    t = DateFromBoxes(boxes, ComputerDate(), messages);
    WriteBoxes(*this, boxes);
    for (const std::string& m : messages) st_.dialogs.Message(Q(m));
    return messages.empty();
}

void Form1::GetTimeFromBox(double& t) {
    DateTimeBoxes boxes = ReadBoxes(*this);
    t = TimeFromBoxes(boxes);
    WriteBoxes(*this, boxes);
}

QString Form1::ParseTimeText(const QString& text) {
    if (const auto normal = NormaliseTimeText(text.toStdString())) return Q(*normal);
    st_.dialogs.Message(kTimeFormatErrorText, kTimeFormatErrorTitle);
    return {};
}

void Form1::CloseForms() {
    st_.model.CloseViews();
}

void Form1::RegisterViewWindow(QWidget* window, QAction* displayItem, QAction* windowEntry) {
    displayItem->setCheckable(true);
    displayItem->setChecked(true);
    windowEntry->setEnabled(true);
    QPointer<QWidget> guarded(window);
    disconnect(windowEntry, &QAction::triggered, nullptr, nullptr);
    connect(windowEntry, &QAction::triggered, this, [guarded] {
        if (!guarded) return;
        guarded->showNormal();
        guarded->raise();
        guarded->activateWindow();
    });
}

void Form1::LoadPictureStore() {
    if (form8_) return;
    form8_ = std::make_unique<Form8>();
}

void Form1::LoadModeFile() {
    int status = 0;
    tarvelle::LoadModeFile(st_.modes, status, st_.dialogs);
    if (status == 0) TellOfUnpredictedModes(st_.modes, st_.dialogs);
}

void Form1::UpdateTodayActivity() {
    tarvelle::UpdateTodayActivity(core_, st_.modes, st_.minutes, st_.activity, st_.clock.LocalNow());
}

void Form1::CheckForActivity(bool& found, std::string& names) {
    tarvelle::CheckForActivity(core_, st_.modes, st_.activity, found, names);
}

// The activity line: the modes predicted active this minute, on the status line.
void Form1::VisualAlert() {
    LBLQ->clear();
    bool found = false;
    std::string names;
    CheckForActivity(found, names);
    if (found) {
        LBLQ->setText("Possible Activity:  " + Q(names));
        if (isMinimized()) setWindowTitle(Q(names));
        PicJupIcon->show();
    } else {
        PicJupIcon->hide();
        setWindowTitle(Q(titleText_));
    }
}

void Form1::MnuPredictionClick() {
    if (!st_.modes.ModesLoaded) {
        st_.dialogs.Message("No Mode File Has Been Loaded. \r\n Prediction Not Possible.");
        return;
    }
    timer1_->stop();
    if (auto* open = findChild<Form3*>(); open && open->isVisible()) {
        open->raise();
        open->activateWindow();
        return;
    }
    auto* form3 = new Form3(
        st_, [this] { timer1_->stop(); },
        [this] {
            MnuPrediction->setChecked(false);
            MnuWindowPredict->setEnabled(false);
        },
        this);
    form3->setAttribute(Qt::WA_DeleteOnClose);
    connect(form3, &Form3::showForThisTime, this, [this](double t) { ShowForThisTime(t, true); });
    RegisterViewWindow(form3, MnuPrediction, MnuWindowPredict);
    form3->show();
}

void Form1::LoadProbTable() {
    std::string failure;
    if (!tarvelle::LoadProbTable(st_.ProbTable, failure))
        st_.dialogs.Message("Error Loading Probability" + Q(failure));
}

void Form1::MnuCMIOPlaneMapClick() {
    if (auto* open = findChild<FormCMIoPlane*>(); open && open->isVisible()) {
        open->raise();
        open->activateWindow();
        return;
    }
    LoadPictureStore();
    auto* plane = new FormCMIoPlane(
        st_, *form8_, [this] { timer1_->start(); },
        [this] {
            MnuCMIOPlaneMap->setChecked(false);
            MnuWindowCMIOPlane->setEnabled(false);
        },
        this);
    plane->setAttribute(Qt::WA_DeleteOnClose);
    RegisterViewWindow(plane, MnuCMIOPlaneMap, MnuWindowCMIOPlane);
    plane->show();
}

// ---- The sky displays ----

void Form1::ConnectSkyWindows() {
    auto* skyMap = findChild<QAction*>("MnuSkyMap");
    auto* altAz = findChild<QAction*>("MnuAltAzDisplay");
    auto* display = menuBar()->findChild<QMenu*>("MnuDisplay");
    QAction* skyImage = display->addAction("Sky Image");
    skyImage->setObjectName("mnuSkyImage");
    for (QAction* a : {skyMap, altAz}) a->setEnabled(true);
    for (QToolButton* b : {cmdSkyMap, cmdAltAz}) b->setEnabled(true);
    connect(skyMap, &QAction::triggered, this, &Form1::MnuSkyMapClick);
    connect(cmdSkyMap, &QToolButton::clicked, this, &Form1::MnuSkyMapClick);
    connect(altAz, &QAction::triggered, this, &Form1::MnuAltAzDisplayClick);
    connect(cmdAltAz, &QToolButton::clicked, this, &Form1::MnuAltAzDisplayClick);
    connect(skyImage, &QAction::triggered, this, &Form1::mnuSkyImageClick);
}

namespace {

// Raises the open window of type W, if there is one.
template <typename W>
bool RaiseOpen(QWidget* owner) {
    auto* open = owner->findChild<W*>();
    if (!open || !open->isVisible()) return false;
    open->showNormal();
    open->raise();
    open->activateWindow();
    return true;
}

} // namespace

// A view of the sky opened from its Display entry: its tick and Window entry follow it.
template <typename W>
void Form1::OpenSkyView(const char* displayItem, const char* windowEntry) {
    if (RaiseOpen<W>(this)) return;
    LoadPictureStore();
    auto* item = findChild<QAction*>(displayItem);
    auto* entry = findChild<QAction*>(windowEntry);
    auto* view = new W(st_, *form8_, [item, entry] {
        item->setChecked(false);
        entry->setEnabled(false);
    }, this);
    view->setAttribute(Qt::WA_DeleteOnClose);
    RegisterViewWindow(view, item, entry);
    view->show();
}

void Form1::MnuSkyMapClick() { OpenSkyView<FormSkyMap>("MnuSkyMap", "MnuWindowSkyMap"); }

void Form1::MnuAltAzDisplayClick() { OpenSkyView<FormAltAz>("MnuAltAzDisplay", "MnuWindowAltazDisplay"); }

void Form1::mnuSkyImageClick() {
    if (RaiseOpen<Form5>(this)) return;
    LoadPictureStore();
    auto* viewer = new Form5(st_, *form8_, this);
    viewer->setAttribute(Qt::WA_DeleteOnClose);
    viewer->show();
}

} // namespace tarvelle

namespace tarvelle {

// The ephemeris tables and graphs: one window of each kind, brought forward when already open.
namespace {
template <typename W> void ShowNew(W* window) {
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->show();
}
} // namespace

void Form1::ConnectTablesWindows() {
    const std::pair<const char*, void (Form1::*)()> entries[] = {
        {"MnuEphemeris", &Form1::MnuEphemerisClick},
        {"mnuYearlyRiseSet", &Form1::mnuYearlyRiseSetClick},
        {"MnuDe", &Form1::MnuDeClick},
        {"mnuAltAzTable", &Form1::mnuAltAzTableClick},
    };
    for (const auto& [name, slot] : entries) {
        QAction* item = findChild<QAction*>(name);
        item->setEnabled(true);
        connect(item, &QAction::triggered, this, slot);
    }
    for (const auto& [button, slot] : {std::pair{cmdEphemeris, &Form1::MnuEphemerisClick},
                                       {cmdVisibility, &Form1::mnuYearlyRiseSetClick},
                                       {cmdDsubE, &Form1::MnuDeClick}}) {
        button->setEnabled(true);
        connect(button, &QToolButton::clicked, this, slot);
    }
}

void Form1::MnuEphemerisClick() {
    timer1_->stop();
    if (RaiseOpen<Form2>(this)) return;
    QAction* item = findChild<QAction*>("MnuEphemeris");
    QAction* entry = findChild<QAction*>("MnuWindowEphemeris");
    auto* form2 = new Form2(st_, timer1_, [item, entry] {
        item->setChecked(false);
        entry->setEnabled(false);
    }, this);
    RegisterViewWindow(form2, item, entry);
    ShowNew(form2);
}

void Form1::mnuYearlyRiseSetClick() {
    if (!RaiseOpen<FormRiseSet>(this)) ShowNew(new FormRiseSet(st_, timer1_, this));
}

void Form1::MnuDeClick() {
    if (!RaiseOpen<FormDe>(this)) ShowNew(new FormDe(st_, this));
}

void Form1::mnuAltAzTableClick() {
    if (!RaiseOpen<FormAltAzTable>(this)) ShowNew(new FormAltAzTable(st_, timer1_, this));
}

// Scripts and automation: the menu entries and buttons, and the two hooks of the tick.
// The next window stands right of the activity text. It never widens the window: a narrow
// window cuts it, the activity text keeps its room.
void Form1::ConnectNextWindow(QBoxLayout* status) {
    LBLNext = new QLabel(this);
    LBLNext->setObjectName("LBLNext");
    LBLNext->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    LBLNext->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    status->addWidget(LBLNext, 1);
    connect(&st_.model, &StationModel::ticked, this, [this] { UpdateNextWindow(false); });
    for (auto changed : {&StationModel::observerChanged, &StationModel::modesChanged, &StationModel::exclusionsChanged})
        connect(&st_.model, changed, this, [this] { UpdateNextWindow(true); });
}

// Shown anew once a minute from the two days' windows, which are predicted again only on a
// new day or when what they depend on changes.
void Form1::UpdateNextWindow(bool inputsChanged) {
    const long long minute = MinuteOf(core_.CurrentUT);
    if (!inputsChanged && minute == nextMinute_) return;
    nextMinute_ = minute;
    if (!st_.modes.ModesLoaded) {
        LBLNext->clear();
        return;
    }
    const double today = std::floor(core_.CurrentUT);
    if (inputsChanged || today != nextWindowsDay_) {
        nextWindows_ = WindowsOfTwoDays(core_, st_.modes, SavedExclusions(st_.settings), today);
        nextWindowsDay_ = today;
    }
    const auto next = FirstWindowAfter(nextWindows_, core_.CurrentUT);
    LBLNext->setText(QString::fromLatin1(NextWindowText(next, core_.CurrentUT, core_.UseGMT, core_.ObsTZ)));
}

void Form1::ConnectScriptingWindows() {
    scripts_ = std::make_unique<ScriptRunner>(st_, *LBLQ, *Label3, *timer1_, *this);
    const std::pair<const char*, void (Form1::*)()> entries[] = {
        {"MnuRunScript", &Form1::MnuRunScriptClick},       {"mnuStepThroughScript", &Form1::mnuStepThroughScriptClick},
        {"MnuLoadEditScript", &Form1::MnuLoadEditScriptClick}, {"MnuParameters", &Form1::MnuParametersClick},
        {"MnuActivate", &Form1::MnuActivateClick}};
    for (const auto& [name, slot] : entries) {
        QAction* action = findChild<QAction*>(name);
        action->setEnabled(true);
        connect(action, &QAction::triggered, this, slot);
    }
    findChild<QAction*>("MnuActivate")->setCheckable(true);
    for (QToolButton* b : {CmdAutomation, cmdRunAutomation, cmdStopAutomation}) b->setEnabled(true);
    connect(CmdAutomation, &QToolButton::clicked, this, &Form1::CmdAutomationClick);
    connect(cmdRunAutomation, &QToolButton::clicked, this, &Form1::MnuActivateClick);
    connect(cmdStopAutomation, &QToolButton::clicked, this, &Form1::MnuActivateClick);
}

void Form1::LoadAutomationParameters() {
    scripts_->Task().LoadAutomationParameters();
}

void Form1::AutomationMonitor() {
    scripts_->Task().AutomationMonitor();
}

void Form1::MnuRunScriptClick() {
    // The filter with its pattern, so that the dialog offers script files first.
    const QString path = st_.dialogs.OpenFile("Load Script File", "Script File(*.scp)|*.scp|Any (*.*)|*.*", "*.scp");
    if (path.isEmpty()) return;
    scripts_->Interpreter().RunScript(path.toStdString());
    // A PAUSE stops the tick; in real time the clock goes on once the script is over.
    if (core_.RealTimeMode && !timer1_->isActive()) timer1_->start();
}

void Form1::mnuStepThroughScriptClick() {
    scripts_->Interpreter().StepMode = true;
    MnuRunScriptClick();
    scripts_->Interpreter().StepMode = false;
}

void Form1::MnuLoadEditScriptClick() {
    FormScripter builder(st_, this);
    builder.exec();
}

void Form1::MnuParametersClick() {
    FormParameters parameters(st_, scripts_->Task(), Q(titleText_), this);
    parameters.exec();
}

void Form1::CmdAutomationClick() {
    MnuParametersClick();
    st_.automation.DoneToday = false;
}

void Form1::MnuActivateClick() {
    QAction* activate = findChild<QAction*>("MnuActivate");
    const AutomationTask::Toggle t = scripts_->Task().ToggleAutomation();
    activate->setChecked(scripts_->Task().AutomationActive);
    if (t == AutomationTask::Toggle::Refused) return;
    const bool on = t == AutomationTask::Toggle::Started;
    cmdStopAutomation->setVisible(on);
    cmdRunAutomation->setVisible(!on);
    LBLQ->setText(on ? "  Automation Started" : "  Automation Stopped");
}

} // namespace tarvelle
