#include "ui/log/observer_log_window.h"

#include "core/text_forms.h"
#include "formats/error_text.h"
#include "log/observer_log.h"
#include "ui/common/dir_list_window.h"

#include <QCloseEvent>
#include <QDir>
#include <QFileInfo>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace tarvelle {

namespace {

constexpr const char* kFilter = "Lumivane Observer Log (*.txt)|*.txt|Any (*.*)|*.*";

QString ToCrLf(const QString& plain) {
    QString s = plain;
    return s.replace('\n', "\r\n");
}

QString ErrorLines(const char* what, const QString& path, const LogFailure& f) {
    return what + path + "\r\n" + f.description + "\r\nError # " +
           QString::fromStdString(StrForm(static_cast<double>(f.number)));
}

QString WithoutTrailingSeparator(QString dir) {
    while (dir.size() > 1 && (dir.endsWith('/') || dir.endsWith('\\'))) dir.chop(1);
    return dir;
}

} // namespace

FormObserverLog::FormObserverLog(Station& station, QWidget* parent) : StationWindow(station, parent) {
    setObjectName("FormObserverLog");
    setWindowTitle("Observer Log");
    auto* layout = new QVBoxLayout(this);
    auto* bar = new QMenuBar(this);
    layout->setMenuBar(bar);
    BuildMenus(bar);
    txtEntry = new QPlainTextEdit(this);
    txtEntry->setObjectName("txtEntry");
    layout->addWidget(txtEntry, 1);
    layout->addWidget(BuildQuickPanel());
    connect(txtEntry, &QPlainTextEdit::textChanged, this, [this] { LogDirty = true; });
    ChooseLogDirectory = [this] {
        FormDirList chooser(st_, this);
        chooser.exec();
    };

    const bool quick = st_.settings.get("Settings", "QuickLog") == "True";
    mnuQuickLog->setChecked(quick);
    Frame1->setVisible(quick);
    // The option is read before the log's start is set, so that a log kept in GMT is named in GMT.
    ReadDisplayOptions();
    StartLog();
    resize(560, 420);
}

void FormObserverLog::BuildMenus(QMenuBar* bar) {
    auto add = [](QMenu* menu, const char* name, const char* caption) {
        QAction* a = menu->addAction(caption);
        a->setObjectName(name);
        return a;
    };
    auto menu = [bar](const char* name, const char* caption) {
        QMenu* m = bar->addMenu(caption);
        m->setObjectName(name);
        return m;
    };
    QMenu* file = menu("mnuFile", "&File");
    mnuNew = add(file, "mnuNew", "&New");
    mnuLoad = add(file, "mnuLoad", "&Load");
    mnuSave = add(file, "mnuSave", "&Save");
    mnuPrint = add(file, "mnuPrint", "&Print"); // has no action
    mnuHide = add(file, "mnuHide", "&Hide");
    mnuAppendFile = add(file, "mnuAppendFile", "&Append File");
    mnuExit = add(file, "mnuExit", "E&xit");
    QMenu* edit = menu("mnuEdit", "&Edit");
    mnuCopy = add(edit, "mnuCopy", "&Copy");
    mnuCut = add(edit, "mnuCut", "Cut");
    mnuPaste = add(edit, "mnuPaste", "Paste");
    mnuSelectAll = add(edit, "mnuSelectAll", "Select &All");
    mnuDelete = add(edit, "mnuDelete", "&Delete");
    QMenu* options = menu("mnuOptions", "&Options");
    mnuUseUT = add(options, "mnuUseUT", "Use &UT");
    mnuUseUT->setCheckable(true);
    mnuDefaultLogDirectory = add(options, "mnuDefaultLogDirectory", "&Default Log Directory");
    mnuQuickLog = add(options, "mnuQuickLog", "&Quick Log");
    mnuQuickLog->setCheckable(true);
    QMenu* insert = menu("mnuInsert", "&Insert");
    mnuTimeStamp = add(insert, "mnuTimeStamp", "&Time Stamp");
    mnuJupAltAz = add(insert, "mnuJupAltAz", "Current Jup &Alt Az");
    mnuCMLIoPhase = add(insert, "mnuCMLIoPhase", "Current CML Io &Phase");

    connect(mnuNew, &QAction::triggered, this, &FormObserverLog::mnuNewClick);
    connect(mnuLoad, &QAction::triggered, this, &FormObserverLog::mnuLoadClick);
    connect(mnuSave, &QAction::triggered, this, &FormObserverLog::mnuSaveClick);
    connect(mnuHide, &QAction::triggered, this, &QWidget::hide);
    connect(mnuAppendFile, &QAction::triggered, this, &FormObserverLog::mnuAppendFileClick);
    connect(mnuExit, &QAction::triggered, this, &QWidget::close);
    connect(mnuCopy, &QAction::triggered, this, [this] { txtEntry->copy(); });
    connect(mnuCut, &QAction::triggered, this, [this] { txtEntry->cut(); });
    connect(mnuPaste, &QAction::triggered, this, [this] { txtEntry->paste(); });
    connect(mnuSelectAll, &QAction::triggered, this, [this] { txtEntry->selectAll(); });
    connect(mnuDelete, &QAction::triggered, this, [this] { txtEntry->textCursor().removeSelectedText(); });
    connect(mnuUseUT, &QAction::triggered, this, &FormObserverLog::mnuUseUTClick);
    connect(mnuDefaultLogDirectory, &QAction::triggered, this, &FormObserverLog::mnuDefaultLogDirectoryClick);
    connect(mnuQuickLog, &QAction::triggered, this, &FormObserverLog::mnuQuickLogClick);
    connect(mnuTimeStamp, &QAction::triggered, this, [this] { Insert(TimeStampLines(GetTimeStamp())); });
    connect(mnuJupAltAz, &QAction::triggered, this,
            [this] { Insert(JupAltAzLines(GetTimeStamp(), core_.JupAlt, core_.JupAz)); });
    connect(mnuCMLIoPhase, &QAction::triggered, this,
            [this] { Insert(CMLIoPhaseLines(GetTimeStamp(), core_.CMLIII, core_.IoPhase)); });
}

