#include "ui/common/qt_dialogs.h"

#include <QApplication>
#include <QFileDialog>
#include <QInputDialog>
#include <QMainWindow>
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

QWidget* QtDialogs::OwnerWindow() {
    if (QWidget* modal = QApplication::activeModalWidget()) return modal;
    if (QWidget* active = QApplication::activeWindow()) return active;
    if (QWidget* focus = QApplication::focusWidget()) return focus->window();
    // Nothing active (no window manager, or the program in the background): the station's
    // main window, else any window on show.
    QWidget* shown = nullptr;
    for (QWidget* w : QApplication::topLevelWidgets()) {
        if (!w->isVisible() || w->windowType() == Qt::ToolTip || w->windowType() == Qt::Popup) continue;
        if (qobject_cast<QMainWindow*>(w)) return w;
        if (!shown) shown = w;
    }
    return shown;
}

QWidget* QtDialogs::Parent() const {
    return parent_ ? parent_ : OwnerWindow();
}

MsgAnswer QtDialogs::Message(const QString& text, const QString& title, MsgButtons buttons, MsgIcon icon) {
    QWidget* parent = Parent();
    QMessageBox box(IconOf(icon), title.isEmpty() ? QApplication::applicationName() : title, text,
                    ButtonsOf(buttons), parent);
    return AnswerOf(box.exec());
}

std::optional<QString> QtDialogs::Input(const QString& prompt, const QString& title, const QString& initial) {
    bool ok = false;
    QWidget* parent = Parent();
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
    QWidget* parent = Parent();
    return QFileDialog::getOpenFileName(parent, title, start, QtFilter(filter));
}

QString QtDialogs::SaveFile(const QString& title, const QString& filter, const QString& start) {
    QWidget* parent = Parent();
    return QFileDialog::getSaveFileName(parent, title, start, QtFilter(filter));
}

QString QtDialogs::ChooseDirectory(const QString& title, const QString& start) {
    QWidget* parent = Parent();
    return QFileDialog::getExistingDirectory(parent, title, start);
}

std::unique_ptr<QPagedPaintDevice> QtDialogs::ChoosePrinter() {
    auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    // With no printer installed the dialog offers a PDF file instead.
    QPrintDialog dialog(printer.get(), Parent());
    if (dialog.exec() != QDialog::Accepted) return nullptr;
    return printer;
}

} // namespace tarvelle
