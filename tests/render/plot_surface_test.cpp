#include <gtest/gtest.h>

#include "doubles.h"
#include "ui/common/plot_widget.h"
#include "station/dialogs.h"
#include "ui/common/image_camera.h"
#include "render/page_printer.h"
#include "render/picture_store.h"
#include "render/plot_surface.h"

#include <QClipboard>
#include <QFile>
#include <QGuiApplication>
#include <QPdfWriter>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <array>
#include <cmath>
#include <functional>

namespace tarvelle {
namespace {

// Pixels of the image that differ from the colour.
int CountNot(const PlotSurface& s, int colour) {
    int n = 0;
    for (int y = 0; y < s.PixelHeight(); ++y)
        for (int x = 0; x < s.PixelWidth(); ++x) n += s.Pixel(x, y) != colour;
    return n;
}

// A background that no drawing can match by accident: every pixel different.
void PaintGradient(PlotSurface& s) {
    QImage picture(s.PixelWidth(), s.PixelHeight(), QImage::Format_RGB32);
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            picture.setPixel(x, y, qRgb(x * 7 % 256, y * 5 % 256, x + y + 1));
    s.SetBackgroundPicture(picture);
}

struct Px {
    int x, y, colour;
};

// Each listed pixel holds its colour.
void ExpectPixels(const PlotSurface& s, std::initializer_list<Px> pixels) {
    for (const Px& p : pixels) EXPECT_EQ(s.Pixel(p.x, p.y), p.colour) << p.x << "," << p.y;
}

// Every pixel holds the colour the rule gives for its place; -1 lets it be anything.
void ExpectImage(const PlotSurface& s, const std::function<int(int x, int y)>& rule) {
    for (int y = 0; y < s.PixelHeight(); ++y)
        for (int x = 0; x < s.PixelWidth(); ++x)
            if (const int want = rule(x, y); want >= 0) ASSERT_EQ(s.Pixel(x, y), want) << x << "," << y;
}

TEST(ScaleFrameTest, CentredSkyScalePutsOriginInTheMiddleWithYUp) {
    PlotSurface s(200, 200);
    s.SetScale(-1.02f, 1.02f, 1.02f, -1.02f);
    const ScaleFrame f = s.Frame();
    EXPECT_EQ((std::array{f.PixelColumn(0.0), f.PixelRow(0.0), f.PixelColumn(-1.02), f.PixelRow(1.02)}),
              (std::array{100, 100, 0, 0}));
    EXPECT_FLOAT_EQ(s.ScaleHeight(), -2.04f); // the sky map's radius is the height times -0.0175
    // Pixel corners and user points map back and forth.
    EXPECT_NEAR(f.FromPixelX(f.ToPixelX(-0.37)), -0.37, 1e-9);

    s.Clear();
    s.DrawPoint(0.0f, 0.0f, QBColor(12));
    EXPECT_TRUE(s.Pixel(100, 100) == QBColor(12) && CountNot(s, 0xFFFFFF) == 1);
}

TEST(ScaleFrameTest, ReversedAxesAndOtherModes) {
    PlotSurface s(100, 50);
    s.SetScale(10.0f, 0.0f, 0.0f, 10.0f); // x runs right to left
    EXPECT_EQ((std::array{s.Frame().PixelColumn(9.95), s.Frame().PixelColumn(0.05), s.Frame().PixelRow(9.9)}),
              (std::array{0, 99, 49}));
    // Changing the scale leaves the drawing alone.
    s.DrawLine(0.0f, 0.0f, 10.0f, 3.0f, QBColor(4));
    s.FillBox(3.0f, 6.0f, 9.0f, 2.0f, QBColor(2));
    const QImage drawn = s.Image().copy();

    s.SetPixelScale();
    s.SetScaleMode(ScaleMode::User); // the user scale was lost: the pixel extent takes its place
    EXPECT_TRUE(s.ScaleLeft() == 0.0f && s.ScaleWidth() == 100.0f);
    s.SetTwipsScale();
    EXPECT_TRUE(s.ScaleWidth() == 1500.0f && s.Frame().PixelColumn(150.0) == 10);

    // A scale without extent is refused rather than dividing by zero.
    s.SetScale(0.0f, 90.0f, 360.0f, -10.0f);
    s.SetScale(5.0f, 1.0f, 5.0f, 0.0f);
    EXPECT_TRUE(s.ScaleWidth() == 360.0f && s.Image() == drawn);
}

TEST(PlotSurfaceTest, BoxesIncludeBothCornersWhateverTheirOrder) {
    PlotSurface s(20, 20, QBColor(15));
    s.FillBox(5.0f, 7.0f, 2.0f, 3.0f, QBColor(9));
    ExpectImage(s, [](int x, int y) { return x >= 2 && x <= 5 && y >= 3 && y <= 7 ? QBColor(9) : QBColor(15); });
    EXPECT_TRUE(s.CurrentX() == 2.0f && s.CurrentY() == 3.0f);

    s.Clear();
    s.SetPenColour(QBColor(4));
    s.DrawBox(2.0f, 3.0f, 5.0f, 7.0f);
    ExpectPixels(s, {{2, 3, QBColor(4)}, {5, 7, QBColor(4)}, {5, 5, QBColor(4)}, {3, 5, QBColor(15)}}); // outline only
    EXPECT_EQ(CountNot(s, QBColor(15)), 2 * 4 + 2 * 3);

    // The prediction chart's minute boxes on a narrower image leave no gap.
    PlotSurface chart(720, 10, 0);
    chart.SetScale(0.0f, 1.0f, 1440.0f, 0.0f);
    for (int m = 1; m <= 1440; ++m)
        chart.FillBox(static_cast<float>(m - 1), 1.0f, static_cast<float>(m), 0.0f, RGB(0, 0, 255));
    EXPECT_EQ(CountNot(chart, RGB(0, 0, 255)), 0);
}

TEST(PlotSurfaceTest, LinesAreSolidOrDottedAndWide) {
    PlotSurface s(40, 10, 0);
    s.DrawLine(0.0f, 2.0f, 39.0f, 2.0f, 0xFFFFFF);
    EXPECT_EQ(CountNot(s, 0), 40);
    EXPECT_FLOAT_EQ(s.CurrentX(), 39.0f);

    s.Clear();
    s.SetLineStyle(LineStyle::Dotted);
    s.DrawLine(0.0f, 5.0f, 39.0f, 5.0f, 0xFFFFFF);
    ExpectImage(s, [](int x, int y) { return y == 5 && x % 2 == 0 ? 0xFFFFFF : 0; });

    s.Clear();
    s.SetLineStyle(LineStyle::Solid);
    s.SetLineWidth(3);
    s.DrawLine(10.0f, 5.0f, 20.0f, 5.0f, 0xFFFFFF);
    EXPECT_EQ(CountNot(s, 0), 13 * 3); // square ends one pixel past each end
    ExpectPixels(s, {{9, 4, 0xFFFFFF}, {21, 6, 0xFFFFFF}});
    s.DrawPoint(30.0f, 5.0f, 0xFFFF);
    EXPECT_EQ(CountNot(s, 0), 13 * 3 + 9);

    // Ends far outside the image are cut, not walked, and the part inside still shows.
    s.Clear();
    s.SetLineWidth(1);
    s.DrawLine(-1e9f, 3.0f, 1e9f, 3.0f, 0xFF);
    EXPECT_EQ(CountNot(s, 0), 40);
}

TEST(PlotSurfaceTest, CircleFillStylesAndAspect) {
    constexpr int kGreen = RGB(0, 255, 0), kRed = RGB(255, 0, 0);
    PlotSurface s(41, 41, kGreen);
    s.SetFillStyle(FillStyle::Solid);
    s.SetFillColour(kRed);
    s.DrawCircle(20.0f, 20.0f, 10.0f, kRed);
    // A plain disc: every pixel within the radius, none beyond it.
    ExpectImage(s, [](int x, int y) {
        const int d2 = (x - 20) * (x - 20) + (y - 20) * (y - 20);
        return d2 <= 81 ? kRed : d2 >= 121 ? kGreen : -1;
    });
    ExpectPixels(s, {{30, 20, kRed}, {20, 10, kRed}});

    s.Clear();
    s.SetFillStyle(FillStyle::Transparent);
    s.DrawCircle(20.0f, 20.0f, 10.0f, kRed);
    ExpectPixels(s, {{20, 20, kGreen}, {30, 20, kRed}, {10, 20, kRed}, {20, 30, kRed}});

    // Fill colour inside, outline colour round it.
    s.Clear();
    s.SetFillStyle(FillStyle::Solid);
    s.SetFillColour(QBColor(14));
    s.DrawCircle(20.0f, 20.0f, 10.0f, QBColor(5));
    ExpectPixels(s, {{20, 20, QBColor(14)}, {30, 20, QBColor(5)}});

    // Aspect below 1 squeezes the height; above 1 the radius is the vertical one.
    s.Clear();
    s.DrawCircle(20.0f, 20.0f, 10.0f, kRed, 0.5f);
    ExpectPixels(s, {{30, 20, kRed}, {20, 15, kRed}, {20, 13, kGreen}});
    s.Clear();
    s.DrawCircle(20.0f, 20.0f, 10.0f, kRed, 2.0f);
    ExpectPixels(s, {{20, 10, kRed}, {25, 20, kRed}, {27, 20, kGreen}});

    // The radius is in units of the x axis, whatever the y axis does.
    PlotSurface map(200, 100, 0);
    map.SetScale(-1.0f, 1.0f, 1.0f, -1.0f);
    map.DrawCircle(0.0f, 0.0f, 0.5f, 0xFFFFFF);
    ExpectPixels(map, {{150, 50, 0xFFFFFF}, {100, 0, 0xFFFFFF}});
}

TEST(PlotSurfaceTest, XorDrawingTwiceRestoresTheImage) {
    PlotSurface s(60, 40);
    PaintGradient(s);
    const QImage before = s.Image().copy();
    s.SetScale(0.0f, 0.0f, 6.0f, 4.0f);
    s.SetDrawMode(DrawMode::Xor);
    s.DrawBox(1.0f, 1.0f, 5.0f, 3.0f, 0xFFFFFF);
    EXPECT_EQ(s.Pixel(10, 10), FromQRgb(before.pixel(10, 10)) ^ 0xFFFFFF); // a corner, inverted once
    EXPECT_EQ(s.Pixel(30, 20), FromQRgb(before.pixel(30, 20)));
    s.DrawBox(1.0f, 1.0f, 5.0f, 3.0f, 0xFFFFFF);
    EXPECT_EQ(s.Image(), before);

    // Boxes that collapse into lines or points, wide lines and circles come off just the same.
    s.SetLineWidth(3);
    for (int pass = 0; pass < 2; ++pass) {
        s.DrawBox(2.0f, 1.0f, 2.0f, 3.0f, 0xFFFFFF);
        s.DrawBox(3.0f, 2.0f, 3.0f, 2.0f, 0x00FF00);
        s.DrawLine(0.0f, 0.0f, 6.0f, 4.0f, 0xABCDEF);
        s.DrawCircle(3.0f, 2.0f, 1.5f, 0x123456);
        s.SetCurrentPoint(0.5f, 0.5f);
        s.PrintText("Xo");
    }
    EXPECT_EQ(s.Image(), before);

    RubberBand band;
    band.Start(1.0f, 1.0f);
    band.MoveTo(s, 2.0f, 2.0f);
    band.MoveTo(s, 4.0f, 3.0f);
    EXPECT_EQ(s.Pixel(40, 30), FromQRgb(before.pixel(40, 30)) ^ 0xFFFFFF);
    EXPECT_EQ(s.Pixel(20, 20), FromQRgb(before.pixel(20, 20))); // the first box is gone
    band.Erase(s);
    EXPECT_EQ(s.Image(), before);
    EXPECT_FALSE(band.Active());
}

TEST(PlotSurfaceTest, CopyBlockIsClippedAtEveryEdge) {
    PlotSurface src(10, 10), dst(10, 10, 0);
    PaintGradient(src);
    const auto from = [&](int x, int y) { return src.Pixel(x, y); };

    dst.CopyBlock(-3, -2, 6, 6, src, 1, 1, RasterMode::Copy);
    ExpectPixels(dst, {{0, 0, from(4, 3)}, {2, 3, from(6, 6)}, {3, 0, 0}, {0, 4, 0}});

    dst.Clear();
    dst.CopyBlock(7, 8, 19, 19, src, 0, 0, RasterMode::Copy);
    EXPECT_EQ(dst.Pixel(9, 9), from(2, 1));
    EXPECT_EQ(CountNot(dst, 0), 3 * 2);

    // A source block reaching past its image copies only what exists.
    dst.Clear();
    dst.CopyBlock(0, 0, 5, 5, src, -2, 8, RasterMode::Copy);
    EXPECT_EQ(dst.Pixel(2, 0), from(0, 8));
    EXPECT_EQ(CountNot(dst, 0), 3 * 2);


    // Within one image the block is read before it is written.
    src.CopyBlock(1, 0, 9, 10, src, 0, 0, RasterMode::Copy);
    EXPECT_EQ(src.Pixel(1, 5), src.Pixel(0, 5));
    EXPECT_EQ(src.Pixel(9, 5), FromQRgb(qRgb(8 * 7, 25, 14)));
}

TEST(PlotSurfaceTest, ExtremeCoordinatesAreClippedNotWalked) {
    PlotSurface s(30, 20, 0);
    s.SetScale(0.0f, 0.0f, 1.0f, 1.0f);
    s.DrawCircle(0.5f, 0.5f, 1e30f, 0xFFFFFF); // the outline lies far outside
    s.DrawLine(std::nanf(""), 0.0f, 1.0f, 1.0f, 0xFFFFFF);
    s.DrawBox(-1e30f, -1e30f, 1e30f, 1e30f, 0xFFFFFF);
    s.CopyBlock(2147483640, 0, 100, 100, s, 0, 0, RasterMode::Copy);
    s.CopyBlock(0, 0, 2147483647, 2147483647, s, -2147483647, 0, RasterMode::Copy);
    EXPECT_EQ(CountNot(s, 0), 0);
    s.SetFillStyle(FillStyle::Solid);
    s.SetFillColour(0xFF);
    s.DrawCircle(0.5f, 0.5f, 1e30f, 0xFFFFFF);
    EXPECT_EQ(CountNot(s, 0xFF), 0);
    s.FillBox(-1e30f, -1e30f, 1e30f, 1e30f, 0xFF00);
    EXPECT_EQ(CountNot(s, 0xFF00), 0);
}

TEST(PictureStoreTest, SpritesShareOneDiscOf224Pixels) {
    Form8 store;
    int disc = 0;
    for (int y = 0; y < kSpriteSize; ++y)
        for (int x = 0; x < kSpriteSize; ++x) {
            const bool in = SpriteDiscContains(x, y);
            disc += in;
            ASSERT_EQ(store.PicMask.Pixel(x, y), in ? 0 : 0xFFFFFF) << x << "," << y;
            ASSERT_EQ(store.PicSun.Pixel(x, y), in ? RGB(255, 255, 0) : 0) << x << "," << y;
            ASSERT_EQ(store.PicJup.Pixel(x, y) != 0, in) << x << "," << y;
        }
    EXPECT_EQ(disc, kSpriteDiscPixels);
}

// The resource is built in: a store without it would draw a stand-in.
TEST(PictureStoreTest, AllSkyPictureIsTheOneTheGeneratorDrew) {
    Form8 a;
    // The picture built into the program is the one tools/make_sky408.py drew.
    const QImage drawn(TARVELLE_SOURCE_DATA "/pictures/sky408.bmp");
    ASSERT_FALSE(drawn.isNull());
    EXPECT_EQ(a.Pic408.Image().convertToFormat(QImage::Format_RGB32), drawn.convertToFormat(QImage::Format_RGB32));
}

// On a background whose pixels all differ: the mask's And and the sprite's Or, bit by bit.
TEST(SpriteTest, MaskThenSpriteKeepsTheOuterPixelsOnAnyBackground) {
    Form8 store;
    PlotSurface plot(40, 40);
    PaintGradient(plot);
    const QImage before = plot.Image().copy();
    for (const PlotSurface* sprite : {&store.PicSun, &store.PicJup}) {
        plot.Clear();
        DrawSprite(plot, *sprite, store.PicMask, 11, 7);
        ExpectImage(plot, [&](int x, int y) {
            const int bx = x - 11, by = y - 7;
            const bool inBlock = bx >= 0 && by >= 0 && bx < kSpriteSize && by < kSpriteSize;
            if (inBlock && SpriteDiscContains(bx, by)) return sprite->Pixel(bx, by);
            return FromQRgb(before.pixel(x, y));
        });
    }
}

TEST(SpriteTest, MoveSpritePutsBackWhatLayUnderneath) {
    Form8 store;
    PlotSurface plot(60, 50);
    PaintGradient(plot);
    const QImage clean = plot.Image().copy();
    SpriteState state;
    int refreshes = 0;
    plot.SetRefreshHandler([&] { ++refreshes; });

    MoveSprite(plot, store.PicJup, store.PicMask, store.PicBack1, state, 5, 5);
    EXPECT_TRUE(state.onPlot && plot.Shown() == plot.Image());
    EXPECT_EQ(store.PicBack1.Pixel(0, 0), FromQRgb(clean.pixel(5, 5)));
    EXPECT_EQ(plot.Pixel(5 + 9, 5 + 8), store.PicJup.Pixel(9, 8));

    // Past the bottom-right edge: the part outside is simply cut away.
    MoveSprite(plot, store.PicJup, store.PicMask, store.PicBack1, state, 50, 40);
    EXPECT_EQ(plot.Pixel(5 + 9, 5 + 8), FromQRgb(clean.pixel(14, 13)));
    MoveSprite(plot, store.PicSun, store.PicMask, store.PicBack1, state, 20, 20);
    MoveSprite(plot, store.PicSun, store.PicMask, store.PicBack1, state, 21, 20);
    EXPECT_EQ(refreshes, 4);
    plot.CopyBlock(state.left, state.top, state.width, state.height, store.PicBack1, 0, 0, RasterMode::Copy);
    EXPECT_EQ(plot.Image(), clean);
}

TEST(PlotSurfaceTest, ClearBringsBackThePictureAndTheOrigin) {
    PlotSurface s(50, 50, QBColor(1));
    s.SetScale(-1.02f, 1.02f, 1.02f, -1.02f);
    s.DrawLine(-1.0f, -1.0f, 0.8f, 0.3f, 0xFFFFFF);
    s.Clear();
    EXPECT_TRUE(CountNot(s, QBColor(1)) == 0 && s.CurrentX() == 0.0f && s.CurrentY() == 0.0f);

    QTemporaryDir dir;
    QImage picture(30, 20, QImage::Format_RGB32);
    picture.fill(qRgb(10, 200, 30));
    picture.setPixel(3, 4, qRgb(250, 0, 0));
    const QString path = dir.filePath("back.bmp");
    ASSERT_TRUE(picture.save(path));
    ASSERT_TRUE(s.LoadBackground(path));
    EXPECT_EQ(s.Pixel(3, 4), RGB(250, 0, 0)); // shown at once
    s.FillBox(-1.0f, 1.0f, 1.0f, -1.0f, 0);
    s.SetCurrentPoint(0.5f, 0.5f);
    s.Clear();
    // Beyond the picture, the background colour.
    ExpectPixels(s, {{3, 4, RGB(250, 0, 0)}, {0, 0, RGB(10, 200, 30)}, {40, 40, QBColor(1)}});
    EXPECT_FLOAT_EQ(s.CurrentX(), 0.0f);

    // A one-pixel GIF whose palette entry 0 is red: LZW codes clear, 0, end.
    const QByteArray gif =
        QByteArray::fromHex("47494638396101000100800000ff000000000021f90400000000002c000000000100"
                            "01000002024401003b");
    QFile gifFile(dir.filePath("back.gif"));
    ASSERT_TRUE(gifFile.open(QIODevice::WriteOnly));
    gifFile.write(gif);
    gifFile.close();
    ASSERT_TRUE(s.LoadBackground(gifFile.fileName()));
    ExpectPixels(s, {{0, 0, RGB(255, 0, 0)}, {1, 0, QBColor(1)}});

    QString error;
    EXPECT_TRUE(!s.LoadBackground(dir.filePath("missing.gif"), &error) && !error.isEmpty());
    EXPECT_EQ(s.Pixel(0, 0), RGB(255, 0, 0)); // the old picture stays
}

TEST(PlotSurfaceTest, TextIsPenColouredUnaliasedAndMovesDownOneLine) {
    PlotSurface s(200, 100, QBColor(1));
    s.SetScale(0.0f, 10.0f, 20.0f, 0.0f); // y up
    s.SetPenColour(65535);
    s.SetFontSize(10.0f);
    s.SetCurrentPoint(5.0f, 8.0f);
    const float height = s.TextHeight("Jupiter");
    EXPECT_LT(height, 0.0f); // lower on the page is lower in y here
    s.PrintText("Jupiter");
    EXPECT_FLOAT_EQ(s.CurrentY(), 8.0f + height);
    int inked = 0;
    for (int y = 0; y < 100; ++y)
        for (int x = 0; x < 200; ++x) {
            const int p = s.Pixel(x, y);
            if (p == QBColor(1)) continue;
            ++inked;
            ASSERT_EQ(p, 65535); // no blend of pen and background anywhere
            // Inside the text's box from the current point.
            EXPECT_TRUE(x >= 49 && x <= 50 + s.TextWidth("Jupiter") * 10.0f && y >= 20 &&
                        y < 20 - height * 10.0f)
                << x << "," << y;
        }
    EXPECT_GT(inked, 30);
}

TEST(PlotSurfaceTest, StretchPictureScalesByNearestPixel) {
    PlotSurface src(2, 2), dst(8, 8, 0);
    src.FillBox(0.0f, 0.0f, 0.0f, 0.0f, 0xFF);
    src.FillBox(1.0f, 1.0f, 1.0f, 1.0f, 0xFF00);
    dst.SetScale(0.0f, 0.0f, 2.0f, 2.0f);
    dst.StretchPicture(src, 0.0f, 0.0f, 1.0f, 1.0f); // into the top-left 4 x 4
    ExpectImage(dst, [](int x, int y) {
        if (x >= 4 || y >= 4) return 0;
        return x < 2 && y < 2 ? 0xFF : (x >= 2 && y >= 2 ? 0xFF00 : 0xFFFFFF);
    });
    // A part of the source, and a negative extent mirrors it.
    dst.Clear();
    dst.StretchPicture(src, 2.0f, 0.0f, -2.0f, 2.0f, QRectF(0, 0, 1, 2));
    ExpectPixels(dst, {{7, 0, 0xFF}, {0, 7, 0xFFFFFF}});
}

TEST(PlotWidgetTest, MouseIsReportedInTheSurfaceCoordinatesOfTheMoment) {
    PlotWidget widget(360, 200);
    widget.Surface().SetScale(0.0f, 90.0f, 360.0f, -10.0f);
    QStringList events; // kind, buttons, x and y
    const auto record = [&](char kind) {
        return [&events, kind](int b, float x, float y) { events << QString::asprintf("%c%d %g %g", kind, b, x, y); };
    };
    QObject::connect(&widget, &PlotWidget::mouseDown, record('d'));
    QObject::connect(&widget, &PlotWidget::mouseMove, record('m'));
    QObject::connect(&widget, &PlotWidget::mouseUp, record('u'));
    widget.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&widget));

