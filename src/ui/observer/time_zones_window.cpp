#include "ui/observer/time_zones_window.h"

#include "formats/places.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPixmap>
#include <QPushButton>
#include <QVBoxLayout>

#include <functional>
#include <utility>

namespace tarvelle {

namespace {

// The size the picture is drawn for, kept when the picture is missing so the bar still works.
constexpr int kPictureWidth = 640;
constexpr int kPictureHeight = 330;

// A picture that reports mouse moves, with or without a button down, and left clicks, in
// its own pixels.
class ZonePicture final : public QLabel {
public:
    ZonePicture(QWidget* parent, std::function<void(const QPoint&)> onMove, std::function<void()> onClick)
        : QLabel(parent), onMove_(std::move(onMove)), onClick_(std::move(onClick)) {
        setMouseTracking(true);
        setAlignment(Qt::AlignLeft | Qt::AlignTop);
        setContentsMargins(0, 0, 0, 0);
    }

protected:
    void mouseMoveEvent(QMouseEvent* event) override {
        onMove_(event->position().toPoint());
        QLabel::mouseMoveEvent(event);
    }
    void mouseReleaseEvent(QMouseEvent* event) override {
        if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) {
            onClick_();
            return;
        }
        QLabel::mouseReleaseEvent(event);
    }

private:
    std::function<void(const QPoint&)> onMove_;
    std::function<void()> onClick_;
};

} // namespace

FormTimeZones::FormTimeZones(QWidget* parent) : QDialog(parent) {
    setObjectName("FormTimeZones");
    setWindowTitle("Time Zones  - Select the appropriate time zone from the bar at the bottom.");
    setModal(true);

    Picture1 = new ZonePicture(
        this, [this](const QPoint& position) { Picture1MouseMove(position); }, [this] { Picture1Click(); });
    Picture1->setObjectName("Picture1");
    const QPixmap picture(":/pictures/timezones.png");
    Picture1->setPixmap(picture);
    Picture1->setFixedSize(picture.isNull() ? QSize(kPictureWidth, kPictureHeight) : picture.size());
    Picture1->setCursor(Qt::CrossCursor);

    CmdOK = new QPushButton("OK", this);
    CmdOK->setObjectName("CmdOK");
    CmdOK->setDefault(true);
    connect(CmdOK, &QPushButton::clicked, this, &FormTimeZones::CmdOKClick);

    CmdCancel = new QPushButton("Cancel", this);
    CmdCancel->setObjectName("CmdCancel");
    connect(CmdCancel, &QPushButton::clicked, this, &FormTimeZones::CmdCancelClick);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(CmdOK);
    buttons->addWidget(CmdCancel);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(8, 8, 8, 8);
    layout->addWidget(Picture1);
    layout->addLayout(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

void FormTimeZones::getTZ() {
    selectedTZ_ = tarvelle::getTZ(lastX_);
}

void FormTimeZones::Picture1MouseMove(const QPoint& position) {
    if (position.y() >= kBarTop) lastX_ = position.x();
}

void FormTimeZones::Picture1Click() {
    getTZ();
    setWindowTitle("Time Zone  " + QString::number(selectedTZ_));
}

void FormTimeZones::CmdOKClick() {
    accept();
}

void FormTimeZones::CmdCancelClick() {
    selectedTZ_ = kNoZone;
    reject();
}

} // namespace tarvelle
