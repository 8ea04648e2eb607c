#include "render/plot_surface.h"

#include <QClipboard>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QImageReader>
#include <QPainter>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <vector>

namespace tarvelle {

namespace {

constexpr std::array<int, 16> kQBColors = {
    RGB(0, 0, 0),       RGB(0, 0, 128),   RGB(0, 128, 0),   RGB(0, 128, 128),
    RGB(128, 0, 0),     RGB(128, 0, 128), RGB(128, 128, 0), RGB(192, 192, 192),
    RGB(128, 128, 128), RGB(0, 0, 255),   RGB(0, 255, 0),   RGB(0, 255, 255),
    RGB(255, 0, 0),     RGB(255, 0, 255), RGB(255, 255, 0), RGB(255, 255, 255)};

constexpr QRgb kOpaque = 0xFF000000u;
constexpr int kDotsPerMeter = 3780; // 96 pixels to the inch, so that point sizes are the same everywhere
// A point computed as 99.99999 pixels still lies in pixel 100: single-precision coordinates and
// scale rectangles don't land exactly on pixel corners.
constexpr double kPixelSlack = 1e-4;
// Far enough outside any image to clip, small enough for int arithmetic on top.
constexpr double kPixelLimit = 1e8;

QImage NewImage(int widthPx, int heightPx) {
    QImage image(std::max(widthPx, 1), std::max(heightPx, 1), QImage::Format_RGB32);
    image.setDotsPerMeterX(kDotsPerMeter);
    image.setDotsPerMeterY(kDotsPerMeter);
    return image;
}

int ClampedFloor(double pixel) {
    if (std::isnan(pixel)) return static_cast<int>(-kPixelLimit);
    return static_cast<int>(std::floor(std::clamp(pixel + kPixelSlack, -kPixelLimit, kPixelLimit)));
}

// Half the width of row dy of a filled ellipse with radii rx, ry in pixels; -1 off the ellipse.
int EllipseHalfWidth(double rx, double ry, int dy) {
    if (ry < 0.5) return dy == 0 ? static_cast<int>(std::lround(rx)) : -1;
    const double t = dy / ry;
    if (std::fabs(t) > 1.0) return -1;
    return static_cast<int>(std::floor(rx * std::sqrt(1.0 - t * t) + 0.5));
}

} // namespace

int QBColor(int index) {
    if (index < 0 || index >= static_cast<int>(kQBColors.size())) return 0;
    return kQBColors[static_cast<size_t>(index)];
}

QRgb ToQRgb(int colour) {
    return qRgb(colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF);
}

int FromQRgb(QRgb rgb) {
    return RGB(qRed(rgb), qGreen(rgb), qBlue(rgb));
}

// ---- ScaleFrame ----

double ScaleFrame::UnitsPerPixelX() const {
    switch (mode) {
    case ScaleMode::User:
        return (static_cast<double>(right) - static_cast<double>(left)) / std::max(widthPx, 1);
    case ScaleMode::Twips:
        return kTwipsPerPixel;
    case ScaleMode::Pixel:
        break;
    }
    return 1.0;
}

double ScaleFrame::UnitsPerPixelY() const {
    switch (mode) {
    case ScaleMode::User:
        return (static_cast<double>(bottom) - static_cast<double>(top)) / std::max(heightPx, 1);
    case ScaleMode::Twips:
        return kTwipsPerPixel;
    case ScaleMode::Pixel:
        break;
    }
    return 1.0;
}

double ScaleFrame::ToPixelX(double x) const {
    return (x - Left()) / UnitsPerPixelX();
}
double ScaleFrame::ToPixelY(double y) const {
    return (y - Top()) / UnitsPerPixelY();
}
double ScaleFrame::FromPixelX(double px) const {
    return Left() + px * UnitsPerPixelX();
}
double ScaleFrame::FromPixelY(double py) const {
    return Top() + py * UnitsPerPixelY();
}
int ScaleFrame::PixelColumn(double x) const {
    return ClampedFloor(ToPixelX(x));
}
int ScaleFrame::PixelRow(double y) const {
    return ClampedFloor(ToPixelY(y));
}
double ScaleFrame::Left() const {
    return mode == ScaleMode::User ? static_cast<double>(left) : 0.0;
}
double ScaleFrame::Top() const {
    return mode == ScaleMode::User ? static_cast<double>(top) : 0.0;
}
double ScaleFrame::Width() const {
    if (mode == ScaleMode::User) return static_cast<double>(right) - static_cast<double>(left);
    return UnitsPerPixelX() * widthPx;
}
double ScaleFrame::Height() const {
    if (mode == ScaleMode::User) return static_cast<double>(bottom) - static_cast<double>(top);
    return UnitsPerPixelY() * heightPx;
}

// ---- Pixel output ----

// Where the pixels of one operation go. In XOR mode a pixel that an operation reaches twice
// (the corners of a box, the joints of a thick line) must still be inverted only once, so the
// pixels are gathered and applied once each at the end.
class PlotSurface::Sink {
public:
    Sink(QImage& image, int colour, DrawMode mode)
        : bits_(image.bits()), stride_(image.bytesPerLine()), width_(image.width()), height_(image.height()),
          rgb_(ToQRgb(colour)), xor_(mode == DrawMode::Xor) {}
    Sink(const Sink&) = delete;
    Sink& operator=(const Sink&) = delete;
    ~Sink() {
        if (!xor_) return;
        std::sort(pending_.begin(), pending_.end());
        pending_.erase(std::unique(pending_.begin(), pending_.end()), pending_.end());
        const QRgb flip = rgb_ & 0x00FFFFFFu;
        for (int64_t p : pending_) *At(static_cast<int>(p % width_), static_cast<int>(p / width_)) ^= flip;
    }