    QTest::mousePress(&widget, Qt::LeftButton, Qt::NoModifier, QPoint(180, 20));
    QTest::mouseRelease(&widget, Qt::RightButton, Qt::NoModifier, QPoint(90, 180));
    QMouseEvent move(QEvent::MouseMove, QPointF(36, 100), widget.mapToGlobal(QPointF(36, 100)), Qt::NoButton,
                     Qt::LeftButton | Qt::MiddleButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &move);
    widget.Surface().SetPixelScale();
    QTest::mousePress(&widget, Qt::RightButton, Qt::NoModifier, QPoint(36, 100));

    // One degree of altitude is two pixels; the last press is read in the pixel scale.
    EXPECT_EQ(events, QStringList({"d1 180 80", "u2 90 0", "m5 36 40", "d2 36 100"}));
}

// The camera copies through the surface's clipboard copy; the picture shown waits for a refresh.
TEST(ImageCameraTest, ClickCopiesTheSurfaceAndFlashesABorder) {
    PlotSurface s(12, 8);
    s.FillBox(0.0f, 0.0f, 11.0f, 7.0f, RGB(1, 2, 3));
    const int before = FromQRgb(s.Shown().pixel(5, 5));
    s.Refresh();
    // Drawn, and shown on the refresh.
    EXPECT_TRUE(before == 0xFFFFFF && FromQRgb(s.Shown().pixel(5, 5)) == RGB(1, 2, 3));
    QGuiApplication::clipboard()->clear();
    ImageCamera camera(&s);
    bool borderDuringWait = false;
    QTimer::singleShot(30, &camera, [&] { borderDuringWait = camera.HasBorder(); });
    camera.Click();
    EXPECT_TRUE(borderDuringWait && !camera.HasBorder()); // the wait let the timer run
    const QImage copied = QGuiApplication::clipboard()->image();
    EXPECT_TRUE(copied.size() == QSize(12, 8) && FromQRgb(copied.pixel(6, 4)) == RGB(1, 2, 3));
}

