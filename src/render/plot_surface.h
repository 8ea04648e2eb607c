// The drawing surface of every plot: a persistent 24-bit image with a coordinate frame, a pen,
// a fill and a font, drawn on by plain operations and shown in its window only on Refresh.
//
// Sequence of use:
//   PlotWidget* picture = new PlotWidget(360, 200, this);   // on the screen (ui/common/plot_widget.h)
//   PlotSurface& s = picture->Surface();
//   s.SetScale(0, 90, 360, -10);                            // user frame, y up
//   s.Clear();                                              // background; current point (0, 0)
//   s.DrawLine(0, 0, 360, 0, QBColor(15));
//   s.SetCurrentPoint(10, 80); s.PrintText("N");
//   s.Refresh();                                            // once per update, not per line
//   connect(picture, &PlotWidget::mouseMove, this, &Window::PictureMouseMove);
//
// Nothing is anti-aliased: masks and sprites are combined pixel by pixel with CopyBlock.
// A point in user coordinates falls in the pixel that contains it; boxes include both corners.
#pragma once

#include <QFont>
#include <QImage>
#include <QRectF>
#include <QString>

#include <functional>

namespace tarvelle {

// Colours are red + 256 * green + 65536 * blue.
constexpr int RGB(int red, int green, int blue) {
    return (red & 0xFF) | ((green & 0xFF) << 8) | ((blue & 0xFF) << 16);
}
// The 16-colour table; an index outside 0..15 gives black.
int QBColor(int index);
QRgb ToQRgb(int colour);
int FromQRgb(QRgb rgb);

// A colour argument left out means the pen colour.
constexpr int kPenColour = -1;

enum class ScaleMode { User = 0, Twips = 1, Pixel = 3 };
enum class FillStyle { Solid = 0, Transparent = 1 };
enum class LineStyle { Solid = 0, Dotted = 2 };
enum class DrawMode { Copy, Xor };
enum class RasterMode { Copy, And, Or };

constexpr int kTwipsPerPixel = 15; // 1440 twips to the inch at 96 pixels to the inch

// How the current coordinates map onto the image's pixels. Pixel coordinates here are
// continuous: pixel i covers [i, i + 1). In user mode (left, top) is the top-left corner of
// the image and (right, bottom) the bottom-right one, either axis possibly reversed.
struct ScaleFrame {
    ScaleMode mode = ScaleMode::Pixel;
    float left = 0.0f, top = 0.0f, right = 0.0f, bottom = 0.0f; // kept for user mode only
    int widthPx = 0, heightPx = 0;

    double UnitsPerPixelX() const;
    double UnitsPerPixelY() const;
    double ToPixelX(double x) const;
    double ToPixelY(double y) const;
    double FromPixelX(double px) const;
    double FromPixelY(double py) const;
    // The pixel that contains the point, clamped far outside the image so that it fits an int.
    int PixelColumn(double x) const;
    int PixelRow(double y) const;
    // Extent of the image in these coordinates; negative along a reversed axis.
    double Left() const;
    double Top() const;
    double Width() const;
    double Height() const;
};

class PlotSurface {
public:
    // A surface in pixel mode, filled with the background colour.
    explicit PlotSurface(int widthPx = 1, int heightPx = 1, int backColour = 0xFFFFFF);
    PlotSurface(const PlotSurface&) = delete;
    PlotSurface& operator=(const PlotSurface&) = delete;

    // The image, which all drawing changes, and the image as last shown by Refresh.
    const QImage& Image() const { return image_; }
    const QImage& Shown() const { return shown_; }
    int PixelWidth() const { return image_.width(); }
    int PixelHeight() const { return image_.height(); }
    // The colour of one pixel, or -1 outside the image.
    int Pixel(int x, int y) const;
    // New pixel size; what fits stays, the rest takes the background colour.
    void ResizeImage(int widthPx, int heightPx);

    // Coordinates.
    void SetScale(float x1, float y1, float x2, float y2);
    void SetPixelScale();
    void SetTwipsScale();
    // User mode takes the present extent as its scale rectangle.
    void SetScaleMode(ScaleMode mode);
    ScaleMode Mode() const { return frame_.mode; }
    // The whole frame, so that a plot can put back a scale it left for a while.
    ScaleFrame Frame() const { return frame_; }
    void SetFrame(const ScaleFrame& frame);
    float ScaleLeft() const { return static_cast<float>(frame_.Left()); }
    float ScaleTop() const { return static_cast<float>(frame_.Top()); }
    float ScaleWidth() const { return static_cast<float>(frame_.Width()); }
    float ScaleHeight() const { return static_cast<float>(frame_.Height()); }

    // Background.
    void SetBackColour(int colour) { backColour_ = colour; }
    int BackColour() const { return backColour_; }
    // Reads a BMP, GIF or PNG file as the background picture and shows it at once; false with
    // the reader's description in *error when it can't be read.
    bool LoadBackground(const QString& path, QString* error = nullptr);
    void SetBackgroundPicture(const QImage& picture);
    void RemoveBackgroundPicture();
    bool HasBackgroundPicture() const { return !background_.isNull(); }
    // Background picture, else background colour; current point to (0, 0).
    void Clear();