QWidget* FormObserverLog::BuildQuickPanel() {
    Frame1 = new QGroupBox("Quick Log", this);
    Frame1->setObjectName("Frame1");
    auto* grid = new QGridLayout(Frame1);
    grid->addWidget(new QLabel("Weak        Medium        Strong", Frame1), 0, 1, 1, 3);
    struct Row {
        const char* label;
        const char* name;
        std::array<QPushButton*, 3>* buttons;
        QuickKind kind;
    };
    const Row rows[] = {{"Undetermined", "cmdU", &cmdU, QuickKind::Undetermined},
                        {"L - Bursts", "cmdL", &cmdL, QuickKind::LBurst},
                        {"S - Bursts", "cmdS", &cmdS, QuickKind::SBurst}};
    int r = 1;
    for (const Row& row : rows) {
        grid->addWidget(new QLabel(row.label, Frame1), r, 0);
        for (int i = 0; i < 3; ++i) {
            auto* b = new QPushButton(QString(row.name).right(1), Frame1);
            b->setObjectName(row.name + QString::number(i));
            (*row.buttons)[static_cast<size_t>(i)] = b;
            grid->addWidget(b, r, i + 1);
            const QuickKind kind = row.kind;
            connect(b, &QPushButton::clicked, this, [this, kind, i] { Insert(QuickLine(GetTimeStamp(), kind, i)); });
        }
        ++r;
    }
    return Frame1;
}

QString FormObserverLog::GetTimeStamp() const {
    const double moment = LogMoment(st_.clock.LocalNow(), core_.ObsTZ, UseUT);
    return tarvelle::GetTimeStamp(moment, ShortDate(moment), UseUT);
}

QString FormObserverLog::LogText() const { return ToCrLf(txtEntry->toPlainText()); }

void FormObserverLog::SetLogText(const QString& crlfText) {
    QString plain = crlfText;
    txtEntry->setPlainText(plain.replace("\r\n", "\n"));
    txtEntry->moveCursor(QTextCursor::End);
}

void FormObserverLog::Insert(const QString& text) {
    txtEntry->moveCursor(QTextCursor::End);
    QString plain = text;
    txtEntry->insertPlainText(plain.replace("\r\n", "\n"));
    txtEntry->moveCursor(QTextCursor::End);
}

void FormObserverLog::ReadDisplayOptions() {
    UseUT = st_.settings.get("Settings", "OLogUT") == "True";
    mnuUseUT->setChecked(UseUT);
    DefaultLogDir = st_.settings.get("Settings", "DefaultLogDirectory");
}

void FormObserverLog::StartLog() { LogStart = LogMoment(st_.clock.LocalNow(), core_.ObsTZ, UseUT); }

void FormObserverLog::showEvent(QShowEvent* event) {
    StationWindow::showEvent(event);
    if (!shown_) ReadDisplayOptions();
    shown_ = true;
}

void FormObserverLog::resizeEvent(QResizeEvent* event) {
    StationWindow::resizeEvent(event);
    if (shown_) ReadDisplayOptions();
}

