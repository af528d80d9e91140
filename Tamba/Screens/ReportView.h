#pragma once

#include "Tamba/Rows/ReportRows.h"

#include <QScrollArea>

#include <vector>

class QVBoxLayout;

namespace tamba {

class TableView;

/// One report as a page that scrolls: remarks, bars, tables and what is to be known about them. A click on a figure, a
/// bar or a remark asks for its records.
class ReportView : public QScrollArea {
    Q_OBJECT

public:
    explicit ReportView(QWidget* parent = nullptr);
    void show(const ReportPage& page, const Library& library);
    /// Until the figures are there.
    void showBusy();
    [[nodiscard]] const ReportPage& page() const { return page_; }
    /// The table that the keys are in, else the first; null where the page has none.
    [[nodiscard]] TableView* currentTable() const;

signals:
    void recordsChosen(const tamba::ReportRecords& records);
    /// A remark about one record leads to it at once.
    void documentChosen(const tamba::UUID& id);
    void expenseChosen(const tamba::UUID& id);
    void openLinesChosen();
    void bundleChosen();
    void journalChosen(tamba::IncomeBasis basis);
    void booksChosen();
    void printChosen();
    void saveChosen();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void begin();
    void placeTitles();
    QVBoxLayout* addCard(const QString& title = {});
    void addRemarks();
    void addRemarkGroup(const QString& title, const char* pill, Tone tone);
    QWidget* remarkLine(std::size_t index);
    void addChart(const Library& library);
    void addShares();
    void addTable(const Table& table);
    void addYearEnd(const Library& library);
    void addNote(const std::string& sentence, QVBoxLayout& to);

    ReportPage page_;
    QWidget* content_ = nullptr;
    QVBoxLayout* rows_ = nullptr;
    std::vector<TableView*> tables_;
};

}  // namespace tamba
