#include "TambaCore/Pages/PageFlow.h"

#include "TambaCore/Base/Text.h"

#include <algorithm>
#include <utility>

namespace tamba {

namespace {

constexpr double gap = 8;                 // between a label and its text
constexpr double leastCut = 40;           // a row is not begun in less room than this
constexpr double largestMoved = 1 / 3.0;  // of a page: a row that is higher is cut, a lower one moves to the next page

double labelWidth(const Piece& piece) { return std::max(1.0, piece.indent - gap); }

/// How far the label and the text of a piece are pushed down to stand on one baseline.
std::pair<double, double> shifts(const Piece& piece, double width) {
    if (piece.label.empty()) return {0, 0};
    const double label = PDFCanvas::baseline(piece.label, labelWidth(piece), piece.labelStyle);
    const double text = PDFCanvas::baseline(piece.text, width - piece.indent, piece.style);
    return {std::max(0.0, text - label), std::max(0.0, label - text)};
}

double heightOf(const Piece& piece, double width) {
    if (piece.drawing) return piece.above + piece.height;
    const auto [labelShift, textShift] = shifts(piece, width);
    const double label = labelShift + PDFCanvas::measure(piece.label, labelWidth(piece), piece.labelStyle);
    return piece.above + std::max(label, textShift + PDFCanvas::measure(piece.text, width - piece.indent, piece.style));
}

/// Takes the lines that fit off the front of the piece's text; an empty piece when none do.
Piece cutText(Piece& piece, double width, double height) {
    if (piece.drawing) return {};
    if (!Text::isUTF8(piece.text)) piece.text = Text::repairedUTF8(piece.text);
    const double room = height - piece.above - shifts(piece, width).second;
    const std::size_t bytes = PDFCanvas::fitting(piece.text, width - piece.indent, piece.style, room);
    if (bytes == 0) return {};
    Piece head = piece;
    head.text.resize(bytes);
    while (!head.text.empty() && (head.text.back() == '\n' || head.text.back() == '\r')) head.text.pop_back();
    piece.text.erase(0, bytes);
    piece.label.clear();
    piece.above = 0;
    return head;
}

/// The time to break a text into lines grows with the square of its length, so what fills pages is laid out part by
/// part: cut at the end of a line, else at a blank, else anywhere.
constexpr std::size_t longestPart = 6000;  // bytes

void part(std::vector<Piece>& pieces) {
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        if (pieces[i].drawing || pieces[i].text.size() <= longestPart) continue;
        const std::string_view whole = pieces[i].text, first = whole.substr(0, longestPart);
        std::size_t end = first.find_last_of('\n');
        if (end == first.npos) end = first.find_last_of(' ');
        const bool between = end != first.npos && end > 0;
        if (!between) end = std::max<std::size_t>(1, Text::prefixBytes(whole, longestPart).size());
        Piece rest = pieces[i];
        rest.text.erase(0, between ? end + 1 : end);
        rest.label.clear();
        rest.above = 0;
        pieces[i].text.resize(end);
        pieces.insert(pieces.begin() + static_cast<std::ptrdiff_t>(i) + 1, std::move(rest));
    }
}

}  // namespace

double Column::height() const {
    double sum = 0;
    for (const Piece& piece : pieces) sum += heightOf(piece, width);
    return sum;
}

double Column::baseline() const {
    if (pieces.empty() || pieces[0].drawing) return 0;
    const Piece& first = pieces[0];
    return first.above + shifts(first, width).second +
           PDFCanvas::baseline(first.text, width - first.indent, first.style);
}

void Column::draw(PDFCanvas& canvas, double y) const {
    for (const Piece& piece : pieces) {
        const double top = y + piece.above;
        if (piece.drawing) {
            piece.drawing(canvas, {x, top, width, piece.height});
        } else {
            const auto [labelShift, textShift] = shifts(piece, width);
            canvas.text(piece.label, x, top + labelShift, labelWidth(piece), piece.labelStyle);
            canvas.text(piece.text, x + piece.indent, top + textShift, width - piece.indent, piece.style);
        }
        y += heightOf(piece, width);
    }
}

