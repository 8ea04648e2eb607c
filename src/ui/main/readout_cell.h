// One value of the station window's readout, "Caption: value" as one text. It shows the
// caption dim and the value bright from a column shared with the cells above and below it, so
// that the values stand aligned; a headline cell shows its caption small over a large value.
// text() stays the whole text, exactly as it was set.
#pragma once

#include <QLabel>
#include <QStringList>

#include <utility>
#include <vector>

namespace tarvelle {

class ReadoutCell final : public QLabel {
public:
    ReadoutCell(QWidget* parent, const char* name, bool headline);

    // The caption (up to and with the first colon) and the value after it, without blanks.
    static std::pair<QString, QString> Split(const QString& text);
    // Where the value starts, in pixels from the cell's left edge (plain cells only).
    void SetValueColumn(int px);
    int ValueColumn() const { return valueColumn_; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QFont CaptionFont() const;
    QFont ValueFont() const;

    bool headline_;
    int valueColumn_ = 0;
};

// Puts the values of all the cells in one column: past the widest of the captions any of them
// can show (the captions of real and of fixed time differ).
void AlignValues(const std::vector<ReadoutCell*>& cells, const QStringList& captions);

} // namespace tarvelle