class PagePrinterTest : public ::testing::Test {
protected:
    QTemporaryDir dir;
    ScriptedDialogs dialogs;
};

// Counts the page objects of a PDF, not the page tree.
int PdfPages(const QByteArray& pdf) {
    int pages = 0;
    for (qsizetype at = pdf.indexOf("/Type /Page"); at >= 0; at = pdf.indexOf("/Type /Page", at + 1))
        pages += pdf.mid(at + 11, 1) != "s";
    return pages;
}

TEST_F(PagePrinterTest, TwoPagesToPdfAndNothingWhenCancelled) {
    EXPECT_TRUE(!PagePrinter().ChoosePrinter(dialogs) && dialogs.printDialogs == 1);
    dialogs.printToPdf = dir.filePath("out.pdf");
    {
        PagePrinter page;
        ASSERT_TRUE(page.ChoosePrinter(dialogs));
        page.SetCurrentX(1.0);
        page.SetCurrentY(0.5);
        page.SetFontSize(18);
        page.PrintLine({"JUPITER EVENT PREDICTIONS", "    ", "2024/03/05"});
        page.PrintLine({});
        EXPECT_EQ(page.Page(), 1);
        page.NewPage();
        EXPECT_EQ(page.Page(), 2);
        EXPECT_DOUBLE_EQ(page.CurrentY(), 0.0);
        page.SetFontSize(10);
        page.PrintLine({PagePrinter::Tab(30), "Page ", QString::number(page.Page())});
        page.EndDocument();
        EXPECT_FALSE(page.Failed());
        ASSERT_EQ(page.Output().size(), 5u);
        EXPECT_TRUE(page.Output()[4].page == 2 && page.Output()[4].text == "2");
    }
    QFile file(dialogs.printToPdf);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray pdf = file.readAll();
    EXPECT_TRUE(pdf.startsWith("%PDF"));
    EXPECT_EQ(PdfPages(pdf), 2);
}