void FormObserverLog::mnuUseUTClick() {
    UseUT = mnuUseUT->isChecked();
    st_.settings.save("Settings", "OLogUT", UseUT ? "True" : "False");
}

void FormObserverLog::mnuQuickLogClick() {
    const bool quick = mnuQuickLog->isChecked();
    Frame1->setVisible(quick);
    st_.settings.save("Settings", "QuickLog", quick ? "True" : "False");
}

void FormObserverLog::mnuDefaultLogDirectoryClick() {
    if (DefaultLogDir.isEmpty()) DefaultLogDir = st_.programDir;
    st_.SelectedDir = DefaultLogDir;
    ChooseLogDirectory();
    DefaultLogDir = st_.SelectedDir;
    LastLogDir = DefaultLogDir;
    st_.settings.save("Settings", "DefaultLogDirectory", DefaultLogDir);
}

// A Yes whose save does not happen (cancelled or failed) ends the command too, so that the
// text is not thrown away unsaved.
bool FormObserverLog::AskToSave() {
    const MsgAnswer a = st_.dialogs.Message("Do you want to save " + LogFileName + " ?", "File Not Saved",
                                            MsgButtons::YesNoCancel);
    if (a == MsgAnswer::Cancel) return false;
    if (a == MsgAnswer::Yes) return mnuSaveClick();
    return true;
}

void FormObserverLog::mnuNewClick() {
    if (!txtEntry->toPlainText().isEmpty() && !AskToSave()) return;
    txtEntry->clear();
    LogDirty = false;
    LogFileName.clear();
    StartLog();
}

bool FormObserverLog::ChooseAndRead(const QString& title, const QString& start, QString& chosen, QString& text) {
    chosen = st_.dialogs.OpenFile(title, kFilter, start);
    if (chosen.isEmpty()) return false;
    if (const auto failure = LoadLogText(chosen, text))
        st_.dialogs.Message(ErrorLines("There was an error loading: ", chosen, *failure));
    return true;
}

void FormObserverLog::mnuLoadClick() {
    if (!txtEntry->toPlainText().isEmpty() && LogDirty && !AskToSave()) return;
    if (LastLogDir.isEmpty()) LastLogDir = DefaultLogDir;
    LastLogDir = WithoutTrailingSeparator(LastLogDir);
    if (!DefaultLogDir.isEmpty() && !QDir(DefaultLogDir).exists() && !QDir().mkpath(DefaultLogDir)) {
        st_.dialogs.Message("There was an error locating the Default Observer Log Directory: \r\n" +
                            QString::fromStdString(ErrorText(76)));
        mnuDefaultLogDirectoryClick();
    }
    QString chosen, text;
    if (!ChooseAndRead("Load Observer Log", LastLogDir + "/*.txt", chosen, text)) return;
    LogFileName = chosen;
    LastLogDir = QFileInfo(chosen).absolutePath();
    SetLogText(text);
    LogDirty = false;
}

void FormObserverLog::mnuAppendFileClick() {
    QString chosen, text;
    const QString start = st_.settings.get("Settings", "LastLoadDir", QDir::separator());
    if (!ChooseAndRead("Load Data File", start + "*.txt", chosen, text)) return;
    st_.settings.save("Settings", "LastLoadDir", QFileInfo(chosen).absolutePath() + "/");
    SetLogText(LogText() + text);
    LogDirty = true;
}

bool FormObserverLog::mnuSaveClick() {
    const QString text = LogText();
    if (text.isEmpty()) {
        st_.dialogs.Message("There is nothing to save.");
        return false;
    }
    if (LogFileName.isEmpty()) LogFileName = ProposedLogName(LogStart);
    const QString chosen = st_.dialogs.SaveFile("Save Observer Log", kFilter, LogFileName);
    if (chosen.isEmpty()) return false;
    LogFileName = chosen;
    if (const auto failure = SaveLogText(chosen, text)) {
        st_.dialogs.Message(ErrorLines("There was an error saving: ", chosen, *failure));
        return false;
    }
    LogDirty = false;
    return true;
}

// A Yes whose save does not happen keeps the window open with its text.
void FormObserverLog::closeEvent(QCloseEvent* event) {
    if (!txtEntry->toPlainText().isEmpty() && LogDirty) {
        const MsgAnswer a = st_.dialogs.Message("Do you want to save the observer log?\r\n\r\n" + LogFileName,
                                                "Observer Log Not Saved", MsgButtons::YesNoCancel);
        if (a == MsgAnswer::Cancel || (a == MsgAnswer::Yes && !mnuSaveClick())) {
            event->ignore();
            return;
        }
    }
    event->accept();
}

} // namespace tarvelle