Column Column::cut(double height) {
    Column head{x, width, {}};
    std::size_t taken = 0;
    while (taken < pieces.size() && heightOf(pieces[taken], width) <= height) {
        height -= heightOf(pieces[taken], width);
        head.pieces.push_back(std::move(pieces[taken++]));
    }
    pieces.erase(pieces.begin(), pieces.begin() + static_cast<std::ptrdiff_t>(taken));
    if (!pieces.empty())
        if (Piece part = cutText(pieces[0], width, height); !part.text.empty()) head.pieces.push_back(std::move(part));
    return head;
}

double Row::baseline() const {
    double lowest = 0;
    for (const Column& column : columns) lowest = std::max(lowest, column.baseline());
    return lowest;
}

double Row::shift(const Column& column) const {
    const double own = column.baseline();
    return own > 0 ? baseline() - own : 0;
}

double Row::height() const {
    double most = 0;
    for (const Column& column : columns) most = std::max(most, shift(column) + column.height());
    return above + most + below;
}

bool Row::isEmpty() const {
    return std::all_of(columns.begin(), columns.end(), [](const Column& column) { return column.pieces.empty(); });
}

Flow::Flow(const Area& area) : area_(area), y_(area.firstTop), pages_(1) {}

void Flow::place(Row row) {
    const double height = row.height();
    pages_.back().push_back({std::move(row), y_});
    y_ += height;
}

void Flow::newPage() {
    if (leaving_) leaving_();
    pages_.emplace_back();
    y_ = area_.top;
    fresh_ = true;
    if (entering_) entering_();
}

void Flow::space(double points) {
    if (!fresh_) y_ += points;
}

void Flow::add(Row row) {
    const double page = area_.bottom - area_.top - reserved_;
    const std::size_t before = begun_;
    for (Column& column : row.columns) part(column.pieces);
    for (;;) {
        if (fresh_ && !entering_) row.above = 0;
        const double room = area_.bottom - reserved_ - y_;
        const double height = row.height();
        if (height <= room) break;
        const bool movesOn = height <= (row.whole ? page : page * largestMoved) || room < leastCut;
        if (movesOn && !fresh_) {
            newPage();
            continue;
        }
        Row head{{}, row.above, 0, {}, 0, false};
        const double first = row.baseline();
        for (Column& column : row.columns) head.columns.push_back(column.cut(room - row.above - first));
        if (head.isEmpty()) break;  // a drawing higher than a page
        place(std::move(head));
        begun_ = before + 1;
        if (row.isEmpty()) return;
        newPage();
    }
    place(std::move(row));
    begun_ = before + 1;
    fresh_ = false;
}

void Flow::table(const Row& heading, std::vector<Row> rows, const std::function<Row(Carry, std::size_t)>& carried) {
    if (rows.empty()) return;
    begun_ = 0;
    if (carried) reserved_ = carried(Carry::forward, rows.size()).height();
    // A short table stays in one piece, and a heading never stands alone at the foot of a page.
    const double moved = (area_.bottom - area_.top) * largestMoved, first = rows[0].height();
    double all = heading.height();
    for (const Row& row : rows) all += row.height();
    const double begin = all <= moved ? all : heading.height() + (first <= moved ? first : leastCut);
    if (area_.bottom - reserved_ - y_ < begin && !fresh_) newPage();
    place(heading);
    fresh_ = false;
    leaving_ = [&] {
        if (carried && begun_ > 0) place(carried(Carry::forward, begun_));
    };
    entering_ = [&] {
        place(heading);
        if (carried && begun_ > 0) place(carried(Carry::brought, begun_));
    };
    for (Row& row : rows) add(std::move(row));
    reserved_ = 0;
    leaving_ = entering_ = nullptr;
}

void Flow::draw(PDFCanvas& canvas, std::size_t page) const {
    for (const auto& [row, y] : pages_[page]) {
        for (const Column& column : row.columns) column.draw(canvas, y + row.above + row.shift(column));
        if (row.ruleWidth > 0 && row.rule.alpha > 0) {
            const double foot = y + row.height();
            canvas.line({area_.left, foot}, {area_.right, foot}, row.rule, row.ruleWidth);
        }
    }
}

}  // namespace tamba
