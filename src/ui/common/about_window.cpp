#include "ui/common/about_window.h"

#include "render/artwork.h"
#include "station/help_commands.h"
#include "station/station.h"
#include "ui/common/click_label.h"
#include "ui/common/named_controls.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

namespace tarvelle {

namespace {

constexpr int kIconSize = 64;
constexpr int kTextWidth = 440;

QFrame* Rule(QWidget* parent) {
    auto* rule = new QFrame(parent);
    rule->setFrameShape(QFrame::HLine);
    rule->setFrameShadow(QFrame::Sunken);
    return rule;
}

QString CreditsText() {
    return QStringLiteral(
               "<p style='margin:0'><b>Data the program carries</b></p>"
               "<table cellspacing='0' cellpadding='1'>"
               "<tr><td valign='top'>City list:&nbsp;</td><td>built from the tz database "
               "(zone1970.tab, iso3166.tab), in the public domain.</td></tr>"
               "<tr><td valign='top'>World maps:&nbsp;</td><td>NASA Visible Earth, earth.jpg as packaged "
               "in Debian's xplanet-images. Image credit: NASA Goddard Space Flight Center.</td></tr>"
               "<tr><td valign='top'>Map labels:&nbsp;</td><td>the zone numbers of the time-zone map "
               "are set in DejaVu Sans (Debian's fonts-dejavu-core).</td></tr>"
               "<tr><td valign='top'>Toolkit:&nbsp;</td><td>Qt %1, used under the GNU LGPL "
               "version 3.</td></tr>"
               "</table>")
        .arg(QString::fromLatin1(qVersion()));
}

} // namespace

FormAbout::FormAbout(Station& station, const QString& versionText, QWidget* parent)
    : QDialog(parent), st_(station) {
    setObjectName("FormAbout");
    setWindowTitle("About Tarvelle " + versionText);
    setModal(true);

    Image1 = NamedLabel(this, "Image1", {});
    const QPixmap icon = PixmapFromSvg(":/icons/tarvelle.svg", kIconSize, devicePixelRatioF());
    Image1->setPixmap(icon);
    Image1->setFixedSize(kIconSize, kIconSize);
    Image1->setVisible(!icon.isNull());

    LabelTitle = NamedLabel(this, "LabelTitle", "Tarvelle");
    QFont titleFont = LabelTitle->font();
    titleFont.setPointSizeF(titleFont.pointSizeF() * 2.0);
    titleFont.setBold(true);
    LabelTitle->setFont(titleFont);

    LabelVersion = NamedLabel(this, "LabelVersion", versionText);
    LabelVersion->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* versionCaption = NamedLabel(this, "LabelVersionCaption", "Version");

    auto* purpose = NamedLabel(this, "LabelPurpose",
                               "Station program for listening to the decametre radio storms of Jupiter.");
    purpose->setWordWrap(true);

    const QString address = MakerWebAddress();
    Label8 = new ClickLabel(this, [this] { Label8Click(); });
    Label8->setObjectName("Label8");
    Label8->setTextFormat(Qt::RichText);
    Label8->setText(QStringLiteral("News and updates: click here to visit<br>"
                                   "<span style='color:%1; text-decoration:underline'>%2</span>")
                        .arg(palette().color(QPalette::Link).name(), address.toHtmlEscaped()));
    Label8->setToolTip(address);

    LabelCredits = NamedLabel(this, "LabelCredits", CreditsText());
    LabelCredits->setTextFormat(Qt::RichText);
    LabelCredits->setWordWrap(true);
    QFont smallFont = LabelCredits->font();
    smallFont.setPointSizeF(smallFont.pointSizeF() * 0.9);
    LabelCredits->setFont(smallFont);

    Command1 = new QPushButton("OK", this);
    Command1->setObjectName("Command1");
    Command1->setDefault(true);
    connect(Command1, &QPushButton::clicked, this, &FormAbout::Command1Click);

    auto* versionRow = new QHBoxLayout;
    versionRow->addWidget(versionCaption);
    versionRow->addWidget(LabelVersion);
    versionRow->addStretch(1);

    auto* heading = new QVBoxLayout;
    heading->setSpacing(2);
    heading->addWidget(LabelTitle);
    heading->addLayout(versionRow);
    heading->addWidget(purpose);

    auto* top = new QHBoxLayout;
    top->setSpacing(16);
    top->addWidget(Image1, 0, Qt::AlignTop);
    top->addLayout(heading, 1);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(Command1);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(18, 18, 18, 12);
    layout->setSpacing(10);
    layout->addLayout(top);
    layout->addWidget(Rule(this));
    layout->addWidget(Label8);
    layout->addWidget(Rule(this));
    layout->addWidget(LabelCredits);
    layout->addLayout(buttons);
    LabelCredits->setMinimumWidth(kTextWidth); // wrapped texts take their height from this width
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

void FormAbout::Command1Click() {
    accept();
    if (QWidget* main = parentWidget()) {
        main->raise();
        main->activateWindow();
    }
}

void FormAbout::Label8Click() {
    OpenInBrowser(st_, MakerWebAddress());
}

} // namespace tarvelle
