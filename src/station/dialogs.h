// Message boxes, input boxes, file and print dialogs, as the commands of the program use them.
// The windowed program shows Qt's (ui/common/qt_dialogs.h); tarvelle-cli answers on its own.
#pragma once

#include <QString>
#include <QStringList>

#include <memory>
#include <optional>
#include <vector>

class QPagedPaintDevice;

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
    // The system's print dialog: the chosen printer (or PDF file) to paint pages on, or
    // nothing when cancelled.
    virtual std::unique_ptr<QPagedPaintDevice> ChoosePrinter() = 0;
};

} // namespace tarvelle
