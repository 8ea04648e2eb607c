// A label that acts like a link: on a click of the left button, or on Enter or Space when it
// has the focus, so that it can be reached without a mouse. A key held down acts once: the
// keyboard's repeats are not new presses.
#pragma once

#include <QLabel>

#include <functional>

namespace tarvelle {

class ClickLabel final : public QLabel {
public:
    ClickLabel(QWidget* parent, std::function<void()> onClick);

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    std::function<void()> onClick_;
};

} // namespace tarvelle
