// A one-line label whose width never follows its text: a text longer than the room it has is
// shown shortened with an ellipsis (and whole in its tool tip), so that a long path or a
// changing read-out never widens or shifts its window. text() stays the whole text.
#pragma once

#include <QLabel>

namespace tarvelle {

class ElidedLabel final : public QLabel {
public:
    // mode: where the ellipsis goes (the middle keeps both ends of a path).
    ElidedLabel(const QString& text, Qt::TextElideMode mode, QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    // The text as it is drawn in the present width.
    QString ShownText() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Qt::TextElideMode mode_;
};

} // namespace tarvelle
