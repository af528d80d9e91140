#pragma once

#include "TambaCore/Model/Models.h"

#include <QLineEdit>
#include <QWidget>

#include <array>
#include <optional>

class QGridLayout;
class QLabel;
class QToolButton;

namespace tamba {

class GrowingText;

/// The figures and words of a line that have a cell of their own, in the order of the eye.
enum class LineCell { name, hsn, quantity, unit, price, discount, tax };
inline constexpr std::size_t lineCells = 7;

/// One cell of a line. What is typed counts when the cell is left: by Tab, Enter, an arrow or the mouse.
class Cell : public QLineEdit {
    Q_OBJECT

public:
    explicit Cell(QWidget* parent = nullptr);
    /// Text of the books; what is being typed, or was refused, is left alone.
    void put(const QString& text);

signals:
    /// What was typed is to be taken.
    void committed();
    /// Takes back what was typed.
    void reverted();
    /// Enter or an arrow: to the cell so many lines further down.
    void moved(int lines);
    void lineMoved(int lines);
    void lineRemoved();
    void menuChosen(const QPoint& at);
    /// The suggestion that is highlighted was taken by a key.
    void suggestionTaken(const QModelIndex& index);

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    /// A text that is too long for its cell ends in dots until it is edited.
    void paintEvent(QPaintEvent* event) override;

private:
    bool takeSuggestion();
};

/// One line of the table: its cells, the second line of text below the name, the amount and a menu. Without an id it is
/// the empty place below the last line, of which only the name is shown.
class LineRow : public QWidget {
    Q_OBJECT

public:
    explicit LineRow(std::size_t index, QWidget* parent = nullptr);

    void fill(const Line& line, const Currency& currency, const QString& amount);
    void clear();
    /// Drops what is being typed.
    void forget();
    void setCompact(bool compact);
    void setTaxShown(bool shown);
    /// The line with what is typed and can be read.
    [[nodiscard]] Line pending(Line line, const Currency& currency) const;
    /// A typed text as a part of a line; a sentence where it cannot be read.
    [[nodiscard]] static QString read(Line& line, LineCell cell, const QString& text, const Currency& currency);

    [[nodiscard]] const std::optional<UUID>& id() const { return id_; }
    [[nodiscard]] Cell& cell(LineCell cell) const { return *cells_[static_cast<std::size_t>(cell)]; }
    [[nodiscard]] GrowingText& detail() const { return *detail_; }
    [[nodiscard]] QToolButton& menu() const { return *menu_; }
    [[nodiscard]] bool hasUnsavedText() const;
    void setAmount(const QString& amount);

protected:
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void showDetail();

    std::optional<UUID> id_;
    bool compact_ = false;
    std::array<Cell*, lineCells> cells_{};
    GrowingText* detail_;
    QWidget* figures_;
    QLabel* amount_;
    QToolButton* menu_;
    QGridLayout* grid_;
};

/// Where the parts of a line stand, shared with the titles above them: name, figures and amount in one row, or the
/// figures in a row of their own where there is little room.
void arrangeLine(QGridLayout& grid, bool compact, QWidget* name, QWidget* detail, QWidget* figures, QWidget* amount,
                 QWidget* menu);
/// Width of a figure's cell.
[[nodiscard]] int widthOf(LineCell cell);
[[nodiscard]] Qt::Alignment alignmentOf(LineCell cell);
[[nodiscard]] QString titleOf(LineCell cell);
inline constexpr int amountWidth = 104;

}  // namespace tamba
