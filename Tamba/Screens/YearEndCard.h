#pragma once

#include "TambaCore/Reports/Reports.h"

#include <QFrame>

class QPushButton;

namespace tamba {

/// What leaves the books once a year: the bundle for the accountant, the journal for other programs, and the plain
/// tables.
class YearEndCard : public QFrame {
    Q_OBJECT

public:
    /// `year`: "FY 2026-27".
    explicit YearEndCard(const QString& year, QWidget* parent = nullptr);

signals:
    void bundleChosen();
    void journalChosen(tamba::IncomeBasis basis);
    void booksChosen();

private:
    QPushButton* addLine(const QString& title, const QString& words, const QString& action, const char* name,
                         QWidget* choice = nullptr);
};

}  // namespace tamba
