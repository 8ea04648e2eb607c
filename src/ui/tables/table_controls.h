// Controls of the tables' windows, each named as its objectName so that tests find it.
#pragma once

#include <QString>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTimer;
class QWidget;

namespace tarvelle {

QLabel* NamedLabel(QWidget* parent, const char* name, const QString& text);
QLineEdit* NamedField(QWidget* parent, const char* name, int width, const QString& tip = {});
QPushButton* NamedButton(QWidget* parent, const char* name, const QString& caption, const QString& tip = {});
QCheckBox* NamedCheck(QWidget* parent, const char* name, const QString& caption, const QString& tip = {});

// Stops the main window's Timer1 for work that moves the core's clock, and puts it back.
class MainTimerPause {
public:
    explicit MainTimerPause(QTimer* timer);
    ~MainTimerPause();
    MainTimerPause(const MainTimerPause&) = delete;
    MainTimerPause& operator=(const MainTimerPause&) = delete;

private:
    QTimer* timer_;
    bool wasActive_;
};

} // namespace tarvelle
