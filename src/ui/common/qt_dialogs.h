// The real dialogs of the windowed program: Qt's message, input, file and print dialogs.
#pragma once

#include "station/dialogs.h"

class QWidget;

namespace tarvelle {

// Modal over the given parent, or over the active window when there is none.
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

private:
    QWidget* Parent() const;
    QWidget* parent_;
};

} // namespace tarvelle
