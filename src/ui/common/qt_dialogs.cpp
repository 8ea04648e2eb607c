#include "platform/dialogs.h"

#include <QApplication>
#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>

namespace tarvelle {

namespace {

QMessageBox::StandardButtons ButtonsOf(MsgButtons b) {
    switch (b) {
    case MsgButtons::OK:
        return QMessageBox::Ok;
    case MsgButtons::OKCancel:
        return QMessageBox::Ok | QMessageBox::Cancel;
    case MsgButtons::YesNo:
        return QMessageBox::Yes | QMessageBox::No;
    case MsgButtons::YesNoCancel:
        return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    case MsgButtons::RetryCancel:
        return QMessageBox::Retry | QMessageBox::Cancel;
    case MsgButtons::AbortRetryIgnore:
        return QMessageBox::Abort | QMessageBox::Retry | QMessageBox::Ignore;
    }
    return QMessageBox::Ok;
}

QMessageBox::Icon IconOf(MsgIcon icon) {
    switch (icon) {
    case MsgIcon::None:
        return QMessageBox::NoIcon;
    case MsgIcon::Critical:
        return QMessageBox::Critical;
    case MsgIcon::Question:
        return QMessageBox::Question;
    case MsgIcon::Exclamation:
        return QMessageBox::Warning;
    case MsgIcon::Information:
        return QMessageBox::Information;
    }
    return QMessageBox::NoIcon;
}

MsgAnswer AnswerOf(int button) {
    switch (button) {
    case QMessageBox::Ok:
        return MsgAnswer::OK;
    case QMessageBox::Yes:
        return MsgAnswer::Yes;
    case QMessageBox::No:
        return MsgAnswer::No;
    case QMessageBox::Retry:
        return MsgAnswer::Retry;
    case QMessageBox::Abort:
        return MsgAnswer::Abort;
    case QMessageBox::Ignore:
        return MsgAnswer::Ignore;
    default:
        return MsgAnswer::Cancel;
    }
}

} // namespace

MsgAnswer QtDialogs::Message(const QString& text, const QString& title, MsgButtons buttons, MsgIcon icon) {
    QWidget* parent = parent_ ? parent_ : QApplication::activeWindow();
    QMessageBox box(IconOf(icon), title.isEmpty() ? QApplication::applicationName() : title, text,
                    ButtonsOf(buttons), parent);
    return AnswerOf(box.exec());
}

std::optional<QString> QtDialogs::Input(const QString& prompt, const QString& title, const QString& initial) {
    bool ok = false;
    QWidget* parent = parent_ ? parent_ : QApplication::activeWindow();
    const QString text = QInputDialog::getText(parent, title, prompt, QLineEdit::Normal, initial, &ok);
    if (!ok) return std::nullopt;
    return text;
}

QString QtDialogs::QtFilter(const QString& filter) {
    const QStringList parts = filter.split('|');
    QStringList out;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2)
        out << parts[i] + " (" + QString(parts[i + 1]).replace(';', ' ') + ")";
    return out.join(";;");
}

QString QtDialogs::OpenFile(const QString& title, const QString& filter, const QString& start) {
    QWidget* parent = parent_ ? parent_ : QApplication::activeWindow();
    return QFileDialog::getOpenFileName(parent, title, start, QtFilter(filter));
}

QString QtDialogs::SaveFile(const QString& title, const QString& filter, const QString& start) {
    QWidget* parent = parent_ ? parent_ : QApplication::activeWindow();
    return QFileDialog::getSaveFileName(parent, title, start, QtFilter(filter));
}

QString QtDialogs::ChooseDirectory(const QString& title, const QString& start) {
    QWidget* parent = parent_ ? parent_ : QApplication::activeWindow();
    return QFileDialog::getExistingDirectory(parent, title, start);
}

bool QtDialogs::ChoosePrinter(QPrinter& printer) {
    QPrintDialog dialog(&printer, parent_ ? parent_ : QApplication::activeWindow());
    return dialog.exec() == QDialog::Accepted;
}

MsgAnswer ScriptedDialogs::Message(const QString& text, const QString& title, MsgButtons buttons,
                                   MsgIcon icon) {
    messages.push_back({text, title, buttons, icon});
    if (!answers.empty()) {
        const MsgAnswer a = answers.front();
        answers.erase(answers.begin());
        return a;
    }
    return (buttons == MsgButtons::YesNo || buttons == MsgButtons::YesNoCancel) ? MsgAnswer::Yes
                                                                                : MsgAnswer::OK;
}

std::optional<QString> ScriptedDialogs::Input(const QString&, const QString&, const QString&) {
    if (nextInput >= inputs.size()) return std::nullopt;
    return inputs[nextInput++];
}

QString ScriptedDialogs::NextPath() {
    return paths.isEmpty() ? QString() : paths.takeFirst();
}
QString ScriptedDialogs::OpenFile(const QString&, const QString&, const QString&) {
    return NextPath();
}
QString ScriptedDialogs::SaveFile(const QString&, const QString&, const QString&) {
    return NextPath();
}
QString ScriptedDialogs::ChooseDirectory(const QString&, const QString&) {
    return NextPath();
}

bool ScriptedDialogs::ChoosePrinter(QPrinter& printer) {
    ++printDialogs;
    if (printToPdf.isEmpty()) return false;
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(printToPdf);
    return true;
}

} // namespace tarvelle
