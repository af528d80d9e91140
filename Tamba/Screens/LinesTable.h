#pragma once

#include "Tamba/AppModel.h"
#include "Tamba/Screens/LineRow.h"

#include <QWidget>

#include <functional>
#include <vector>

class QCompleter;
class QGridLayout;
class QLabel;
class QStandardItemModel;
class QVBoxLayout;

namespace tamba {

/// The lines of a draft as a table to be typed into, with an empty place below the last. Tab moves from cell to cell
/// and on to the empty place, Enter goes down, Ctrl+Delete removes a line, Alt with an arrow moves it; the name
/// completes from the catalogue, whose price, code, unit and tax come along.
class LinesTable : public QWidget {
    Q_OBJECT

public:
    using Change = std::function<Document(const Library&, Document)>;
    /// Carries out a change of the draft; gives the sentence where it is refused.
    using Apply = std::function<QString(const Change&)>;

    LinesTable(AppModel& model, Apply apply, QWidget* parent = nullptr);

    /// Shows the lines as the books have them; a cell that is being typed into is left alone.
    void fill(const Document& draft);
    /// Drops what is being typed, for another document.
    void forget();
    /// Takes what is being typed.
    void commit();
    [[nodiscard]] bool hasUnsavedText() const;
    /// The draft with what is typed and can be read: for totals that follow every key.
    [[nodiscard]] Document pending(Document draft) const;
    /// Shows the amounts of a draft beside the lines.
    void showAmounts(const Document& draft);
    void setCompact(bool compact);
    void focusFirst();

signals:
    void typed();
    void noticed(const QString& sentence);

private:
    void makeTitles();
    LineRow* addRow();
    void connectRow(LineRow& row);
    void fillSuggestions(const Library& library);
    void take(LineRow& row, LineCell column);
    void takeDetail(LineRow& row);
    void takeItem(LineRow& row, const UUID& item);
    void remove(LineRow& row);
    void move(LineRow& row, int lines);
    void goTo(LineRow& row, LineCell column, int lines);
    void menu(LineRow& row, const QPoint& at);
    void saveAsItem(LineRow& row);
    void showProblem(Cell& cell, const QString& sentence);
    void refill();
    [[nodiscard]] std::size_t indexOf(const LineRow& row) const;
    [[nodiscard]] const Document* draft() const;
    [[nodiscard]] const Line* lineOf(const LineRow& row) const;

    AppModel& model_;
    Apply apply_;
    UUID document_;
    bool filling_ = false;
    bool compact_ = false;
    bool tax_ = true;
    std::vector<LineRow*> rows_;
    QVBoxLayout* layout_;
    QWidget* titles_;
    QGridLayout* titleGrid_;
    QWidget* titleName_;
    QWidget* titleFigures_;
    QWidget* titleAmount_;
    QWidget* titleMenu_;
    QLabel* titleTax_ = nullptr;
    QLabel* problem_;
    QCompleter* suggestions_;
    QStandardItemModel* items_;
    List<CatalogItem> shownItems_;
};

}  // namespace tamba
