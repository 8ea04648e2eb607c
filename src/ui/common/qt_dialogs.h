// The real dialogs of the windowed program: Qt's message, input, file and print dialogs.
#pragma once

#include "station/dialogs.h"

class QWidget;

namespace tarvelle {

// Modal over the given parent, or, when there is none, over the window that asks (see OwnerWindow).
class QtDialogs final : public Dialogs {
public:
    explicit QtDialogs(QWidget* parent = nullptr) : parent_(parent) {}
    MsgAnswer Message(const QString& text, const QString& title, MsgButtons buttons, MsgIcon icon) override;
    std::optional<QString> Input(const QString& prompt, const QString& title,
                                 const QString& initial) override;
    QString OpenFile(const QString& title, const QString& filter, const QString& start) override;
    QString SaveFile(const QString& title, const QString& filter, const QString& start) override;
    QString ChooseDirectory(const QString& title, const QString& start) override;
    std::unique_ptr<QPagedPaintDevice> ChoosePrinter() override;

    // "Observer File|*.obs|Any|*.*" as a Qt name filter.
    static QString QtFilter(const QString& filter);

    // The window a box belongs to when no parent was given: the open modal dialog (it blocks
    // every other window, so the question comes from it), else the active window, else the
    // window that holds the keyboard focus, else the main window on show, so that a box never
    // opens on its own in the middle of the screen.
    static QWidget* OwnerWindow();

private:
    QWidget* Parent() const;
    QWidget* parent_;
};

} // namespace tarvelle
