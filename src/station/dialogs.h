// Message boxes, input boxes and file dialogs, as the commands of the program use them.
#pragma once

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

class QPrinter;
class QWidget;

namespace tarvelle {

enum class MsgButtons { OK, OKCancel, YesNo, YesNoCancel, RetryCancel, AbortRetryIgnore };
enum class MsgIcon { None, Critical, Question, Exclamation, Information };
enum class MsgAnswer { OK, Cancel, Yes, No, Retry, Abort, Ignore };

class Dialogs {
public:
    virtual ~Dialogs() = default;
    virtual MsgAnswer Message(const QString& text, const QString& title = {},
                              MsgButtons buttons = MsgButtons::OK, MsgIcon icon = MsgIcon::None) = 0;
    // The typed text, or nothing when cancelled.
    virtual std::optional<QString> Input(const QString& prompt, const QString& title,
                                         const QString& initial) = 0;
    // filter is "Description|*.ext|Other|*.*"; the chosen path, or empty when cancelled.
    virtual QString OpenFile(const QString& title, const QString& filter, const QString& start) = 0;
    virtual QString SaveFile(const QString& title, const QString& filter, const QString& start) = 0;
    virtual QString ChooseDirectory(const QString& title, const QString& start) = 0;
    // The system's print dialog for the printer; false when cancelled.
    virtual bool ChoosePrinter(QPrinter& printer) = 0;
};

// The real dialogs, modal over the given parent (the active window when null).
class QtDialogs final : public Dialogs {
public:
    explicit QtDialogs(QWidget* parent = nullptr) : parent_(parent) {}
    MsgAnswer Message(const QString& text, const QString& title, MsgButtons buttons, MsgIcon icon) override;
    std::optional<QString> Input(const QString& prompt, const QString& title,
                                 const QString& initial) override;
    QString OpenFile(const QString& title, const QString& filter, const QString& start) override;
    QString SaveFile(const QString& title, const QString& filter, const QString& start) override;
    QString ChooseDirectory(const QString& title, const QString& start) override;
    bool ChoosePrinter(QPrinter& printer) override;

    // "Observer File|*.obs|Any|*.*" as a Qt name filter.
    static QString QtFilter(const QString& filter);

private:
    QWidget* parent_;
};

// Scripted answers for tests; every message is recorded.
class ScriptedDialogs final : public Dialogs {
public:
    struct Shown {
        QString text, title;
        MsgButtons buttons;
        MsgIcon icon;
    };
    std::vector<Shown> messages;
    std::vector<MsgAnswer> answers;             // taken in order; OK (or Yes) once they run out
    std::vector<std::optional<QString>> inputs; // taken in order; cancel once they run out
    size_t nextInput = 0;
    QStringList paths; // file and directory answers in order; "" cancels
    // Print dialogs: cancelled when empty, else the printer writes a PDF to this path.
    QString printToPdf;
    int printDialogs = 0;

    MsgAnswer Message(const QString& text, const QString& title, MsgButtons buttons, MsgIcon icon) override;
    std::optional<QString> Input(const QString& prompt, const QString& title,
                                 const QString& initial) override;
    QString OpenFile(const QString& title, const QString& filter, const QString& start) override;
    QString SaveFile(const QString& title, const QString& filter, const QString& start) override;
    QString ChooseDirectory(const QString& title, const QString& start) override;
    bool ChoosePrinter(QPrinter& printer) override;

private:
    QString NextPath();
};

} // namespace tarvelle
