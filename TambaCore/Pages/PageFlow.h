#pragma once

#include "TambaCore/Pages/PDFCanvas.h"

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

/// Text in columns that runs over as many pages as it needs. Everything is measured and given its place before the
/// first page is drawn, so that each page can say how many there are.
///
///     Flow flow({.left = 48, .right = 547, .firstTop = 48, .top = 96, .bottom = 780});
///     flow.add(Row{{Column{48, 240, {Piece{.text = address, .style = body}}}}});
///     for (std::size_t page = 0; page < flow.pageCount(); ++page) { canvas.beginPage(); flow.draw(canvas, page); }
namespace tamba {

/// A text, perhaps with a label at its left, or a drawing of fixed height.
struct Piece {
    std::string text = {};
    PDFCanvas::Style style = {};
    double above = 0;  ///< blank points before it
    std::string label = {};
    PDFCanvas::Style labelStyle = {};
    double indent = 0;  ///< of the text, whose label stands left of it
    double height = 0;  ///< of a drawing
    std::function<void(PDFCanvas&, const Rect&)> drawing = {};
};

/// Pieces under each other.
struct Column {
    double x = 0;
    double width = 0;
    std::vector<Piece> pieces = {};

    [[nodiscard]] double height() const;
    [[nodiscard]] double baseline() const;  ///< of the first piece, from the top
    void draw(PDFCanvas& canvas, double y) const;
    /// Takes from the top what fits in `height`, cutting a text between two lines; the rest stays.
    [[nodiscard]] Column cut(double height);
};

/// Columns beside each other, on a common first baseline.
struct Row {
    std::vector<Column> columns = {};
    double above = 0, below = 0;  ///< blank points before and after
    Color rule = Color::gray(0, 0);
    double ruleWidth = 0;  ///< of a line under the row
    bool whole = false;    ///< not cut as long as one page can hold it

    [[nodiscard]] double height() const;
    [[nodiscard]] double baseline() const;
    /// How far down a column is moved to stand on the row's baseline; a drawing stays at the top.
    [[nodiscard]] double shift(const Column& column) const;
    [[nodiscard]] bool isEmpty() const;
};

class Flow {
public:
    struct Area {
        double left = 0, right = 0;
        double firstTop = 0;  ///< on the first page
        double top = 0;       ///< on the others
        double bottom = 0;
    };
    explicit Flow(const Area& area);

    void add(Row row);
    /// Blank points, none at the top of a page.
    void space(double points);
    /// Rows under a heading that is repeated on each page. `carried`, when given, is a row for what the first n rows
    /// amount to, put at the foot of a page that the table leaves and, with another label, at the head of the next.
    enum class Carry { forward, brought };
    void table(const Row& heading, std::vector<Row> rows, const std::function<Row(Carry, std::size_t)>& carried = {});

    [[nodiscard]] std::size_t pageCount() const { return pages_.size(); }
    void draw(PDFCanvas& canvas, std::size_t page) const;

private:
    struct Placed {
        Row row;
        double y = 0;
    };
    void place(Row row);
    void newPage();

    Area area_;
    double y_;
    double reserved_ = 0;    ///< at the foot of each page, for what `leaving_` puts there
    std::size_t begun_ = 0;  ///< rows of the table, or the part of one, that have their place
    bool fresh_ = true;      ///< nothing stands on the page yet but a repeated heading
    std::function<void()> leaving_, entering_;
    std::vector<std::vector<Placed>> pages_;
};

}  // namespace tamba