    // Drawing state.
    void SetCurrentPoint(float x, float y);
    float CurrentX() const { return currentX_; }
    float CurrentY() const { return currentY_; }
    void SetPenColour(int colour) { penColour_ = colour; }
    int PenColour() const { return penColour_; }
    void SetFillColour(int colour) { fillColour_ = colour; }
    int FillColour() const { return fillColour_; }
    void SetFillStyle(FillStyle style) { fillStyle_ = style; }
    FillStyle GetFillStyle() const { return fillStyle_; }
    void SetLineWidth(int pixels) { lineWidth_ = pixels < 1 ? 1 : pixels; }
    int LineWidth() const { return lineWidth_; }
    void SetLineStyle(LineStyle style) { lineStyle_ = style; }
    LineStyle GetLineStyle() const { return lineStyle_; }
    void SetDrawMode(DrawMode mode) { drawMode_ = mode; }
    DrawMode GetDrawMode() const { return drawMode_; }
    void SetFontSize(float points);
    float FontSize() const { return fontSize_; }
    void SetFontBold(bool bold) { fontBold_ = bold; }
    bool FontBold() const { return fontBold_; }
    QFont Font() const;

    // Drawing, in the current coordinates.
    void DrawLine(float x1, float y1, float x2, float y2, int colour = kPenColour);
    void DrawBox(float x1, float y1, float x2, float y2, int colour = kPenColour);
    void FillBox(float x1, float y1, float x2, float y2, int colour = kPenColour);
    // radius in units of the x axis; aspect = vertical / horizontal radius in pixels, and
    // above 1 the radius is the vertical one.
    void DrawCircle(float x, float y, float radius, int colour = kPenColour, float aspect = 1.0f);
    void DrawPoint(float x, float y, int colour = kPenColour);
    // Top-left at the current point, pen colour, no background; then one text height lower.
    void PrintText(const QString& text);
    // Extent of the text in the current coordinates, signed like ScaleWidth and ScaleHeight.
    float TextWidth(const QString& text) const;
    float TextHeight(const QString& text) const;

    // Block transfer in whole pixels, clipped at the edges of both images.
    void CopyBlock(int x, int y, int width, int height, const PlotSurface& source, int sourceX, int sourceY,
                   RasterMode mode);
    // The whole source, or the sourcePixels part of it, scaled into the rectangle given in the
    // current coordinates (nearest pixel; a negative extent mirrors).
    void StretchPicture(const PlotSurface& source, float x, float y, float width, float height);
    void StretchPicture(const PlotSurface& source, float x, float y, float width, float height,
                        const QRectF& sourcePixels);
    void StretchPicture(const QImage& source, float x, float y, float width, float height,
                        const QRectF& sourcePixels = {});

    // Shows the present image in the owning window.
    void Refresh();
    void SetRefreshHandler(std::function<void()> handler) { refreshHandler_ = std::move(handler); }
    void CopyToClipboard() const;

private:
    class Sink;
    void RasterLine(Sink& sink, int x0, int y0, int x1, int y1) const;
    void Stamp(Sink& sink, int x, int y) const;
    int Colour(int colour) const { return colour == kPenColour ? penColour_ : colour; }
    void Fill(QImage& image) const;

    QImage image_;
    QImage shown_;
    QImage background_;
    int backColour_;
    ScaleFrame frame_;
    float currentX_ = 0.0f, currentY_ = 0.0f;
    int penColour_ = 0;
    int fillColour_ = 0;
    FillStyle fillStyle_ = FillStyle::Transparent;
    int lineWidth_ = 1;
    LineStyle lineStyle_ = LineStyle::Solid;
    DrawMode drawMode_ = DrawMode::Copy;
    float fontSize_ = 8.0f;
    bool fontBold_ = false;
    std::function<void()> refreshHandler_;
};

// A sprite put on a plot whose image is redrawn at every update: mask with AND, then sprite
// with OR, their top-left corner at (left, top) in pixels. The caller works out the corner in
// pixel mode, and afterwards sets its scale again and refreshes.
void DrawSprite(PlotSurface& surface, const PlotSurface& sprite, const PlotSurface& mask, int left, int top);

// Where a moving sprite stands on a plot that isn't redrawn under it.
struct SpriteState {
    bool onPlot = false; // false when the window loads
    int left = 0, top = 0, width = 0, height = 0;
};

// Puts back what lay under the sprite's last block, keeps what lies under the new one in
// saveUnder, draws the sprite there and refreshes.
void MoveSprite(PlotSurface& surface, const PlotSurface& sprite, const PlotSurface& mask,
                PlotSurface& saveUnder, SpriteState& state, int left, int top);

// A box dragged with the mouse, drawn in XOR with white so that drawing it again takes it off.
class RubberBand {
public:
    void Start(float x, float y);
    // Takes off the last box, if any, draws the box from the start to (x, y) and refreshes.
    void MoveTo(PlotSurface& surface, float x, float y);
    // Takes off the last box and ends the drag.
    void Erase(PlotSurface& surface);
    // Ends the drag and leaves the image alone.
    void End();
    bool Active() const { return active_; }
    float StartX() const { return startX_; }
    float StartY() const { return startY_; }

private:
    void Draw(PlotSurface& surface, float x, float y) const;
    bool active_ = false, drawn_ = false;
    float startX_ = 0.0f, startY_ = 0.0f, lastX_ = 0.0f, lastY_ = 0.0f;
};

} // namespace tarvelle
