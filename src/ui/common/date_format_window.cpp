#include "ui/common/date_format_window.h"

#include "station/settings_store.h"

#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace tarvelle {

FormDateFormat::FormDateFormat(int& choice, SettingsStore& settings, QWidget* parent)
    : QDialog(parent), choice_(choice), settings_(settings) {
    setObjectName("FormDateFormat");
    setWindowTitle("Select a Date Format");
    auto* layout = new QVBoxLayout(this);
    for (const char* caption : {"YYYY / MM / DD", "MM / DD / YYYY", "DD / MM / YYYY"}) {
        auto* option = new QRadioButton(caption, this);
        option->setObjectName("OptDFormat");
        layout->addWidget(option);
        OptDFormat << option;
    }
    if (choice_ >= 0 && choice_ < OptDFormat.size()) OptDFormat[choice_]->setChecked(true);
    cmdOK = new QPushButton("OK", this);
    cmdOK->setObjectName("cmdOK");
    cmdOK->setDefault(true);
    layout->addWidget(cmdOK, 0, Qt::AlignRight);
    connect(cmdOK, &QPushButton::clicked, this, [this] {
        for (qsizetype i = 0; i < OptDFormat.size(); ++i)
            if (OptDFormat[i]->isChecked()) choice_ = static_cast<int>(i);
        settings_.save("Settings", "DFormat", QString::number(choice_));
        accept();
    });
}

} // namespace tarvelle
