#include "doubles.h"

#include <QPdfWriter>

namespace tarvelle {

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

std::unique_ptr<QPagedPaintDevice> ScriptedDialogs::ChoosePrinter() {
    ++printDialogs;
    if (printToPdf.isEmpty()) return nullptr;
    auto pdf = std::make_unique<QPdfWriter>(printToPdf);
    pdf->setResolution(1200);
    return pdf;
}

} // namespace tarvelle