    void Put(int x, int y) {
        if (x < 0 || y < 0 || x >= width_ || y >= height_) return;
        if (xor_)
            pending_.push_back(static_cast<int64_t>(y) * width_ + x);
        else
            *At(x, y) = rgb_;
    }
    void Span(int x1, int x2, int y) {
        if (y < 0 || y >= height_) return;
        x1 = std::max(x1, 0);
        x2 = std::min(x2, width_ - 1);
        if (x1 > x2) return;
        if (!xor_) {
            std::fill(At(x1, y), At(x2, y) + 1, rgb_);
            return;
        }
        for (int x = x1; x <= x2; ++x) Put(x, y);
    }

private:
    QRgb* At(int x, int y) {
        return reinterpret_cast<QRgb*>(bits_ + static_cast<qsizetype>(y) * stride_) + x;
    }

    uchar* bits_;
    qsizetype stride_;
    int width_, height_;
    QRgb rgb_;
    bool xor_;
    std::vector<int64_t> pending_;
};

// ---- PlotSurface ----

PlotSurface::PlotSurface(int widthPx, int heightPx, int backColour) : backColour_(backColour) {
    image_ = NewImage(widthPx, heightPx);
    image_.fill(ToQRgb(backColour_));
    shown_ = image_;
    frame_.widthPx = image_.width();
    frame_.heightPx = image_.height();
}

int PlotSurface::Pixel(int x, int y) const {
    if (x < 0 || y < 0 || x >= image_.width() || y >= image_.height()) return -1;
    return FromQRgb(image_.pixel(x, y));
}

void PlotSurface::ResizeImage(int widthPx, int heightPx) {
    QImage resized = NewImage(widthPx, heightPx);
    resized.fill(ToQRgb(backColour_));
    {
        QPainter painter(&resized);
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        painter.drawImage(0, 0, image_);
    }
    image_ = resized;
    frame_.widthPx = image_.width();
    frame_.heightPx = image_.height();
}

void PlotSurface::SetScale(float x1, float y1, float x2, float y2) {
    // A rectangle without extent has no mapping; the frame stays as it was.
    if (!(x1 != x2 && y1 != y2) || !std::isfinite(x1) || !std::isfinite(x2) || !std::isfinite(y1) ||
        !std::isfinite(y2))
        return;
    frame_.mode = ScaleMode::User;
    frame_.left = x1;
    frame_.top = y1;
    frame_.right = x2;
    frame_.bottom = y2;
}

void PlotSurface::SetPixelScale() {
    frame_.mode = ScaleMode::Pixel;
}

void PlotSurface::SetTwipsScale() {
    frame_.mode = ScaleMode::Twips;
}

void PlotSurface::SetScaleMode(ScaleMode mode) {
    if (mode == ScaleMode::User) {
        if (frame_.mode == ScaleMode::User) return;
        const ScaleFrame now = frame_;
        SetScale(0.0f, 0.0f, static_cast<float>(now.Width()), static_cast<float>(now.Height()));
        return;
    }
    frame_.mode = mode;
}

void PlotSurface::SetFrame(const ScaleFrame& frame) {
    frame_ = frame;
    frame_.widthPx = image_.width();
    frame_.heightPx = image_.height();
}

void PlotSurface::Fill(QImage& image) const {
    image.fill(ToQRgb(backColour_));
    if (background_.isNull()) return;
    QPainter painter(&image);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.drawImage(0, 0, background_);
}

bool PlotSurface::LoadBackground(const QString& path, QString* error) {
    QImageReader reader(path);
    const QImage picture = reader.read();
    if (picture.isNull()) {
        if (error) *error = reader.errorString();
        return false;
    }
    SetBackgroundPicture(picture);
    return true;
}

void PlotSurface::SetBackgroundPicture(const QImage& picture) {
    background_ = picture.convertToFormat(QImage::Format_RGB32);
    Fill(image_);
}

void PlotSurface::RemoveBackgroundPicture() {
    background_ = QImage();
}

void PlotSurface::Clear() {
    Fill(image_);
    currentX_ = 0.0f;
    currentY_ = 0.0f;
}

void PlotSurface::SetCurrentPoint(float x, float y) {
    currentX_ = x;
    currentY_ = y;
}

void PlotSurface::SetFontSize(float points) {
    if (points > 0.0f && std::isfinite(points)) fontSize_ = points;
}

QFont PlotSurface::Font() const {
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPointSizeF(fontSize_);
    font.setBold(fontBold_);
    font.setStyleStrategy(QFont::NoAntialias);
    return font;
}

// ---- Lines, boxes, circles, points ----

// A square of the line width's size round the pixel.
void PlotSurface::Stamp(Sink& sink, int x, int y) const {
    if (lineWidth_ == 1) {
        sink.Put(x, y);
        return;
    }
    const int x0 = x - (lineWidth_ - 1) / 2;
    const int y0 = y - (lineWidth_ - 1) / 2;
    for (int j = 0; j < lineWidth_; ++j) sink.Span(x0, x0 + lineWidth_ - 1, y0 + j);
}

void PlotSurface::RasterLine(Sink& sink, int x0, int y0, int x1, int y1) const {
    // Bresenham from end to end, both ends included; dotted lines take every other pixel.
    const bool dotted = lineStyle_ == LineStyle::Dotted;
    const int64_t dx = std::llabs(static_cast<int64_t>(x1) - x0);
    const int64_t dy = -std::llabs(static_cast<int64_t>(y1) - y0);
    const int sx = x0 < x1 ? 1 : -1;
    const int sy = y0 < y1 ? 1 : -1;
    int64_t err = dx + dy;
    for (int64_t n = 0;; ++n) {
        if (!dotted || n % 2 == 0) Stamp(sink, x0, y0);
        if (x0 == x1 && y0 == y1) break;
        const int64_t e2 = 2 * err;
        if (e2 >= dy) {
            err += dy;
            x0 += sx;
        }
        if (e2 <= dx) {
            err += dx;
            y0 += sy;
        }
    }
}

namespace {

// Cuts the segment to the rectangle [lo, hi] on both axes (Liang-Barsky); false if nothing is left.
bool ClipSegment(double& x0, double& y0, double& x1, double& y1, double loX, double loY, double hiX,
                 double hiY) {
    double t0 = 0.0, t1 = 1.0;
    const double dx = x1 - x0, dy = y1 - y0;
    const std::array<double, 4> p = {-dx, dx, -dy, dy};
    const std::array<double, 4> q = {x0 - loX, hiX - x0, y0 - loY, hiY - y0};
    for (size_t i = 0; i < 4; ++i) {
        if (p[i] == 0.0) {
            if (q[i] < 0.0) return false;
            continue;
        }
        const double t = q[i] / p[i];
        if (p[i] < 0.0)
            t0 = std::max(t0, t);
        else
            t1 = std::min(t1, t);
        if (t0 > t1) return false;
    }
    const double ax = x0 + t0 * dx, ay = y0 + t0 * dy;
    x1 = x0 + t1 * dx;
    y1 = y0 + t1 * dy;
    x0 = ax;
    y0 = ay;
    return true;
}

} // namespace

void PlotSurface::DrawLine(float x1, float y1, float x2, float y2, int colour) {
    double px0 = frame_.ToPixelX(x1), py0 = frame_.ToPixelY(y1);
    double px1 = frame_.ToPixelX(x2), py1 = frame_.ToPixelY(y2);
    currentX_ = x2;
    currentY_ = y2;
    if (!std::isfinite(px0) || !std::isfinite(py0) || !std::isfinite(px1) || !std::isfinite(py1)) return;
    // Only the part near the image is walked, however far away the ends lie.
    const double margin = lineWidth_ + 2.0;
    if (!ClipSegment(px0, py0, px1, py1, -margin, -margin, image_.width() + margin, image_.height() + margin))
        return;
    Sink sink(image_, Colour(colour), drawMode_);
    RasterLine(sink, ClampedFloor(px0), ClampedFloor(py0), ClampedFloor(px1), ClampedFloor(py1));
}

void PlotSurface::DrawBox(float x1, float y1, float x2, float y2, int colour) {
    int a = frame_.PixelColumn(x1), b = frame_.PixelColumn(x2);
    int c = frame_.PixelRow(y1), d = frame_.PixelRow(y2);
    if (a > b) std::swap(a, b);
    if (c > d) std::swap(c, d);
    currentX_ = x2;
    currentY_ = y2;
    Sink sink(image_, Colour(colour), drawMode_);
    const int w = image_.width(), h = image_.height(), m = lineWidth_ + 2;
    // Sides far outside the image are left out rather than walked.
    const int ca = std::max(a, -m), cb = std::min(b, w + m), cc = std::max(c, -m), cd = std::min(d, h + m);
    if (ca <= cb) {
        if (c >= -m && c <= h + m) RasterLine(sink, ca, c, cb, c);
        if (d >= -m && d <= h + m) RasterLine(sink, ca, d, cb, d);
    }
    if (cc <= cd) {
        if (a >= -m && a <= w + m) RasterLine(sink, a, cc, a, cd);
        if (b >= -m && b <= w + m) RasterLine(sink, b, cc, b, cd);
    }
}

void PlotSurface::FillBox(float x1, float y1, float x2, float y2, int colour) {
    int a = frame_.PixelColumn(x1), b = frame_.PixelColumn(x2);
    int c = frame_.PixelRow(y1), d = frame_.PixelRow(y2);
    if (a > b) std::swap(a, b);
    if (c > d) std::swap(c, d);
    currentX_ = x2;
    currentY_ = y2;
    Sink sink(image_, Colour(colour), drawMode_);
    for (int y = std::max(c, 0); y <= std::min(d, image_.height() - 1); ++y) sink.Span(a, b, y);
}

void PlotSurface::DrawCircle(float x, float y, float radius, int colour, float aspect) {
    currentX_ = x;
    currentY_ = y;
    const double r = std::fabs(static_cast<double>(radius) / frame_.UnitsPerPixelX());
    const double k = std::fabs(static_cast<double>(aspect));
    if (!std::isfinite(r) || !std::isfinite(k)) return;
    double rx = r, ry = r * k;
    if (k > 1.0) {
        ry = r;
        rx = r / k;
    }
    rx = std::min(rx, kPixelLimit);
    ry = std::min(ry, kPixelLimit);
    const int cx = frame_.PixelColumn(x), cy = frame_.PixelRow(y);

    // The outline is peeled off the filled ellipse one layer per pixel of line width, centred on
    // the radius; what is left inside is the fill. Each layer removes the pixels that touch the
    // outside on a side, so the outline is closed at every width.
    const int layers = lineWidth_;
    const double grow = (layers - 1) / 2.0;
    const double ox = rx + grow, oy = ry + grow;
    const int reach = oy < 0.5 ? 0 : static_cast<int>(std::floor(oy));
    const int margin = layers + 2;
    const int64_t first = std::max<int64_t>(static_cast<int64_t>(cy) - reach, -margin);
    const int64_t last = std::min<int64_t>(static_cast<int64_t>(cy) + reach, image_.height() - 1 + margin);
    if (first > last) return;
    const size_t rows = static_cast<size_t>(last - first + 1);
    const int lo = -margin, hi = image_.width() - 1 + margin;
    std::vector<int> a0(rows), b0(rows);
    for (size_t i = 0; i < rows; ++i) {
        const int hw = EllipseHalfWidth(ox, oy, static_cast<int>(first + static_cast<int64_t>(i) - cy));
        if (hw < 0) {
            a0[i] = 1;
            b0[i] = 0;
            continue;
        }
        a0[i] = static_cast<int>(std::clamp<int64_t>(static_cast<int64_t>(cx) - hw, lo, hi + 1));
        b0[i] = static_cast<int>(std::clamp<int64_t>(static_cast<int64_t>(cx) + hw, lo - 1, hi));
    }
    std::vector<int> a = a0, b = b0, na(rows), nb(rows);
    const int64_t top = static_cast<int64_t>(cy) - reach, bottom = static_cast<int64_t>(cy) + reach;
    for (int layer = 0; layer < layers; ++layer) {
        for (size_t i = 0; i < rows; ++i) {
            int l = a[i] + 1, rgt = b[i] - 1;
            for (int side : {-1, 1}) {
                const int64_t row = first + static_cast<int64_t>(i) + side;
                if (row < first || row > last) {
                    // Off the rows worked on: empty past the ellipse, else no limit (the error
                    // stays in the margin).
                    if (row < top || row > bottom) rgt = l - 1;
                    continue;
                }
                const size_t j = static_cast<size_t>(row - first);
                l = std::max(l, a[j]);
                rgt = std::min(rgt, b[j]);
            }
            na[i] = l;
            nb[i] = rgt;
        }
        a.swap(na);
        b.swap(nb);
    }

    if (fillStyle_ == FillStyle::Solid) {
        Sink fill(image_, fillColour_, drawMode_);
        for (size_t i = 0; i < rows; ++i)
            if (a[i] <= b[i]) fill.Span(a[i], b[i], static_cast<int>(first + static_cast<int64_t>(i)));
    }
    Sink outline(image_, Colour(colour), drawMode_);
    for (size_t i = 0; i < rows; ++i) {
        if (a0[i] > b0[i]) continue;
        const int y0 = static_cast<int>(first + static_cast<int64_t>(i));
        if (a[i] > b[i]) {
            outline.Span(a0[i], b0[i], y0);
        } else {
            outline.Span(a0[i], a[i] - 1, y0);
            outline.Span(b[i] + 1, b0[i], y0);
        }
    }
}

void PlotSurface::DrawPoint(float x, float y, int colour) {
    currentX_ = x;
    currentY_ = y;
    Sink sink(image_, Colour(colour), drawMode_);
    Stamp(sink, frame_.PixelColumn(x), frame_.PixelRow(y));
}

// ---- Text ----

void PlotSurface::PrintText(const QString& text) {
    if (!text.isEmpty()) {
        const QFont font = Font();
        const QFontMetrics metrics(font, &image_);
        // Room on both sides for glyphs that reach past their advance.
        const int pad = metrics.height();
        QImage glyphs = NewImage(metrics.horizontalAdvance(text) + 2 * pad, metrics.height());
        glyphs.fill(Qt::black);
        {
            QPainter painter(&glyphs);
            painter.setRenderHint(QPainter::TextAntialiasing, false);
            painter.setFont(font);
            painter.setPen(Qt::white);
            painter.drawText(pad, metrics.ascent(), text);
        }
        const int x0 = frame_.PixelColumn(currentX_) - pad;
        const int y0 = frame_.PixelRow(currentY_);
        Sink sink(image_, penColour_, drawMode_);
        for (int j = 0; j < glyphs.height(); ++j) {
            const auto* line = reinterpret_cast<const QRgb*>(glyphs.constScanLine(j));
            for (int i = 0; i < glyphs.width(); ++i)
                if (qGreen(line[i]) >= 128) sink.Put(x0 + i, y0 + j);
        }
    }
    currentY_ = currentY_ + TextHeight(text);
}

float PlotSurface::TextWidth(const QString& text) const {
    const QFontMetrics metrics(Font(), &image_);
    return static_cast<float>(metrics.horizontalAdvance(text) * frame_.UnitsPerPixelX());
}

float PlotSurface::TextHeight(const QString&) const {
    const QFontMetrics metrics(Font(), &image_);
    return static_cast<float>(metrics.height() * frame_.UnitsPerPixelY());
}

// ---- Pictures ----

void PlotSurface::CopyBlock(int x, int y, int width, int height, const PlotSurface& source, int sourceX,
                            int sourceY, RasterMode mode) {
    int64_t dx = x, dy = y, sx = sourceX, sy = sourceY, w = width, h = height;
    // Clip the block on both images; a part cut off at one side moves the other side with it.
    const auto clip = [&](int64_t& d, int64_t& s, int64_t& extent, int64_t dLimit, int64_t sLimit) {
        if (d < 0) {
            s -= d;
            extent += d;
            d = 0;
        }
        if (s < 0) {
            d -= s;
            extent += s;
            s = 0;
        }
        extent = std::min({extent, dLimit - d, sLimit - s});
    };
    // A copy keeps the source as it was when the block overlaps itself.
    const QImage from = source.image_;
    clip(dx, sx, w, image_.width(), from.width());
    clip(dy, sy, h, image_.height(), from.height());
    if (w <= 0 || h <= 0) return;
    for (int64_t j = 0; j < h; ++j) {
        const QRgb* s = reinterpret_cast<const QRgb*>(from.constScanLine(static_cast<int>(sy + j))) + sx;
        QRgb* d = reinterpret_cast<QRgb*>(image_.scanLine(static_cast<int>(dy + j))) + dx;
        for (int64_t i = 0; i < w; ++i) {
            switch (mode) {
            case RasterMode::Copy:
                d[i] = s[i] | kOpaque;
                break;
            case RasterMode::And:
                d[i] = (d[i] & s[i]) | kOpaque;
                break;
            case RasterMode::Or:
                d[i] = d[i] | s[i] | kOpaque;
                break;
            }
        }
    }
}

void PlotSurface::StretchPicture(const PlotSurface& source, float x, float y, float width, float height) {
    StretchPicture(source.image_, x, y, width, height);
}

void PlotSurface::StretchPicture(const PlotSurface& source, float x, float y, float width, float height,
                                 const QRectF& sourcePixels) {
    StretchPicture(source.image_, x, y, width, height, sourcePixels);
}

void PlotSurface::StretchPicture(const QImage& source, float x, float y, float width, float height,
                                 const QRectF& sourcePixels) {
    if (source.isNull()) return;
    int x0 = frame_.PixelColumn(x),
        x1 = frame_.PixelColumn(static_cast<double>(x) + static_cast<double>(width));
    int y0 = frame_.PixelRow(y), y1 = frame_.PixelRow(static_cast<double>(y) + static_cast<double>(height));
    const bool mirrorX = x1 < x0, mirrorY = y1 < y0;
    if (mirrorX) std::swap(x0, x1);
    if (mirrorY) std::swap(y0, y1);
    if (x0 == x1 || y0 == y1) return;
    QRectF from = sourcePixels.isNull() ? QRectF(source.rect()) : sourcePixels;
    QImage picture = source;
    if (mirrorX || mirrorY) {
        picture = source.mirrored(mirrorX, mirrorY);
        if (mirrorX) from.moveLeft(source.width() - from.right());
        if (mirrorY) from.moveTop(source.height() - from.bottom());
    }
    QPainter painter(&image_);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.drawImage(QRectF(x0, y0, x1 - x0, y1 - y0), picture, from);
}

void PlotSurface::Refresh() {
    shown_ = image_;
    if (refreshHandler_) refreshHandler_();
}

void PlotSurface::CopyToClipboard() const {
    if (!QGuiApplication::instance()) return;
    QClipboard* clipboard = QGuiApplication::clipboard();
    clipboard->clear();
    clipboard->setImage(image_);
}

// ---- Sprites and the rubber band ----

void DrawSprite(PlotSurface& surface, const PlotSurface& sprite, const PlotSurface& mask, int left, int top) {
    surface.CopyBlock(left, top, mask.PixelWidth(), mask.PixelHeight(), mask, 0, 0, RasterMode::And);
    surface.CopyBlock(left, top, sprite.PixelWidth(), sprite.PixelHeight(), sprite, 0, 0, RasterMode::Or);
}

void MoveSprite(PlotSurface& surface, const PlotSurface& sprite, const PlotSurface& mask,
                PlotSurface& saveUnder, SpriteState& state, int left, int top) {
    if (state.onPlot)
        surface.CopyBlock(state.left, state.top, state.width, state.height, saveUnder, 0, 0,
                          RasterMode::Copy);
    state.left = left;
    state.top = top;
    state.width = sprite.PixelWidth();
    state.height = sprite.PixelHeight();
    saveUnder.CopyBlock(0, 0, state.width, state.height, surface, left, top, RasterMode::Copy);
    state.onPlot = true;
    DrawSprite(surface, sprite, mask, left, top);
    surface.Refresh();
}

void RubberBand::Start(float x, float y) {
    active_ = true;
    drawn_ = false;
    startX_ = x;
    startY_ = y;
}

void RubberBand::Draw(PlotSurface& surface, float x, float y) const {
    const DrawMode mode = surface.GetDrawMode();
    const int width = surface.LineWidth();
    const LineStyle style = surface.GetLineStyle();
    surface.SetDrawMode(DrawMode::Xor);
    surface.SetLineWidth(1);
    surface.SetLineStyle(LineStyle::Solid);
    surface.DrawBox(startX_, startY_, x, y, 0xFFFFFF);
    surface.SetDrawMode(mode);
    surface.SetLineWidth(width);
    surface.SetLineStyle(style);
}

void RubberBand::MoveTo(PlotSurface& surface, float x, float y) {
    if (!active_) return;
    if (drawn_) Draw(surface, lastX_, lastY_);
    Draw(surface, x, y);
    lastX_ = x;
    lastY_ = y;
    drawn_ = true;
    surface.Refresh();
}

void RubberBand::Erase(PlotSurface& surface) {
    if (active_ && drawn_) {
        Draw(surface, lastX_, lastY_);
        surface.Refresh();
    }
    End();
}

void RubberBand::End() {
    active_ = false;
    drawn_ = false;
}

} // namespace tarvelle
