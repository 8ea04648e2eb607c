// FormDateFormat: the order of year, month and day in dates the station shows and takes.
#pragma once

#include <QDialog>
#include <QList>

class QPushButton;
class QRadioButton;

namespace tarvelle {

class SettingsStore;

class FormDateFormat : public QDialog {
    Q_OBJECT
public:
    // `choice` is DateFormatChoice; OK stores the new one in it and in the settings.
    FormDateFormat(int& choice, SettingsStore& settings, QWidget* parent = nullptr);

    QList<QRadioButton*> OptDFormat; // year first, month first, day first
    QPushButton* cmdOK = nullptr;

private:
    int& choice_;
    SettingsStore& settings_;
};

} // namespace tarvelle
