#include "ui/sky/sky_image_window.h"

#include "render/picture_store.h"

#include <QAction>
#include <QDir>
#include <QFileInfo>
#include <QImageReader>
#include <QMenuBar>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace tarvelle {

namespace {

constexpr float kUnits = 360.0f;
constexpr int kScreenSide = 720; // pixels of Pic1: two a unit

} // namespace

Form5::Form5(Station& station, const Form8& pictures, QWidget* parent)
    : QWidget(parent, Qt::Window), Pic2(kScreenSide, kScreenSide, RGB(0, 0, 96)), st_(station),
      pictures_(pictures) {
    setObjectName("Form5");
    setWindowTitle("Sky Image - 408 MHz");
    auto* bar = new QMenuBar(this);
    QMenu* file = bar->addMenu("&File");
    file->setObjectName("mnuFile");
    mnuLoadBackground = file->addAction("Load Background");
    mnuLoadBackground->setObjectName("mnuLoadBackground");
    mnuResetView = file->addAction("Reset");
    mnuResetView->setObjectName("mnuResetView");
    Pic1 = new PlotWidget(kScreenSide, kScreenSide, this);
    Pic1->setObjectName("Pic1");
    Pic1->Surface().SetBackColour(RGB(0, 0, 96));
    auto* layout = new QVBoxLayout(this);
    layout->setMenuBar(bar);
    layout->addWidget(Pic1);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    connect(mnuLoadBackground, &QAction::triggered, this, &Form5::LoadBackgroundFile);
    connect(mnuResetView, &QAction::triggered, this, &Form5::ResetView);
    connect(Pic1, &PlotWidget::mouseDown, this, &Form5::Pic1MouseDown);
    connect(Pic1, &PlotWidget::mouseMove, this, &Form5::Pic1MouseMove);
    connect(Pic1, &PlotWidget::mouseUp, this, &Form5::Pic1MouseUp);
    ResetView();
}

void Form5::ResetView() {
    source_ = pictures_.Pic408.Image();
    for (PlotSurface* s : {&Pic2, &Pic1->Surface()}) {
        s->SetScale(0, 0, kUnits, kUnits);
        s->StretchPicture(pictures_.Pic408, 0, 0, kUnits, kUnits);
    }
    view = SkyImageView{};
    SetScaleFactors(view, Pic1->Surface().ScaleWidth(), Pic1->Surface().ScaleHeight());
    Pic1->Surface().Refresh();
}

void Form5::DrawStuff() {
    Pic2.Refresh();
    PlotSurface& s = Pic1->Surface();
    const ScaleFrame frame = s.Frame();
    s.SetPixelScale();
    s.CopyBlock(0, 0, Pic2.PixelWidth(), Pic2.PixelHeight(), Pic2, 0, 0, RasterMode::Copy);
    s.SetFrame(frame);
    s.Refresh();
}

double Form5::Pix2RA(double x) const { return RAAt(view, x); }

double Form5::Pix2Dec(double y) const { return DecAt(view, y); }

void Form5::LoadBackgroundFile() {
    const QString folder = st_.programDir + "Background";
    QDir().mkpath(folder);
    const QString path = st_.dialogs.OpenFile("Load  Background File", "Pictures|*.bmp;*.gif|Any|*.*",
                                              folder + "/*.bmp;*.gif");
    if (path.isEmpty() || QFileInfo(path).fileName() == "*.bmp;*.gif") return;
    QImageReader reader(path);
    const QImage picture = reader.read();
    if (picture.isNull()) {
        st_.dialogs.Message("Error Loading: " + path + "\r\n" + reader.errorString());
        return;
    }
    source_ = picture.convertToFormat(QImage::Format_RGB32);
    Pic2.SetScale(0, 0, kUnits, kUnits);
    Pic2.StretchPicture(source_, 0, 0, kUnits, kUnits);
    view = SkyImageView{};
    SetScaleFactors(view, Pic1->Surface().ScaleWidth(), Pic1->Surface().ScaleHeight());
    st_.settings.save("Settings", "BackgroundFile", path);
    DrawStuff();
}

void Form5::ZoomTo(double ra1, double ra2, double dec1, double dec2) {
    if (ra1 == ra2 || dec1 == dec2 || RASpan(ra1, ra2) < 1.0 || std::fabs(dec1 - dec2) < 1.0) {
        st_.dialogs.Message("Region to small.");
        return;
    }
    Pic2.Clear();
    Pic2.SetFrame(Pic1->Surface().Frame());
    view = ZoomedView(ra1, ra2, dec1, dec2, Pic1->Surface().ScaleWidth(), Pic1->Surface().ScaleHeight());

    // The source rectangle in the picture's own pixels; rows run down from the top value 360.
    const double w = source_.width(), h = source_.height();
    const double top = h * (360.0 - view.ViewDecTop) / 360.0;
    const double height = h * view.ViewDecSpan / 360.0;
    if (!view.crosses) {
        Pic2.StretchPicture(source_, 0, 0, kUnits, kUnits, QRectF(w * ra1 / 360.0, top, w * view.ViewRASpan / 360.0, height));
    } else {
        // Up to 360, then from 0, each at its share of the width; a sliver under a pixel is left out.
        const double first = 360.0 - ra1, share = static_cast<double>(kUnits) * first / view.ViewRASpan;
        if (w * first / 360.0 >= 1.0)
            Pic2.StretchPicture(source_, 0, 0, static_cast<float>(share), kUnits,
                                QRectF(w * ra1 / 360.0, top, w * first / 360.0, height));
        if (w * ra2 / 360.0 >= 1.0)
            Pic2.StretchPicture(source_, static_cast<float>(share), 0, kUnits - static_cast<float>(share), kUnits,
                                QRectF(0, top, w * ra2 / 360.0, height));
    }
    DrawStuff();
}

void Form5::Pic1MouseDown(int button, float x, float y) {
    if (button == 1) band_.Start(x, y);
}

void Form5::Pic1MouseMove(int button, float x, float y) {
    if ((button & 1) && band_.Active()) band_.MoveTo(Pic1->Surface(), x, y);
}

void Form5::Pic1MouseUp(int button, float x, float y) {
    if (button == 2 || !band_.Active()) return;
    float x1 = band_.StartX(), x2 = x;
    const float y1 = band_.StartY();
    band_.Erase(Pic1->Surface()); // a refused box doesn't stay on the picture
    if (x2 < x1) std::swap(x1, x2);
    const double ra1 = Pix2RA(x1), ra2 = Pix2RA(x2);
    const double dec1 = Pix2Dec(y1), dec2 = Pix2Dec(y);
    const double decSpan = std::fabs(dec1 - dec2), raSpan = RASpan(ra1, ra2);
    if (raSpan < 1.0 || decSpan < 1.0 || raSpan > 10.0 * decSpan || decSpan > 10.0 * raSpan) {
        st_.dialogs.Message("Select larger region");
    } else {
        ZoomTo(ra1, ra2, dec1, dec2);
        Pic1->Surface().Refresh();
    }
    band_.End();
}

} // namespace tarvelle
