#include "ui/sky/sky_map_drawing.h"

#include "core/numeric.h"
#include "core/text_forms.h"
#include "formats/star_catalogue.h"
#include "sky/body_track.h"
#include "sky/galactic.h"
#include "sky/sky_projection.h"

#include <algorithm>
#include <cmath>

namespace tarvelle {

namespace {

constexpr int kYellow = 65535;
constexpr int kGreen = 65280;
constexpr int kRed = 255;

QString Q(const std::string& s) { return QString::fromStdString(s); }

auto F(double v) { return static_cast<float>(v); }

void Yield(const SkyMapScene& scene) {
    if (scene.yield) scene.yield();
}

} // namespace

void scalemap(PlotSurface& s) {
    s.SetFillStyle(FillStyle::Solid);
    s.SetScale(-1.02f, 1.02f, 1.02f, -1.02f);
    s.SetFillStyle(FillStyle::Transparent);
    s.SetLineWidth(1);
}

int SkyColour(double sunAlt, double r) {
    double level = RoundHalfEven(sunAlt);
    if (level < 1.0) level = 1.0;
    const double blue = std::min(level * 255.0 * r, 255.0);
    return RGB(static_cast<int>(level), static_cast<int>(level), static_cast<int>(RoundHalfEven(blue)));
}

void DrawSkyGrid(PlotSurface& s, const SkyMapScene& scene, bool letters) {
    scalemap(s);
    s.Clear();
    s.SetFillStyle(FillStyle::Solid);
    const double sunAlt = PlacesAt(scene.core, scene.fixed, scene.MinutePointer).sunAlt;
    for (double r = 1.0; r >= 0.1; r -= 0.02) {
        const int colour = SkyColour(sunAlt, r);
        s.SetPenColour(colour);
        s.SetFillColour(colour);
        s.DrawCircle(0, 0, F(r), colour);
    }
    s.SetFillStyle(FillStyle::Transparent);
    if (scene.grid) {
        const int grey = QBColor(7);
        s.DrawCircle(0, 0, 0.66f, grey);
        s.DrawCircle(0, 0, 0.33f, grey);
        for (int a = 30; a <= 330; a += 30)
            s.DrawLine(0, 0, F(std::cos(a * kDegToRad)), F(std::sin(a * kDegToRad)), grey);
        s.DrawLine(0, -1, 0, 1, grey);
        s.DrawLine(-1, 0, 1, 0, grey);
    }
    if (!letters) return;
    s.SetFontBold(true);
    s.SetPenColour(kYellow);
    const std::tuple<float, float, const char*> compass[] = {
        {-0.97f, 0.07f, "E"}, {0.92f, 0.08f, "W"}, {0.02f, 0.97f, "N"}, {0.02f, -0.93f, "S"}};
    for (const auto& [x, y, text] : compass) {
        s.SetCurrentPoint(x, y);
        s.PrintText(text);
    }
    s.SetLineWidth(1);
    Yield(scene);
    s.Refresh();
    if (scene.stars) DrawStars(s, scene);
}

void DrawStars(PlotSurface& s, const SkyMapScene& scene) {
    s.SetFillStyle(FillStyle::Transparent);
    Yield(scene);
    s.Refresh();
    const Core& c = scene.core;
    const double lst = PlacesAt(c, scene.fixed, scene.MinutePointer).lst;
    const int yellow = QBColor(14);
    ForEachStar(scene.starFile, [&](float ra, float dec, float magnitude) {
        double starRA = ra, starDec = dec, alt = 0.0, az = 0.0;
        ConvertEquatorialHorizontal(c.ObsLatitude, c.ObsLongitude, lst, starRA, starDec, alt, az, false);
        if (!(alt > 0.0) || !(magnitude < scene.StarMagLimit)) return;
        double x = 0.0, y = 0.0;
        AltAzToMap(alt, az, x, y);
        double w = magnitude < 0.0f ? 4.0 : 4.5 - static_cast<double>(magnitude);
        if (w < 1.0) w = 1.0;
        s.SetLineWidth(static_cast<int>(RoundHalfEven(w)));
        s.DrawPoint(F(x), F(y), yellow);
    });
}

void DrawAnt(PlotSurface& s, const std::string& AntPic) {
    struct Segment {
        float x1, y1, x2, y2;
        int colour;
    };
    std::vector<Segment> lines;
    if (AntPic == "D1NS") lines = {{0, 0.1f, 0, -0.1f, kGreen}};
    if (AntPic == "D1EW") lines = {{-0.1f, 0, 0.1f, 0, kGreen}};
    if (AntPic == "D2NS") lines = {{0.07f, 0.1f, 0.07f, -0.1f, kGreen}, {-0.07f, 0.1f, -0.07f, -0.1f, kGreen}};
    if (AntPic == "D2EW") lines = {{-0.1f, 0.07f, 0.1f, 0.07f, kGreen}, {-0.1f, -0.07f, 0.1f, -0.07f, kGreen}};
    if (AntPic == "DANS")
        lines = {{0.07f, 0.1f, 0.07f, 0, kGreen}, {0.07f, 0, 0.07f, -0.1f, kRed},
                 {-0.07f, 0.1f, -0.07f, 0, kRed}, {-0.07f, 0, -0.07f, -0.1f, kGreen}};
    if (AntPic == "DAEW")
        lines = {{-0.1f, 0.07f, 0, 0.07f, kGreen}, {0, 0.07f, 0.1f, 0.07f, kRed},
                 {-0.1f, -0.07f, 0, -0.07f, kRed}, {0, -0.07f, 0.1f, -0.07f, kGreen}};
    for (const Segment& l : lines) s.DrawLine(l.x1, l.y1, l.x2, l.y2, l.colour);
}

void PlotBeamEdge(PlotSurface& s, const AntennaLobe& lobe, int colour) {
    if (lobe.Edge.size() < 360) return;
    double x = 0.0, y = 0.0;
    for (int j = 0; j <= 359; ++j) {
        const BeamEdgePoint& p = lobe.Edge[static_cast<size_t>(j)];
        AltAzToMap(p.Alt, p.AzLeft, x, y);
        s.DrawPoint(F(x), F(y), colour);
        AltAzToMap(p.Alt, p.AzRight, x, y);
        s.DrawPoint(F(x), F(y), colour);
    }
}

void SkyMap_PlotBeam(PlotSurface& s, const AntennaLobe& lobe) {
    if (lobe.Edge.size() < 360) return; // a load that stopped before its contours
    double x = 0.0, y = 0.0;
    AltAzToMap(lobe.ALT, lobe.AZ, x, y);
    const float X = F(x), Y = F(y);
    s.SetLineWidth(2);
    s.DrawLine(X - 0.03f, Y, X + 0.02f, Y, kGreen);
    s.DrawLine(X, Y + 0.02f, X, Y - 0.02f, kGreen);
    s.SetCurrentPoint(X + 0.01f, Y - 0.01f);
    s.SetLineWidth(1);
    if (lobe.GAIN > 0.0) s.PrintText(Q(Trim(StrForm(lobe.GAIN)) + " dBi"));
    s.SetLineWidth(3);
    PlotBeamEdge(s, lobe, kGreen);
    s.SetLineWidth(1);
}

void DrawHorizon(PlotSurface& s, const HorizonTable& HorizonAlt) {
    s.SetLineWidth(2);
    for (int a = 0; a <= 360; ++a) {
        double x = 0.0, y = 0.0;
        HorizonPointToMap(HorizonAlt[static_cast<size_t>(a)], a, x, y);
        s.DrawPoint(F(x), F(y), kYellow);
    }
    s.SetLineWidth(1);
}

void DrawBodyTrack(PlotSurface& s, const Core& core, bool jupiter) {
    const DayTables& d = core.Day;
    const auto& alt = jupiter ? d.DayJupAlt : d.DaySunAlt;
    const auto& az = jupiter ? d.DayJupAz : d.DaySunAz;
    const int colour = jupiter ? RGB(255, 128, 0) : QBColor(14);
    if (!jupiter) s.SetFillColour(QBColor(14));
    const auto at = [&](int i, double& x, double& y) {
        AltAzToMap(alt[static_cast<size_t>(i)], az[static_cast<size_t>(i)], x, y);
    };
    for (const TrackStep& step : BodyTrackSteps(alt, core.UseGMT, core.ObsTZ)) {
        double x0 = 0.0, y0 = 0.0, x1 = 0.0, y1 = 0.0;
        at(step.i - 20, x0, y0);
        at(step.i, x1, y1);
        s.SetLineWidth(3);
        s.DrawPoint(F(x1), F(y1), colour);
        s.SetLineWidth(1);
        s.SetLineStyle(step.dotted ? LineStyle::Dotted : LineStyle::Solid);
        s.DrawLine(F(x0), F(y0), F(x1), F(y1), colour);
        s.SetLineStyle(LineStyle::Solid);
        if (!step.hourLabel.empty()) {
            s.SetPenColour(colour);
            s.DrawPoint(F(x1), F(y1));
            s.PrintText(Q(step.hourLabel));
        }
    }
    s.SetLineWidth(1);
}

void PlotJup(PlotSurface& s, const Form8& pictures, double alt, double az) {
    if (!(alt > 0.0)) return;
    double x = 0.0, y = 0.0;
    AltAzToMap(alt, az, x, y);
    s.SetPixelScale();
    const double W = s.PixelWidth(), H = s.PixelHeight();
    const double w = pictures.PicJup.PixelWidth(), h = pictures.PicJup.PixelHeight();
    const double left = RoundHalfEven(W / 2 + x * W / 2 - w / 2);
    const double top = RoundHalfEven(H / 2 - y * H / 2 - h / 2);
    DrawSprite(s, pictures.PicJup, pictures.PicMask, static_cast<int>(left), static_cast<int>(top));
    scalemap(s);
    s.Refresh();
}

void PlotSun(PlotSurface& s, double alt, double az) {
    if (!(alt > 0.0)) return;
    double x = 0.0, y = 0.0;
    AltAzToMap(alt, az, x, y);
    s.SetFillStyle(FillStyle::Solid);
    s.SetLineStyle(LineStyle::Solid);
    s.SetScale(-1, 1, 1, -1);
    s.SetFillColour(QBColor(14));
    s.DrawCircle(F(x), F(y), s.ScaleHeight() * -0.0175f, QBColor(5));
    s.Refresh();
}

void DrawGalacticPlane(PlotSurface& s, const Core& core) {
    double x = 0.0, y = 0.0;
    for (int degree = 0; degree <= 358; degree += 2) {
        float l = static_cast<float>(degree), dec = 0.0f;
        double ra = 0.0;
        GalacticToEquatorial(l, 0.0, ra, dec);
        double starDec = dec, alt = 0.0, az = 0.0;
        ConvertEquatorialHorizontal(core.ObsLatitude, core.ObsLongitude, core.LST, ra, starDec, alt, az, false);
        AltAzToMap(alt, az, x, y);
        s.DrawPoint(F(x), F(y), kGalacticPlaneColour);
        s.SetPenColour(kGalacticPlaneColour);
        if (degree % 20 == 0 && alt > 10.0) s.PrintText(QString::number(degree));
    }
}

SkyPlaces DrawSkyMap(PlotSurface& s, const SkyMapScene& scene) {
    DrawSkyGrid(s, scene, true);
    s.SetFillColour(QBColor(7));
    s.SetFillStyle(FillStyle::Transparent);
    s.SetLineWidth(2);
    s.SetPenColour(QBColor(11));
    if (scene.antenna) {
        DrawAnt(s, scene.antenna->AntPic);
        for (size_t k = 1; k < scene.antenna->Lobes.size(); ++k) SkyMap_PlotBeam(s, scene.antenna->Lobes[k]);
    }
    if (scene.useHorizon && scene.horizon) DrawHorizon(s, *scene.horizon);
    s.SetLineWidth(1);
    const SkyPlaces places = PlacesAt(scene.core, scene.fixed, scene.MinutePointer);
    if (scene.jupTrack) DrawBodyTrack(s, scene.core, true);
    if (scene.pictures) PlotJup(s, *scene.pictures, places.jupAlt, places.jupAz);
    if (scene.sunTrack) DrawBodyTrack(s, scene.core, false);
    PlotSun(s, places.sunAlt, places.sunAz);
    if (scene.galacticPlane) DrawGalacticPlane(s, scene.core);
    return places;
}

} // namespace tarvelle
