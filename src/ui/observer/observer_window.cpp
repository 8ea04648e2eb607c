#include "ui/observer/observer_window.h"
#include "ui/common/named_controls.h"

#include "core/numeric.h"
#include "station/file_messages.h"
#include "formats/observer_record.h"
#include "formats/places.h"
#include "core/text_forms.h"
#include "ui/common/elided_label.h"
#include "ui/observer/time_zones_window.h"

#include <QCheckBox>
#include <QFileInfo>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMouseEvent>
#include <QPixmap>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

#include <algorithm>

namespace tarvelle {

namespace {

QString Q(const std::string& s) { return QString::fromStdString(s); }

// A zone as the boxes show it: plain decimal text, no leading blank.
std::string ZoneText(double hours) { return Trim(StrForm(hours)); }

constexpr const char* kObserverFilter = "Observer File|*.obs|Any|*.*";

// The longest text the map's read-out shows, in the widest digits.
constexpr const char* kWidestMapReadout = "Lat: -00:00:00.0   Lng:000:00:00.0 W";
// A list no wider than this, whatever a line of the city list holds.
constexpr int kMostListWidth = 360;

} // namespace

FormObserver::FormObserver(Station& station, QWidget* parent)
    : QDialog(parent), st_(station), core_(station.core) {
    setObjectName("FormObserver");
    setWindowTitle("Observer Parameters");
    kept_ = KeepObserver(core_);
    BuildControls();
    // Load: the values at opening, as the boxes will show them.
    openLatText_ = FormatLatitudeText(core_.ObsLatitude);
    openLngText_ = FormatLongitudeText(core_.DisplayWest == "W" ? static_cast<double>(core_.ObsLongitude)
                                                                : 360.0 - static_cast<double>(core_.ObsLongitude));
    openObsTZ_ = core_.ObsTZ;
    openSystemClockTZ_ = core_.SystemClockTZ;
    openUseDetectedTZ_ = core_.UseDetectedTZ;
    ShowValues();
}

void FormObserver::BuildControls() {
    auto box = [this](const char* name, const char* tip) {
        auto* edit = new QLineEdit(this);
        edit->setObjectName(name);
        edit->setToolTip(QString::fromUtf8(tip));
        connect(edit, &QLineEdit::textChanged, this, &FormObserver::BoxChanged);
        return edit;
    };
    auto button = [this](const char* name, const char* caption) { return NamedButton(this, name, caption); };
    auto label = [this](const char* name, const char* text) { return NamedLabel(this, name, text); };

    Picture1 = label("Picture1", "");
    Picture1->setPixmap(QPixmap(":/pictures/worldmap.png"));
    Picture1->setFixedSize(640, 320);
    Picture1->setMouseTracking(true);
    Picture1->setCursor(Qt::CrossCursor);
    Picture1->setToolTip("Move the mouse over the map to read a place; press the right button to take it.");
    Picture1->installEventFilter(this);

    Txtlat = box("Txtlat", "The latitude of the Observer.");
    TxtLng = box("TxtLng", "This is the West Longitude of the Observer.");
    TxtTZ = box("TxtTZ", "This is the time zone for the selected observer location. Usually this will be the same "
                         "as the system clock time zone.");
    txtSCTZ = box("txtSCTZ", "This is the time zone that your computer system clock uses.  ");
    chkDetectTZ = new QCheckBox("Detect SystemTime Zone ", this);
    chkDetectTZ->setObjectName("chkDetectTZ");
    ChkMakeDefault = new QCheckBox("&Keep As Default", this);
    ChkMakeDefault->setObjectName("ChkMakeDefault");
    cmdEW = button("cmdEW", "W");
    cmdEW->setFixedWidth(32);
    CmdLoad = button("CmdLoad", "&Load");
    CmdSave = button("CmdSave", "&Save");
    CmdApply = button("CmdApply", "&Apply");
    CmdOK = button("CmdOK", "&OK");
    CmdCancel = button("CmdCancel", "&Cancel");
    CmdCities = button("CmdCities", "Cities");
    CmdTZ = button("CmdTZ", "Time Zone");
    // The file name and the map's read-out never widen the window: the map stays under the mouse.
    LBLObFileName = new ElidedLabel("Observer file name", Qt::ElideMiddle, this);
    LBLObFileName->setObjectName("LBLObFileName");
    LBLObFileName->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    LBLLatLng = new ElidedLabel("Lat/Lng", Qt::ElideRight, this);
    LBLLatLng->setObjectName("LBLLatLng");
    LBLLatLng->setMinimumWidth(LBLLatLng->fontMetrics().horizontalAdvance(kWidestMapReadout) + 4);
    LBLRegions = label("LBLRegions", "Select Region");
    LBLCities = label("LBLCities", "Select City");
    ListRegions = new QListWidget(this);
    ListRegions->setObjectName("ListRegions");
    ListCities = new QListWidget(this);
    ListCities->setObjectName("ListCities");
    SizeLists();
    HideLists();

    auto* boxes = new QGridLayout;
    const std::pair<const char*, QLineEdit*> rows[] = {{"Latitude:", Txtlat},
                                                        {"Longitude:", TxtLng},
                                                        {"Time Zone:", TxtTZ},
                                                        {"System Clock Time Zone:", txtSCTZ}};
    int row = 0;
    for (const auto& [caption, edit] : rows) {
        boxes->addWidget(new QLabel(caption, this), row, 0);
        boxes->addWidget(edit, row, 1);
        ++row;
    }
    boxes->addWidget(cmdEW, 1, 2);
    boxes->addWidget(CmdTZ, 2, 2);
    boxes->addWidget(chkDetectTZ, 4, 1, 1, 2);
    boxes->addWidget(ChkMakeDefault, 5, 1, 1, 2);

    auto* commands = new QVBoxLayout;
    for (QPushButton* b : {CmdCities, CmdLoad, CmdSave, CmdApply, CmdOK, CmdCancel}) commands->addWidget(b);
    commands->addStretch(1);

    auto* lists = new QGridLayout;
    lists->addWidget(LBLRegions, 0, 0);
    lists->addWidget(ListRegions, 1, 0);
    lists->addWidget(LBLCities, 0, 1);
    lists->addWidget(ListCities, 1, 1);

    auto* lower = new QHBoxLayout;
    lower->addLayout(boxes);
    lower->addLayout(lists, 1);
    lower->addLayout(commands);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(Picture1, 0, Qt::AlignHCenter);
    auto* status = new QHBoxLayout;
    status->addWidget(LBLLatLng);
    status->addSpacing(12);
    status->addWidget(LBLObFileName, 1);
    layout->addLayout(status);
    layout->addLayout(lower);

    connect(CmdApply, &QPushButton::clicked, this, [this] {
        bool done = false;
        UpdateValues(done);
    });
    connect(CmdOK, &QPushButton::clicked, this, [this] {
        bool done = false;
        UpdateValues(done);
        if (done) accept();
    });
    connect(CmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(cmdEW, &QPushButton::clicked, this, &FormObserver::cmdEWClick);
    connect(CmdLoad, &QPushButton::clicked, this, &FormObserver::CmdLoadClick);
    connect(CmdSave, &QPushButton::clicked, this, &FormObserver::CmdSaveClick);
    connect(CmdCities, &QPushButton::clicked, this, &FormObserver::CmdCitiesClick);
    connect(CmdTZ, &QPushButton::clicked, this, &FormObserver::CmdTZClick);
    connect(ListRegions, &QListWidget::itemClicked, this,
            [this](QListWidgetItem* item) { ListRegionsClick(item->text()); });
    connect(ListCities, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) { ListCitiesClick(item->text()); });
    connect(chkDetectTZ, &QCheckBox::toggled, this, [this](bool checked) {
        if (!checked || showing_) return;
        const std::string detected = ZoneText(-st_.clock.ClockTimeZoneBias());
        TxtTZ->setText(Q(detected));
        txtSCTZ->setText(Q(detected));
    });
}

void FormObserver::BoxChanged() {
    if (!showing_) edited_ = true;
}

void FormObserver::SetBoxQuietly(QLineEdit* box, const std::string& text) {
    const bool was = showing_;
    showing_ = true;
    box->setText(Q(text));
    showing_ = was;
}

void FormObserver::ShowValues() {
    showing_ = true;
    cmdEW->setText(Q(core_.DisplayWest));
    chkDetectTZ->setChecked(core_.UseDetectedTZ);
    LBLObFileName->setText("Observer File: " + Q(core_.ObFileName));
    core_.ObLatText = FormatLatitudeText(core_.ObsLatitude);
    Txtlat->setText(Q(core_.ObLatText));
    DisplayLongitude();
    TxtTZ->setText(Q(ZoneText(core_.ObsTZ)));
    txtSCTZ->setText(Q(ZoneText(core_.SystemClockTZ)));
    showing_ = false;
    edited_ = false;
}

void FormObserver::DisplayLongitude() {
    const double west = core_.ObsLongitude;
    core_.ObLngText = FormatLongitudeText(core_.DisplayWest == "W" ? west : 360.0 - west);
    SetBoxQuietly(TxtLng, core_.ObLngText);
}

void FormObserver::UpdateValues(bool& done) {
    done = false;
    const std::string lat = Txtlat->text().toStdString(), lng = TxtLng->text().toStdString();
    const double tzBox = ValueOfText(TxtTZ->text().toStdString());
    const double sctzBox = ValueOfText(txtSCTZ->text().toStdString());
    if (tzBox == core_.ObsTZ && sctzBox == openSystemClockTZ_ && lat == openLatText_ && lng == openLngText_ &&
        !eastWestChanged_)
        edited_ = false;
    const bool changed = tzBox != core_.ObsTZ || sctzBox != core_.SystemClockTZ || edited_ || lat != openLatText_ ||
                         lng != openLngText_;
    if (!changed) {
        if (ChkMakeDefault->isChecked()) SaveAsDefault();
        done = true;
        ShowValues();
        return;
    }
    const MsgAnswer answer = st_.dialogs.Message("If you want to keep these parameters\n"
                                                 "then todays predictions will be \n"
                                                 "recalculated.  Select OK to continue\n"
                                                 "or Cancel to restore last settings.",
                                                 "Update Parameters Message", MsgButtons::OKCancel);
    if (answer != MsgAnswer::OK) {
        st_.dialogs.Message("Previous values restored", "Observer Parameters.");
        ShowValues();
        done = true;
        return;
    }
    core_.UseDetectedTZ = chkDetectTZ->isChecked();
    const ObserverInput in = CheckObserverInput(lat, lng, TxtTZ->text().toStdString(),
                                                txtSCTZ->text().toStdString(), core_.DisplayWest);
    using Status = ObserverInput::Status;
    // A refused place is said, naming the field; the record keeps its values.
    if (in.status == Status::BadLatitude) {
        st_.dialogs.Message(Q(LatitudeRefusal(lat)), "Latitude Error", MsgButtons::OK, MsgIcon::Exclamation);
        return;
    }
    if (in.status == Status::BadLongitude) {
        st_.dialogs.Message(Q(LongitudeRefusal(lng)), "Longitude Error", MsgButtons::OK, MsgIcon::Exclamation);
        return;
    }
    if (in.status == Status::BadTimeZone) {
        st_.dialogs.Message(kTimeZoneErrorText, "Time Zone Error");
        return;
    }
    if (in.status == Status::BadSystemClockZone) {
        st_.dialogs.Message(kSystemClockZoneErrorText, "Time Zone Error");
        return;
    }
    core_.ObsLongitude = static_cast<float>(in.longitudeWest);
    core_.ObsLatitude = static_cast<float>(in.latitude);
    core_.ObsTZ = in.timeZone;
    core_.SystemClockTZ = in.systemClockZone;
    core_.UpdateClockOffset();
    if (ChkMakeDefault->isChecked()) SaveAsDefault();
    openLatText_ = lat;
    openLngText_ = lng;
    openObsTZ_ = core_.ObsTZ;
    openSystemClockTZ_ = core_.SystemClockTZ;
    openUseDetectedTZ_ = core_.UseDetectedTZ;
    edited_ = false;
    done = true;
    if (core_.RealTimeMode) {
        st_.ReadClock();
        core_.BuildDayTables(core_.CurrentUT);
    } else {
        core_.BuildDayTables(st_.fixed.FixedUT);
    }
    st_.model.ObserverChanged();
    st_.model.CloseViews();
    ShowValues();
    // What the boxes now show is the applied record: OK after Apply has nothing to ask.
    openLatText_ = Txtlat->text().toStdString();
    openLngText_ = TxtLng->text().toStdString();
    kept_ = KeepObserver(core_);
}

FormObserver::ObserverFields FormObserver::KeepObserver(const Core& c) {
    return {c.ObFileName,  c.ObLatText,     c.ObLngText,    c.DisplayWest,  c.ObsTZ,
            c.SystemClockTZ, c.ClockOffset, c.ObsLatitude, c.ObsLongitude, c.UseDetectedTZ};
}

void FormObserver::reject() {
    // Cancel leaves the observer as the window found it (or as last applied), whatever was loaded.
    const ObserverFields& k = kept_;
    core_.ObFileName = k.ObFileName;
    core_.ObLatText = k.ObLatText;
    core_.ObLngText = k.ObLngText;
    core_.DisplayWest = k.DisplayWest;
    core_.ObsTZ = k.ObsTZ;
    core_.SystemClockTZ = k.SystemClockTZ;
    core_.ClockOffset = k.ClockOffset;
    core_.ObsLatitude = k.ObsLatitude;
    core_.ObsLongitude = k.ObsLongitude;
    core_.UseDetectedTZ = k.UseDetectedTZ;
    QDialog::reject();
}

void FormObserver::SaveAsDefault() {
    st_.settings.save("Startup", "ObFileName", Q(core_.ObFileName));
    st_.settings.save("Startup", "SystemClockTZ", txtSCTZ->text());
    st_.settings.save("Startup", "DisplayWest", Q(core_.DisplayWest));
    st_.settings.save("Startup", "UseDetectedTZ", core_.UseDetectedTZ ? "True" : "False");
}

bool FormObserver::SaveoB() {
    std::string latText = Txtlat->text().toStdString(), lngText = TxtLng->text().toStdString();
    // A record with a refused place is never written.
    if (ParseLatitude(latText) == kRejected) {
        st_.dialogs.Message(Q(LatitudeRefusal(latText)), "Save Error", MsgButtons::OK, MsgIcon::Exclamation);
        return false;
    }
    double longitude = ParseLongitude(lngText);
    if (longitude == kRejected) {
        st_.dialogs.Message(Q(LongitudeRefusal(lngText)), "Save Error", MsgButtons::OK, MsgIcon::Exclamation);
        return false;
    }
    if (core_.DisplayWest == "E") longitude = 360.0 - longitude;
    const ObserverFileContents contents{Txtlat->text().toStdString(), FormatLongitudeText(longitude),
                                        TxtTZ->text().toStdString()};
    std::string failure;
    if (WriteObserverFile(core_.ObFileName, contents, failure)) return true;
    st_.dialogs.Message("An error occured while trying to save the observer file.\n" + Q(failure), "Save Error",
                        MsgButtons::OK, MsgIcon::Exclamation);
    return false;
}

void FormObserver::cmdEWClick() {
    core_.DisplayWest = core_.DisplayWest == "W" ? "E" : "W";
    cmdEW->setText(Q(core_.DisplayWest));
    DisplayLongitude();
    eastWestChanged_ = true;
}

void FormObserver::CmdLoadClick() {
    const QString start = QFileInfo(Q(core_.ObFileName)).absolutePath();
    const QString path = st_.dialogs.OpenFile("Load Observer File", kObserverFilter, start);
    if (path.isEmpty()) return;
    // The file is remembered only once it has loaded.
    const std::string previous = core_.ObFileName;
    core_.ObFileName = path.toStdString();
    if (!LoadObserverFile(core_, st_.dialogs)) {
        core_.ObFileName = previous;
        return;
    }
    ShowValues();
    edited_ = true; // so that applying asks for the loaded record
}

void FormObserver::CmdSaveClick() {
    bool done = false;
    UpdateValues(done);
    const QString start = QFileInfo(Q(core_.ObFileName)).absolutePath();
    QString path = st_.dialogs.SaveFile("Save Observer File", kObserverFilter, start);
    if (path.isEmpty()) return;
    if (QFileInfo(path).suffix().isEmpty()) path += ".obs";
    const std::string previous = core_.ObFileName;
    core_.ObFileName = path.toStdString();
    if (!SaveoB()) {
        core_.ObFileName = previous;
        return;
    }
    if (ChkMakeDefault->isChecked()) st_.settings.save("Startup", "SystemClockTZ", txtSCTZ->text());
    LBLObFileName->setText("Observer File: " + path);
}

void FormObserver::SizeLists() {
    // Wide enough for the longest name of the city list, and their room kept while they are
    // hidden, so that showing them never resizes the window.
    const QFontMetrics metrics = ListRegions->fontMetrics();
    int regionWidth = metrics.horizontalAdvance("Select Region");
    int cityWidth = metrics.horizontalAdvance("<CANCEL>");
    const std::string path = LatlngPath();
    for (const std::string& region : ReadRegions(path)) {
        regionWidth = std::max(regionWidth, metrics.horizontalAdvance(Q(region)));
        for (const std::string& city : ReadCities(path, region))
            cityWidth = std::max(cityWidth, metrics.horizontalAdvance(Q(city)));
    }
    const int chrome = 2 * ListRegions->frameWidth() + style()->pixelMetric(QStyle::PM_ScrollBarExtent) + 12;
    ListRegions->setFixedWidth(std::min(regionWidth, kMostListWidth) + chrome);
    ListCities->setFixedWidth(std::min(cityWidth, kMostListWidth) + chrome);
    for (QWidget* w : {static_cast<QWidget*>(ListRegions), static_cast<QWidget*>(ListCities),
                       static_cast<QWidget*>(LBLRegions), static_cast<QWidget*>(LBLCities)}) {
        QSizePolicy policy = w->sizePolicy();
        policy.setRetainSizeWhenHidden(true);
        w->setSizePolicy(policy);
    }
}

std::string FormObserver::LatlngPath() const { return (st_.programDir + "latlng.txt").toStdString(); }

void FormObserver::HideLists() {
    for (QWidget* w : {static_cast<QWidget*>(ListRegions), static_cast<QWidget*>(ListCities),
                       static_cast<QWidget*>(LBLRegions), static_cast<QWidget*>(LBLCities)})
        w->hide();
    ListRegions->clear();
    ListCities->clear();
}

void FormObserver::CmdCitiesClick() {
    ListRegions->clear();
    for (const std::string& region : ReadRegions(LatlngPath())) ListRegions->addItem(Q(region));
    ListRegions->show();
    LBLRegions->show();
}

void FormObserver::ListRegionsClick(const QString& region) {
    ListCities->clear();
    const std::vector<std::string> cities = ReadCities(LatlngPath(), region.toStdString());
    if (cities.empty()) ListCities->addItem("<CANCEL>");
    for (const std::string& city : cities) ListCities->addItem(Q(city));
    ListCities->show();
    LBLCities->show();
}

void FormObserver::ListCitiesClick(const QString& city) {
    if (city != "<CANCEL>") {
        if (const auto place = FindCity(LatlngPath(), city.toStdString())) {
            Txtlat->setText(Q(FormatLatitudeText(place->latitude)));
            TxtLng->setText(Q(FormatLongitudeText(core_.DisplayWest == "W" ? place->longitudeWest
                                                                             : 360.0 - place->longitudeWest)));
        }
    }
    HideLists();
}

void FormObserver::CmdTZClick() {
    FormTimeZones zones(this);
    zones.exec();
    if (zones.SelectedTZ() != FormTimeZones::kNoZone) TxtTZ->setText(QString::number(zones.SelectedTZ()));
}

void FormObserver::MapMouseMove(int x, int y) {
    const auto place = MapLatLng(x, y);
    if (!place) return;
    mapLatitude_ = place->latitude;
    mapLongitudeWest_ = place->longitudeWest;
    const bool west = core_.DisplayWest == "W";
    LBLLatLng->setText("Lat: " + Q(FormatLatitudeText(mapLatitude_)) + "   Lng:" +
                       Q(FormatLongitudeText(west ? mapLongitudeWest_ : 360.0 - mapLongitudeWest_)) +
                       (west ? " W" : " E"));
}

void FormObserver::MapRightButton() {
    const bool west = core_.DisplayWest == "W";
    Txtlat->setText(Q(FormatLatitudeText(mapLatitude_)));
    TxtLng->setText(Q(FormatLongitudeText(west ? mapLongitudeWest_ : 360.0 - mapLongitudeWest_)));
}

bool FormObserver::eventFilter(QObject* watched, QEvent* event) {
    if (watched == Picture1) {
        if (event->type() == QEvent::MouseMove) {
            const QPoint p = static_cast<QMouseEvent*>(event)->position().toPoint();
            MapMouseMove(p.x(), p.y());
        } else if (event->type() == QEvent::MouseButtonPress &&
                   static_cast<QMouseEvent*>(event)->button() == Qt::RightButton) {
            MapRightButton();
        }
    }
    return QDialog::eventFilter(watched, event);
}

} // namespace tarvelle
