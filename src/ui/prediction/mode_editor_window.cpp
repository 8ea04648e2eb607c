#include "ui/prediction/mode_editor_window.h"

#include "formats/error_text.h"
#include "formats/mode_file.h"
#include "station/file_messages.h"

#include <QAction>
#include <QFontDatabase>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QPixmap>
#include <QPagedPaintDevice>
#include <QPushButton>
#include <QVBoxLayout>

namespace tarvelle {

namespace {

QString Q(const std::string& s) {
    return QString::fromStdString(s);
}

// Each column's width in characters of the heading, which is set in a fixed-pitch font so that
// its words stand over their boxes.
constexpr int kColumnChars[] = {14, 9, 10, 11, 9};
constexpr int kColumnGap = 4; // pixels

} // namespace

Form4::Form4(Station& station, QWidget* parent) : QDialog(parent), st_(station) {
    setObjectName("Form4");
    BuildControls();
    setWindowTitle("Edit Mode File: " + Q(st_.modes.ModeFileName));
    FillRows();
}

void Form4::BuildControls() {
    Label1 = new QLabel("Name          CML1     CML2      IoP1       IoP2", this);
    Label1->setObjectName("Label1");
    Label1->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    const int charWidth = Label1->fontMetrics().horizontalAdvance(' ');

    auto* rows = new QGridLayout;
    rows->setHorizontalSpacing(kColumnGap);
    rows->setColumnStretch(5, 1); // spare width goes to the right of the boxes
    rows->addWidget(Label1, 0, 0, 1, 5);
    const std::pair<const char*, QList<QLineEdit*>*> columns[] = {{"txtName", &txtName},
                                                                  {"txtCMLs", &txtCMLs},
                                                                  {"txtCMLe", &txtCMLe},
                                                                  {"txtIoS", &txtIoS},
                                                                  {"txtIoE", &txtIoE}};
    for (int row = 0; row < kMaxModes; ++row) {
        int column = 0;
        for (const auto& [name, boxes] : columns) {
            auto* box = new QLineEdit(this);
            box->setObjectName(name);
            box->setFixedWidth(kColumnChars[column] * charWidth - kColumnGap);
            boxes->append(box);
            rows->addWidget(box, row + 1, column++);
        }
    }
    txtName[0]->setToolTip("Name of emission mode.");
    txtCMLs[0]->setToolTip("Start of CML range");
    txtCMLe[0]->setToolTip("End of CML range");
    txtIoS[0]->setToolTip("Start of Io Phase range.");
    txtIoE[0]->setToolTip("end of Io Phase range.");

    auto button = [this](const char* name, const char* caption, const char* tip) {
        auto* b = new QPushButton(caption, this);
        b->setObjectName(name);
        b->setToolTip(tip);
        b->setAutoDefault(false);
        return b;
    };
    CmdCancel = button("CmdCancel", "Discard", "Discard changes and resume.");
    CmdKeep = button("CmdKeep", "Apply", "Apply modifications to modes but do not save them.");
    CmdSave = button("CmdSave", "Save", "Save Changes to disk.");
    auto* commands = new QHBoxLayout;
    commands->addStretch(1);
    for (QPushButton* b : {CmdCancel, CmdKeep, CmdSave}) commands->addWidget(b);

    MenuBar = new QMenuBar(this);
    MenuBar->setObjectName("MenuBar");
    MnuFile = MenuBar->addMenu("&File");
    MnuFile->setObjectName("MnuFile");
    MnuPrint = MnuFile->addAction("&Print");
    MnuPrint->setObjectName("MnuPrint");
    MnuExit = MnuFile->addAction("E&xit");
    MnuExit->setObjectName("MnuExit");

    auto* layout = new QVBoxLayout(this);
    layout->setMenuBar(MenuBar);
    layout->addLayout(rows);
    layout->addLayout(commands);

    connect(CmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(CmdKeep, &QPushButton::clicked, this, [this] {
        ApplyModeEdits();
        accept();
    });
    connect(CmdSave, &QPushButton::clicked, this, &Form4::CmdSaveClick);
    connect(MnuPrint, &QAction::triggered, this, &Form4::MnuPrintClick);
    connect(MnuExit, &QAction::triggered, this, &Form4::MnuExitClick);
}

void Form4::FillRows() {
    const ModeEditRows rows = ModeEditRowsOf(st_.modes);
    for (int row = 0; row < kMaxModes; ++row) {
        txtName[row]->setText(Q(rows[row].name));
        txtCMLs[row]->setText(Q(rows[row].numbers[0]));
        txtCMLe[row]->setText(Q(rows[row].numbers[1]));
        txtIoS[row]->setText(Q(rows[row].numbers[2]));
        txtIoE[row]->setText(Q(rows[row].numbers[3]));
    }
}

void Form4::ApplyModeEdits() {
    ModeEditRows rows;
    for (int row = 0; row < kMaxModes; ++row) {
        rows[row].name = txtName[row]->text().toStdString();
        rows[row].numbers = {txtCMLs[row]->text().toStdString(), txtCMLe[row]->text().toStdString(),
                             txtIoS[row]->text().toStdString(), txtIoE[row]->text().toStdString()};
    }
    tarvelle::ApplyModeEdits(st_.modes, rows);
    st_.model.ModesChanged();
}

void Form4::CmdSaveClick() {
    ApplyModeEdits();
    const QString path =
        st_.dialogs.SaveFile("Save Mode File", "mode file|*.jmf|any|*.*", st_.programDir + "*.JMF");
    if (path.isEmpty()) return; // the applied edits stay in the table
    st_.modes.ModeFileName = path.toStdString();
    int status = 0;
    SaveModeFile(st_.modes, st_.modes.ModeFileName, status, st_.dialogs);
    if (status == 0) st_.settings.save("Startup", "ModeFileName", path);
    setWindowTitle("Edit Mode File: " + path);
}

void Form4::MnuPrintClick() {
    const std::unique_ptr<QPagedPaintDevice> printer = st_.dialogs.ChoosePrinter();
    if (!printer) return;
    const QPixmap image = grab();
    QPainter painter;
    if (image.isNull() || !painter.begin(printer.get())) {
        st_.dialogs.Message(Q(ErrorText(482)), "Print", MsgButtons::OK, MsgIcon::Exclamation);
        return;
    }
    // The window's picture across the page's width, in its own proportions.
    const QRect page = painter.viewport();
    QSize size = image.size();
    size.scale(page.size(), Qt::KeepAspectRatio);
    painter.setViewport(page.x(), page.y(), size.width(), size.height());
    painter.setWindow(image.rect());
    painter.drawPixmap(0, 0, image);
    painter.end();
}

void Form4::MnuExitClick() {
    hide();
    if (QWidget* main = parentWidget()) {
        main->show();
        main->update();
    }
    reject();
}

} // namespace tarvelle