TEST_F(PagePrinterTest, TabStopsCountAverageCharacterWidths) {
    dialogs.printToPdf = dir.filePath("tabs.pdf");
    PagePrinter page;
    ASSERT_TRUE(page.ChoosePrinter(dialogs));
    page.SetFontSize(10);
    const double avg = page.AverageCharWidth();

    page.PrintLine({PagePrinter::Tab(10), "Begin", PagePrinter::Tab(20), "End", PagePrinter::Tab(21), "x"});
    const auto& out = page.Output();
    ASSERT_EQ(out.size(), 3u);
    EXPECT_NEAR(out[0].x, 9 * avg, 1e-9);
    EXPECT_TRUE(std::fabs(out[1].x - 19 * avg) < 1e-9 && out[1].y == out[0].y);
    // "End" reaches past column 21: the tab goes on to the next line.
    EXPECT_NEAR(out[2].x, 20 * avg, 1e-9);
    EXPECT_NEAR(out[2].y, out[0].y + page.LineHeight(), 1e-9);
    EXPECT_TRUE(page.CurrentX() == 0.0 && std::fabs(page.CurrentY() - out[2].y - page.LineHeight()) < 1e-9);

    // Texts without a tab follow each other.
    page.PrintLine({"Ab", "cd"});
    EXPECT_NEAR(page.Output()[4].x, page.TextWidth("Ab"), 1e-9);
    page.EndDocument();
}

TEST_F(PagePrinterTest, WidgetImageFillsThePageWidth) {
    dialogs.printToPdf = dir.filePath("image.pdf");
    PagePrinter page;
    ASSERT_TRUE(page.ChoosePrinter(dialogs));
    PlotWidget widget(400, 100);
    page.PrintImage(widget.grab().toImage());
    const double pageWidth = QPdfWriter(dir.filePath("probe.pdf")).pageLayout().paintRect(QPageLayout::Inch).width();
    EXPECT_NEAR(page.CurrentY(), pageWidth / 4.0, 1e-6);
    page.EndDocument();
    EXPECT_FALSE(page.Failed());
    EXPECT_GT(QFile(dialogs.printToPdf).size(), 0);
}

} // namespace
} // namespace tarvelle
