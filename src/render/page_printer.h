// The page object of every printout: lines of text placed in inches on a printer or a PDF file
// (any paged paint device), with tab stops counted in average character widths.
//
// Sequence of use:
//   PagePrinter page;
//   if (!page.ChoosePrinter(station.dialogs)) return;   // cancelled: nothing printed, no message
//   page.SetCurrentX(1.0); page.SetCurrentY(0.5);
//   page.SetFontBold(false); page.SetFontSize(18);
//   page.PrintLine({"JUPITER EVENT PREDICTIONS", "    ", dateText});
//   page.PrintLine({});                                  // an empty line
//   page.SetFontSize(10);
//   page.PrintLine({PagePrinter::Tab(10), "Begin", PagePrinter::Tab(20), "End"});
//   if (page.CurrentY() >= 10.0) page.NewPage();
//   page.EndDocument();
//
// Positions are inches from the top-left corner of the printable area, and y is the top of the
// next line. A printer that fails to start is passed over: every call still runs and keeps the
// positions, page numbers and the record of what was printed, but nothing reaches paper.
#pragma once

#include <QString>

#include <memory>
#include <vector>

class QFontMetricsF;
class QImage;
class QPainter;
class QPagedPaintDevice;

namespace tarvelle {

class Dialogs;

class PagePrinter {
public:
    static constexpr int kInches = 5;

    // A text, or a tab stop to a column when column is above 0.
    struct Item {
        Item(const QString& t) : text(t) {}
        Item(const char* t) : text(QString::fromUtf8(t)) {}
        QString text;
        int column = 0;
    };
    static Item Tab(int column);

    // One text as placed on a page, in inches.
    struct Printed {
        int page;
        double x, y;
        QString text;
    };

    // Records what would be printed, and prints nothing, until ChoosePrinter picks a device.
    PagePrinter();
    ~PagePrinter();
    PagePrinter(const PagePrinter&) = delete;
    PagePrinter& operator=(const PagePrinter&) = delete;

    // The system's printer dialog (or the test double's); false when cancelled.
    bool ChoosePrinter(Dialogs& dialogs);

    int ScaleMode() const { return kInches; }
    void SetCurrentX(double inches) { x_ = inches; }
    void SetCurrentY(double inches) { y_ = inches; }
    double CurrentX() const { return x_; }
    double CurrentY() const { return y_; }
    void SetFontSize(float points);
    float FontSize() const { return fontSize_; }
    void SetFontBold(bool bold) { bold_ = bold; }
    bool FontBold() const { return bold_; }
    // In inches, for the present font.
    double AverageCharWidth() const;
    double LineHeight() const;
    double TextWidth(const QString& text) const;

    // Texts follow each other; Tab(n) moves to column n, column 1 being the left margin, or to
    // column n of the next line when the line has already passed it. The line ends at the left
    // margin of the next line.
    void PrintLine(const std::vector<Item>& items);
    // The image at the current point, as large as the rest of the page allows, keeping its
    // proportions; the current point goes below it.
    void PrintImage(const QImage& image);

    int Page() const { return page_; }
    void NewPage();
    // Ends the page and sends the document; later calls print nothing.
    void EndDocument();

    bool Failed() const { return failed_; }
    const std::vector<Printed>& Output() const { return output_; }

private:
    QPainter* Painter();
    double Resolution() const;
    QFontMetricsF Metrics() const;

    std::unique_ptr<QPagedPaintDevice> device_;
    std::unique_ptr<QPainter> painter_;
    bool failed_ = false, ended_ = false;
    double x_ = 0.0, y_ = 0.0;
    float fontSize_ = 10.0f;
    bool bold_ = false;
    int page_ = 1;
    std::vector<Printed> output_;
};


} // namespace tarvelle
